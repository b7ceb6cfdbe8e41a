// startup.h - the beginning of a session.
#pragma once

namespace sondera {

/// Everything before the dispatch on the command line: installs callbacks and redraw handlers, initialises
/// the settings store, finds the boards, sets the session's defaults and makes measurement key 1 ("ProjID",
/// "measID"). May be called again at any time for a fresh start; tests begin with it.
void StartSession();

/// The first step of it: the state of every folder as at the start of the program. Callbacks, redraw
/// handlers, the front end and the driver of the board stay. Test fixtures begin and end with it.
void ResetProgramState();

}  // namespace sondera
