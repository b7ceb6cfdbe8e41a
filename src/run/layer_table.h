// layer_table.h - the layers of a run: derived elastic properties, layer at a depth, and the model vector.
//
// Callers: both sweeps, the set-up of observations and of starting profiles, the inversion. Works on the
// layers of `run` (system_state.h). Units are the project's; the one place with a unit system built in is
// DensityFromVs.
#pragma once

namespace sondera {

// --- Elastic properties ---

/// Mass density from a shear-wave velocity in feet per second, at a fixed pressure term of 20; at most
/// 125 / 32.2, in slugs per cubic foot. Kept: the numbers are the same whatever the project's unit is.
double DensityFromVs(double Vs);

/// Vp of an elastic solid. Infinite for nu = 0.5, not a number above.
double VpFromPoisson(double Vs, double nu);

/// Poisson's ratio from the two wave velocities; not a number for Vs = 0.
double PoissonFromVelocities(double Vp, double Vs);

/// Values that replace a Poisson's ratio outside 0 <= nu < 0.5: nu, and Vs as a part of Vp that goes with it.
inline constexpr double kGuardedNu = 0.497;
inline constexpr double kGuardedVsOverVpSquared = 0.005964214711729627;  // (1 - 2 nu) / (2 (1 - nu)) of it

/// Whether a ratio found from velocities has to be replaced (a NaN has not).
inline bool PoissonIsUnphysical(double nu) {
  return nu >= 0.5 || nu < 0.0;
}
/// The Vs that goes with kGuardedNu.
double GuardedVs(double Vp);

/// Completes all layers of the run before a solver works with them: density where it is derived, G, Vp or nu,
/// E, and totalDepth. With guardPoisson a ratio outside the physical range that came from the velocities is
/// replaced, and Vs follows. Kept: G and density are those of the Vs before that.
void DeriveLayerProperties(bool guardPoisson);

// --- Layers and model ---

/// Copies the layer values of all free parameters (positive entries of ModelMap) to rModel and rModelPrior,
/// and their uncertainty factors to UFModel. Other elements stay as they are.
void FS_SystemSetup();

/// Number of the layer that holds a depth; an interface belongs to the layer below. At or below the last
/// interface, and for a NaN: nLayersCur.
int FS_GetLayerID(double depth);

/// The same for the tops of the strata; the last stratum for all that lies below its top or above the first.
int FS_GetStrataID(double depth);

}  // namespace sondera
