// plane_wave_lane_body.h - body of the eight-lane characteristic function. For plane_wave_lanes.cpp alone,
// which includes it once for each instruction set, within a namespace of its own and with SONDERA_NATIVE
// doubles to a native vector. So there is no guard against a second inclusion, on purpose.

#define SONDERA_LANE inline __attribute__((always_inline))

using Native = double __attribute__((vector_size(SONDERA_NATIVE * sizeof(double))));
using NativeMask = long long __attribute__((vector_size(SONDERA_NATIVE * sizeof(long long))));
constexpr int kParts = kLanes / SONDERA_NATIVE;

struct Real {
  Native v[kParts];
};
struct Mask {
  NativeMask v[kParts];
};

// clang-format off
// Straight-line code for each part: a loop over them keeps the compiler from holding the parts in registers.
#define SONDERA_PART(n, expression)   \
  if constexpr (kParts > n) {         \
    constexpr int i = n;              \
    out.v[i] = expression;            \
  }
#define SONDERA_EACH(R, expression)   \
  {                                   \
    R out;                            \
    SONDERA_PART(0, expression)       \
    SONDERA_PART(1, expression)       \
    SONDERA_PART(2, expression)       \
    SONDERA_PART(3, expression)       \
    return out;                       \
  }
SONDERA_LANE Real operator+(const Real& a, const Real& b) SONDERA_EACH(Real, a.v[i] + b.v[i])
SONDERA_LANE Real operator-(const Real& a, const Real& b) SONDERA_EACH(Real, a.v[i] - b.v[i])
SONDERA_LANE Real operator*(const Real& a, const Real& b) SONDERA_EACH(Real, a.v[i] * b.v[i])
SONDERA_LANE Real operator+(const Real& a, double x) SONDERA_EACH(Real, a.v[i] + x)
SONDERA_LANE Real operator-(double x, const Real& a) SONDERA_EACH(Real, x - a.v[i])
SONDERA_LANE Real operator*(const Real& a, double x) SONDERA_EACH(Real, a.v[i] * x)
SONDERA_LANE Real operator/(double x, const Real& a) SONDERA_EACH(Real, x / a.v[i])
SONDERA_LANE Real operator/(const Real& a, const Real& b) SONDERA_EACH(Real, a.v[i] / b.v[i])
SONDERA_LANE Mask operator<(const Real& a, double x) SONDERA_EACH(Mask, a.v[i] < x)
SONDERA_LANE Mask operator>(const Real& a, double x) SONDERA_EACH(Mask, a.v[i] > x)
SONDERA_LANE Mask operator>(const Real& a, const Real& b) SONDERA_EACH(Mask, a.v[i] > b.v[i])
SONDERA_LANE Mask operator&(const Mask& a, const Mask& b) SONDERA_EACH(Mask, a.v[i] & b.v[i])
SONDERA_LANE Mask operator|(const Mask& a, const Mask& b) SONDERA_EACH(Mask, a.v[i] | b.v[i])
SONDERA_LANE Mask operator^(const Mask& a, const Mask& b) SONDERA_EACH(Mask, a.v[i] ^ b.v[i])
SONDERA_LANE Mask operator~(const Mask& a) SONDERA_EACH(Mask, ~a.v[i])
SONDERA_LANE Mask Signs(const Real& a) SONDERA_EACH(Mask, (NativeMask)a.v[i])
SONDERA_LANE Real Select(const Mask& m, const Real& a, const Real& b)
    SONDERA_EACH(Real, m.v[i] ? a.v[i] : b.v[i])
SONDERA_LANE Real Abs(const Real& a) SONDERA_EACH(Real, (Native)((NativeMask)a.v[i] & ~kSignBit))
SONDERA_LANE Real NegateIf(const Mask& m, const Real& a)
    SONDERA_EACH(Real, (Native)((NativeMask)a.v[i] ^ (m.v[i] & kSignBit)))
SONDERA_LANE Real Sqrt(const Real& a) SONDERA_EACH(Real, NativeSqrt(a.v[i]))
static_assert(kParts <= 4);
// clang-format on

SONDERA_LANE Real Load(const double* x) {
  Real a;
  std::memcpy(&a, x, sizeof a);
  return a;
}

SONDERA_LANE void Store(double* x, const Real& a) {
  std::memcpy(x, &a, sizeof a);
}

SONDERA_LANE unsigned Bits(const Mask& m) {
  unsigned bits = 0;
  for (int i = 0; i < kParts; ++i) bits |= NativeBits((Native)m.v[i]) << (i * SONDERA_NATIVE);
  return bits;
}

/// cosh x - 1 and sinh x / x of x^2 = z; cos and sin where z is negative.
struct Hyperbolic {
  Real u, sigma;
};

/// By the series of z / 4^doublings, at most 1 in modulus, and the formulas of the double argument.
SONDERA_LANE Hyperbolic Evaluate(const Real& z, double shrink, int doublings) {
  const Real q = z * shrink;
  Real u = q * kCosh[kTerms - 1] + kCosh[kTerms - 2], sigma = q * kSinh[kTerms - 1] + kSinh[kTerms - 2];
  for (int i = kTerms - 3; i >= 0; --i) {
    u = u * q + kCosh[i];
    sigma = sigma * q + kSinh[i];
  }
  u = u * q;
  sigma = sigma * q + 1.0;
  for (int i = 0; i < doublings; ++i) {
    sigma = sigma * (u + 1.0);
    u = u * (u + 2.0) * 2.0;
  }
  return {u, sigma};
}

/// The stack so far: upper-left block over k, the pivots' signs, and the error of the block's elements that
/// rounding may have left, in units of a rounding; the plain complex formulas have no less of it. `lost` is
/// set where it reached a pivot.
struct Condensed {
  Real K11, K12, K22;
  Mask sign, lost;
  Real error;
};

/// Squared decay factors of a layer and (c / Vs)^2.
struct Decay {
  Real r2, s2, y;
};

SONDERA_LANE Decay DecayOf(const LaneLayer& layer, const Real& c2) {
  const Real y = c2 * layer.iV2;
  return {1.0 - c2 * layer.iP2, 1.0 - y, y};
}

SONDERA_LANE void AddLayer(Condensed& up, const Decay& d, const LaneLayer& layer, double c2Max) {
  const double kh = layer.kh, kh2 = kh * kh;
  const double turns = kh2 * (c2Max * std::max(layer.iV2, layer.iP2) - 1.0);
  double shrink = 1.0;
  int doublings = 0;
  for (double z = std::max(std::min(kh2, kThick * kThick), turns); z > 1.0 && doublings < kMaxDoublings;
       z *= 0.25) {
    shrink *= 0.25;
    ++doublings;
  }
  const Hyperbolic p = Evaluate(d.r2 * kh2, shrink, doublings), q = Evaluate(d.s2 * kh2, shrink, doublings);
  const Real C1 = p.u + 1.0, C2 = q.u + 1.0;
  const Real w = p.u + q.u + p.u * q.u;  // C1 C2 - 1
  const Real SS = p.sigma * q.sigma * kh2, rsSS = d.r2 * d.s2 * SS;
  const Real inverse = 1.0 / (SS + rsSS - w * 2.0);
  const Real T = d.y * layer.G * inverse, Tk = T * kh;
  const Real rS = d.r2 * p.sigma, sS = d.s2 * q.sigma;
  Real K33 = Tk * (q.sigma * C1 - rS * C2);
  Real K34 = (2.0 - d.y) * layer.G + T * (rsSS - w);
  Real K44 = Tk * (p.sigma * C2 - sS * C1);
  const Real K13 = Tk * (rS - q.sigma);
  const Real K14 = T * (q.u - p.u);
  Real K24 = Tk * (sS - p.sigma);
  const Real K11 = up.K11 + K33, K12 = up.K12 - K34;

  const Real P1 = 1.0 / K11;
  const Real f12 = P1 * K12, f13 = P1 * K13, f14 = P1 * K14;
  const Real K22 = up.K22 + K44 - K12 * f12;
  const Real K23 = 0.0 - K14 - K13 * f12;
  K24 = K24 - K14 * f12;
  const Real P2 = 1.0 / K22;
  const Real f23 = P2 * K23, f24 = P2 * K24;
  K33 = K33 - K13 * f13 - K23 * f23;
  K34 = K34 - K14 * f13 - K24 * f23;
  K44 = K44 - K14 * f14 - K24 * f24;

  // Rounding has two sources. The terms before they cancel; and the common factor T, whose error scales with
  // what is left of the layer, and with the part of it that T does not multiply. The motion of the top
  // carries them down. Doubling an angle widens its error.
  const double spread = turns > 1.0 ? 1.0 / shrink : 1.0;
  const Real size = (Abs(w) + 1.0) * spread, growth = size * Abs(inverse), bare = (d.y + 2.0) * layer.G;
  const Real terms = size * Abs(T) * (1.0 + kh) + (growth + 1.0) * bare;
  const Real motion = f13 * f13 + f14 * f14 + (f23 * f23 + f24 * f24) * (f12 * f12 + 1.0);
  const Real left = growth * (Abs(K33) + Abs(K34) + Abs(K44));
  const Real error = up.error + terms, least = Select(Abs(K11) > Abs(K22), Abs(K22), Abs(K11));
  up = {K33,
        K34,
        K44,
        up.sign ^ Signs(K11) ^ Signs(K22),
        up.lost | ~(least > error * kDoubt),
        error * motion * 2.0 + terms + left};
}

/// Real part of the determinant with the half-space added, with the sign of the pivots; complex where the
/// wave is faster than the half-space's shear wave. `doubt` is set where rounding may have decided it.
SONDERA_LANE Real AddHalfSpace(const Condensed& up, const Decay& d, double G, Mask* doubt) {
  const Mask rTurns = d.r2 < 0.0, sTurns = d.s2 < 0.0;
  const Mask mixed = rTurns ^ sTurns, both = rTurns & sTurns;
  const Real r = Sqrt(Abs(d.r2)), s = Sqrt(Abs(d.s2)), rs = r * s, zero{};
  // Of 1 / (1 - rs) the real part: for an imaginary rs that is 1 / (1 + |rs|^2).
  const Real H = d.y * G / (1.0 - Select(mixed, zero - rs * rs, NegateIf(both, rs)));
  const Real rH = r * H, sH = s * H;
  const Real K11 = up.K11 + Select(rTurns, zero, rH), K22 = up.K22 + Select(sTurns, zero, sH);
  const Real K12 = up.K12 + (H + -2.0 * G);
  const Real plus = K11 * K22, minus = Select(both, rH * sH, zero) + K12 * K12;
  const Real det = plus - minus;
  const Real error = up.error * (Abs(K11) + Abs(K12) * 2.0 + Abs(K22)) + Abs(plus) + minus;
  *doubt = up.lost | ~(Abs(det) > error * kDoubt);
  return NegateIf(up.sign, det);
}

unsigned EvaluateLanes(const LaneStack& stack, const double* velocity, double* g) {
  const Real c = Load(velocity), c2 = c * c, zero{};
  double c2Max = 0.0;
  for (int i = 0; i < kLanes; ++i) c2Max = std::max(c2Max, velocity[i] * velocity[i]);
  Condensed up{zero, zero, zero, Mask{}, Mask{}, zero};
  for (int l = 0; l + 1 < stack.count; ++l) {
    const LaneLayer& layer = stack.layer[l];
    const Decay d = DecayOf(layer, c2);
    const Mask sFirst = d.r2 > d.s2;
    const Real low = Select(sFirst, d.s2, d.r2), high = Select(sFirst, d.r2, d.s2);
    const Real least = Select(Abs(low) > Abs(high), Abs(high), Abs(low));
    const double kh2 = layer.kh * layer.kh;
    up.lost = up.lost | (least < kNearVelocity) | (low * kh2 < -kMaxTurns) | (high * kh2 > kThick * kThick);
    AddLayer(up, d, layer, c2Max);
  }
  const LaneLayer& last = stack.layer[stack.count - 1];
  Mask doubt;
  Store(g, AddHalfSpace(up, DecayOf(last, c2), last.G, &doubt));
  return Bits(doubt);
}

#undef SONDERA_EACH
#undef SONDERA_PART
#undef SONDERA_LANE
