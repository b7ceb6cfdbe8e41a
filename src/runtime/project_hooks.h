// project_hooks.h - what a front end asks of the project, without knowing it: unsaved changes, save, open. app/ installs
// the functions at session start.
#pragma once

#include <functional>
#include <string>

namespace sondera {

struct ProjectHooks {
  std::function<bool()> hasUnsavedChanges;
  std::function<void()> takeAsSaved;
  std::function<int()> save;
  std::function<int(const std::string& path)> open;
  std::function<int()> askAndOpen;
  std::function<std::string()> path;
};

/// Installs the functions and returns the former ones. An empty slot says no, or refuses with -1.
ProjectHooks InstallProjectHooks(ProjectHooks next);

/// The bytes that a save would write differ from those of the project as it was last read, written or begun.
bool HasUnsavedChanges();
/// Presses Save; asks for a name where there is none. 0, or -1 when nothing was saved.
int SaveProjectNow();
/// Presses Open for this file. A file that is not there, or that another process has, is told in one message, and the
/// present project stays as it is. 0, or -1.
int OpenProject(const std::string& path);
/// Asks for the file first and then opens it so; after Cancel nothing has changed. 0, or -1.
int AskAndOpenProject();

/// File of the open project; empty while it has none.
std::string ProjectPath();

/// Runs what only looks around (a page, a choice of a trace, a redraw). It may leave marks in the records, such as the
/// record of a pair that was never shown before; they alone make no unsaved change.
void LookAround(const std::function<void()>& look);

}  // namespace sondera
