// settings_capacity.h - capacities of the settings record of a forward run.
//
// Callers: code that imports settings, from the panel, a file or the curves in memory. Owns no state. A
// capacity that is too small is doubled once; if that is still too small, it becomes the required number.
// Vectors are sized by their elements and keep their contents, so a table of any length fits.
#pragma once

#include <string>

#include "records/model_records.h"

namespace sondera {

void ReserveLayers(ModelRecord& record, int layers);  ///< the six layer columns
void ReserveReceivers(ModelRecord& record, int receivers);
void ReservePairs(ModelRecord& record, int pairs);    ///< new pairs get receivers i and i + 1, counted from 1
void ReservePoints(ModelRecord& record, int points);  ///< global curve, and the frequencies
/// Velocities and wavelengths of the array curves.
void ReserveCurves(ModelRecord& record, int points, int curves);

/// Message for a number of points, curves or receivers of array curves that no record can hold; "" when all
/// are within the limits of a run (run_limits.h), 0 included.
std::string CheckArrayCounts(int points, int curves, int receivers);

/// Real number to int, truncated towards 0; the nearest limit beyond the range, 0 for NaN.
int ToInt(double value);

}  // namespace sondera
