// shutdown.h - the ends of the program.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Releases all data of the session. StartSession may follow.
void ClearAllMemories();

/// Asks whether to save the project, and saves it. The last step of a process that must end
/// (numeric/process_end.h).
void OfferSave();

/// Ends the program without a question; status becomes the result of RunUserInterface.
void QuitApp(int status = 0);
/// Menu item and close control: ask first.
int QuitCallback(Panel panel, ControlId control, Event event, long data);
int QuitProgCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
