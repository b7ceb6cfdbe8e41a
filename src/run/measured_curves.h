// measured_curves.h - measured curves as the points that a run computes.
//
// Callers: panels/fmodeling_files for the curves in memory, project/curve_file for those of a file. Owns no state. Array
// curves go in from their last point to their first, so frequencies descend, as they do in the file of array curves. A
// pair keeps its column, whether or not it has a curve: entry point * nDispCurves + pair is 0 where there is none.
#pragma once

#include <string>
#include <vector>

#include "records/model_records.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// Takes the global curve and the array curves of the project's included pairs, with their receivers, from memory. The
/// points then count as data (DispCurvInfo 1). Velocities are put at their frequency.
/// @param[out] leftOut  points at a frequency that the first curve does not have (curves taken as they are, without a
///                      common grid): they find no row
/// @return refused without a global curve and with receivers that make no sense; without a reason where there is no
///         array curve. The record keeps what had been taken by then.
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

/// Room for so many points of the record's pairs, all zero. @return "" or why there is none
std::string RoomForArrayCurves(ModelRecord& record, int points);

/// Behind the last velocity: wavelengths, the ratio of a geometric grid between the limits, the range of each pair.
void FinishArrayCurves(ModelRecord& record);

/// The points count as data from now on.
void MarkAsData(ModelRecord& record, Switches& switches);

}  // namespace sondera
