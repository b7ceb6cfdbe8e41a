// iterations.h - one inversion: the run around the updates.
//
// Callers: panels/, which holds the lock of the run. Works on `run` and the records; owns no state. The updates
// themselves stand in max_likelihood.h.
#pragma once

#include "inversion/inversion_settings.h"
#include "run/run_listener.h"
#include "runtime/refusal.h"

namespace sondera {

/// A whole inversion on TheoDispInfo, FModelParam and InvParam as they stand and on the vectors of
/// FS_AllocMemoryBlocks: the starting model as entry 0, then up to NITER iterations, each with its entry, its
/// blocks in the result files and a notice to the listener (Stored). It ends by the count, by an RMS at or below
/// run.switches.epsConverge after an update, by a halt, or where no update can be made. A worse step is kept.
/// Kept: the sweep after an update is not asked whether it was halted, so that the iteration is stored with
/// the points that it has; the message of the halt says how far they go.
/// @return refused when it did not come to its end; a halt, and all that the listener has heard already, gives no
///         reason. Finished iterations are kept in any case.
Refusal RunInversion(const InversionSettings& settings, RunListener& listener);

}  // namespace sondera
