// active_rows.h - the observation rows that an inversion fits, and the misfit of a curve.
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

/// A computed curve by row, with 0 where the row is not in use. The update orders its residuals by the
/// velocities that are not 0 and its sensitivities by the rows in use: with this curve both have the same
/// rows, also when a point that was dropped has a result again.
OffsetVector<double> CurveOfActiveRows(const Observations& observations,
                                       const OffsetVector<double>& velocity);

/// Weighted misfit chi of a computed curve: mean over the rows in use of (computed - observed)^2 / Cd. An
/// update reduces it; 1 means that the differences are as large as the deviations of the data.
/// @return -1 without any row in use
double WeightedMisfit(const Observations& observations, const Switches& switches,
                      const OffsetVector<double>& velocity);

}  // namespace sondera
