// project_hooks.cpp - see project_hooks.h. Owns the installed functions.
#include "runtime/project_hooks.h"

#include <utility>

namespace sondera {
namespace {

ProjectHooks hooks;

}  // namespace

ProjectHooks InstallProjectHooks(ProjectHooks next) {
  return std::exchange(hooks, std::move(next));
}

bool HasUnsavedChanges() {
  return hooks.hasUnsavedChanges && hooks.hasUnsavedChanges();
}
int SaveProjectNow() {
  return hooks.save ? hooks.save() : -1;
}
int OpenProject(const std::string& path) {
  return hooks.open ? hooks.open(path) : -1;
}
int AskAndOpenProject() {
  return hooks.askAndOpen ? hooks.askAndOpen() : -1;
}

std::string ProjectPath() {
  return hooks.path ? hooks.path() : std::string();
}

std::string RescueProject() {
  return hooks.rescue ? hooks.rescue() : std::string();
}

void LookAround(const std::function<void()>& look) {
  const bool unsaved = HasUnsavedChanges();
  look();
  if (!unsaved && hooks.takeAsSaved) hooks.takeAsSaved();
}

}  // namespace sondera
