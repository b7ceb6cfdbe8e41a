// project_requests.h - how a front end opens and saves the project. Called through runtime/project_hooks.h.
#pragma once

#include <string>

namespace sondera {

/// Presses Open with this file as the answer to its dialog. For a missing file, or one that another process
/// has, there is one message and nothing has changed. 0, or -1.
int OpenProjectFile(const std::string& path);
/// Asks for the file, then opens it in this way. After Cancel nothing has changed. 0, or -1.
int AskAndOpenProjectFile();
/// Presses Save. 0, or -1.
int SaveProjectFile();
/// Writes a project with unsaved changes to "<name>.rescued.da" beside its file (a project without a name:
/// "unsaved.rescued.da" in the current folder), else into the home folder or that for temporary files. A file that
/// exists is never replaced: the next one is ".rescued2.da". The name of the new file; empty: none.
std::string RescueProjectFile();

}  // namespace sondera
