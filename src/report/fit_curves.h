// fit_curves.h - the two sides of a fit, from the records: the observations of a run, and the curves of an
// entry.
#pragma once

#include <vector>

#include "report/curve_ranges.h"

namespace sondera {

/// Observations of the run, from FModelParam. Curves without a point keep their place. Only velocities above
/// 0.
std::vector<ReportCurve> MeasuredCurves();

/// Curves of an entry of InvParam, in the same order.
std::vector<ReportCurve> ComputedCurves(int entry);

}  // namespace sondera
