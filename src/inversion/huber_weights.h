// huber_weights.h - limits the influence of points far off the curve (Huber, 1964).
//
// A residual within 1.5 deviations counts as in least squares; beyond, its weight decreases as 1 /
// |residual|, so one wrong pair cannot dominate the profile. Callers: the step of an inversion. Owns no
// state. Rows count from 1.
#pragma once

#include "numeric/column_matrix.h"
#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

inline constexpr double kHuberLimit = 1.5;  ///< deviations

/// Cd with the variance of each velocity row in use divided by its weight, for one update from this curve.
DiagonalMatrix HuberCovariance(const Observations& observations, const Switches& switches,
                               const OffsetVector<double>& velocity);

/// Contribution of a residual of z deviations to the misfit that such updates reduce: z^2 up to the limit k,
/// beyond it 2 k |z| - k^2.
double HuberTerm(double z);

}  // namespace sondera
