// plane_wave_lanes.cpp - picks the eight-lane characteristic function that the processor can run.
// Called by plane_wave.cpp and its tests. Owns no state.
//
// The body is compiled once for the plain build and, with GCC on x86, once for each of two wider instruction
// sets.
#include "forward/plane_wave_lanes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#if defined(__GNUC__) && !defined(__clang__)
#define SONDERA_WIDE_LANES
#endif
#endif

#pragma GCC diagnostic ignored "-Wpsabi"  // vectors never cross a call: all that takes one is inlined

namespace sondera {
namespace {

constexpr double kThick = 18.0;         // exponent from which on the complex formulas end the stack
constexpr double kNearVelocity = 1e-9;  // r^2 or s^2 below which the complex formulas look whether to nudge
constexpr double kDoubt = 1e-14;  // sign in doubt at this part of the terms, times the growth of rounding
constexpr int kMaxDoublings = 6;
constexpr double kMaxTurns = 4096.0;  // 4^kMaxDoublings
constexpr long long kSignBit = static_cast<long long>(0x8000000000000000ull);

// 1 / 2!, 1 / 4!, ... and 1 / 3!, 1 / 5!, ...
constexpr int kTerms = 9;
constexpr double kCosh[kTerms] = {1.0 / 2,
                                  1.0 / 24,
                                  1.0 / 720,
                                  1.0 / 40320,
                                  1.0 / 3628800,
                                  1.0 / 479001600,
                                  1.0 / 87178291200,
                                  1.0 / 20922789888000,
                                  1.0 / 6402373705728000};
constexpr double kSinh[kTerms] = {1.0 / 6,
                                  1.0 / 120,
                                  1.0 / 5040,
                                  1.0 / 362880,
                                  1.0 / 39916800,
                                  1.0 / 6227020800,
                                  1.0 / 1307674368000,
                                  1.0 / 355687428096000,
                                  1.0 / 121645100408832000};

namespace portable {
#if defined(__x86_64__)
#define SONDERA_NATIVE 2
inline __m128d NativeSqrt(__m128d x) {
  return _mm_sqrt_pd(x);
}
inline unsigned NativeBits(__m128d x) {
  return static_cast<unsigned>(_mm_movemask_pd(x));
}
#else
#define SONDERA_NATIVE 2
using Pair = double __attribute__((vector_size(2 * sizeof(double))));
inline Pair NativeSqrt(Pair x) {
  return Pair{std::sqrt(x[0]), std::sqrt(x[1])};
}
inline unsigned NativeBits(Pair x) {
  return (std::signbit(x[0]) ? 1u : 0u) | (std::signbit(x[1]) ? 2u : 0u);
}
#endif
#include "forward/plane_wave_lane_body.h"
#undef SONDERA_NATIVE
}  // namespace portable

#ifdef SONDERA_WIDE_LANES
#pragma GCC push_options
#pragma GCC target("avx2")
namespace avx2 {
#define SONDERA_NATIVE 4
inline __m256d NativeSqrt(__m256d x) {
  return _mm256_sqrt_pd(x);
}
inline unsigned NativeBits(__m256d x) {
  return static_cast<unsigned>(_mm256_movemask_pd(x));
}
#include "forward/plane_wave_lane_body.h"
#undef SONDERA_NATIVE
}  // namespace avx2
#pragma GCC pop_options

#pragma GCC push_options
#pragma GCC target("avx512f,avx512dq,prefer-vector-width=512")
namespace avx512 {
#define SONDERA_NATIVE 8
inline __m512d NativeSqrt(__m512d x) {
  return _mm512_maskz_sqrt_pd(0xff, x);
}
inline unsigned NativeBits(__m512d x) {
  return _mm512_movepi64_mask((__m512i)x);
}
#include "forward/plane_wave_lane_body.h"
#undef SONDERA_NATIVE
}  // namespace avx512
#pragma GCC pop_options
#endif

}  // namespace

LaneFunction LanesFor(LaneSet set) {
#ifdef SONDERA_WIDE_LANES
  if (set == LaneSet::kAvx2) return __builtin_cpu_supports("avx2") ? avx2::EvaluateLanes : nullptr;
  if (set == LaneSet::kAvx512) {
    const bool has = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq");
    return has ? avx512::EvaluateLanes : nullptr;
  }
#endif
  return set == LaneSet::kPortable ? portable::EvaluateLanes : nullptr;
}

LaneFunction BestLanes() {
  if (LaneFunction lanes = LanesFor(LaneSet::kAvx512)) return lanes;
  if (LaneFunction lanes = LanesFor(LaneSet::kAvx2)) return lanes;
  return LanesFor(LaneSet::kPortable);
}

}  // namespace sondera
