// data_deviation.h - estimates the deviation of the data from the data.
//
// The misfit of the best starting profile has causes beside the model: curves of several pairs of one site
// scatter by more than the default deviation of 5 %. Callers: the run of an inversion, before its first
// update. Owns no state.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

inline constexpr double kLeastDeviation = 0.05;  ///< of the velocity

/// Root mean square of (computed - observed) / observed over the rows with both, at least kLeastDeviation.
double RelativeMisfit(const Observations& observations, const OffsetVector<double>& velocity);

/// Sets the deviation of every observed velocity, in Cd, to this fraction of it. The points of the run keep
/// their own deviations.
void SetRelativeDeviation(Observations& observations, double part);

}  // namespace sondera
