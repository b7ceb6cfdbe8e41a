// plane_wave_reference.cpp - the plain formula of the plane-wave solver. Called by tests and benchmark only.
//
// Division is Smith's and the square root is the one with the non-negative real part, as everywhere in the
// method; the order of operations is that of the formulas, read from left to right. A division by zero gives
// NaNs.
#include "forward/plane_wave_reference.h"

#include <cmath>
#include <cstddef>

namespace sondera::plain {
namespace {

constexpr double kLowerBound = 0.8f;
constexpr double kVelocityShift = 0.9998999834060669;
constexpr double kThick = 18.0;
constexpr int kTrials = 101;
constexpr int kMaxRoots = 25;
constexpr int kMaxHalvings = 2200;

struct Z {
  double re = 0.0, im = 0.0;
};

Z operator+(Z a, Z b) {
  return {a.re + b.re, a.im + b.im};
}
Z operator-(Z a, Z b) {
  return {a.re - b.re, a.im - b.im};
}
Z operator-(Z a) {
  return {-a.re, -a.im};
}
Z operator*(Z a, Z b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
Z operator*(double x, Z a) {
  return {x * a.re, x * a.im};
}
Z operator*(Z a, double x) {
  return {a.re * x, a.im * x};
}
Z operator/(Z a, double x) {
  return {a.re / x, a.im / x};
}
Z operator+(double x, Z a) {
  return {x + a.re, a.im};
}
Z operator-(double x, Z a) {
  return {x - a.re, -a.im};
}

Z operator/(Z a, Z b) {
  if (std::fabs(b.im) < std::fabs(b.re)) {
    const double t = b.im / b.re;
    const double den = (t * t + 1.0) * b.re;
    return {(t * a.im + a.re) / den, (a.im - t * a.re) / den};
  }
  const double t = b.re / b.im;
  const double den = (t * t + 1.0) * b.im;
  return {(a.im + t * a.re) / den, (t * a.im - a.re) / den};
}

double Modulus(Z a) {
  return std::sqrt(a.im * a.im + a.re * a.re);
}

Z Root2(Z z) {
  const double m = Modulus(z);
  if (m == 0.0) return {0.0, 0.0};
  if (z.re > 0.0) {
    const double re = std::sqrt((z.re + m) * 0.5);
    return {re, z.im / re / 2.0};
  }
  double im = std::sqrt((m - z.re) * 0.5);
  if (z.im < 0.0) im = -im;
  return {z.im / im / 2.0, im};
}

Z Exp(Z z) {
  const double m = std::exp(z.re);
  return {m * std::cos(z.im), m * std::sin(z.im)};
}

const Z one{1.0, 0.0};

/// sqrt(1 - c^2/V^2)
Z Decay(double c, double V) {
  return Root2({1.0 - c * c / (V * V), 0.0});
}

double CompressionVelocity(double Vs, double nu) {
  return Vs * std::sqrt(2.0 * (1.0 - nu) / (1.0 - 2.0 * nu));
}

/// The stack while it is condensed: upper-left block of what lies above, and the running phase.
struct Stack {
  Z K[5][5];
  Z D = one;
};

void LayerStiffness(Z (&K)[5][5], Z r, Z s, double k, double G, double h) {
  const Z E1 = Exp(r * k * h), E2 = Exp(s * k * h);
  const Z C1 = (E1 + one / E1) / 2.0, S1 = (E1 - one / E1) / 2.0;
  const Z C2 = (E2 + one / E2) / 2.0, S2 = (E2 - one / E2) / 2.0;
  const Z rs = r * s;
  const Z D0 = 2.0 * (1.0 - C1 * C2) + (one / rs + rs) * S1 * S2;
  const Z Q = ((1.0 - s * s) / 2.0) / D0;
  const Z T = 2.0 * k * G * Q;
  const Z A0 = k * G * (1.0 + s * s);
  K[3][3] = T * (S2 * C1 / s - r * S1 * C2);
  K[3][4] = A0 + T * (1.0 + rs * S1 * S2 - C1 * C2);
  K[4][4] = T * (S1 * C2 / r - s * S2 * C1);
  K[1][3] = T * (r * S1 - S2 / s);
  K[1][4] = T * (C2 - C1);
  K[2][3] = -K[1][4];
  K[2][4] = T * (s * S2 - S1 / r);
}

void Eliminate(Stack& st) {
  auto& K = st.K;
  for (int i = 1; i <= 2; ++i) {
    const Z P = one / K[i][i];
    for (int j = i + 1; j <= 4; ++j) {
      const Z f = P * K[i][j];
      for (int m = j; m <= 4; ++m) K[j][m] = K[j][m] - K[i][m] * f;
    }
  }
  st.D = st.D * K[1][1] * K[2][2];
  st.D = st.D / Modulus(st.D);
  K[1][1] = K[3][3];
  K[1][2] = K[3][4];
  K[2][2] = K[4][4];
}

/// Returns the layer (from 0) that ends the condensation, -1 if none did. May change c slightly.
int Condense(Stack& st, const Ground& g, double omega, double* c, int layers) {
  for (int l = 0; l < layers; ++l) {
    const double Vs = g.Vs[l], Cp = CompressionVelocity(Vs, g.nu[l]);
    Z r = Decay(*c, Cp), s = Decay(*c, Vs);
    while (Modulus(r) * Modulus(s) == 0.0) {
      *c *= kVelocityShift;
      r = Decay(*c, Cp);
      s = Decay(*c, Vs);
    }
    const double k = omega / *c;
    if ((r * k * g.h[l]).re > kThick || (s * k * g.h[l]).re > kThick) return l;
    const Z a11 = st.K[1][1], a12 = st.K[1][2], a22 = st.K[2][2];
    LayerStiffness(st.K, r, s, k, Vs * Vs * g.rho[l], g.h[l]);
    st.K[1][1] = a11 + st.K[3][3];
    st.K[2][2] = a22 + st.K[4][4];
    st.K[1][2] = a12 - st.K[3][4];
    Eliminate(st);
  }
  return -1;
}

double HalfSpaceValue(const Stack& st, const Ground& g, double omega, double c, int layer) {
  const double Vs = g.Vs[layer];
  const Z r = Decay(c, CompressionVelocity(Vs, g.nu[layer])), s = Decay(c, Vs);
  const double G = Vs * Vs * g.rho[layer], k = omega / c, B = 2.0 * k * G;
  const double H = (k * G * (1.0 - s * s) / (1.0 - r * s)).re;
  const Z K11 = st.K[1][1] + r * H;
  const Z K12 = (H - B) + st.K[1][2];
  const Z K22 = st.K[2][2] + s * H;
  const Z det = (K11 * K22 - K12 * K12) * st.D;
  const double size = Modulus(det);
  return size == 0.0 ? 0.0 : det.re / size;
}

/// Bisection within a bracket; the value at the high end is known. Returns the last velocity evaluated.
double Bisect(const Ground& g, double L, double lo, double hi, double fHi) {
  double last = hi;
  for (int i = 0; i < kMaxHalvings && std::fabs((hi - lo) / hi) >= 1e-07; ++i) {
    last = (lo + hi) / 2.0;
    const double f = CharacteristicValue(g, L, &last);
    const double p = fHi * f;
    if (p < 0.0) {
      lo = last;
    } else if (p > 0.0) {
      hi = last;
      fHi = f;
    } else {
      break;
    }
  }
  return last;
}

}  // namespace

double CharacteristicValue(const Ground& g, double L, double* c) {
  const double omega = 2.0 * std::acos(-1.0) * (*c / L);
  const int n = static_cast<int>(g.Vs.size());
  std::size_t half = 0;
  double depth = 0.0;
  for (int l = 0; l < n; ++l) {  // the deepest layer whose top is above twice the wavelength
    if (depth < 2.0 * L) half = static_cast<std::size_t>(l);
    depth += g.h[l];
  }
  Stack st;
  const int stop = Condense(st, g, omega, c, static_cast<int>(half));
  return HalfSpaceValue(st, g, omega, *c, stop >= 0 ? stop : static_cast<int>(half));
}

std::vector<Root> Roots(const Ground& g, double L, double cLow, double cHigh, int limit) {
  std::vector<Root> roots;
  const double dc = (cHigh - cLow) / 100.0;
  double cPrev = cLow - dc, fPrev = 0.0;
  for (int i = 1; i <= kTrials; ++i) {
    double c = (i - 1) * dc + cLow;
    const double f = CharacteristicValue(g, L, &c);
    if (i == 1) fPrev = f;
    const double p = fPrev * f;
    if (p < 0.0 || (p == 0.0 && fPrev != 0.0)) {
      const double root = p < 0.0 ? Bisect(g, L, cPrev, c, f) : c;
      roots.push_back({root, root / L});
      if (static_cast<int>(roots.size()) == limit) return roots;
    }
    if (p == p) {
      fPrev = f;
      cPrev = c;
    }
  }
  return roots;
}

bool ScanRange(const Ground& g, double* cMin, double* cMax) {
  double low = g.Vs[0], high = g.Vs[0];
  for (double v : g.Vs) {
    if (v < low) low = v;
    if (v >= high) high = v;
  }
  const Ground uniform{{g.h[0]}, {high}, {g.rho[0]}, {g.nu[0]}};
  const std::vector<Root> rayleigh = Roots(uniform, 1.0, kLowerBound * high, high, 1);
  if (rayleigh.empty()) return false;
  *cMin = low * kLowerBound;
  *cMax = rayleigh[0].c * 1.001;
  return true;
}

void PhaseVelocity(const Ground& g, double L, double* c) {
  double cMin = 0.0, cMax = 0.0;
  if (!ScanRange(g, &cMin, &cMax)) return;
  const std::vector<Root> roots = Roots(g, L, cMin, cMax, kMaxRoots);
  if (!roots.empty()) *c = L * roots[0].f;
}

}  // namespace sondera::plain
