// pulse_run.h - actions of "Generation of Waveform": settings that fit the site, the run, the files, and the
// measurement made from a record.
//
// The force, the grid and the motion are those of the panel, layers and receivers those of the forward model.
// The present record is in panels_state.h; only a completed run replaces it. Callbacks act on the commit event
// and return 0, or -1 after one message or a halt.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// FIT: centre frequency, span and points for the layers and receivers.
int Pulse_FitToSiteCallback(Panel panel, ControlId control, Event event, long data);
/// RUN: computes the records; meanwhile only HALT works. Result files of the project stay as they are.
int Pulse_RunWaveFormGenCallback(Panel panel, ControlId control, Event event, long data);
/// SAVE: asks for a name and writes the files of SAVEOPTION (project/waveform_files.h).
int Pulse_SaveResultsCallback(Panel panel, ControlId control, Event event, long data);
/// TOMEAS: makes the measurement MEASID of the record, with the blows and noise of the panel, and offers masks
/// for all pairs of neighbours outside 0.2 to 4 times the centre frequency.
int Pulse_ToMeasurementCallback(Panel panel, ControlId control, Event event, long data);

/// Menu items: the same as RUN and SAVE.
int Pulse_RunFullWaveMenuCallback(Panel panel, ControlId control, Event event, long data);
int Pulse_SaveResultsMenuCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
