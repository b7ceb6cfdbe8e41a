// plane_wave_reference.h - the plain formula of the plane-wave solver, for comparison with the fast path.
//
// Complex arithmetic in every step, one trial velocity at a time, all 101 trials, all roots up to 25. Slow,
// short and written separately from src/forward/plane_wave*, without shared code. The tests and the
// benchmark, which includes the source file, use it.
#pragma once

#include <vector>

namespace sondera::plain {

/// Layers from the surface down, element 0 the top one, the last one the half-space.
struct Ground {
  std::vector<double> h, Vs, rho, nu;
};

struct Root {
  double c;  ///< phase velocity
  double f;  ///< c over the wavelength
};

/// Value of the characteristic function at velocity c; c changes slightly where it equals a velocity of a
/// layer.
double CharacteristicValue(const Ground& ground, double L, double* c);

/// All sign changes of the characteristic function between cLow and cHigh, at most `limit`.
std::vector<Root> Roots(const Ground& ground, double L, double cLow, double cHigh, int limit);

/// Limits of the scan: 0.8 of the smallest shear velocity, 1.001 of the Rayleigh velocity of the stiffest
/// layer. False when there is no such Rayleigh velocity.
bool ScanRange(const Ground& ground, double* cMin, double* cMax);

/// Phase velocity at wavelength L: the first of all roots. `c` stays as it was when there is none.
void PhaseVelocity(const Ground& ground, double L, double* c);

}  // namespace sondera::plain
