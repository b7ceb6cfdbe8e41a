// observations.h - from the settings to the working state of a run: its switches, receivers, points and
// layers.
//
// Callers: drivers of forward runs and inversions. Order of one run: FS_AllocMemoryBlocks,
// FS_RetrieveSystemPM, FS_GetStartMP, FS_SetUpObsData(run.switches.iDispSource). All input comes from the
// records in memory: FModelParam for forward and waveform runs, TheoDispInfo for inversions (whose driver
// puts the measured points there), layers always from TheoDispInfo. Owned state: none. Related
// files: run_files.h, point_grid.h, model_setup.h, model_numbers.h, covariances.h.
#pragma once

#include <string>

#include "run/covariances.h"
#include "run/model_numbers.h"
#include "run/model_setup.h"
#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

inline constexpr int kForwardRun = 1, kInversionRun = 2, kWaveformRun = 3;  ///< kinds of a run

/// Title of a run in the head lines of result files. Kept: "Enhanced3-D" of inversions has no blank.
std::string RunTitle(int analysis, bool inversion);

/// Sets the switches of a run (see Switches), the title of its head lines and iAnalysis, opens its result
/// files (run_files.h) under the project id in session.resultFolder, and reads the receivers. A switch
/// without a value for this kind of run does not change.
/// @param kind         kForwardRun, kInversionRun or kWaveformRun
/// @param prePrfType   preliminary profile: 0 as given, 1 empirical, 2 analytic; not used in waveform runs
/// @param PROJID       the project id, first part of the names of the result files
/// Refuses a setting that is unusable, a project id that is no file name, and a result file that cannot be written.
Refusal FS_RetrieveSystemPM(Run& run, int kind, int prePrfType, const std::string& PROJID);

/// Receiver set-ups of the run: one explicit pair for a global curve with fixed receivers, one for each array
/// curve; their numbers start at 4.
void FS_ReadReceiverSetup(const Switches& switches, Receivers& receivers);

/// Points, layers and model of the run: the global curve, the array curves if the run uses them, and
/// FS_PrelimAnal. Points of a run without data are generated here, and written back to the record for the
/// display.
/// @param fixed  layers without a free Vs or H, for an inversion
Refusal FS_GetStartMP(Run& run, const ConstrainedLayers& fixed, Listener& listener);

/// The item of array curves and the flat vectors of its points, point by point and within a point curve by
/// curve. With data every non-zero velocity counts; without data every frequency inside a curve's own range
/// counts, with velocity 1 as a mark that it is to be computed.
Refusal FS_ReadCompDispCurve(const Switches& switches, Observations& observations);

}  // namespace sondera
