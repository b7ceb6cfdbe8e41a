// project_hooks.h - functions that a front end needs of the project, without knowing it: unsaved changes,
// save, open. app/ installs them at session start.
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
  std::function<std::string()> rescue;
};

/// Installs the functions and returns the former ones. An empty entry returns no, or refuses with -1.
ProjectHooks InstallProjectHooks(ProjectHooks next);

/// Whether a save would write other bytes than those of the project when it was last read, written or
/// created.
bool HasUnsavedChanges();
/// Presses Save; asks for a name where there is none. 0, or -1 when nothing was saved.
int SaveProjectNow();
/// Presses Open for this file. For a file that does not exist, or that another process has, there is one
/// message, and the present project stays. 0, or -1.
int OpenProject(const std::string& path);
/// Asks for the file first and then opens it in this way; after Cancel nothing has changed. 0, or -1.
int AskAndOpenProject();

/// File of the open project; empty while it has none.
std::string ProjectPath();

/// Before a sudden end: writes a project with unsaved changes beside its file, or where that is impossible elsewhere, and
/// leaves the file alone. The name of the new file; empty when there was nothing to keep, or nowhere to write.
std::string RescueProject();

/// Runs an action that only displays data (a page, a choice of a trace, a redraw). It may change the records,
/// for example create the record of a pair that was never shown before; such changes alone do not count as
/// unsaved.
void LookAround(const std::function<void()>& look);

}  // namespace sondera
