// plain_kriging.h - ordinary kriging as in the textbook: variogram matrix, inverse, weights, sum; and the
// image made with it node by node. Independent method for the tests; shares no code with the fast one.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace sondera::plain {

struct PlainSamples {
  std::vector<double> x, y, z;
};

/// Variogram of the three models, written out once more.
double PlainVariogram(int model, double h, double c0, double c, double a);

inline double Distance(double x1, double y1, double x2, double y2) {
  return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
}

template <class Real>
std::vector<Real> Times(const std::vector<Real>& a, const std::vector<Real>& b) {
  const std::size_t m = b.size();
  std::vector<Real> w(m, 0.0);
  for (std::size_t i = 0; i < m; ++i)
    for (std::size_t j = 0; j < m; ++j) w[i] += a[i * m + j] * b[j];
  return w;
}

/// Inverse of an m by m matrix, row after row, by Gauss-Jordan elimination with row pivoting. Empty when
/// singular. Real is double or long double.
template <class Real>
std::vector<Real> PlainInverse(std::vector<Real> a, std::size_t m) {
  std::vector<Real> inverse(m * m, 0.0);
  for (std::size_t i = 0; i < m; ++i) inverse[i * m + i] = 1.0;
  for (std::size_t k = 0; k < m; ++k) {
    std::size_t best = k;
    for (std::size_t i = k; i < m; ++i)
      if (std::fabs(a[i * m + k]) > std::fabs(a[best * m + k])) best = i;
    if (a[best * m + k] == Real(0)) return {};
    for (std::size_t j = 0; j < m; ++j) {
      std::swap(a[k * m + j], a[best * m + j]);
      std::swap(inverse[k * m + j], inverse[best * m + j]);
    }
    const Real pivot = a[k * m + k];
    for (std::size_t j = 0; j < m; ++j) {
      a[k * m + j] /= pivot;
      inverse[k * m + j] /= pivot;
    }
    for (std::size_t i = 0; i < m; ++i) {
      const Real f = a[i * m + k];
      if (i == k || f == Real(0)) continue;
      for (std::size_t j = 0; j < m; ++j) {
        a[i * m + j] -= f * a[k * m + j];
        inverse[i * m + j] -= f * inverse[k * m + j];
      }
    }
  }
  return inverse;
}

/// b, then w = inverse b, then the sum of w z; `range` is that of b. A negative value becomes 0.
template <class Real>
double kriging_result(const std::vector<Real>& inverse, double x0, double y0, std::size_t m,
                      const PlainSamples& s, int model, double range, double c0, double c) {
  std::vector<Real> b(m, 1.0);
  for (std::size_t i = 0; i + 1 < m; ++i)
    b[i] = PlainVariogram(model, Distance(s.x[i], s.y[i], x0, y0), c0, c, range);
  const std::vector<Real> w = Times(inverse, b);
  Real value = 0.0;
  for (std::size_t i = 0; i + 1 < m; ++i) value += w[i] * s.z[i];
  return value < Real(0) ? 0.0 : static_cast<double>(value);
}

/// One place. Ranges of matrix and place; NaN when singular.
template <class Real = long double>
double PlainKriging(int model, const PlainSamples& s, double c0, double c, double a, double rangeOfPlace,
                    double x0, double y0) {
  const std::size_t ns = s.x.size(), m = ns + 1;
  std::vector<Real> A(m * m, 1.0);
  for (std::size_t i = 0; i < ns; ++i)
    for (std::size_t j = 0; j < ns; ++j)
      A[i * m + j] = PlainVariogram(model, Distance(s.x[i], s.y[i], s.x[j], s.y[j]), c0, c, a);
  A[m * m - 1] = 0.0;
  const std::vector<Real> inverse = PlainInverse(std::move(A), m);
  if (inverse.empty()) return std::numeric_limits<double>::quiet_NaN();
  return kriging_result(inverse, x0, y0, m, s, model, rangeOfPlace, c0, c);
}

/// The same from covariances: weights from C and the constraint, by the Lagrange multiplier.
double CovarianceKriging(int model, const PlainSamples& s, double c, double a, double x0, double y0);

/// Mean squared deviation, divisor n.
double PlainVariance(const std::vector<double>& z);

/// The box of a node grown by quadrants until one of them has a sample; all samples of all quadrants.
/// limits: xMin, xMax, yMin, yMax. False when the box covered everything.
bool PlainSamplesAround(const PlainSamples& all, const std::array<double, 4>& limits, double x0, double y0,
                        PlainSamples& out);

/// The grid, node (i, j) at j * (nx + 1) + i; NaN where a node has two samples or fewer.
template <class Real = long double>
std::vector<double> PlainImage(const PlainSamples& all, const std::array<double, 4>& r, int nx, int ny) {
  const double dX = r[1] - r[0], dY = r[3] - r[2], a = 0.5 * std::sqrt(dX * dX + dY * dY);
  const double rangeOfPlace = static_cast<int>(a) > 0 ? static_cast<int>(a) : a;
  std::vector<double> grid;
  PlainSamples around;
  for (int j = 0; j <= ny; ++j) {
    for (int i = 0; i <= nx; ++i) {
      const double x0 = r[0] + i * dX / nx, y0 = r[2] + j * dY / ny;
      PlainSamplesAround(all, r, x0, y0, around);
      double value = std::numeric_limits<double>::quiet_NaN();
      if (around.x.size() > 2) {
        const double c = PlainVariance(around.z);
        value = c == 0.0 ? around.z[0] : PlainKriging<Real>(2, around, 0.0, c, a, rangeOfPlace, x0, y0);
      }
      grid.push_back(value);
    }
  }
  return grid;
}

}  // namespace sondera::plain
