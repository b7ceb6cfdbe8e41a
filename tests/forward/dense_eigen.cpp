// dense_eigen.cpp - see the header.
#include "forward/dense_eigen.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sondera::dense {
namespace {

struct Dense {
  int n;
  std::vector<Complex> a;
  explicit Dense(int size) : n(size), a(static_cast<std::size_t>(size) * size) {}
  Complex& operator()(int i, int j) { return a[static_cast<std::size_t>(i) * n + j]; }
};

/// LU with row pivoting; perm[i] is the row that came to place i.
std::vector<int> Factorise(Dense& m) {
  std::vector<int> perm(m.n);
  for (int i = 0; i < m.n; ++i) perm[i] = i;
  for (int c = 0; c < m.n; ++c) {
    int p = c;
    for (int r = c + 1; r < m.n; ++r)
      if (std::abs(m(r, c)) > std::abs(m(p, c))) p = r;
    if (p != c) {
      for (int j = 0; j < m.n; ++j) std::swap(m(p, j), m(c, j));
      std::swap(perm[p], perm[c]);
    }
    if (m(c, c) == Complex()) m(c, c) = 1e-300;
    for (int r = c + 1; r < m.n; ++r) {
      const Complex f = m(r, c) /= m(c, c);
      if (f == Complex()) continue;
      for (int j = c + 1; j < m.n; ++j) m(r, j) -= f * m(c, j);
    }
  }
  return perm;
}

std::vector<Complex> Solve(Dense& lu, const std::vector<int>& perm, const std::vector<Complex>& b) {
  std::vector<Complex> x(lu.n);
  for (int i = 0; i < lu.n; ++i) {
    x[i] = b[perm[i]];
    for (int j = 0; j < i; ++j) x[i] -= lu(i, j) * x[j];
  }
  for (int i = lu.n - 1; i >= 0; --i) {
    for (int j = i + 1; j < lu.n; ++j) x[i] -= lu(i, j) * x[j];
    x[i] /= lu(i, i);
  }
  return x;
}

/// To upper Hessenberg form by Householder reflections.
void Reduce(Dense& h) {
  const int n = h.n;
  for (int c = 0; c < n - 2; ++c) {
    double norm = 0.0;
    for (int i = c + 1; i < n; ++i) norm += std::norm(h(i, c));
    norm = std::sqrt(norm);
    if (norm == 0.0) continue;
    std::vector<Complex> v(n);
    const Complex first = h(c + 1, c);
    const Complex phase = first == Complex() ? Complex(1.0) : first / std::abs(first);
    for (int i = c + 1; i < n; ++i) v[i] = h(i, c);
    v[c + 1] += phase * norm;
    double size = 0.0;
    for (int i = c + 1; i < n; ++i) size += std::norm(v[i]);
    for (int j = 0; j < n; ++j) {
      Complex s = 0.0;
      for (int i = c + 1; i < n; ++i) s += std::conj(v[i]) * h(i, j);
      s *= 2.0 / size;
      for (int i = c + 1; i < n; ++i) h(i, j) -= s * v[i];
    }
    for (int i = 0; i < n; ++i) {
      Complex s = 0.0;
      for (int j = c + 1; j < n; ++j) s += h(i, j) * v[j];
      s *= 2.0 / size;
      for (int j = c + 1; j < n; ++j) h(i, j) -= s * std::conj(v[j]);
    }
  }
}

/// Eigenvalues of a Hessenberg matrix by shifted QR steps with Givens rotations.
std::vector<Complex> QrValues(Dense& h) {
  std::vector<Complex> values(h.n), s(h.n);
  std::vector<double> c(h.n);
  int hi = h.n - 1, steps = 0;
  const double eps = std::numeric_limits<double>::epsilon();
  while (hi >= 0) {
    int lo = hi;
    while (lo > 0 && std::abs(h(lo, lo - 1)) > eps * (std::abs(h(lo, lo)) + std::abs(h(lo - 1, lo - 1))))
      --lo;
    if (lo == hi) {
      values[hi--] = h(lo, lo);
      steps = 0;
      continue;
    }
    // the eigenvalue of the last 2 by 2 block that is closer to its last entry
    const Complex a = h(hi - 1, hi - 1), b = h(hi - 1, hi), d = h(hi, hi - 1), e = h(hi, hi);
    const Complex half = 0.5 * (a - e), root = std::sqrt(half * half + b * d);
    const Complex up = half + root, down = half - root;
    Complex shift = e - (std::abs(up) > std::abs(down) ? b * d / up
                         : down == Complex()           ? Complex()
                                                       : b * d / down);
    if (++steps % 20 == 0) shift = h(hi, hi - 1);  // out of a cycle
    for (int i = lo; i <= hi; ++i) h(i, i) -= shift;
    for (int i = lo; i < hi; ++i) {
      const double r = std::hypot(std::abs(h(i, i)), std::abs(h(i + 1, i)));
      if (r == 0.0) {
        c[i] = 1.0;
        s[i] = 0.0;
        continue;
      }
      const Complex x = h(i, i), y = h(i + 1, i);
      const Complex phase = x == Complex() ? Complex(1.0) : x / std::abs(x);
      c[i] = std::abs(x) / r;
      s[i] = phase * std::conj(y) / r;
      for (int j = i; j < h.n; ++j) {
        const Complex p = h(i, j), q = h(i + 1, j);
        h(i, j) = c[i] * p + s[i] * q;
        h(i + 1, j) = -std::conj(s[i]) * p + c[i] * q;
      }
    }
    for (int i = lo; i < hi; ++i) {
      for (int j = 0; j <= std::min(i + 1, hi); ++j) {
        const Complex p = h(j, i), q = h(j, i + 1);
        h(j, i) = c[i] * p + std::conj(s[i]) * q;
        h(j, i + 1) = -s[i] * p + c[i] * q;
      }
    }
    for (int i = lo; i <= hi; ++i) h(i, i) += shift;
  }
  return values;
}

}  // namespace

std::vector<Complex> Eigenvalues(const plain::Pencil& P) {
  const int N = P.N;
  double mean = 0.0;
  for (int i = 1; i <= N; ++i) mean += std::abs(P.D_d[i] / P.A_d[i]) / N;
  const double unit =
      std::sqrt(mean);  // k in this unit, so that both halves of the companion matrix are of one size

  Dense A(N);
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j) A(i, j) = P.A(i + 1, j + 1);
  const std::vector<int> perm = Factorise(A);
  Dense companion(2 * N);
  std::vector<Complex> column(N);
  for (int j = 0; j < N; ++j) {
    companion(j, N + j) = 1.0;
    for (int i = 0; i < N; ++i) column[i] = P.D(i + 1, j + 1);
    std::vector<Complex> x = Solve(A, perm, column);
    for (int i = 0; i < N; ++i) companion(N + i, j) = -x[i] / (unit * unit);
    for (int i = 0; i < N; ++i) column[i] = P.B(i + 1, j + 1);
    x = Solve(A, perm, column);
    for (int i = 0; i < N; ++i) companion(N + i, N + j) = -x[i] / unit;
  }
  Reduce(companion);
  std::vector<Complex> values = QrValues(companion);
  for (Complex& k : values) k *= unit;
  return values;
}

std::vector<Complex> Eigenvector(const plain::Pencil& P, Complex k) {
  const int N = P.N;
  Dense K(N);
  for (int i = 0; i < N; ++i)
    for (int j = 0; j < N; ++j)
      K(i, j) = P.D(i + 1, j + 1) + k * P.B(i + 1, j + 1) + k * k * P.A(i + 1, j + 1);
  const std::vector<int> perm = Factorise(K);
  std::vector<Complex> x(N);
  for (int i = 0; i < N; ++i) x[i] = Complex(1.0 + 0.1 * (i % 7), 0.3 * (i % 5));
  for (int pass = 0; pass < 3; ++pass) {
    x = Solve(K, perm, x);
    double largest = 0.0;
    for (const Complex& v : x) largest = std::max(largest, std::abs(v));
    for (Complex& v : x) v /= largest;
  }
  Complex q = 0.0;
  for (int i = 0; i < N; ++i)
    for (int j = std::max(0, i - 3); j <= std::min(N - 1, i + 3); ++j)
      q += x[i] * (2.0 * k * P.A(i + 1, j + 1) + P.B(i + 1, j + 1)) * x[j];
  const Complex norm = std::sqrt(2.0 * k / q);
  std::vector<Complex> z(N + 1);
  for (int i = 1; i <= N; ++i) z[i] = norm * x[i - 1];
  return z;
}

}  // namespace sondera::dense
