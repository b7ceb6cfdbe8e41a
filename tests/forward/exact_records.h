// exact_records.h - records by exact integration over wavenumbers, and the difference of two records.
#pragma once

#include "forward/waveform.h"

namespace sondera::test {

/// The lines of a set-up from the exact displacement, where the force is above `silent` of its largest line.
/// Load radii are those of the solver.
WaveformLines ExactLines(const WaveformSetup& setup, double silent);

/// A run of the solver; fails the test when it is refused.
WaveformResult Generated(const WaveformSetup& setup);

/// Largest difference over time for each receiver, % of the peak of the second trace.
std::vector<double> WorstPercent(const WaveformRecord& a, const WaveformRecord& b);

}  // namespace sondera::test
