// phase_angle.cpp - see phase_angle.h.
//
// The lines are done side by side in the processor's vector registers. That is written out, because a
// compiler that keeps floating-point exceptions in order does not find it by itself. Every processor of the
// family has registers for two lines; those for four are used where they are found. The operations on a line
// are the same either way, and so are the results.
#include "numeric/phase_angle.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#define SONDERA_INLINE inline __attribute__((always_inline))

namespace sondera {
namespace {

const double kPi = 4.0 * std::atan(1.0);
constexpr double kTanEighth = 0.41421356237309503;  // tan(22.5 degrees)
constexpr double kDegrees = 57.29577951308232;      // per radian
constexpr double kLargestPart = 1e300;              // sums of two such parts are finite

/// A vector of real numbers, and one of as many whole numbers to see its bits.
template <int kLanes>
struct Vector {
  typedef double Real __attribute__((vector_size(kLanes * sizeof(double))));
  typedef std::int64_t Bits __attribute__((vector_size(kLanes * sizeof(std::int64_t))));
};

/// a in the lanes where mask is all ones, b in those where it is 0.
template <class Real, class Bits>
SONDERA_INLINE void Choose(const Bits& mask, const Real& a, const Real& b, Real& out) {
  out = Real((Bits(a) & mask) | (Bits(b) & ~mask));
}

/// Angle in degrees of a tangent t from -tan(22.5) to tan(22.5).
/// t (180/pi + z g(z)), z = t^2, with g interpolated at Chebyshev nodes of 0..tan^2(22.5); its error is 6e-18
/// of the result, well below what rounding leaves.
template <class Real>
SONDERA_INLINE void AngleOfTangent(const Real& t, Real& angle) {
  const Real z = t * t, z2 = z * z, z4 = z2 * z2;
  const Real g01 = -19.09859317102744 + 11.459155902613897 * z;
  const Real g23 = -8.185111358411447 + 6.366197668755087 * z;
  const Real g45 = -5.208704642826578 + 4.407296320758095 * z;
  const Real g67 = -3.818483784516092 + 3.356472084627183 * z;
  const Real g89 = -2.913748069098874 + 2.2478084436365506 * z;
  const Real g03 = g01 + g23 * z2, g47 = g45 + g67 * z2, g8a = g89 - 1.0987546961210597 * z2;
  angle = t * kDegrees + t * z * (g03 + (g47 + g8a * z4) * z4);
}

/// Angles of lines 0 to n - 1, n a multiple of the lanes. False when a part is too large or not a number.
template <int kLanes>
SONDERA_INLINE bool AnglesOf(const double* re, const double* im, int n, double* angle) {
  using Real = typename Vector<kLanes>::Real;
  using Bits = typename Vector<kLanes>::Bits;
  const Bits sign = Bits{} + INT64_MIN;
  const Real quarter = Real{} + 90.0, eighth = Real{} + 45.0;
  Bits fit = ~Bits{};
  for (int i = 0; i < n; i += kLanes) {
    Real x, y, longer, shorter, a;
    std::memcpy(&x, re + i, sizeof x);
    std::memcpy(&y, im + i, sizeof y);
    const Bits left = x < 0.0, imSign = Bits(y) & sign;
    x = Real(Bits(x) & ~sign);
    y = Real(Bits(y) & ~sign);
    fit &= (x <= kLargestPart) & (y <= kLargestPart);
    const Bits flat = x > y;
    Choose(flat, x, y, longer);
    Choose(flat, y, x, shorter);
    const Bits steep = shorter > kTanEighth * longer;  // 22.5 to 45 degrees from the nearer axis
    const Real t = (shorter - Real(Bits(longer) & steep)) / (longer + Real(Bits(shorter) & steep));
    AngleOfTangent(t, a);
    a += Real(Bits(eighth) & steep);
    Choose(flat, a, quarter - a, a);
    Choose(left, quarter + quarter - a, a, a);
    a = Real((Bits(a) | imSign) & Bits(x > 0.0));
    std::memcpy(angle + i, &a, sizeof a);
  }
  for (int lane = 0; lane < kLanes; ++lane)
    if (!fit[lane]) return false;
  return true;
}

bool ByTwo(const double* re, const double* im, int n, double* angle) {
  return AnglesOf<2>(re, im, n, angle);
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) bool ByFour(const double* re, const double* im, int n, double* angle) {
  return AnglesOf<4>(re, im, n, angle);
}
bool HasFourLanes() {
  return __builtin_cpu_supports("avx2");
}
#else
bool ByFour(const double* re, const double* im, int n, double* angle) {
  return AnglesOf<2>(re, im, n, angle);
}
bool HasFourLanes() {
  return false;
}
#endif

}  // namespace

double PhaseAngle(double re, double im) {
  return re == 0.0 ? 0.0 : std::atan2(im, re) * 180.0 / kPi;
}

bool PhaseAnglesByLanes(int lanes, const double* re, const double* im, int n, double* angle) {
  if (lanes != 2 && !(lanes == 4 && HasFourLanes())) return false;
  const auto run = lanes == 4 ? ByFour : ByTwo;
  const int whole = n - n % lanes, rest = n - whole;
  bool fit = run(re, im, whole, angle);
  if (rest > 0) {  // the last lines go through a full vector of their own
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
  if (n > 0) PhaseAnglesByLanes(HasFourLanes() ? 4 : 2, re, im, n, angle);
}

}  // namespace sondera
