// dense_update.h - one update of the model by plain dense algebra, for comparison with the inversion.
//
// Written from the formulas of linearised maximum likelihood (Tarantola and Valette, 1982): whole matrices,
// inverses by Gauss-Jordan with full pivoting, eigenvectors by Jacobi rotations, all in long double. Shares
// no code with src/. Indices count from 0.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace sondera::plain {

using Real = long double;
using Vector = std::vector<Real>;

struct Matrix {
  std::size_t rows = 0, cols = 0;
  Vector a;

  Matrix() = default;
  Matrix(std::size_t r, std::size_t c) : rows(r), cols(c), a(r * c, 0.0L) {}
  Real& operator()(std::size_t i, std::size_t j) { return a[i * cols + j]; }
  Real operator()(std::size_t i, std::size_t j) const { return a[i * cols + j]; }
};

inline Matrix Diagonal(const Vector& d) {
  Matrix m(d.size(), d.size());
  for (std::size_t i = 0; i < d.size(); ++i) m(i, i) = d[i];
  return m;
}

inline Matrix Transpose(const Matrix& m) {
  Matrix t(m.cols, m.rows);
  for (std::size_t i = 0; i < m.rows; ++i)
    for (std::size_t j = 0; j < m.cols; ++j) t(j, i) = m(i, j);
  return t;
}

inline Matrix operator*(const Matrix& x, const Matrix& y) {
  Matrix p(x.rows, y.cols);
  for (std::size_t i = 0; i < x.rows; ++i)
    for (std::size_t j = 0; j < y.cols; ++j)
      for (std::size_t k = 0; k < x.cols; ++k) p(i, j) += x(i, k) * y(k, j);
  return p;
}

inline Matrix operator+(Matrix x, const Matrix& y) {
  for (std::size_t k = 0; k < x.a.size(); ++k) x.a[k] += y.a[k];
  return x;
}

inline Vector operator*(const Matrix& m, const Vector& v) {
  Vector p(m.rows, 0.0L);
  for (std::size_t i = 0; i < m.rows; ++i)
    for (std::size_t k = 0; k < m.cols; ++k) p[i] += m(i, k) * v[k];
  return p;
}

inline Vector operator-(Vector x, const Vector& y) {
  for (std::size_t k = 0; k < x.size(); ++k) x[k] -= y[k];
  return x;
}

inline Real Trace(const Matrix& m) {
  Real sum = 0.0L;
  for (std::size_t i = 0; i < m.rows; ++i) sum += m(i, i);
  return sum;
}

/// Gauss-Jordan with full pivoting.
inline Matrix Inverse(Matrix m) {
  const std::size_t n = m.rows;
  Matrix inv = Diagonal(Vector(n, 1.0L));
  std::vector<std::size_t> column(n);
  for (std::size_t k = 0; k < n; ++k) column[k] = k;
  const auto swapRows = [n](Matrix& x, std::size_t r, std::size_t s) {
    for (std::size_t j = 0; j < n; ++j) std::swap(x(r, j), x(s, j));
  };
  for (std::size_t k = 0; k < n; ++k) {
    std::size_t pr = k, pc = k;
    for (std::size_t i = k; i < n; ++i)
      for (std::size_t j = k; j < n; ++j)
        if (std::fabs(m(i, j)) > std::fabs(m(pr, pc))) pr = i, pc = j;
    swapRows(m, k, pr);
    swapRows(inv, k, pr);
    for (std::size_t i = 0; i < n; ++i) std::swap(m(i, k), m(i, pc));
    std::swap(column[k], column[pc]);
    const Real pivot = m(k, k);
    for (std::size_t j = 0; j < n; ++j) m(k, j) /= pivot, inv(k, j) /= pivot;
    for (std::size_t i = 0; i < n; ++i) {
      const Real factor = m(i, k);
      if (i == k || factor == 0.0L) continue;
      for (std::size_t j = 0; j < n; ++j) m(i, j) -= factor * m(k, j), inv(i, j) -= factor * inv(k, j);
    }
  }
  Matrix result(n, n);  // unknown column[k] is solved in row k
  for (std::size_t k = 0; k < n; ++k)
    for (std::size_t j = 0; j < n; ++j) result(column[k], j) = inv(k, j);
  return result;
}

// --- The update ---

struct Problem {
  int scheme = 1;
  Matrix G;             ///< rows in use by parameters
  Vector cd;            ///< variances of those rows
  Matrix Cm;            ///< prior covariance
  Vector delta;         ///< computed minus observed
  Vector model, prior;  ///< present model and the one at the start of the run
};

struct Update {
  Vector correction;  ///< to be subtracted
  Vector base;        ///< from this
  Matrix weight;      ///< parameters by rows
  Matrix posterior;   ///< parameters square; empty in data space
};

inline Matrix HessianOf(const Problem& p) {
  const Matrix weighted = Transpose(p.G) * Inverse(Diagonal(p.cd)) * p.G;
  return p.scheme == 4 ? weighted : weighted + Inverse(p.Cm);
}

/// Correction of the model-space form for a given inverse of the Hessian.
inline Update ModelSpace(const Problem& p, const Matrix& invH) {
  Update u;
  u.posterior = invH;
  u.base = p.scheme == 2 ? p.prior : p.model;
  const Matrix gradient = Transpose(p.G) * Inverse(Diagonal(p.cd));
  u.weight = invH * gradient;
  const Vector moved = p.model - p.prior;
  switch (p.scheme) {
    case 1:
    case 4:
      u.correction = u.weight * p.delta;
      break;
    case 2:
      u.correction = u.weight * (p.delta - p.G * moved);
      break;
    case 3: {
      Vector pull = gradient * p.delta;
      const Vector back = Inverse(p.Cm) * moved;
      for (std::size_t k = 0; k < pull.size(); ++k) pull[k] += back[k];
      u.correction = invH * pull;
      break;
    }
    default:
      u.correction = Vector(p.model.size(), 0.0L);
  }
  return u;
}

/// Fewer rows than parameters: the same estimate by a matrix as large as the data.
inline Update DataSpace(const Problem& p) {
  Update u;
  u.base = p.scheme == 2 ? p.prior : p.model;
  const Matrix CmGt = p.Cm * Transpose(p.G);
  u.weight = CmGt * Inverse(p.G * CmGt + Diagonal(p.cd));
  u.correction = u.weight * (p.delta - p.G * (p.model - p.prior));
  return u;
}

inline Update Solve(const Problem& p) {
  return p.G.rows < p.model.size() ? DataSpace(p) : ModelSpace(p, Inverse(HessianOf(p)));
}

// --- Bounds ---

/// Largest fraction of the step that brings no parameter past its bound; violations are those at or past it.
inline Real StepFactor(const Update& u, const Vector& low, const Vector& high, int* violations = nullptr) {
  Real f = 1.0L;
  int count = 0;
  for (std::size_t i = 0; i < u.base.size(); ++i) {
    const Real target = u.base[i] - u.correction[i];
    if (target <= low[i]) {
      ++count;
      const Real part = (u.base[i] - low[i]) / u.correction[i];
      if (part < f) f = part;
    }
    if (target >= high[i]) {
      ++count;
      const Real part = (u.base[i] - high[i]) / u.correction[i];
      if (part < f) f = part;
    }
  }
  if (violations != nullptr) *violations = count;
  return f;
}

inline Vector Stepped(const Update& u, Real f) {
  Vector m = u.base;
  for (std::size_t i = 0; i < m.size(); ++i) m[i] -= f * u.correction[i];
  return m;
}

// --- Truncation ---

/// Eigenvalues of a symmetric matrix in descending order, vectors as columns in the same order.
struct Eigen {
  Vector value;
  Matrix vector;
};

inline Eigen Jacobi(Matrix m) {
  const std::size_t n = m.rows;
  Matrix v = Diagonal(Vector(n, 1.0L));
  for (int sweep = 0; sweep < 60; ++sweep) {
    for (std::size_t p = 0; p < n; ++p) {
      for (std::size_t q = p + 1; q < n; ++q) {
        if (m(p, q) == 0.0L) continue;
        const Real theta = 0.5L * std::atan2(2.0L * m(p, q), m(q, q) - m(p, p));
        const Real c = std::cos(theta), s = std::sin(theta);
        for (std::size_t k = 0; k < n; ++k) {
          const Real x = m(k, p), y = m(k, q);
          m(k, p) = c * x - s * y, m(k, q) = s * x + c * y;
        }
        for (std::size_t k = 0; k < n; ++k) {
          const Real x = m(p, k), y = m(q, k);
          m(p, k) = c * x - s * y, m(q, k) = s * x + c * y;
          const Real t = v(k, p), w = v(k, q);
          v(k, p) = c * t - s * w, v(k, q) = s * t + c * w;
        }
      }
    }
  }
  std::vector<std::size_t> order(n);
  for (std::size_t k = 0; k < n; ++k) order[k] = k;
  std::sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) { return m(x, x) > m(y, y); });
  Eigen e{Vector(n), Matrix(n, n)};
  for (std::size_t k = 0; k < n; ++k) {
    e.value[k] = m(order[k], order[k]);
    for (std::size_t i = 0; i < n; ++i) e.vector(i, k) = v(i, order[k]);
  }
  return e;
}

/// Inverse on the space of the `count` largest eigenvalues.
inline Matrix TruncatedInverse(const Eigen& e, std::size_t count) {
  const std::size_t n = e.value.size();
  Matrix inv(n, n);
  for (std::size_t k = 0; k < count; ++k)
    for (std::size_t i = 0; i < n; ++i)
      for (std::size_t j = 0; j < n; ++j) inv(i, j) += e.vector(i, k) * e.vector(j, k) / e.value[k];
  return inv;
}

}  // namespace sondera::plain
