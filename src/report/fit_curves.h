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

/// Points of a fit: computed less measured velocity, length/s, over the measured frequency and wavelength.
struct Residuals {
  std::vector<double> difference, freq, wlen;
};
/// At the frequencies that both curves have; both are in the order of the run's points.
Residuals ResidualsOf(const ReportCurve& measured, const ReportCurve& computed);

}  // namespace sondera
