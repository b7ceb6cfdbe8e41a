// events.h - the event loop, the polls inside long loops, the wait cursor, and the interrupt of a terminal.
#pragma once

namespace sondera {

/// Processes pending user input. Long loops call it at fixed points; besides InterruptRequested it is the
/// only way for a person's Stop or Halt to take effect.
void ProcessSystemEvents();

/// Runs the front end's event loop until QuitUserInterface; returns the value given there.
int RunUserInterface();

/// Ends RunUserInterface. If no loop is running it is remembered, and the next loop is not entered.
void QuitUserInterface(int result);

/// True once QuitUserInterface has been called: the program is about to end.
bool QuitRequested();

/// Clears a quit and an interrupt; a session starts with it.
void ResetEvents();

/// A halt ends the whole press during which it came, also where that press makes others: code that requests a
/// halt or ends because of one notes it, and a chain of presses checks before each of them. A chain, and a
/// run, begin by clearing earlier halts.
void NoteHalt();
bool PressHalted();
void ForgetHalt();

/// Shows or removes the wait cursor. Calls do not nest.
void SetWaitCursor(bool on);
bool WaitCursorShown();

/// Interrupt of a terminal (Ctrl-C). The signal handler calls RequestInterrupt, which only sets a flag; loops
/// that can be halted check it where they poll events. A second request more than two seconds later, while
/// the first is still pending, ends the process; earlier ones count as the first (a terminal's wrapper may
/// send it twice, while results are being saved).
void RequestInterrupt();
bool InterruptRequested();
void ClearInterrupt();

}  // namespace sondera
