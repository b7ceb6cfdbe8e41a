// events.cpp - event polls and the way out. Owns the quit and interrupt flags.
#include "runtime/events.h"

#include <csignal>
#include <cstdlib>
#include <optional>

#include "runtime/dialogs.h"

namespace sondera {
namespace {

struct EventState {
  std::optional<int> quit;
  bool waitCursor = false;
};
EventState state;
volatile std::sig_atomic_t interruptFlag = 0;  // set from a signal handler

}  // namespace

void ProcessSystemEvents() {
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

void SetWaitCursor(bool on) {
  state.waitCursor = on;
  if (CurrentFrontEnd().waitCursor) CurrentFrontEnd().waitCursor(on);
}

bool WaitCursorShown() {
  return state.waitCursor;
}

void RequestInterrupt() {
  if (interruptFlag) std::_Exit(1);
  interruptFlag = 1;
}
bool InterruptRequested() {
  return interruptFlag != 0;
}
void ClearInterrupt() {
  interruptFlag = 0;
}

}  // namespace sondera
