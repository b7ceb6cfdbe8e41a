// project_questions.cpp - see project_questions.h. Owns no state.
#include "gui/project_questions.h"

#include <functional>
#include <string_view>

#include "gui/boxes.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/panel.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/input_scope.h"
#include "runtime/project_hooks.h"

namespace sondera {
namespace {

// Each step is a separate action for the log of the session: the save, then the action that leaves the
// project.

void Send(const Control& c) {
  InputScope input({.kind = Input::Kind::Press, .control = &c});
  input.note(SendEvent(c, Event::Commit));
}

int Save() {
  InputScope input({.kind = Input::Kind::Press, .control = &measpanel::F6});
  const int result = SaveProjectNow();
  input.note(result);
  return result;
}

/// Opens by a function that returns whether it succeeded.
void Open(const std::function<int()>& open) {
  InputScope input({.kind = Input::Kind::Open, .control = &mainmenu::LOAD_RAW_DATA});
  input.note(open());
}

/// Asks what to do with the changes: false when the person cancels, or the save failed.
bool SettleChanges(std::string_view question) {
  switch (AskAboutUnsaved(question)) {
    case UnsavedAnswer::Save:
      return Save() == 0;
    case UnsavedAnswer::DontSave:
      return true;
    default:
      return false;
  }
}

/// Presses a control whose first question is the one about the changes, if there are any.
void PressAfter(const Control& c, std::string_view question) {
  if (!HasUnsavedChanges()) {
    Send(c);
    return;
  }
  if (!SettleChanges(question)) return;
  OneShotAnswers answers;
  answers.Confirm(true);
  Send(c);
}

constexpr std::string_view kQuit = "Do you want to exit the program ?",
                           kOpen = "Do you want to open another project ?",
                           kNew = "All the measurements will be removed. Do you want to proceed ?";

}  // namespace

void PressQuit() {
  PressAfter(panel::CLOSE, kQuit);
}

void OpenAfterQuestion(const std::string& path) {
  if (HasUnsavedChanges() && !SettleChanges(kOpen)) return;
  Open([&] { return OpenProject(path); });
}

bool PressWithQuestions(const Control& c) {
  if (&c == &panel::CLOSE || &c == &mainmenu::QUIT) {
    PressAfter(c, kQuit);
  } else if (&c == &mainmenu::NEW_MEASUREMENT) {
    PressAfter(c, kNew);
  } else if (&c == &mainmenu::LOAD_RAW_DATA || &c == &measpanel::F9) {
    if (!HasUnsavedChanges() || SettleChanges(kOpen)) Open(AskAndOpenProject);
  } else {
    return false;
  }
  return true;
}

}  // namespace sondera
