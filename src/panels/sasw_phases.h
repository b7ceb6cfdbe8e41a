// sasw_phases.h - the check boxes of the phase curves on the masking page, and the choice of the one that feeds
// the dispersion. What the boxes showed before a click is in panels_state.h.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Check boxes PHASE_ORIGINAL, PHASE_ENHANCED, PHASE_BACKBONE: the curve that feeds the dispersion is always
/// drawn, so one of the three always is. Left click: stores the boxes; commit: corrects them and redraws.
int PhaseOptionCallback(Panel panel, ControlId control, Event event, long data);

/// DISPCURV_OPTION on commit: stores the curve in the pair on display, turns its box on and redraws. Without
/// a pair: "Perform IRF first.", -1.
int DispCurveOptionCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
