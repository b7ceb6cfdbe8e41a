// plain_algebra.h - second routes for the tests of the solvers: test matrices, products and norms,
// elimination with complete pivoting and one-sided Jacobi in extended precision. Shares no code and no scheme
// with src/.
#pragma once

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "support/odd_numbers.h"

namespace sondera::test {

/// Matrix by columns in a vector that counts from 1, element (i, j) at (j - 1) * ld + i, so that data() is
/// what the kernels take. Element 0 is a guard.
struct Matrix {
  int rows, cols, ld;
  std::vector<double> store;

  Matrix(int m, int n, int leading = 0)
      : rows(m),
        cols(n),
        ld(std::max(leading, m)),
        store(static_cast<std::size_t>(ld) * (n - 1) + std::max(m, 1) + 1, 0.0) {}

  double& operator()(int i, int j) { return store[static_cast<std::size_t>(j - 1) * ld + i]; }
  double operator()(int i, int j) const { return store[static_cast<std::size_t>(j - 1) * ld + i]; }
  double* data() { return store.data(); }
  const double* data() const { return store.data(); }
};

/// Greatest sum of magnitudes in a row.
inline double Norm(const Matrix& a) {
  double norm = 0.0;
  for (int i = 1; i <= a.rows; ++i) {
    double sum = 0.0;
    for (int j = 1; j <= a.cols; ++j) sum += std::fabs(a(i, j));
    norm = std::max(norm, sum);
    if (std::isnan(sum)) return sum;
  }
  return norm;
}

inline Matrix Transpose(const Matrix& a) {
  Matrix t(a.cols, a.rows);
  for (int i = 1; i <= a.rows; ++i)
    for (int j = 1; j <= a.cols; ++j) t(j, i) = a(i, j);
  return t;
}

inline Matrix Product(const Matrix& a, const Matrix& b) {
  Matrix p(a.rows, b.cols);
  for (int i = 1; i <= a.rows; ++i) {
    for (int j = 1; j <= b.cols; ++j) {
      long double sum = 0.0L;
      for (int k = 1; k <= a.cols; ++k) sum += static_cast<long double>(a(i, k)) * b(k, j);
      p(i, j) = static_cast<double>(sum);
    }
  }
  return p;
}

inline Matrix Difference(const Matrix& a, const Matrix& b) {
  Matrix d(a.rows, a.cols);
  for (int i = 1; i <= a.rows; ++i)
    for (int j = 1; j <= a.cols; ++j) d(i, j) = a(i, j) - b(i, j);
  return d;
}

inline Matrix Identity(int n) {
  Matrix one(n, n);
  for (int i = 1; i <= n; ++i) one(i, i) = 1.0;
  return one;
}

inline Matrix RandomMatrix(int m, int n, unsigned seed) {
  std::mt19937 engine(seed * 7919u + m * 101u + n);
  std::uniform_real_distribution<double> value(-1.0, 1.0);
  Matrix a(m, n);
  for (int j = 1; j <= n; ++j)
    for (int i = 1; i <= m; ++i) a(i, j) = value(engine);
  return a;
}

inline Matrix HilbertMatrix(int m, int n) {
  Matrix a(m, n);
  for (int j = 1; j <= n; ++j)
    for (int i = 1; i <= m; ++i) a(i, j) = 1.0 / (i + j - 1);
  return a;
}

/// Rank about half of the full one; exactly 0 for a 1 x 1 matrix.
inline Matrix RankDeficientMatrix(int m, int n, unsigned seed) {
  const int rank = std::min(m, n) / 2;
  if (rank == 0) return Matrix(m, n);
  return Product(RandomMatrix(m, rank, seed), RandomMatrix(rank, n, seed + 1));
}

/// Solves a x = b (one column) by elimination with complete pivoting in extended precision.
inline std::vector<double> PlainSolve(const Matrix& a, const std::vector<double>& b) {
  const int n = a.rows;
  std::vector<std::vector<long double>> t(n, std::vector<long double>(n + 1));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) t[i][j] = a(i + 1, j + 1);
    t[i][n] = b[i];
  }
  std::vector<int> unknown(n);
  std::iota(unknown.begin(), unknown.end(), 0);
  for (int step = 0; step < n; ++step) {
    int row = step, col = step;
    for (int i = step; i < n; ++i)
      for (int j = step; j < n; ++j)
        if (std::fabs(t[i][j]) > std::fabs(t[row][col])) row = i, col = j;
    std::swap(t[step], t[row]);
    std::swap(unknown[step], unknown[col]);
    for (auto& line : t) std::swap(line[step], line[col]);
    for (int i = 0; i < n; ++i) {
      if (i == step) continue;
      const long double f = t[i][step] / t[step][step];
      for (int j = step; j <= n; ++j) t[i][j] -= f * t[step][j];
    }
  }
  std::vector<double> x(n);
  for (int i = 0; i < n; ++i) x[unknown[i]] = static_cast<double>(t[i][n] / t[i][i]);
  return x;
}

/// Singular values, descending, by one-sided Jacobi rotations in extended precision; rows >= cols.
inline std::vector<double> JacobiSingularValues(const Matrix& a) {
  std::vector<std::vector<long double>> c(a.cols, std::vector<long double>(a.rows));
  for (int j = 0; j < a.cols; ++j)
    for (int i = 0; i < a.rows; ++i) c[j][i] = a(i + 1, j + 1);
  const auto dot = [](const auto& x, const auto& y) {
    return std::inner_product(x.begin(), x.end(), y.begin(), 0.0L);
  };
  for (int sweep = 0; sweep < 60; ++sweep) {
    bool rotated = false;
    for (int p = 0; p < a.cols; ++p) {
      for (int q = p + 1; q < a.cols; ++q) {
        const long double pp = dot(c[p], c[p]), qq = dot(c[q], c[q]), pq = dot(c[p], c[q]);
        if (pq == 0.0L || std::fabs(pq) <= 1e-18L * std::sqrt(pp * qq)) continue;
        rotated = true;
        const long double zeta = (qq - pp) / (2.0L * pq);
        const long double t =
            (zeta >= 0.0L ? 1.0L : -1.0L) / (std::fabs(zeta) + std::sqrt(1.0L + zeta * zeta));
        const long double cs = 1.0L / std::sqrt(1.0L + t * t), sn = cs * t;
        for (int i = 0; i < a.rows; ++i) {
          const long double x = c[p][i], y = c[q][i];
          c[p][i] = cs * x - sn * y;
          c[q][i] = sn * x + cs * y;
        }
      }
    }
    if (!rotated) break;
  }
  std::vector<double> values;
  for (const auto& column : c) values.push_back(static_cast<double>(std::sqrt(dot(column, column))));
  std::sort(values.rbegin(), values.rend());
  return values;
}

/// Least-squares coefficients of a polynomial (ascending powers, from element 0) of weighted points, by the
/// normal equations in extended precision on an abscissa moved to its mean and scaled, then expanded back.
inline std::vector<double> PlainPolynomialFit(const std::vector<double>& x, const std::vector<double>& y,
                                              const std::vector<double>& sig, int terms) {
  const std::size_t count = x.size();
  const long double mean = std::accumulate(x.begin(), x.end(), 0.0L) / count;
  long double span = 0.0L;
  for (const double xi : x) span = std::max<long double>(span, std::fabs(xi - mean));
  if (span == 0.0L) span = 1.0L;

  std::vector<std::vector<long double>> t(terms, std::vector<long double>(terms + 1, 0.0L));
  for (std::size_t i = 0; i < count; ++i) {
    const long double z = (x[i] - mean) / span, weight = 1.0L / (static_cast<long double>(sig[i]) * sig[i]);
    for (int r = 0; r < terms; ++r) {
      for (int s = 0; s < terms; ++s) t[r][s] += weight * std::pow(z, static_cast<long double>(r + s));
      t[r][terms] += weight * y[i] * std::pow(z, static_cast<long double>(r));
    }
  }
  for (int step = 0; step < terms; ++step) {
    int row = step;
    for (int i = step; i < terms; ++i)
      if (std::fabs(t[i][step]) > std::fabs(t[row][step])) row = i;
    std::swap(t[step], t[row]);
    for (int i = 0; i < terms; ++i) {
      if (i == step) continue;
      const long double f = t[i][step] / t[step][step];
      for (int j = step; j <= terms; ++j) t[i][j] -= f * t[step][j];
    }
  }
  // Horner in the polynomial ((x - mean) / span).
  std::vector<long double> result(terms, 0.0L);
  for (int k = terms - 1; k >= 0; --k) {
    std::vector<long double> next(terms, 0.0L);
    for (int p = 0; p < terms; ++p) {
      if (p + 1 < terms) next[p + 1] += result[p] / span;
      next[p] -= result[p] * mean / span;
    }
    next[0] += t[k][terms] / t[k][k];
    result = next;
  }
  return {result.begin(), result.end()};
}

}  // namespace sondera::test
