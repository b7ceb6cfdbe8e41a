// sampled_curve.h - a plane-wave curve at wanted frequencies, from a solver that works at given wavelengths.
// Callers: the sweeps in the frequency domain, and tests. Owned state: none.
#pragma once

#include "numeric/offset_array.h"
#include "run/sweep_solvers.h"

namespace sondera {

inline constexpr int kSampledPoints = 100;

/// Frequencies and velocities at a hundred wavelengths, evenly spaced in their logarithm, the longest one
/// first. Velocity 0: no root.
struct SampledCurve {
  OffsetVector<double> freq{1, kSampledPoints}, vel{1, kSampledPoints};
};

/// Finds wavelengths that reach beyond both frequencies (Hz, at most 200 steps each way) and samples between
/// them. @return false when halted
bool SampleCurve(SweepSolvers& solvers, double fMin, double fMax, SampledCurve& curve);

/// Velocity at a frequency: polynomial through ten samples around it. Kept: a frequency that no pair of
/// samples brackets is extrapolated from the ten shortest wavelengths. 0 where one of the ten has no root or
/// the result is not finite.
double VelocityAt(const SampledCurve& curve, double freq);

}  // namespace sondera
