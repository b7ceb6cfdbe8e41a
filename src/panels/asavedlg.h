// asavedlg.h - automatic save of measurements in the field: the whole project under a numbered name,
// repeatedly and without a question.
//
// The dialog ASAVEDLG holds all state: PATHNAME the folder, AUTOFILE the numbered name ("Trace_2"), FILENAME
// the same for display. Callers: button F10 of the measurement page, the dialog's buttons, the measurement
// run.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Sets the folder of the project and the next numbered name, and shows the dialog. The name is split at "_"
/// into a base and a number, which increases by 1; a missing number counts as 0. Kept: the text after a
/// second "_" is dropped, and a second part that is no number counts as 0.
void AutoSaveDlg();
/// Writes the project to "<PATHNAME><AUTOFILE>.da": no question, no backup copy, and the project keeps its
/// own file name; the window title shows the new one. Returns 0; -1 after one message.
int AutoSaveMeasurements();

// F10, and the buttons SAVE, CHANGEPATH, CLOSE of the dialog.
int AutoSaveDlgCallback(Panel panel, ControlId control, Event event, long data);
int AutoSaveCallback(Panel panel, ControlId control, Event event, long data);
int ChangePathCallback(Panel panel, ControlId control, Event event, long data);
int AutoSaveCloseCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
