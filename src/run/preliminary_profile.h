// preliminary_profile.h - completes layers from a velocity, and makes starting profiles from a dispersion
// curve.
//
// Callers: the set-up of a run (model_setup.h). Owned state: none.
// The two makers are in analytic_profile.cpp and empirical_profile.cpp.
#pragma once

#include <vector>

#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

inline constexpr int kEmpiricalProfile = 1, kAnalyticProfile = 2;  ///< run.switches.preliminaryProfileType

/// Form of a starting profile (run.switches.iProfileShape). Every run has kOnGivenLayers; no control sets the
/// others.
inline constexpr int kBoundsFromCurve = 0;  ///< empirical: layers where the curve varies
inline constexpr int kOnGivenLayers = 1;    ///< on the layers of the table
inline constexpr int kAsFound = 2;          ///< analytic: the layers found
inline constexpr int kMergedByHVs = 3;      ///< the same, similar neighbours merged by H * Vs
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
LayerColumns RunLayerColumns(LayeredGround& ground);

/// Completes layer i of `out` for a shear-wave velocity: density (derived from Vs or given), Vp or Poisson's
/// ratio, damping, moduli. A ratio outside the physical range is replaced by kGuardedNu, and Vs changes with
/// it. Properties come from the run's layer i (the last one for larger i), for an analytic profile
/// (preliminaryProfileType 2) from the layer at the depth. A profile that replaces the given layers (any type
/// but 0, any shape but kOnGivenLayers) takes them from the stratum at the depth, if there are strata.
/// @param depth  mid-depth of the layer, length
void FS_PropLayer(const Run& run, double depth, int i, double Vs, const LayerColumns& out);

/// Point of the measured curve.
struct CurvePoint {
  double c, f, w;  ///< velocity, frequency, wavelength; all finite and above 0
};

/// The observed points of the run (FS_SetUpObsData) in ascending wavelength; equal ones in their order. Rows
/// in which one of the three numbers is not physical are left out.
std::vector<CurvePoint> ObservedCurve(const Observations& observations);

/// Whether the velocities of a curve can belong to one ground. A factor of more than 10^4 between them cannot
/// be a measurement, and would make a search with steps of the smallest velocity endless.
bool IsOneGround(const std::vector<CurvePoint>& curve);

/// Starting profile from the observed global curve into the layers of the run. FS_AnalPrePrf strips layers
/// from the top (see analytic_profile.h); point p represents the depth alphaDepth * w(p). FS_EmpPrePrf uses
/// 1.1 times the mean velocity of the points with w / 3 between top and bottom of each layer.
/// Kept: a layer without a point gets 0/0 as its velocity from FS_EmpPrePrf, and then no solver gives a
/// result.
/// Both refuse a curve that allows no profile; a halt is a refusal without a reason.
Refusal FS_EmpPrePrf(Run& run);
Refusal FS_AnalPrePrf(Run& run, Listener& listener);

}  // namespace sondera
