// hwsetup_configure.h - the button Configure: checks the hardware settings with the board and takes them. Owns no state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// COFIG_SETUP: tries the settings on display with the board, which may round the span, and commits them to the
/// current measurement with fresh zero data. Settings that the board refuses change nothing; a measurement that holds
/// data asks first. Without a board the settings are held against the session's facts only.
/// Kept: with "All Channels" the first channel keeps its coupling, grounding and range.
int ConfigSetupCallback(Panel panel, ControlId control, Event event, long data);

/// Run at the end of Configure: graphs A and B of the measurement page, where they show time or nothing, get the
/// window of a record and the range of the first input. No plot is deleted.
int UpdateHWSetupCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
