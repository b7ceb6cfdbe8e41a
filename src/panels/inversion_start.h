// inversion_start.h - the starting model of an inversion from the panels: layers for a depth, starting profiles by
// depth-to-wavelength ratio, the best of them as the given model.
//
// Callers: buttons of the inversion and forward-model panels (also pressed by scripts and by code that makes
// representative curves). Results go to SMPParam, see inversion/starting_model.h. Owned state: none. Refusals
// have one message and the result -1.
#pragma once

#include "runtime/controls.h"

namespace sondera {

// --- Table of layers ---

/// Writes layers with the defaults of the length unit to the panel of the forward model: thicknesses from the
/// depth (AUTOLAYERTYPE 0) and a half-space a thousand times as thick, or those of the table; then presses
/// the buttons that load the array curves, store the panel and close it. TOTALDEPTH becomes the depth of the
/// half-space.
/// @param useData  1: the depth is half the longest wavelength of the array curves of included pairs, and is
///                 written to MAXDEPTH; 0: the depth is that of MAXDEPTH. Kept: with 0 the first thickness is
///                 limited to 0.3 times a depth of 0, so AUTOLAYERTYPE 0 makes 401 layers without thickness,
///                 and the panel refuses them.
/// @return 0; -1 when there is no curve for a depth, or when one of the presses refused
int AutoSetupStartingModelParameters(int useData);

/// The same, always with the depth of the curves, the start thickness of the unit, and no half-space after
/// the last layer. No control calls it.
int SetupStartingModelParameters();

// --- Evaluation ---

/// One forward run per ratio of ALPHA_POINT, ALPHA_FROM, ALPHA_TO, each with the analytic profile of its
/// ratio, into the slots of SMPParam; the lists of entries name the finished ones.
/// @return 0; -1 when there is no global curve or the number of ratios is invalid, and then nothing has
/// changed; also -1 when the loop ended early
int EvalSMParam();

/// BestProfile of SMPParam among 1..ALPHA_POINT.
int BestStartingProfile();

/// Selects that profile in COPYPRF, presses the buttons that copy it to the panel and store it, and saves the
/// project.
/// @return 0; -1 when no slot has a misfit, or when one of the presses refused
int RunAutoPreInversion();

// --- Callbacks ---

/// Set up layers; with the data kDepthOfPanel for the depth of the panel, otherwise for the curves.
int AutoSetupSMPCallback(Panel panel, ControlId control, Event event, long data);
/// EvalSMParam and RunAutoPreInversion. 0 ratios are refused. After a halt the finished profiles stay in
/// their slots; none is used, and nothing is saved.
int EvalSMParamCallback(Panel panel, ControlId control, Event event, long data);
/// Only EvalSMParam, from the menu.
int DetermineSMPCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
