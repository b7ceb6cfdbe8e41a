// forward_run.h - a forward run: from the settings in the records to curves in the records and in the result files.
//
// Callers: panels/forward_run.h. Owned state: none.
#pragma once

#include <string>

#include "records/model_records.h"
#include "run/run_listener.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// How a forward run ended.
struct ForwardRunEnd {
  Refusal refusal;       ///< none: done
  bool inSweep = false;  ///< halted or refused in the sweep: nothing is stored
};

/// The run on the settings, on TheoDispInfo as MakeTheoDispInfoReady leaves it, and on the vectors of
/// SizeRun. A halted run saves nothing. Reports the misfit once it is known, the result in the status text,
/// and the refusals of the point-load solver.
/// @param PROJID      first part of the names of the result files
/// @param prePrfType  preliminary profile: 0 layers as given, 1 empirical, 2 analytic
/// @param iProfile    entry that gets the result: at or above 0 of InvParam, below 0 of SMPParam
ForwardRunEnd RunForward(Run& run, const ModelRecord& settings, const std::string& PROJID, int prePrfType,
                         int iProfile, RunListener& listener);

}  // namespace sondera
