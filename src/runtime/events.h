// events.h - the event loop, the polls inside long loops, the wait cursor, and the interrupt of a terminal.
#pragma once

namespace sondera {

/// Lets pending user input take effect. Long loops call it at fixed points; it is the only place where a
/// person's Stop or Halt can get in, besides InterruptRequested.
void ProcessSystemEvents();

/// Runs the front end's event loop until QuitUserInterface; returns the value given there.
int RunUserInterface();

/// Ends RunUserInterface. Before a loop runs it is remembered, so that the loop is never entered.
void QuitUserInterface(int result);

/// True once QuitUserInterface has been called; the program is on its way out.
bool QuitRequested();

/// Forgets a quit and an interrupt; a session starts with it.
void ResetEvents();

/// A halt ends the whole press that it came in, also where that press makes others: whoever asks for a halt or
/// ends by one notes it, and a chain of presses asks before each of them. A chain, and a run, begin by forgetting
/// what was noted before.
void NoteHalt();
bool PressHalted();
void ForgetHalt();

/// Shows or takes away the wait cursor. Calls do not nest.
void SetWaitCursor(bool on);
bool WaitCursorShown();

/// Interrupt of a terminal (Ctrl-C). The signal handler calls RequestInterrupt, which only sets a flag; loops
/// that can be halted ask for it where they poll events. A second request that comes more than two seconds
/// later, while the first still waits, ends the process; earlier ones mean the first (a terminal's wrapper
/// may send it twice, and what is kept is being saved then).
void RequestInterrupt();
bool InterruptRequested();
void ClearInterrupt();

}  // namespace sondera
