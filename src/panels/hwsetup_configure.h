// hwsetup_configure.h - the button Configure: checks the hardware settings with the board and stores them.
// Owns no state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// COFIG_SETUP: tries the displayed settings with the board, which may round the span, and stores them in the
/// current measurement with fresh zero data. Settings that the board refuses change nothing; for a
/// measurement with data it asks first. Without a board the settings are only checked against the session's
/// device data.
/// Kept: with "All Channels" the first channel keeps its coupling, grounding and range.
int ConfigSetupCallback(Panel panel, ControlId control, Event event, long data);

/// Called at the end of Configure: graphs A and B of the measurement page, if they show time or nothing, get
/// the time range of a record and the range of the first input. No plot is deleted.
int UpdateHWSetupCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
