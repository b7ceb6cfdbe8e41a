// log_menu.h - the items of the menu that begin and end the log of a session, and that run a log again. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera::script {

/// Asks for a file and begins a log that starts with the project. Refused while one is written, and with changes that are
/// not saved, since the log could not bring them back.
int LogBeginCallback(Panel panel, ControlId control, Event event, long data);
/// Ends the log and says where it is.
int LogEndCallback(Panel panel, ControlId control, Event event, long data);
/// Asks for a file and runs it on the project that is open; what it could not do is said in one message. For a person
/// only, and not while a log is written.
int LogRunCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera::script
