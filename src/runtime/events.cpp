// events.cpp - event polls and the end of the program. Owns the quit and interrupt flags.
#include "runtime/events.h"

#include <time.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>

#include "runtime/changes.h"
#include "runtime/dialogs.h"
#include "runtime/interrupt_hold.h"
#include "runtime/session_watch.h"

namespace sondera {
namespace {

struct EventState {
  std::optional<int> quit;
  bool waitCursor = false;
  bool halted = false;
  bool runsFinishSteps = false, interruptHeld = false;
};
EventState state;
volatile std::sig_atomic_t interruptFlag = 0;  // set from a signal handler, as the time is
volatile time_t interruptTime = 0;
constexpr time_t kPatience = 2;  // seconds during which a repeated request counts as the same one

}  // namespace

void ProcessSystemEvents() {
  FlushChanges();
  if (TheSessionWatcher().polled) TheSessionWatcher().polled();
  if (CurrentFrontEnd().processEvents) CurrentFrontEnd().processEvents();
}

int RunUserInterface() {
  if (!state.quit && CurrentFrontEnd().run) return CurrentFrontEnd().run();
  return state.quit.value_or(0);
}

void QuitUserInterface(int result) {
  state.quit = result;
  if (CurrentFrontEnd().quit) CurrentFrontEnd().quit(result);
}

bool QuitRequested() {
  return state.quit.has_value();
}

void ResetEvents() {
  state = {};
  interruptFlag = 0;
}

void NoteHalt() {
  state.halted = true;
}
bool PressHalted() {
  return state.halted;
}
void ForgetHalt() {
  state.halted = false;
}

void SetWaitCursor(bool on) {
  state.waitCursor = on;
  if (CurrentFrontEnd().waitCursor) CurrentFrontEnd().waitCursor(on);
}

bool WaitCursorShown() {
  return state.waitCursor;
}

// All of it must be safe in a signal handler.
void RequestInterrupt() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  if (interruptFlag && now.tv_sec - interruptTime > kPatience) {
    constexpr char kText[] = "\nsondera: interrupted twice; what was not saved is lost.\n";
    [[maybe_unused]] const ssize_t n = ::write(STDERR_FILENO, kText, sizeof kText - 1);
    std::_Exit(1);
  }
  if (!interruptFlag) interruptTime = now.tv_sec;
  interruptFlag = 1;
}
bool InterruptRequested() {
  return interruptFlag != 0 && !state.interruptHeld;
}
void ClearInterrupt() {
  interruptFlag = 0;
}

void LetRunsFinishSteps(bool on) {
  state.runsFinishSteps = on;
}
InterruptHold::InterruptHold() {
  state.interruptHeld = state.runsFinishSteps;
}
InterruptHold::~InterruptHold() {
  state.interruptHeld = false;
}
void InterruptHold::StepIsDone() {
  if (interruptFlag != 0) state.interruptHeld = false;
}

}  // namespace sondera
