// run_figures.h - the numbers of a run as JSON, for people with many runs: option --figures=FILE. Lengths in
// m. Owned state: none.
#pragma once

#include <string>

namespace sondera {

/// Keys pairs, points, rms, iterations, longest_wavelength, seen_to, vs30, vs30_low, vs30_high, classes, doubts. null
/// where there is no such number.
std::string RunFiguresText();

}  // namespace sondera
