// plane_wave_lanes.cpp - selects the eight-lane characteristic function for the processor.
// Called by plane_wave.cpp and its tests. Owns no state.
//
// The body is compiled once for the plain build and, on x86, once for each of two wider instruction sets.
#include "forward/plane_wave_lanes.h"

#include <algorithm>
#include <cmath>

#include "numeric/lanes.h"

namespace sondera {
namespace {

constexpr double kThick = 18.0;         // exponent from which on the complex formulas end the stack
constexpr double kNearVelocity = 1e-9;  // r^2 or s^2 below which the complex formulas may change c slightly
constexpr double kDoubt = 1e-14;  // sign in doubt at this part of the terms, times the growth of rounding
constexpr int kMaxDoublings = 6;
constexpr double kMaxTurns = 4096.0;  // 4^kMaxDoublings

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
#define SONDERA_LANES 8
#define SONDERA_NATIVE 2
#include "numeric/lanes.inc"

#include "forward/plane_wave_lane_body.inc"
}  // namespace portable

#ifdef SONDERA_WIDE_LANES
SONDERA_LANES_AVX2
namespace avx2 {
#define SONDERA_LANES 8
#define SONDERA_NATIVE 4
#include "numeric/lanes.inc"

#include "forward/plane_wave_lane_body.inc"
}  // namespace avx2
SONDERA_LANES_END

SONDERA_LANES_AVX512
namespace avx512 {
#define SONDERA_LANES 8
#define SONDERA_NATIVE 8
#include "numeric/lanes.inc"

#include "forward/plane_wave_lane_body.inc"
}  // namespace avx512
SONDERA_LANES_END
#endif

}  // namespace

LaneFunction LanesFor(LaneSet set) {
#ifdef SONDERA_WIDE_LANES
  if (set == LaneSet::kAvx2) return HasAvx2() ? avx2::EvaluateLanes : nullptr;
  if (set == LaneSet::kAvx512) return HasAvx512() ? avx512::EvaluateLanes : nullptr;
#endif
  return set == LaneSet::kPortable ? portable::EvaluateLanes : nullptr;
}

LaneFunction BestLanes() {
  if (LaneFunction lanes = LanesFor(LaneSet::kAvx512)) return lanes;
  if (LaneFunction lanes = LanesFor(LaneSet::kAvx2)) return lanes;
  return LanesFor(LaneSet::kPortable);
}

}  // namespace sondera
