// layered_ground.h - a layered ground: the layers of a solver, and properties derived from them.
//
// Callers: the solvers' drivers, the set-up of a run, starting profiles, the inversion. Layer 1 is the
// surface layer, layer nLayersCur the half-space; vectors count from 1. Lengths, velocities and densities are
// in the project's units; nothing here converts. Only DensityFromVs has a built-in unit system.
#pragma once

#include "forward/sublayers.h"
#include "numeric/offset_array.h"
#include "records/model_records.h"

namespace sondera {

struct LayeredGround {
  int nLayersCur = 0;
  OffsetVector<double> layerH, layerVs, layerVp;      ///< thickness, wave velocities
  OffsetVector<double> layerG, layerE;                ///< shear modulus, Young's modulus
  OffsetVector<double> layerRho, layerNu, layerDamp;  ///< density, Poisson's ratio, damping ratio
  OffsetVector<int> iPoissonGiven, iDensityDerived;   ///< 1: Vp from nu; 1: density from Vs
  double lastLayerH = 0.0;                            ///< thickness of the half-space in the table
  double totalDepth = 0.0;                            ///< sum of the thicknesses, by DeriveLayerProperties

  LayeredGround() = default;
  /// n layers, all values 0.
  explicit LayeredGround(int n);
};

// --- Elastic properties ---

/// Mass density from a shear-wave velocity in feet per second, at a fixed pressure term of 20; at most 125 /
/// 32.2, in slugs per cubic foot. Kept: the numbers are the same for every unit of the project.
double DensityFromVs(double Vs);

/// Vp of an elastic solid. Infinite for nu = 0.5, NaN above.
double VpFromPoisson(double Vs, double nu);

/// Poisson's ratio from the two wave velocities; NaN for Vs = 0.
double PoissonFromVelocities(double Vp, double Vs);

/// Values that replace a Poisson's ratio outside 0 <= nu < 0.5: nu, and the corresponding Vs as a fraction of
/// Vp.
inline constexpr double kGuardedNu = 0.497;
inline constexpr double kGuardedVsOverVpSquared = 0.005964214711729627;  // (1 - 2 nu) / (2 (1 - nu)) of it

/// Whether a ratio computed from velocities has to be replaced. False for NaN.
inline bool PoissonIsUnphysical(double nu) {
  return nu >= 0.5 || nu < 0.0;
}
/// The Vs that corresponds to kGuardedNu.
double GuardedVs(double Vp);

/// Completes layer l as a table gives it: Vp from Poisson's ratio where Vp is 0 or all of Vp, Vs and the ratio
/// are given (iPoissonGiven 1), otherwise the ratio from the velocities; density from Vs where it is 0
/// (iDensityDerived 1).
void CompleteGivenLayer(LayeredGround& ground, int l);

/// The layers of a model record, each completed. The record has been checked (CheckRunLayers) and has
/// ground.nLayersCur layers.
void TakeModelLayers(const ModelRecord& model, LayeredGround& ground);

/// Completes all layers before a solver uses them: density where it is derived, G, Vp or nu, E, and
/// totalDepth. With guardPoisson, a ratio from velocities outside the physical range is replaced, and Vs
/// changes with it. Kept: G and density still use the old Vs.
void DeriveLayerProperties(LayeredGround& ground, bool guardPoisson);

// --- Layers ---

/// Number of the layer that holds a depth; an interface belongs to the layer below. At or below the last
/// interface, and for NaN: nLayersCur.
int FS_GetLayerID(const LayeredGround& ground, double depth);

/// Smallest and largest Vs of the layers; 0 without layers.
double SmallestVs(const LayeredGround& ground);
double LargestVs(const LayeredGround& ground);

// --- Solvers ---

/// Velocity of the plane Rayleigh wave at a wavelength (FS_SASW2D); 0 without a root.
double PlaneWaveVelocity(const LayeredGround& ground, double wavelength);

/// The columns that the point-load solver reads; the ground must outlive them.
GroundColumns ColumnsOf(const LayeredGround& ground);

}  // namespace sondera
