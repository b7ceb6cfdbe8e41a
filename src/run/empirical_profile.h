// empirical_profile.h - the steps of the empirical starting profile: mean velocities of the curve over depth
// ranges, where a velocity represents the depth of a third of its wavelength. FS_EmpPrePrf runs them. Owned
// state: none.
#pragma once

#include <vector>

#include "run/layer_stack.h"

namespace sondera {

inline constexpr double kDepthOfWavelength = 3.0;             ///< wavelength over depth
inline constexpr double kShearOverPhase = 1.100000023841858;  ///< Kept: 1.1 in single precision

/// 1.1 times the mean velocity of the points from `top` to `bottom`, both ends included, so that a point on
/// an interface counts in both layers. Kept: 0/0, a NaN, without a point.
double MeanShearVelocity(const std::vector<CurvePoint>& curve, double top, double bottom);

/// Thicknesses of at most `most` layers, with boundaries where the curve varies: the half-sums of |c(p) -
/// c(1)| of neighbouring points are added up, and a layer ends at the depth of the point where the sum
/// exceeds the mean per layer; the sum then starts again. The ground below is one more layer, as thick as
/// `halfSpace`.
std::vector<double> BoundsFromCurve(const std::vector<CurvePoint>& curve, int most, double halfSpace);

}  // namespace sondera
