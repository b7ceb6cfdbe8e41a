// starting_model.h - the first layered profile of an inversion: a table of layers from the longest
// wavelength, one analytic profile per depth-to-wavelength ratio, and the best of them as the given model.
//
// Callers: buttons of the inversion and forward-model panels (also pressed by scripts and by whoever makes
// representative curves). Results go to SMPParam: slot k is the profile of ratio k, and runs and lists name
// it -k. Owned state: none. Refusals have one message and the result -1.
#pragma once

#include <vector>

#include "runtime/controls.h"

namespace sondera {

// --- Table of layers ---

inline constexpr int kMostRatios = 1000;  ///< depth-to-wavelength ratios of one evaluation

/// Thicknesses for a depth: four layers of t, four of 2 t, four of 4 t, ..., until their sum exceeds the
/// depth; at most 100 groups. sum is that of all of them.
std::vector<double> DoublingThicknesses(double t, double depth, double& sum);

/// Writes layers with the defaults of the length unit to the panel of the forward model: thicknesses from the
/// depth (AUTOLAYERTYPE 0) and a half-space a thousand times as thick, or those of the table; then presses
/// what loads the array curves and takes the panel over, and closes it. TOTALDEPTH becomes the depth to the
/// half-space.
/// @param useData  1: the depth is half the longest wavelength of the array curves of included pairs, and
///                 goes to MAXDEPTH; 0: the depth is that of MAXDEPTH. Kept: with 0 the first thickness is
///                 limited by 0.3 times a depth of 0, so that AUTOLAYERTYPE 0 makes 401 layers without
///                 thickness, and the panel refuses them.
/// @return 0; -1 when there is no curve to take a depth from, or when one of the presses refused
int AutoSetupStartingModelParameters(int useData);

/// The same with the depth of the curves in any case, the start thickness as it is in the unit, and no
/// half-space behind the last layer. No control calls it.
int SetupStartingModelParameters();

// --- Evaluation ---

/// One forward run per ratio of ALPHA_POINT, ALPHA_FROM, ALPHA_TO, each with the analytic profile of its
/// ratio, into the slots of SMPParam; the lists of entries name those that are done. Slots without a result
/// have the misfit -1. A run that fails or is halted ends the loop, and what is done stays.
/// @return 0; -1 when there is no global curve or no such number of ratios, and then nothing has changed; -1
///         too when the loop ended early
int EvalSMParam();

/// Slot of SMPParam with the smallest misfit among 1..ALPHA_POINT, the first of equals; 0 when none has one
/// (a negative misfit is that of a run without a velocity).
int BestStartingProfile();

/// Selects that profile in COPYPRF, presses what copies it to the panel and takes it over, and saves the
/// project. @return 0; -1 when no slot has a misfit, or when one of the presses refused
int RunAutoPreInversion();

// --- Callbacks ---

/// Set up layers; with the data kDepthOfPanel for the depth of the panel, otherwise for the curves.
int AutoSetupSMPCallback(Panel panel, ControlId control, Event event, long data);
/// EvalSMParam and RunAutoPreInversion. 0 ratios are refused. After a halt the finished profiles stay in their slots;
/// none is taken, and nothing is saved.
int EvalSMParamCallback(Panel panel, ControlId control, Event event, long data);
/// EvalSMParam alone, from the menu.
int DetermineSMPCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
