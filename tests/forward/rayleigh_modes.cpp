// rayleigh_modes.cpp - the compound-vector route to Rayleigh modes. Called by tests only.
#include "forward/rayleigh_modes.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace sondera::modes {
namespace {

using Vector = std::array<double, 6>;  // minors 12, 13, 14, 23, 24, 34
constexpr int kPair[6][2] = {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}};

using Matrix4 = std::array<std::array<double, 4>, 4>;
using Matrix6 = std::array<std::array<double, 6>, 6>;

/// Elastic constants over a reference modulus, and q = rho c^2 over it.
struct Medium {
  double mu, lambda, q;
};

Medium MediumOf(const Ground& g, std::size_t l, double c, double reference) {
  const double mu = g.rho[l] * g.Vs[l] * g.Vs[l] / reference;
  return {mu, 2.0 * mu * g.nu[l] / (1.0 - 2.0 * g.nu[l]), g.rho[l] * c * c / reference};
}

/// d/d(kz) of (r1, r2, r3, r4), stresses over k times the reference modulus, z downward.
Matrix4 System(const Medium& m) {
  const double p = m.lambda + 2.0 * m.mu;
  Matrix4 A{};
  A[0][1] = 1.0;
  A[0][2] = 1.0 / m.mu;
  A[1][0] = -m.lambda / p;
  A[1][3] = 1.0 / p;
  A[2][0] = 4.0 * m.mu * (m.lambda + m.mu) / p - m.q;
  A[2][3] = m.lambda / p;
  A[3][1] = -m.q;
  A[3][2] = -1.0;
  return A;
}

/// What the minors obey when the vectors obey A: (u ^ v)' = Au ^ v + u ^ Av.
Matrix6 Compound(const Matrix4& A) {
  Matrix6 B{};
  const auto add = [&B](std::size_t row, int i, int j, double value) {
    if (i == j) return;
    for (std::size_t col = 0; col < 6; ++col) {
      if (kPair[col][0] == i && kPair[col][1] == j) B[row][col] += value;
      if (kPair[col][0] == j && kPair[col][1] == i) B[row][col] -= value;
    }
  };
  for (std::size_t row = 0; row < 6; ++row) {
    const int i = kPair[row][0], j = kPair[row][1];
    for (int m = 0; m < 4; ++m) {
      add(row, m, j, A[static_cast<std::size_t>(i)][static_cast<std::size_t>(m)]);
      add(row, i, m, A[static_cast<std::size_t>(j)][static_cast<std::size_t>(m)]);
    }
  }
  return B;
}

void Normalize(Vector& y) {
  double size = 0.0;
  for (double x : y) size = std::fmax(size, std::fabs(x));
  for (double& x : y) x /= size;
}

double Norm(const Matrix6& B) {
  double norm = 0.0;
  for (const auto& row : B) {
    double sum = 0.0;
    for (double x : row) sum += std::fabs(x);
    norm = std::fmax(norm, sum);
  }
  return norm;
}

/// y over the distance kh upward.
void Climb(const Matrix6& B, double kh, Vector& y) {
  const int steps = 1 + static_cast<int>(Norm(B) * kh);
  const double d = -kh / steps;
  for (int step = 0; step < steps; ++step) {
    Vector term = y;
    for (int n = 1; n <= 22; ++n) {
      Vector next{};
      for (std::size_t i = 0; i < 6; ++i) {
        for (std::size_t j = 0; j < 6; ++j) next[i] += B[i][j] * term[j];
        next[i] *= d / n;
      }
      term = next;
      for (std::size_t i = 0; i < 6; ++i) y[i] += term[i];
    }
    Normalize(y);
  }
}

/// Minors of the P and the SV solution that decay with depth.
Vector DecayingPlane(const Medium& m) {
  const double r = std::sqrt(1.0 - m.q / (m.lambda + 2.0 * m.mu)), s = std::sqrt(1.0 - m.q / m.mu);
  const double p[4] = {1.0, r, -2.0 * m.mu * r, m.lambda - (m.lambda + 2.0 * m.mu) * r * r};
  const double v[4] = {s, 1.0, -m.mu * (s * s + 1.0), -2.0 * m.mu * s};
  Vector y;
  for (std::size_t i = 0; i < 6; ++i) {
    y[i] = p[kPair[i][0]] * v[kPair[i][1]] - p[kPair[i][1]] * v[kPair[i][0]];
  }
  Normalize(y);
  return y;
}

double BisectMode(const Ground& g, double L, double lo, double hi) {
  const bool rising = Secular(g, L, lo) < 0.0;
  while (hi - lo > 1e-12 * hi) {
    const double mid = 0.5 * (lo + hi);
    ((Secular(g, L, mid) < 0.0) == rising ? lo : hi) = mid;
  }
  return 0.5 * (lo + hi);
}

}  // namespace

Ground CutAt(const Ground& g, double depth) {
  Ground cut;
  double top = 0.0;
  for (std::size_t l = 0; l < g.h.size() && top < depth; top += g.h[l++]) {
    cut.h.push_back(g.h[l]);
    cut.Vs.push_back(g.Vs[l]);
    cut.rho.push_back(g.rho[l]);
    cut.nu.push_back(g.nu[l]);
  }
  return cut;
}

double Secular(const Ground& g, double L, double c) {
  const double k = 2.0 * 3.14159265358979323846 / L;
  const std::size_t last = g.h.size() - 1;
  const double reference = g.rho[last] * g.Vs[last] * g.Vs[last];
  Vector y = DecayingPlane(MediumOf(g, last, c, reference));
  for (std::size_t l = last; l-- > 0;) Climb(Compound(System(MediumOf(g, l, c, reference))), k * g.h[l], y);
  return y[5];
}

std::vector<double> Modes(const Ground& g, double L, double cLow, double cHigh, int limit) {
  constexpr int kSteps = 600;
  const double dc = (cHigh - cLow) / kSteps;
  std::vector<double> modes;
  const auto at = [&](double c) { return Secular(g, L, c); };
  double c0 = cLow, c1 = cLow, f0 = at(cLow), f1 = f0;
  for (int i = 1; i <= kSteps && static_cast<int>(modes.size()) < limit; ++i) {
    const double c2 = cLow + i * dc, f2 = at(c2);
    if ((f1 < 0.0) != (f2 < 0.0)) {
      modes.push_back(BisectMode(g, L, c1, c2));
    } else if ((f0 < 0.0) == (f1 < 0.0) && std::fabs(f1) < std::fabs(f0) && std::fabs(f1) < std::fabs(f2)) {
      double a = c0;  // a dip: golden section towards zero, until it crosses or turns
      double b = c2;
      while (b - a > 1e-10 * b) {
        const double u = b - 0.6180339887 * (b - a), v = a + 0.6180339887 * (b - a);
        const double fu = at(u), fv = at(v);
        if ((fu < 0.0) != (f1 < 0.0) || (fv < 0.0) != (f1 < 0.0)) {
          const double in = (fu < 0.0) != (f1 < 0.0) ? u : v;
          modes.push_back(BisectMode(g, L, c0, in));
          modes.push_back(BisectMode(g, L, in, c2));
          break;
        }
        (std::fabs(fu) < std::fabs(fv) ? b : a) = std::fabs(fu) < std::fabs(fv) ? v : u;
      }
    }
    c0 = c1;
    f0 = f1;
    c1 = c2;
    f1 = f2;
  }
  return modes;
}

}  // namespace sondera::modes
