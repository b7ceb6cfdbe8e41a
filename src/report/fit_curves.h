// fit_curves.h - the two sides of a fit, out of the records: what a run was to match, and what an entry gives.
#pragma once

#include <vector>

#include "report/curve_ranges.h"

namespace sondera {

/// What the run was to match, by FModelParam. Curves without a point stay in their place. Only velocities above 0.
std::vector<ReportCurve> MeasuredCurves();

/// Curves of an entry of InvParam, in the same order.
std::vector<ReportCurve> ComputedCurves(int entry);

}  // namespace sondera
