// iterations.h - one inversion: the run around the updates.
//
// Callers: panels/, which holds the lock of the run. Works on the records; owns no state. The
// updates are in max_likelihood.h.
#pragma once

#include "inversion/inversion_settings.h"
#include "run/run_listener.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// A whole inversion on the present TheoDispInfo, FModelParam and InvParam and on the vectors of
/// FS_AllocMemoryBlocks: the starting model as entry 0, then up to NITER iterations, each with its entry, its
/// blocks in the result files and a notice to the listener (Stored). It ends after NITER iterations, at an
/// RMS at or below run.switches.epsConverge after an update, at a halt, or when no update is possible. A
/// worse step is kept.
/// Kept: a halt in the sweep after an update is not checked at once, so the iteration is stored with the
/// points that it has; the message of the halt says how many points are complete.
/// @return refused when it did not reach its end; without a reason after a halt, and where the listener
/// already got the message. Finished iterations are kept in any case.
Refusal RunInversion(Run& run, const InversionSettings& settings, RunListener& listener);

}  // namespace sondera
