// plain_green_kernels.cpp - see the header.
#include "forward/plain_green_kernels.h"

#include <algorithm>
#include <cmath>

namespace sondera::plain {
namespace {

constexpr int kReach = 3;

double Abs1(Complex z) {
  return std::fabs(z.real()) + std::fabs(z.imag());
}

/// Upper band of a symmetric matrix: row i holds (i, i) .. (i, i + 3).
struct Band {
  std::vector<Complex> a;
  explicit Band(int N) : a(static_cast<std::size_t>(N + 4) * (kReach + 1)) {}
  Complex& at(int i, int j) {
    return a[static_cast<std::size_t>(i) * (kReach + 1) + static_cast<std::size_t>(j - i)];
  }
};

/// Elimination in place without pivoting; false if the last pivot is 0.
bool Solve(Band& m, std::vector<Complex>& b, int N) {
  for (int i = 1; i <= N; ++i) {
    if (i == N && m.at(N, N) == Complex(0.0, 0.0)) return false;
    for (int r = i + 1; r <= std::min(i + kReach, N); ++r) {
      const Complex factor = m.at(i, r) / m.at(i, i);
      for (int c = r; c <= std::min(i + kReach, N); ++c) m.at(r, c) -= factor * m.at(i, c);
      b[r] -= factor * b[i];
    }
  }
  for (int i = N; i >= 1; --i) {
    for (int c = i + 1; c <= std::min(i + kReach, N); ++c) b[i] -= m.at(i, c) * b[c];
    b[i] /= m.at(i, i);
  }
  return true;
}

std::vector<Complex> TwoDiagonals(const std::vector<Complex>& d, const std::vector<Complex>& o,
                                  const std::vector<Complex>& x, int N) {
  std::vector<Complex> y(N + 1);
  for (int i = 1; i <= N; ++i) {
    y[i] = d[i] * x[i];
    if (i + 2 <= N) y[i] += o[i] * x[i + 2];
    if (i > 2) y[i] += o[i - 2] * x[i - 2];
  }
  return y;
}

}  // namespace

Pencil::Pencil(int size) : N(size) {
  for (auto* v : {&A_d, &A_o, &B1, &B2, &D_d, &D_o}) v->resize(N + 3);
}
Complex Pencil::A(int i, int j) const {
  if (i > j) std::swap(i, j);
  return i == j ? A_d[i] : j == i + 2 ? A_o[i] : Complex();
}
Complex Pencil::D(int i, int j) const {
  if (i > j) std::swap(i, j);
  return i == j ? D_d[i] : j == i + 2 ? D_o[i] : Complex();
}
Complex Pencil::B(int i, int j) const {
  if (i > j) std::swap(i, j);
  return j == i + 1 ? B1[i] : j == i + 3 ? B2[i] : Complex();
}

Modes SolveModes(const Pencil& P) {
  const int N = P.N;
  Modes out;
  out.k.resize(N + 1);
  out.phi.assign(N + 1, std::vector<Complex>(N + 1));

  double mean = 0.0;
  for (int i = 1; i <= N; ++i) mean += std::fabs((P.D_d[i] / P.A_d[i]).real());
  const double kbar = std::sqrt(mean / N);

  std::vector<Complex> X(N + 1, Complex(1.0, 0.0)), Y(N + 1, Complex(kbar, 2.0 * kbar));
  std::vector<Complex> p(N + 1), q(N + 1), x, y, v, w, z;
  Complex previous(kbar / N, 0.0);
  double startSize = kbar / (2.0 * N);
  bool pending = false;
  Band band(N);

  for (int j = 1; j <= N && out.ok; ++j) {
    x = X;
    y = Y;
    v = TwoDiagonals(P.D_d, P.D_o, x, N);
    w = TwoDiagonals(P.A_d, P.A_o, y, N);
    Complex k = pending ? std::conj(previous) : Complex(startSize, 2.0 * startSize);
    const bool fromConjugate = pending;
    pending = false;

    Complex dk = 0.0, Q = 0.0;
    bool converged = false;
    for (int pass = 1; pass <= 100 && !converged; ++pass) {
      ++out.passes;
      z.assign(N + 1, Complex());
      for (int i = 1; i <= N; ++i) {
        for (int c = i; c <= std::min(i + kReach, N); ++c)
          band.at(i, c) = P.D(i, c) + k * P.B(i, c) + k * k * P.A(i, c);
        z[i] = v[i] - k * w[i];
      }
      if (!Solve(band, z, N)) {
        k -= 0.5 * dk;
        continue;
      }
      std::vector<Complex> xn(N + 1);
      for (int i = 1; i <= N; ++i) xn[i] = (z[i] - x[i]) / k;
      Complex R = 0.0;
      for (int i = 1; i <= N; ++i) R += -xn[i] * v[i] + z[i] * w[i];
      v = TwoDiagonals(P.D_d, P.D_o, xn, N);
      w = TwoDiagonals(P.A_d, P.A_o, z, N);
      Q = 0.0;
      for (int i = 1; i <= N; ++i) Q += -xn[i] * v[i] + z[i] * w[i];
      dk = R / Q;
      if (pass > 15) dk *= 0.5;
      k += dk;

      double largest = 0.0;
      for (int i = 1; i <= N; ++i) largest = std::max(largest, std::abs(z[i]));
      for (int i = 1; i <= N; ++i) xn[i] /= largest, z[i] /= largest, v[i] /= largest, w[i] /= largest;
      Q /= largest * largest;
      x = xn;
      y = z;

      const double e = Abs1(dk / k);
      if (std::isnan(e)) {
        out.ok = false;
        break;
      }
      converged = e < 1e-10;
    }
    if (!converged) out.ok = false;

    const Complex s = std::sqrt(2.0 / Q);
    const double a = std::fabs(k.real()), b = std::fabs(k.imag());
    const bool isReal = b / (a + b) < 1e-10, isImaginary = a / (a + b) < 1e-10;
    if (isReal) k = Complex(k.real(), 0.0);
    if (isImaginary) k = Complex(0.0, k.imag());
    bool turned = false;
    if (isReal && (k * s * s * (x[1] * x[1] + x[2] * x[2])).real() <= 0.0) {
      k = -k;
      turned = true;
    }
    for (int i = 1; i <= N; ++i) out.phi[j][i] = (turned && i % 2 == 0) ? -s * z[i] : s * z[i];
    out.k[j] = k;

    Complex check = 0.0;
    for (int i = 1; i <= N; ++i) check += -p[i] * v[i] + q[i] * w[i];
    if (!(Abs1(s * check) < 1e-5)) out.ok = false;
    for (int i = 1; i <= N; ++i) {
      p[i] += out.phi[j][i] / k;
      q[i] += out.phi[j][i];
    }

    Complex a1 = 0.0, a2 = 0.0;
    for (int i = 2; i <= N; i += 2) {
      const int m = i - 1;
      a1 += -v[m] * X[m] + w[i] * Y[i];
      a2 += -v[i] * X[i] + w[m] * Y[m];
    }
    const Complex b1 = a1 * 2.0 / Q, b2 = a2 * 2.0 / Q;
    for (int i = 2; i <= N; i += 2) {
      const int m = i - 1;
      X[m] -= b1 * x[m];
      X[i] -= b2 * x[i];
      Y[m] -= b2 * z[m];
      Y[i] -= b1 * z[i];
    }
    pending = !isReal && !isImaginary && !(fromConjugate && Abs1(k - std::conj(previous)) < 1e-6 * Abs1(k));
    previous = k;
    startSize = std::abs(k) / 2.0;
  }

  for (int j = 1; j <= N; ++j) {
    if (out.k[j].imag() > 0.0) {
      out.k[j] = -out.k[j];
    } else {
      for (int i = 2; i <= N; i += 2) out.phi[j][i] = -out.phi[j][i];
    }
  }
  return out;
}

}  // namespace sondera::plain
