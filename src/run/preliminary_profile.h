// preliminary_profile.h - layers completed from a velocity, and starting profiles made from a dispersion
// curve.
//
// Callers: the set-up of a run (model_setup.h). Works on the layers and observations of `run`; owns no
// state. The two makers stand in analytic_profile.cpp and empirical_profile.cpp.
#pragma once

#include <vector>

#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

inline constexpr int kEmpiricalProfile = 1, kAnalyticProfile = 2;  ///< run.switches.preliminaryProfileType

/// What a starting profile is given out as (run.switches.iProfileShape). Every run has kOnGivenLayers; the others are
/// set by no control.
inline constexpr int kBoundsFromCurve = 0;  ///< empirical: layers where the curve varies
inline constexpr int kOnGivenLayers = 1;    ///< on the layers of the table
inline constexpr int kAsFound = 2;          ///< analytic: the layers that were found
inline constexpr int kMergedByHVs = 3;      ///< the same, like neighbours merged by H * Vs
inline constexpr int kMergedByHOverVs = 4;  ///< by H / Vs

/// Layer columns to fill, shifted pointers (element 1 is the first layer): those of the run, or of a profile
/// under construction.
struct LayerColumns {
  double* Vs;
  double* Vp;
  double* G;
  double* E;
  double* rho;
  double* nu;
  double* damp;
};

/// The columns of the run itself.
LayerColumns RunLayerColumns();

/// Completes layer i of `out` for a shear-wave velocity: density (derived from Vs or given), Vp or Poisson's
/// ratio, damping, moduli. A ratio outside the physical range is replaced by kGuardedNu, and Vs follows.
/// Properties come from the run's layer i (the last one for larger i), for an analytic profile
/// (preliminaryProfileType 2) from the layer that holds the depth. A profile that replaces the given layers
/// (any type but 0, any shape but kOnGivenLayers) takes them from the stratum that holds the depth, where
/// there are strata.
/// @param depth  mid-depth of the layer, length
void FS_PropLayer(double depth, int i, double Vs, const LayerColumns& out);

/// Point of the measured curve.
struct CurvePoint {
  double c, f, w;  ///< velocity, frequency, wavelength; all finite and above 0
};

/// The observed points of the run (FS_SetUpObsData) in ascending wavelength; equal ones in their order. Rows
/// in which one of the three numbers is none of a wave are left out.
std::vector<CurvePoint> ObservedCurve();

/// Whether the velocities of a curve are those of one ground: more than the factor 10^4 between them is no
/// measurement, and would keep a search with steps of the smallest busy without end.
bool IsOneGround(const std::vector<CurvePoint>& curve);

/// Starting profile from the observed global curve into the layers of the run: FS_AnalPrePrf by stripping
/// layers from the top (see analytic_profile.h), with point p standing for the depth alphaDepth * w(p);
/// FS_EmpPrePrf by the mean velocity of the points between w / 3 of top and bottom of each layer, times 1.1.
/// Kept: a layer without a point gets 0/0 as its velocity from FS_EmpPrePrf, and no solver then gives a
/// result.
/// Both refuse a curve that no profile can be made from; a halt is a refusal without a reason.
Refusal FS_EmpPrePrf();
Refusal FS_AnalPrePrf(Listener& listener);

}  // namespace sondera
