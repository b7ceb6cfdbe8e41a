// project_doors.h - the project as a front end opens and saves it. Behind runtime/project_hooks.h.
#pragma once

#include <string>

namespace sondera {

/// Presses Open with this file as the answer to its dialog. A missing file, or one that another process has, is told
/// in one message before anything has changed. 0, or -1.
int OpenProjectFile(const std::string& path);
/// Asks for the file, then opens it so. After Cancel nothing has changed. 0, or -1.
int AskAndOpenProjectFile();
/// Presses Save. 0, or -1.
int SaveProjectFile();

}  // namespace sondera
