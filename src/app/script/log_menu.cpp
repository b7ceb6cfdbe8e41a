// log_menu.cpp - see log_menu.h.
#include "app/script/log_menu.h"

#include <string>

#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/session_log.h"
#include "records/session.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/paths.h"
#include "runtime/project_hooks.h"

namespace sondera::script {
namespace {

constexpr const char* kFilter = "*.txt";

FileChoice AskForScript(const char* title, bool forSaving) {
  return FileSelectPopup({ProjectDirectory(), kFilter, title, forSaving});
}

std::string Sentence(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text + ".";
}

}  // namespace

int LogBeginCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (IsLogging()) return Refuse("A log is written already. End it first.");
  if (HasUnsavedChanges()) return Refuse("Save the project first: the log begins with it.");
  const FileChoice choice = AskForScript("Begin a Log", true);
  if (choice.answer == FileAnswer::Cancelled) return 0;
  const std::string fault = BeginLogOn(choice.path, session.projectFileName);
  return fault.empty() ? 0 : Refuse(Sentence(fault));
}

int LogEndCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (!IsLogging()) return Refuse("No log is written.");
  const std::string fault = EndLog();
  return fault.empty() ? 0 : Refuse(Sentence(fault));
}

int LogRunCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (!PersonAnswers()) return Refuse("A script cannot run another one by this item.");
  if (IsLogging()) return Refuse("End the log first: it cannot hold the lines of another script.");
  const FileChoice choice = AskForScript("Run a Log or Script", false);
  if (choice.answer == FileAnswer::Cancelled) return 0;
  if (choice.answer != FileAnswer::Exists) return Refuse("File does not exist.");
  std::string faults;
  RunOptions options;
  options.onFault = [&](const std::string& fault) { faults += (faults.empty() ? "" : "\n") + fault; };
  SetWaitCursor(true);
  try {
    Source source = Source::OfFile(choice.path);
    Run(FileNameOf(choice.path), options).run(source);
  } catch (const Fault& fault) {
    faults = Sentence(fault.reason);
  }
  SetWaitCursor(false);
  return faults.empty() ? 0 : Refuse(faults);
}

}  // namespace sondera::script
