// pulse.h - "Generation of Waveform": the settings of a synthetic time history. Nothing is made from them yet, so Run and
// Save are dimmed. The settings are in panels_state.h.
#pragma once

#include <string>

#include "runtime/controls.h"

namespace sondera {

/// Record to panel; the time step and the length follow from the span and the points.
void SetPulseParm();
/// Panel to record. The file stays unless the shape is that of a file.
void GetPulseParm();

/// Menu item: fills the panel and shows it.
int Pulse_WaveformMenuCallback(Panel panel, ControlId control, Event event, long data);
/// Menu item and button: the layers and receivers, in the panel of the forward model.
int Pulse_LayeringRecMenuCallback(Panel panel, ControlId control, Event event, long data);
int Pulse_OpenProfileRecCallback(Panel panel, ControlId control, Event event, long data);
/// SHAPE goes to the record; NPOINTS, CFREQ and FREQSPAN do too, and the two times follow.
int Pulse_SrcShapeCallback(Panel panel, ControlId control, Event event, long data);
int Pulse_NPointsCallback(Panel panel, ControlId control, Event event, long data);
/// Asks for the file of the source and hands it to LoadSrcFunction.
int Pulse_SrcFileBrowseCallback(Panel panel, ControlId control, Event event, long data);
/// Kept: does nothing. No source is read.
void LoadSrcFunction(const std::string& path);
int Pulse_CloseCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
