// forward_run.h - a forward run: from the settings of the panel to curves on display and in the result files.
//
// Callers: the buttons and the menu, and the evaluation of starting models. Owned state: none; works on `run`
// and the records.
#pragma once

#include <string>

#include "run/run_listener.h"
#include "runtime/controls.h"

namespace sondera {

/// Takes the settings from the panel, runs, and shows the result.
/// @param prePrfType  preliminary profile: 0 layers as given, 1 empirical, 2 analytic
/// @param iProfile    entry that takes the result: at or above 0 of InvParam, below 0 of SMPParam
/// @return 0; -1 after a message, or when halted
int RunFModel(int prePrfType, int iProfile);

/// The run itself, on FModelParam and TheoDispInfo as they stand and on the vectors of FS_AllocMemoryBlocks.
/// A halted run saves nothing. @return as above
int FS_fModel(int prePrfType, int iProfile, const std::string& PROJID, RunListener& listener);

/// Run from the button of the results page; and from the menu, which first takes the list of iterations to
/// its only item.
int RunFModelCallback(Panel panel, ControlId control, Event event, long data);
int RunFModelingMenuCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
