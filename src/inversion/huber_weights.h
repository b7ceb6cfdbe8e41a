// huber_weights.h - points far off the curve pull with a limited force (Huber, 1964).
//
// A residual within 1.5 deviations counts as in least squares; beyond, its weight falls as one over its size,
// so that one wrong pair does not carry the profile away. Callers: the step of an inversion.
// Owns no state. Rows count from 1.
#pragma once

#include "numeric/column_matrix.h"
#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

inline constexpr double kHuberLimit = 1.5;  ///< deviations

/// Cd with the variance of each velocity row in use divided by its weight, for one update from this
/// curve.
DiagonalMatrix HuberCovariance(const Observations& observations, const Switches& switches,
                               const OffsetVector<double>& velocity);

/// What a residual of z deviations adds to the misfit that such updates lower: z^2 up to the limit k, beyond
/// it 2 k |z| - k^2.
double HuberTerm(double z);

}  // namespace sondera
