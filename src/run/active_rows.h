// active_rows.h - the observation rows that an inversion fits, and how well a curve fits them.
//
// Callers: the run of an inversion, its update and its statistics. Owns no state. Rows count
// from 1. A row is in use while its flag in iNoVelocity is 0 and its variance in Cd above 0; a flag stays
// for the rest of the run.
#pragma once

#include <vector>

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

bool RowIsActive(const Observations& observations, int row);

/// Rows of velocities in use, ascending.
std::vector<int> ActiveRows(const Observations& observations, const Switches& switches);

/// A computed curve by row with 0 where the row is out. The update lays its residuals out by the velocities
/// that are not 0 and its sensitivities by the rows in use: with this curve both have the same rows, also
/// when a point that had dropped out is found again.
OffsetVector<double> CurveOfActiveRows(const Observations& observations,
                                       const OffsetVector<double>& velocity);

/// Weighted misfit chi of a computed curve: mean over the rows in use of (computed - observed)^2 / Cd. It is
/// what an update lowers; 1 means that the curve is as far off as the deviations of the data allow.
/// @return -1 without any row in use
double WeightedMisfit(const Observations& observations, const Switches& switches,
                      const OffsetVector<double>& velocity);

}  // namespace sondera
