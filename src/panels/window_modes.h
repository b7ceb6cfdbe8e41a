// window_modes.h - the four pages of the main window and what their titles say.
#pragma once

#include "runtime/controls.h"

namespace sondera {

int MeasModeCallback(Panel panel, ControlId control, Event event, long data);        ///< masking page
int PerformTestCallback(Panel panel, ControlId control, Event event, long data);     ///< measurement page
int DispersionModeCallback(Panel panel, ControlId control, Event event, long data);  ///< dispersion page
int SetupModeCallback(Panel panel, ControlId control, Event event, long data);
int SetupHDWareCallback(Panel panel, ControlId control, Event event, long data);
int SetupMeasSetupCallback(Panel panel, ControlId control, Event event, long data);
int HWSetupOKCallback(Panel panel, ControlId control, Event event, long data);

/// Results page for forward modelling (FMDORINV 1) or inversion (any other value).
int ChooseAnalysisCallback(Panel panel, ControlId control, Event event, long data);
void UpdateWindowFace(int mode);

}  // namespace sondera
