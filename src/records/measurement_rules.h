// measurement_rules.h - rules for the sampling and the positions of every measurement, imported or recorded.
// A measurement from a project file may break them: then no curve is made from it.
//
// Callers: the load of a project, which reports the faults; the calculation of curves, which refuses. A fault
// is the rest of a sentence that begins with the measurement's name ("has a line spacing of -1 Hz"), "" for
// none. Owned state: none.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// Positions farther from the origin than this, in units of length, cannot belong to a test.
inline constexpr double kFarthestPlace = 1e6;

/// First fault of the sampling: two lines at least; line spacing, sample interval and span finite and above 0
/// (the span of imported spectra below 0); span = line spacing times lines, or lines - 1, and sample interval
/// = 0.5 / span, both within one per cent; the band of imported spectra inside the lines.
std::string SamplingFault(const HWSetup& hw);

/// First fault of the positions: source and receivers finite and within kFarthestPlace, the unit of length
/// finite and above 0.
std::string PlacesFault(const MeasSetup& setup);

/// Receivers at the same position, for measurements whose positions should be complete.
std::string ReceiversFault(const MeasSetup& setup);

/// First fault of sampling and positions of a measurement; "" for a key without records.
std::string MeasurementFault(int key);

/// Whether all points of a pair's curve are finite. The averages leave out points that are not.
bool CurveIsFinite(const PMeasInfo& pair);

/// Whether the curve of a pair may be used: it has channels and a measurement without a fault. A pair whose
/// key is not in the project has no measurement and so no fault.
bool HasUsableCurve(const PMeasInfo& pair);

/// 1 and the record when the pair exists with included = 1 and a usable curve, else 0.
int CheckifIncluded(int key, int refChan, int dspChan, PMeasInfo*& pair);

}  // namespace sondera
