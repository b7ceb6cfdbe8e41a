// hmsetup.h - choosing, adding, renaming and removing measurements in the set-up dialog.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// A measurement chosen in the list becomes the current one; all dialogs show its settings. -1 when its
/// hardware settings are missing.
int UpdateMeasIDListCallback(Panel panel, ControlId control, Event event, long data);

/// New project text: every measurement with the old text (stored at focus in) gets the new one.
int UpdateProjIDCallback(Panel panel, ControlId control, Event event, long data);
/// New measurement text: the measurement with the text stored at focus in gets the new one.
int UpdateMeasIDCallback(Panel panel, ControlId control, Event event, long data);

/// Asks for an id and adds an empty measurement; an existing id is refused.
int AddMeasIDCallback(Panel panel, ControlId control, Event event, long data);
/// Buttons of the measurement page: "New" shows the hardware settings and adds a measurement, "Setup" shows them.
int F1Callback(Panel panel, ControlId control, Event event, long data);
int F2Callback(Panel panel, ControlId control, Event event, long data);
/// Asks, then renames the current measurement.
int RenameMeasIDCallback(Panel panel, ControlId control, Event event, long data);
/// Asks, then removes the current measurement with its data and pairs; the last one cannot be removed.
int UpdateRemoveMeasIDCallback(Panel panel, ControlId control, Event event, long data);
int RemoveMeasIDCallback(Panel panel, ControlId control, Event event, long data);

/// OK on commit: hides the dialog.
int HWSetupOKCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
