// green_modes.cpp - all modes of the thin-layer eigenproblem: where a point-load evaluation spends its time.
//
// Called by FS_Wave; owns no state. N modes at some six passes each; a pass factorises the banded matrix
// D + k B + k^2 A, solves, and forms two products and two sums, all in time proportional to N.
//
// Layout. The matrix is block tridiagonal with one 2 by 2 block per node, and elimination is a chain: each
// node waits for the one before. So it runs from both ends at once, towards the node in the middle: a vector
// register holds the horizontal and the vertical motion of a node of the upper half and of its mirror image
// in the lower half, and all four lanes do the same arithmetic. Such a pair of nodes is a station; station 1
// holds the surface and the base, station m the two neighbours of the middle node. An even number of nodes
// gets one more at the base that is tied to nothing and stays 0. Real and imaginary parts are in registers of
// their own. green_modes_kernel.inc is compiled twice: with the lanes in two registers, and for AVX2, where
// one register takes all four. There are no fused operations in either, so both give the same bytes.
//
// Elimination is by 2 by 2 blocks without pivoting. A singular block at the middle node is the zero last
// pivot of the method: the shift moves back by half a step. Sizes may grow by many powers of ten in a pass;
// when they near the limits of a double, all vectors are scaled by a power of two, which changes no digit.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "forward/green_kernels.h"
#include "numeric/complex_two.h"

namespace sondera {
namespace {

constexpr int kMaxPasses = 100;
constexpr int kFullStepPasses = 15;    // later steps are halved
constexpr double kSecondStage = 1e-5;  // relative step that turns on the test for the end
constexpr double kConverged = 1e-10;   // relative step that ends the iteration
constexpr double kAxisLimit = 1e-10;   // smaller part over both, below which a root is real or imaginary
constexpr double kOrthogonal = 1e-5;   // largest product with the modes found before
constexpr double kSamePair = 1e-6;     // a root this close to the conjugate of the one before is its partner
constexpr double kLargeSum = 1e+100, kSmallSum = 1e-100;

#define SONDERA_INLINE [[gnu::always_inline]] inline

namespace base {

typedef double Half __attribute__((vector_size(16)));

struct alignas(32) Lanes {
  Half h, v;
};
SONDERA_INLINE Lanes operator+(const Lanes& a, const Lanes& b) {
  return {a.h + b.h, a.v + b.v};
}
SONDERA_INLINE Lanes operator-(const Lanes& a, const Lanes& b) {
  return {a.h - b.h, a.v - b.v};
}
SONDERA_INLINE Lanes operator*(const Lanes& a, const Lanes& b) {
  return {a.h * b.h, a.v * b.v};
}
SONDERA_INLINE Lanes operator*(const Lanes& a, double f) {
  return {a.h * f, a.v * f};
}
SONDERA_INLINE Lanes operator/(double f, const Lanes& a) {
  return {f / a.h, f / a.v};
}
SONDERA_INLINE Lanes operator-(const Lanes& a) {
  return {-a.h, -a.v};
}
SONDERA_INLINE Lanes MakeLanes(double a, double b, double c, double d) {
  return {Half{a, b}, Half{c, d}};
}
SONDERA_INLINE double Lane(const Lanes& a, int i) {
  return i < 2 ? a.h[i] : a.v[i - 2];
}
SONDERA_INLINE void SetLane(Lanes& a, int i, double x) {
  if (i < 2)
    a.h[i] = x;
  else
    a.v[i - 2] = x;
}
/// The halves change places.
SONDERA_INLINE Lanes Swap(const Lanes& a) {
  return {a.v, a.h};
}
/// The first half twice.
SONDERA_INLINE Lanes First(const Lanes& a) {
  return {a.h, a.h};
}

#include "forward/green_modes_kernel.inc"

}  // namespace base

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define SONDERA_WIDE_LANES
#pragma GCC push_options
#pragma GCC target("avx2")

namespace wide {

typedef double Lanes __attribute__((vector_size(32)));

SONDERA_INLINE Lanes MakeLanes(double a, double b, double c, double d) {
  return Lanes{a, b, c, d};
}
SONDERA_INLINE double Lane(const Lanes& a, int i) {
  return a[i];
}
SONDERA_INLINE void SetLane(Lanes& a, int i, double x) {
  a[i] = x;
}
SONDERA_INLINE Lanes Swap(const Lanes& a) {
  return __builtin_shufflevector(a, a, 2, 3, 0, 1);
}
SONDERA_INLINE Lanes First(const Lanes& a) {
  return __builtin_shufflevector(a, a, 0, 1, 0, 1);
}

#include "forward/green_modes_kernel.inc"

}  // namespace wide

#pragma GCC pop_options
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
  if (!work.narrow && __builtin_cpu_supports("avx2")) {
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
