// theo_disp_info.h - TheoDispInfo made ready for a run from the settings in FModelParam.
//
// Callers: drivers of forward runs and inversions. Owned state: none.
#pragma once

#include "runtime/refusal.h"

namespace sondera {

/// Sizes TheoDispInfo for the kind of curve of FModelParam, zeroes its curves (the counters of the other kind
/// become 0 points, or one curve), and takes over the settings. Refuses settings that are beyond any limit.
Refusal MakeTheoDispInfoReady();

/// Copies the scalar settings, the receivers, the pairs and the layers from FModelParam. Counters of points
/// and curves stay.
void UpdateTheoDispInfo();

}  // namespace sondera
