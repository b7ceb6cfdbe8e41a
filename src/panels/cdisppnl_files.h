// cdisppnl_files.h - the buttons of the panel "Representative Disp. Curve" that write files. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Button SAVEGCD: asks for a file and writes the global curve. -1 when an existing file must not be
/// overwritten, or (with a message) when it cannot be written. Kept: after a cancelled dialog it uses the
/// name that the dialog left, usually none, which fails in this way.
int SaveGCDCallback(Panel panel, ControlId control, Event event, long data);
/// Button SAVEICD: the same for the array curves. For a pair with the source between its receivers: -1 with a
/// message, before it asks for a file; SAVERED too.
int SaveICDCallback(Panel panel, ControlId control, Event event, long data);
/// Button SAVERED: both in one file, after "*GCD" and "*ICD". Nothing happens after Cancel. Kept: an existing
/// file is overwritten without a question (the dialog has its own).
int SaveREDCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
