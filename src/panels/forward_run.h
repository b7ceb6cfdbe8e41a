// forward_run.h - a forward run from the panel, and those steps of a run that fill a list or show a reason.
//
// Callers: the buttons and the menu, inversions, the evaluation of starting models, the project file after a load.
// Owned state: none; works on `run` and the records.
#pragma once

#include "records/model_records.h"
#include "runtime/controls.h"

namespace sondera {

/// Reads the settings from the panel, runs, and shows the result.
/// @param prePrfType  preliminary profile: 0 layers as given, 1 empirical, 2 analytic
/// @param iProfile    entry that gets the result: at or above 0 of InvParam, below 0 of SMPParam
/// @return 0; -1 after a message, or when halted
int RunFModel(int prePrfType, int iProfile);

/// The run itself, see run/forward_run.h, with the boxes of the results page. @return as above
int FS_fModel(int prePrfType, int iProfile);

/// Prepares TheoDispInfo for a run (run/theo_disp_info.h), and fills the curve lists of the results page.
/// @return 0; -1 after a message
[[nodiscard]] int ResetTheoDispInfo(const ModelRecord& settings = FModelParam);

/// The vectors of a run (run/run_sizes.h) for the settings and the parameter choice of InvParam.
/// @return 0; -1 after a message
[[nodiscard]] int FS_AllocMemoryBlocks(const ModelRecord& settings = FModelParam);

/// Run from the button of the results page; and from the menu, which first sets the list of iterations to its
/// only item.
int RunFModelCallback(Panel panel, ControlId control, Event event, long data);
int RunFModelingMenuCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
