// pulse_display.h - the graphs of "Generation of Waveform": traces A and B with their settings, and all
// receivers. The settings are in panels_state.h.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Fills the rings of the channels for the present record, and draws the three graphs. Without a record they
/// are empty.
void ShowNewWaveform();
/// Draws the three graphs.
void DrawWaveform();

/// DISPACHNL, DISPATYPE, DISPBCHNL, DISPBTYPE: draws.
int Pulse_DisplayCallback(Panel panel, ControlId control, Event event, long data);
/// VOLT_UNIT, LOG_LINEAR, MARKERS_ONOFF, AUTOSCALE_X, AUTOSCALE_Y: of the traces that TRACE_ONOFF names.
int Pulse_TraceSettingCallback(Panel panel, ControlId control, Event event, long data);
/// TRACE_ONOFF: the settings of that trace.
int Pulse_TraceOnOffCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
