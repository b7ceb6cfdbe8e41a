// cdisppnl_files.h - the buttons of the panel "Representative Disp. Curve" that write files. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Button SAVEGCD: asks for a file and writes the global curve. -1 when an existing file is not to be
/// overwritten, or (with a message) when it cannot be written. Kept: a cancelled dialog goes on with the name
/// that it left, usually none, which is such a failure.
int SaveGCDCallback(Panel panel, ControlId control, Event event, long data);
/// Button SAVEICD: the same for the array curves. -1 with a message, before a file is asked for, for a pair
/// with the source between its receivers; SAVERED the same.
int SaveICDCallback(Panel panel, ControlId control, Event event, long data);
/// Button SAVERED: both in one file, after "*GCD" and "*ICD". Nothing happens after Cancel. Kept: an existing
/// file is overwritten without a question (the dialog has its own).
int SaveREDCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
