// rayleigh_modes.h - Rayleigh modes of a layered half-space by an independent method, for comparison with the
// solvers.
//
// The motion-stress vector of plane P-SV waves obeys f' = A f (Aki and Richards, Quantitative Seismology, ch.
// 7). The two solutions that decay in the half-space span a plane; its six coordinates (the 2 by 2 minors)
// are carried up to the surface by Taylor steps of their own differential equation, where the minor of the
// two stresses has to vanish. No layer matrix, no determinant of large exponentials, no pole. Shares no code
// with src/forward.
#pragma once

#include <vector>

namespace sondera::modes {

/// Layers from the surface down, the last one the half-space.
struct Ground {
  std::vector<double> h, Vs, rho, nu;
};

/// Layers whose top is above the depth; the deepest of them is the half-space.
Ground CutAt(const Ground& ground, double depth);

/// Minor of the surface stresses at phase velocity c, over the size of the vector; c below the half-space's
/// Vs.
double Secular(const Ground& ground, double L, double c);

/// Phase velocities of the modes between cLow and cHigh in ascending order, at most `limit`, accurate to
/// about 1e-12. The brackets are narrow; a dip towards zero between two brackets is searched for a pair of
/// roots.
std::vector<double> Modes(const Ground& ground, double L, double cLow, double cHigh, int limit);

}  // namespace sondera::modes
