// pulse.h - "Generation of Waveform": the settings of a computed record, and opening and closing of its panel.
// The settings are in panels_state.h; running, saving and the measurement in pulse_run.h, graphs in
// pulse_display.h.
#pragma once

#include <string>

#include "runtime/controls.h"
#include "runtime/refusal.h"

namespace sondera {

/// Record to panel; the time step and the length follow from the span and the points. Both texts stay empty
/// for a span that is not above 0 or less than one point.
void SetPulseParm();
/// Panel to record. The file stays unless the shape is that of a file.
void GetPulseParm();

/// Menu item: fills the panel and shows it instead of the pages of the main window.
int Pulse_WaveformMenuCallback(Panel panel, ControlId control, Event event, long data);
/// Menu item and button: the layers and receivers, in the panel of the forward model.
int Pulse_LayeringRecMenuCallback(Panel panel, ControlId control, Event event, long data);
int Pulse_OpenProfileRecCallback(Panel panel, ControlId control, Event event, long data);
/// SHAPE goes to the record, and FILE with the shape of a file; NPOINTS, CFREQ and FREQSPAN do too, and the two times follow.
int Pulse_SrcShapeCallback(Panel panel, ControlId control, Event event, long data);
int Pulse_NPointsCallback(Panel panel, ControlId control, Event event, long data);
/// Asks for the file of the source; STATUSMSG shows its faults, and a run refuses it.
int Pulse_SrcFileBrowseCallback(Panel panel, ControlId control, Event event, long data);
/// The force over time of a file, for the next run. A name without a folder is in the current one.
Refusal LoadSrcFunction(const std::string& path);
/// Hides the panel and shows the page that was there before.
int Pulse_CloseCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
