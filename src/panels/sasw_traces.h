// sasw_traces.h - selects what a trace of the masking page or the measurement page shows: measurement,
// channels, display type, and the per-trace settings. Both pages have the same controls.
//
// Each draws again; when there is nothing to draw the control returns to its value at focus in. Each ends by
// updating the filter dialog, so that it shows the pair on display.
#pragma once

#include "runtime/controls.h"

namespace sondera {

int DisplayAChanlCallback(Panel panel, ControlId control, Event event, long data);
int DisplayBChanlCallback(Panel panel, ControlId control, Event event, long data);
int UpdateARefChannelCallback(Panel panel, ControlId control, Event event, long data);
int UpdateBRefChannelCallback(Panel panel, ControlId control, Event event, long data);
int DisplayATypeCallback(Panel panel, ControlId control, Event event, long data);
int DisplayBTypeCallback(Panel panel, ControlId control, Event event, long data);
int DisplayAMeasIDCallback(Panel panel, ControlId control, Event event, long data);
int DisplayBMeasIDCallback(Panel panel, ControlId control, Event event, long data);

/// The trace whose settings the controls show has changed.
int TraceOnOffCallback(Panel panel, ControlId control, Event event, long data);
/// Stores a per-trace setting (unit, log or linear, markers, automatic scales) in the trace's record.
int TraceSettingCallback(Panel panel, ControlId control, Event event, long data);
int RedrawGraphCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
