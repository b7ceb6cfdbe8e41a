// preliminary_profile.h - layers completed from a velocity, and starting profiles made from a dispersion
// curve.
//
// Callers: the set-up of a run (observations.h). Works on the layers and observations of `run`; owns no
// state.
#pragma once

namespace sondera {

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
/// (preliminaryProfileType 2) from the layer that holds the depth.
/// @param depth  mid-depth of the layer, length
void FS_PropLayer(double depth, int i, double Vs, const LayerColumns& out);

/// Starting profile from the observed global curve: empirical, and by stripping layers from the top.
/// @return 0, or -1 after a message
int FS_EmpPrePrf();
int FS_AnalPrePrf();

}  // namespace sondera
