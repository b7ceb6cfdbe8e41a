// plane_wave.h - phase velocity of plane Rayleigh waves in a layered half-space, the fast one of the two
// solvers.
//
// Dynamic stiffness method: every layer has an exact 4 by 4 stiffness in wavenumber space (Kausel and
// Roesset, 1981); the stack is condensed from the surface downward to the top of the half-space; the sign of
// the determinant, pole crossings included, brackets the roots over 101 trial velocities. The sweep driver
// (analysis type 2, and seeds of the point-load solver) and the starting model use it.
//
// Vectors of layers and of wavelengths are shifted pointers, elements 1..n; layer 1 is the top one, layer n
// the half-space. The caller chooses consistent units: length, length per time, mass density. No function
// allocates (except FS_SASW2D with more than two wavelengths, or with very many layers above 2 L), has state,
// or shows a message. Invalid data (zeros, negative values, NaNs) give no root.
#pragma once

#include "numeric/dcomplex.h"
#include "numeric/offset_array.h"

namespace sondera {

inline constexpr int kPlaneWaveMaxRoots = 25;  ///< roots kept for one wavelength

/// Complex stiffness of a layer between condensation steps, (i, j) from 1 to 4: horizontal and vertical at
/// the top, horizontal and vertical at the bottom. Only the upper triangle is in use. All zero when made.
struct LayerStiffness {
  dcomplex k[4][4];
  dcomplex& operator()(int i, int j) { return k[i - 1][j - 1]; }
  const dcomplex& operator()(int i, int j) const { return k[i - 1][j - 1]; }
};

/// Phase velocities of the fundamental plane Rayleigh wave.
/// @param[in]     n      number of layers with the half-space, from 1
/// @param[in]     h      thickness; the half-space's is not used
/// @param[in]     Vs     shear-wave velocity, above 0
/// @param[in]     Vp, G, E  not used: all follow from Vs, nu and rho
/// @param[in]     rho    mass density
/// @param[in]     nu     Poisson's ratio, below 0.5
/// @param[in]     nWave  number of wavelengths
/// @param[in]     L      wavelengths, 1..nWave
/// @param[in,out] c      phase velocities, 1..nWave. An entry without a root stays as it was, unless
/// wavelengths on
///                       both sides have one: then it is interpolated.
/// The search covers velocities from 0.800000011920929 of the smallest Vs to 1.001 of the Rayleigh velocity
/// of the stiffest layer. Kept: that Rayleigh velocity is computed with the Poisson's ratio and density of
/// layer 1, so the upper end of the scan is slightly wrong when the stiffest layer has another ratio.
void FS_SASW2D(const int* n, const double* h, const double* Vs, const double* Vp, const double* G,
               const double* rho, const double* E, const double* nu, const int* nWave, const double* L,
               double* c);

/// Roots at one wavelength, in the order of the scan: 101 trial velocities from cLow to cHigh, bisection
/// between trials of different sign. Two roots between neighbouring trials are not found.
/// @param[in]     L           wavelength, above 0
/// @param[in]     cLow, cHigh first and last trial velocity
/// @param[in]     h, depth, Vs, nu, rho  layers; depth[1..n] is the depth of each layer's top
/// @param[in,out] modeCount   in: 1 ends the search at the first root, 0 collects all; out: number of roots
/// @param[out]    cRoots, fRoots  velocities and frequencies (c over L), 1..25; entries without a root
/// untouched
/// @param[in]     flag        0; no meaning
/// Layers with a top at 2 L or deeper are left out; the deepest of the others acts as the half-space.
void FS_search_(double L, double cLow, double cHigh, const double* h, const double* depth, const double* Vs,
                const double* nu, const double* rho, int n, int* modeCount, double* cRoots, double* fRoots,
                int flag);

/// Bisection between two velocities whose values differ in sign, down to a relative width of 1e-7.
/// @param[in,out] cLow, cHigh  bracket; cHigh returns the last velocity evaluated, which is the root
/// @param[in,out] fLow, fHigh  real parts: values at the ends of the bracket (any size, the sign counts)
/// @param[in]     L, n, Vs, nu, rho, h, depth, flag  as in FS_search_
/// @param         K            working space
/// A value of 0 or NaN ends the bisection at once.
void FS_sub_(double* cLow, double* cHigh, dcomplex* fLow, dcomplex* fHigh, double L, int n, LayerStiffness* K,
             const double* Vs, const double* nu, const double* rho, const double* h, const double* depth,
             int flag);

/// Condenses layers 1..nl from the surface downward.
/// @param[in,out] K      upper-left 2 by 2: in zero (a free surface), out the stiffness at the base of layer
/// nl
/// @param[in]     omega  circular frequency
/// @param[in,out] c      phase velocity. Kept: multiplied by 0.9998999834060669 where it equals the Vs or Vp
///                       of a layer, and not changed back for the layers below and for the caller; omega
///                       stays.
/// @param[in]     h, Vs, nu, rho  layers
/// @param[out]    stopLayer  0, or the layer that is too thick for the waves to reach its base (exponent
/// above 18):
///                       the condensation ended above it and it is the half-space
/// @param[in,out] D      running phase of the determinant, modulus 1; 1 at the surface
void FS_strat_(LayerStiffness* K, double omega, double* c, const double* h, const double* Vs,
               const double* nu, const double* rho, int nl, int* stopLayer, dcomplex* D);

/// Adds layer hsLayer as the half-space and returns the value of the characteristic function.
/// @param[in]  K      condensed stiffness of the layers above, upper-left 2 by 2; all zero for a uniform
///                    half-space
/// @param[in]  D      its phase
/// @param[out] F      real part: cosine of the determinant's phase, -1 to 1, 0 where the determinant is 0;
///                    imaginary part 0
/// Kept: only the real part of the half-space's stiffness factor is used, which matters where the wave is
/// faster than the half-space's shear wave.
void FS_hspace_(const LayerStiffness& K, double omega, double c, int hsLayer, const double* Vs,
                const double* nu, const double* rho, dcomplex* F, const dcomplex& D);

/// FS_strat_ and FS_hspace_ by value, for the starting model: the stop layer, and the complex value whose
/// real part is tested.
int FS_strat(LayerStiffness* K, double omega, double* c, const double* h, const double* Vs, const double* nu,
             const double* rho, int nl, dcomplex* D);
dcomplex FS_hspace(const LayerStiffness& K, double omega, double c, int hsLayer, const double* Vs,
                   const double* nu, const double* rho, const dcomplex& D);

/// Removes roots that do not continue the curve, with a window of velocities that moves along it from both
/// ends.
/// @param[in]     nWave      number of wavelengths; nothing happens below three
/// @param[in,out] F          frequencies, (wavelength i, root k), roots of a wavelength in ascending order
/// @param[in]     L          wavelengths, 1..nWave
/// @param[in,out] modeCount  roots of each wavelength, 1..nWave
void FS_clean_(int nWave, const FlatMatrix& F, const double* L, int* modeCount);

/// Picks one root for each wavelength and fills gaps between wavelengths with roots, linearly over the
/// wavelength.
/// @param[in]     F, L, modeCount  as in FS_clean_; F gets the filled values as root 1
/// @param[in,out] c        velocities, 1..nWave; a gap at either end stays untouched
/// @param[in]     modeSel  1: first root; any other value: last root
void FS_intp_(int nWave, const FlatMatrix& F, const double* L, double* c, const int* modeCount, int modeSel);

}  // namespace sondera
