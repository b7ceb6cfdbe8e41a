// theo_disp_info.h - prepares TheoDispInfo for a run from its settings.
//
// Callers: drivers of forward runs and inversions. Owned state: none.
#pragma once

#include "records/model_records.h"
#include "runtime/refusal.h"

namespace sondera {

/// Sizes TheoDispInfo for the kind of curve of the settings, zeroes its curves (the counters of the other
/// kind become 0 points, or one curve), and copies the settings. Refuses settings beyond a limit.
Refusal MakeTheoDispInfoReady(const ModelRecord& settings);

/// Copies the scalar settings, the receivers, the pairs and the layers. Counters of points
/// and curves stay.
void UpdateTheoDispInfo(const ModelRecord& settings);

}  // namespace sondera
