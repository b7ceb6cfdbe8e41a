// green_modes.cpp - all modes of the thin-layer eigenproblem: most of the time of a point-load evaluation.
//
// Called by FS_Wave; owns no state. N modes at some six passes each; a pass factorises the banded matrix
// D + k B + k^2 A, solves, and forms two products and two sums, all in time proportional to N.
//
// Layout. The matrix is block tridiagonal with one 2 by 2 block per node, and each node of the elimination
// needs the result of the node before. So the elimination runs from both ends at once, towards the node in
// the middle: a vector register holds the horizontal and the vertical motion of a node of the upper half and
// of its mirror image in the lower half, and all four lanes do the same arithmetic. Such a pair of nodes is a
// station; station 1 holds the surface and the base, station m the two neighbours of the middle node. An even
// number of nodes gets one extra node at the base, which has no coupling and stays 0.
//
//     nodes      1    2   ...   m   m+1   m+2  ...  2m   2m+1
//     stations   1    2   ...   m   mid    m   ...   2     1
//     lanes of a station: horizontal upper, horizontal lower, vertical upper, vertical lower
//
// Real and imaginary parts are in separate registers. green_modes_kernel.inc is compiled twice: with the
// lanes in two registers, and for AVX2, where one register holds all four. Neither uses fused operations, so
// both give the same bytes.
//
// Elimination is by 2 by 2 blocks without pivoting. A singular block at the middle node is the zero last
// pivot of the method: the shift then moves back by half a step. Magnitudes may grow by many powers of ten in
// a pass; near the limits of a double all vectors are scaled by a power of two, which changes no digit.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "forward/green_kernels.h"
#include "numeric/complex_two.h"
#include "numeric/lanes.h"

namespace sondera {
namespace {

constexpr int kMaxPasses = 100;
constexpr int kFullStepPasses = 15;    // later steps are halved
constexpr double kSecondStage = 1e-5;  // relative step that turns on the convergence test
constexpr double kConverged = 1e-10;   // relative step that ends the iteration
constexpr double kAxisLimit = 1e-10;   // share of the smaller part of a real or imaginary root
constexpr double kOrthogonal = 1e-5;   // largest product with the modes found before
constexpr double kSamePair = 1e-6;     // distance of a root from its conjugate partner
constexpr double kLargeSum = 1e+100, kSmallSum = 1e-100;

namespace base {
#define SONDERA_LANES 4
#define SONDERA_NATIVE 2
#include "numeric/lanes.inc"

#include "forward/green_modes_kernel.inc"
}  // namespace base

#ifdef SONDERA_WIDE_LANES
SONDERA_LANES_AVX2
namespace wide {
#define SONDERA_LANES 4
#define SONDERA_NATIVE 4
#include "numeric/lanes.inc"

#include "forward/green_modes_kernel.inc"
}  // namespace wide
SONDERA_LANES_END
#endif

}  // namespace

struct ModeWork::Storage {
  base::Storage base;
#ifdef SONDERA_WIDE_LANES
  wide::Storage wide;
#endif
  long passes = 0;
};

ModeWork::ModeWork() : storage_(std::make_unique<Storage>()) {}
ModeWork::~ModeWork() = default;
ModeWork::ModeWork(ModeWork&&) noexcept = default;
ModeWork& ModeWork::operator=(ModeWork&&) noexcept = default;
long ModeWork::passes() const {
  return storage_->passes;
}

void FS_Raylgh(const dcomplex* A_d, const dcomplex* A_o, const dcomplex* B1, const dcomplex* B2,
               const dcomplex* D_d, const dcomplex* D_o, dcomplex* k, dcomplex* Phi, int ld, ModeWork& work,
               int N, int& ok) {
  const int n = N / 2;
  double mean = 0.0;
  for (int i = 1; i <= N; ++i) mean += std::fabs(Cdiv(D_d[i], A_d[i]).re);
  const double kbar = std::sqrt(mean / N);
  ModeWork::Storage& storage = work.storage();
#ifdef SONDERA_WIDE_LANES
  if (!work.narrow && HasAvx2()) {
    wide::Storage& s = storage.wide;
    Load(s, n, A_d, A_o, B1, B2, D_d, D_o);
    ok = FindModes(s, n, kbar, k, Phi, ld) ? 1 : 0;
    storage.passes = s.passes;
    return;
  }
#endif
  base::Storage& s = storage.base;
  Load(s, n, A_d, A_o, B1, B2, D_d, D_o);
  ok = FindModes(s, n, kbar, k, Phi, ld) ? 1 : 0;
  storage.passes = s.passes;
}

}  // namespace sondera
