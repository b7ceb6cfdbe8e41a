// theo_disp_info.h - TheoDispInfo made ready for a run from the settings in FModelParam.
//
// Callers: drivers of forward runs and inversions. Owned state: none.
#pragma once

namespace sondera {

/// Sizes TheoDispInfo for the kind of curve of FModelParam, zeroes its curves (the counters of the other kind
/// become 0 points, or one curve), takes over the settings, and fills the curve lists of the results page.
/// @return 0; -1 after a message when the settings are beyond any limit
[[nodiscard]] int ResetTheoDispInfo();

/// Copies the scalar settings, the receivers, the pairs and the layers from FModelParam. Counters of points
/// and curves stay.
void UpdateTheoDispInfo();

}  // namespace sondera
