// point_load_site.h - layered sites for the tests of the point-load solver, and their meshes and matrices.
#pragma once

#include <random>
#include <vector>

#include "forward/green_kernels.h"
#include "forward/plain_green_kernels.h"
#include "forward/point_load.h"
#include "forward/wavenumber_integral.h"

namespace sondera::test {

/// Layers with their vectors (indices from 1), and one point with one slot.
struct Site {
  std::vector<truth::Layer> layers;
  std::vector<double> h, Vs, G, rho, nu, damp, E;
  std::vector<int> count = {0, 1}, setup = {0, 3};
  std::vector<double> rec1, rec2;
  PointLoadInput in;

  explicit Site(std::vector<truth::Layer> list);
  Site(const Site&) = delete;
  Site& operator=(const Site&) = delete;

  /// Type 3 or 4 with the given depth factor.
  void Type(int type, double fDispBulb);
  /// Makes the point's only slot an explicit pair (set-up 4).
  void Pair(double r1, double r2);
  /// Plane-wave velocity at a wavelength: the seed of the point-load solver.
  double Seed(double wavelength) const;
};

/// Velocities grow downward, one to six layers, damping from 0.005 to 0.045 unless given.
std::vector<truth::Layer> RandomLayers(std::mt19937& random, double damp = -1.0);

/// The matrices of a mesh with the boundary at its base, ready for the mode search.
struct Matrices {
  int N = 0;
  std::vector<dcomplex> A_d, A_o, B1, B2, D_d, D_o;
};
Matrices MatricesOf(const Site& site, double wavelength, double freq);
/// Without the half-space element: n sublayers of one material on rigid ground.
Matrices RigidBase(int n, double thickness, double Vs, double rho, double nu, double damp, double freq);

plain::Pencil PencilOf(const Matrices& m);

struct ModeTable {
  int ok = 0;
  std::vector<dcomplex> k, Phi;  // k[1..N], Phi[(j-1) * N + i]
};
ModeTable ModesOf(const Matrices& m, ModeWork& work);

}  // namespace sondera::test
