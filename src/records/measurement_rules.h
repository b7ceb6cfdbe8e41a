// measurement_rules.h - what holds for the sampling and the places of every measurement that was imported or
// taken. A measurement out of a project file may break it: no curve is made from such a one.
//
// Callers: the load of a project, which tells what it finds; the calculation of curves, which refuses. A
// fault is the rest of a sentence that begins with the measurement's name ("has a line spacing of -1 Hz"), ""
// for none. Owned state: none.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// Places farther from the origin than this, in units of length, are no places of a test.
inline constexpr double kFarthestPlace = 1e6;

/// First fault of the sampling: two lines at least; line spacing, sample interval and span finite and above 0
/// (the span of imported spectra below 0); span = line spacing times lines, or lines - 1, and sample interval
/// = 0.5 / span, both within one per cent; the band of imported spectra inside the lines.
std::string SamplingFault(const HWSetup& hw);

/// First fault of the places: source and receivers finite and no farther than kFarthestPlace, the unit of
/// length finite and above 0.
std::string PlacesFault(const MeasSetup& setup);

/// Receivers at the same place, for measurements whose places should be complete.
std::string ReceiversFault(const MeasSetup& setup);

/// First fault of sampling and places of a measurement; "" for a key without records.
std::string MeasurementFault(int key);

/// Whether all points of a pair's curve are finite. The averages leave out those that are not.
bool CurveIsFinite(const PMeasInfo& pair);

/// Whether the curve of a pair may be used: it has channels and a measurement without a fault. A pair whose
/// key is not in the project has no measurement that could be at fault.
bool HasUsableCurve(const PMeasInfo& pair);

/// 1 and the record when the pair exists with included = 1 and a usable curve, else 0.
int CheckifIncluded(int key, int refChan, int dspChan, PMeasInfo*& pair);

}  // namespace sondera
