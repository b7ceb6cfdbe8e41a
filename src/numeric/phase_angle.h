// phase_angle.h - angles of complex numbers in degrees, many at once. The phase unwrappers call it; there the
// angle takes most of the time. No state.
#pragma once

namespace sondera {

/// Angle of re + j im in degrees, -180 to 180: 0 when re is exactly 0, whatever im is, else atan2(im, re) *
/// 180 / pi.
double PhaseAngle(double re, double im);

/// The same for re[0..n-1], im[0..n-1], by a polynomial on several lines at a time: within 1e-13 degrees of
/// PhaseAngle, exact at whole multiples of 45 degrees, and the same bytes on every processor. If a line holds
/// an infinity, a NaN or a part beyond 1e300, the whole call uses PhaseAngle.
/// @param[out] angle  n values; must not overlap re or im
void PhaseAngles(const double* re, const double* im, int n, double* angle);

/// PhaseAngles on 2 or 4 lines at a time, for comparisons. False, with nothing done, where the processor
/// cannot do that many.
bool PhaseAnglesByLanes(int lanes, const double* re, const double* im, int n, double* angle);

}  // namespace sondera
