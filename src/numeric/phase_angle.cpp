// phase_angle.cpp - see phase_angle.h.
//
// The lines are computed side by side in the processor's vector registers (lanes.h). The code does this
// explicitly, because a compiler that keeps floating-point exceptions in order does not vectorise it. Every
// processor of the family has registers for two lines; registers for four are used where they exist. The
// operations on a line are the same in both cases, and so are the results.
#include "numeric/phase_angle.h"

#include <cmath>
#include <cstring>

#include "numeric/lanes.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

constexpr double kTanEighth = 0.41421356237309503;  // tan(22.5 degrees)
constexpr double kDegrees = 57.29577951308232;      // per radian
constexpr double kLargestPart = 1e300;              // sums of two such parts are finite

namespace two {
#define SONDERA_LANES 2
#define SONDERA_NATIVE 2
#include "numeric/lanes.inc"

#include "numeric/phase_angle_body.inc"
}  // namespace two

#ifdef SONDERA_WIDE_LANES
SONDERA_LANES_AVX2
namespace four {
#define SONDERA_LANES 4
#define SONDERA_NATIVE 4
#include "numeric/lanes.inc"

#include "numeric/phase_angle_body.inc"
}  // namespace four
SONDERA_LANES_END
#else
namespace four = two;
#endif

}  // namespace

double PhaseAngle(double re, double im) {
  return re == 0.0 ? 0.0 : std::atan2(im, re) * 180.0 / kPi;
}

bool PhaseAnglesByLanes(int lanes, const double* re, const double* im, int n, double* angle) {
  if (lanes != 2 && !(lanes == 4 && HasAvx2())) return false;
  const auto run = lanes == 4 ? four::AnglesOf : two::AnglesOf;
  const int whole = n - n % lanes, rest = n - whole;
  bool fit = run(re, im, whole, angle);
  if (rest > 0) {  // the last lines use a full vector of their own
    double x[4] = {}, y[4] = {}, a[4];
    std::memcpy(x, re + whole, sizeof(double) * static_cast<std::size_t>(rest));
    std::memcpy(y, im + whole, sizeof(double) * static_cast<std::size_t>(rest));
    fit = run(x, y, lanes, a) && fit;
    std::memcpy(angle + whole, a, sizeof(double) * static_cast<std::size_t>(rest));
  }
  if (!fit)
    for (int i = 0; i < n; ++i) angle[i] = PhaseAngle(re[i], im[i]);
  return true;
}

void PhaseAngles(const double* re, const double* im, int n, double* angle) {
  if (n > 0) PhaseAnglesByLanes(HasAvx2() ? 4 : 2, re, im, n, angle);
}

}  // namespace sondera
