// wavenumber_integral.cpp - see the header.
#include "forward/wavenumber_integral.h"

#include <math.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "numeric/pi.h"

namespace sondera::truth {
namespace {

const Complex kI(0.0, 1.0);

using Matrix = std::array<std::array<Complex, 2>, 2>;

Matrix operator*(const Matrix& a, const Matrix& b) {
  Matrix c;
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 2; ++j) c[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j];
  return c;
}
Matrix operator+(const Matrix& a, const Matrix& b) {
  Matrix c;
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 2; ++j) c[i][j] = a[i][j] + b[i][j];
  return c;
}
Matrix Negative(Matrix a) {
  for (auto& row : a)
    for (auto& x : row) x = -x;
  return a;
}
Matrix Inverse(const Matrix& a) {
  const Complex det = a[0][0] * a[1][1] - a[0][1] * a[1][0];
  Matrix c;
  c[0][0] = a[1][1] / det;
  c[1][1] = a[0][0] / det;
  c[0][1] = -a[0][1] / det;
  c[1][0] = -a[1][0] / det;
  return c;
}

/// Waves of one layer: displacement (x, z) and traction (xz, zz) of P and S going down (M1, N1) and up (M2,
/// N2), and their decay over depth.
struct Waves {
  Matrix M1, N1, M2, N2;
  Complex alpha, beta;
};

Waves WavesOf(const Layer& l, double omega, Complex k) {
  const Complex c(1.0, 2.0 * l.damp), mu = l.rho * l.Vs * l.Vs * c;
  const Complex lambda = mu * (2.0 * l.nu / (1.0 - 2.0 * l.nu));
  const Complex ks2 = l.rho * omega * omega / mu, kp2 = l.rho * omega * omega / (lambda + 2.0 * mu);
  Waves w;
  w.alpha = std::sqrt(k * k - kp2);
  w.beta = std::sqrt(k * k - ks2);
  const Complex a = w.alpha, b = w.beta, g = 2.0 * k * k - ks2;
  w.M1 = {{{-kI * k, b}, {-a, -kI * k}}};
  w.M2 = {{{-kI * k, -b}, {a, -kI * k}}};
  w.N1 = {{{2.0 * kI * k * a * mu, -mu * g}, {mu * g, 2.0 * kI * k * b * mu}}};
  w.N2 = {{{-2.0 * kI * k * a * mu, -mu * g}, {mu * g, -2.0 * kI * k * b * mu}}};
  return w;
}

/// 16-point Gauss-Legendre rule on (-1, 1), by Newton's method on the polynomial.
struct Rule {
  std::array<double, 16> x, w;
  Rule() {
    const int n = 16;
    for (int i = 0; i < n; ++i) {
      double t = std::cos(kPi * (i + 0.75) / (n + 0.5)), d = 1.0;
      for (int it = 0; it < 50; ++it) {
        double p0 = 1.0, p1 = t;
        for (int j = 2; j <= n; ++j) {
          const double p2 = ((2.0 * j - 1.0) * t * p1 - (j - 1.0) * p0) / j;
          p0 = p1;
          p1 = p2;
        }
        d = n * (t * p1 - p0) / (t * t - 1.0);
        t -= p1 / d;
      }
      x[i] = t;
      w[i] = 2.0 / ((1.0 - t * t) * d * d);
    }
  }
};

}  // namespace

Complex VerticalCompliance(const std::vector<Layer>& layers, double omega, Complex k) {
  // impedance Z of all that lies below: traction = Z displacement at the top of the layer
  Waves w = WavesOf(layers.back(), omega, k);
  Matrix Z = w.N1 * Inverse(w.M1);
  for (std::size_t i = layers.size() - 1; i-- > 0;) {
    w = WavesOf(layers[i], omega, k);
    // waves going up at the bottom for those going down there
    const Matrix R = Inverse(w.N2 + Negative(Z * w.M2)) * ((Z * w.M1) + Negative(w.N1));
    const Complex e[2] = {std::exp(-w.alpha * layers[i].h), std::exp(-w.beta * layers[i].h)};
    Matrix Rtop;
    for (int p = 0; p < 2; ++p)
      for (int q = 0; q < 2; ++q) Rtop[p][q] = e[p] * R[p][q] * e[q];
    Z = (w.N1 + w.N2 * Rtop) * Inverse(w.M1 + w.M2 * Rtop);
  }
  return -Inverse(Z)[1][1];
}

Complex LambCompliance(const Layer& l, double omega, Complex k) {
  const Complex mu = l.rho * l.Vs * l.Vs * Complex(1.0, 2.0 * l.damp);
  const Complex ks2 = l.rho * omega * omega / mu;
  const Complex kp2 = ks2 * ((1.0 - 2.0 * l.nu) / (2.0 * (1.0 - l.nu)));
  const Complex a = std::sqrt(k * k - kp2), b = std::sqrt(k * k - ks2), g = 2.0 * k * k - ks2;
  return -a * ks2 / (mu * (g * g - 4.0 * k * k * a * b));
}

Complex DiskLoad(const std::vector<Layer>& layers, double omega, double r, double r0, Compliance compliance) {
  static const Rule rule;
  const Layer& top = layers.front();
  const Complex G = top.rho * top.Vs * top.Vs * Complex(1.0, 2.0 * top.damp);
  const Complex statics = (1.0 - top.nu) / G;  // of k times the compliance, for k without bound

  double slow = top.Vs, fast = top.Vs, least = 1.0;
  for (const Layer& l : layers) {
    slow = std::min(slow, l.Vs);
    fast = std::max(fast, l.Vs * 2.5);
    least = std::min(least, l.damp);
  }
  // All poles and branch points lie below k = 1.3 omega / slow, at a distance of damping times k from the
  // path.
  const double kWaves = 1.3 * omega / slow, kEnd = 50.0 * omega / slow;  // rest: 1e-5
  Complex sum = 0.0;
  double k = 0.0;
  while (k < kEnd) {
    double step = kPi / (2.0 * r);
    if (k < kWaves)
      step = std::min(step, std::max(least * std::max(k, 0.3 * omega / fast), 1e-4 * kWaves));
    else
      step = std::min(step, 0.1 * k);
    for (int i = 0; i < 16; ++i) {
      const double x = k + 0.5 * step * (1.0 + rule.x[i]);
      const Complex f = compliance(layers, omega, x) - statics / x;
      sum += 0.5 * step * rule.w[i] * f * (::j1(x * r0) * ::j0(x * r));
    }
    k += step;
  }
  // the integral of J1(k r0) J0(k r) / k, a power series in (r0 / r)^2
  const double q = (r0 / r) * (r0 / r);
  const Complex closed = statics * (0.5 * r0 / r) * (1.0 + q / 8.0 + 3.0 * q * q / 64.0);
  return (sum + closed) / (kPi * r0);
}

}  // namespace sondera::truth
