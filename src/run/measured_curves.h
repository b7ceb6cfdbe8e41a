// measured_curves.h - measured curves as the points that a run computes.
//
// Callers: panels/fmodeling_files for the curves in memory, project/curve_file for those of a file. Owns no
// state. Array curves are copied from their last point to their first, so frequencies descend, as they do in
// the file of array curves. A pair keeps its column, with or without a curve: entry point * nDispCurves +
// pair is 0 where there is none.
#pragma once

#include <string>
#include <vector>

#include "records/model_records.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// Copies the global curve and the array curves of the project's included pairs, with their receivers, from
/// memory. The points then count as data (DispCurvInfo 1). Velocities are stored at their frequency.
/// @param[out] leftOut  points at a frequency that the first curve does not have (curves with all points,
///                      without a common grid): there is no row for them
/// @return refused without a global curve and with invalid receivers; without a reason where there is no
/// array curve. The record keeps the data copied before the refusal.
Refusal TakeCurvesInMemory(ModelRecord& record, Switches& switches, int& leftOut);

// --- Steps, for every source of curves ---

/// Points of a curve, all three of one length.
struct MeasuredPoints {
  std::vector<double> vel, freq, wlen;
};
/// Points of the global curve, in the wavelength domain, with the range of their wavelengths.
void TakeGlobalCurve(ModelRecord& record, const MeasuredPoints& curve);

/// Reads the two lines of receivers ("n, place, ...") and pairs ("n, first second, ..."), numbers from 1.
/// @return "" or what is wrong with them
std::string TakeReceivers(ModelRecord& record, const std::string& line1, const std::string& line2);

/// Allocates this number of points for the record's pairs, all zero. @return "" or why that is not possible
std::string ReserveArrayCurves(ModelRecord& record, int points);

/// Fills wavelengths, the ratio of a geometric grid between the limits, and the range of each pair from the
/// velocities.
void FinishArrayCurves(ModelRecord& record);

/// The points count as data from now on.
void MarkAsData(ModelRecord& record, Switches& switches);

}  // namespace sondera
