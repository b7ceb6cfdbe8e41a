// plain_kriging.cpp - see the header.
#include "support/plain_kriging.h"

#include <algorithm>
#include <cmath>

namespace sondera::plain {
double PlainVariogram(int model, double h, double c0, double c, double a) {
  const double r = h / a;
  if (model == 1) return r < 1.0 ? c0 + c * (1.5 * r - 0.5 * r * r * r) : c0 + c;
  if (model == 2) return c0 + c * (1.0 - std::exp(-3.0 * h / a));
  return c0 + c * (1.0 - std::exp(-3.0 * h * h / (a * a)));
}

double CovarianceKriging(int model, const PlainSamples& s, double c, double a, double x0, double y0) {
  const std::size_t n = s.x.size();
  const auto covariance = [&](double h) { return c - PlainVariogram(model, h, 0.0, c, a); };
  std::vector<long double> C(n * n), k(n), one(n, 1.0L);
  for (std::size_t i = 0; i < n; ++i) {
    k[i] = covariance(Distance(s.x[i], s.y[i], x0, y0));
    for (std::size_t j = 0; j < n; ++j) C[i * n + j] = covariance(Distance(s.x[i], s.y[i], s.x[j], s.y[j]));
  }
  const std::vector<long double> inverse = PlainInverse(std::move(C), n), Ck = Times(inverse, k),
                                 C1 = Times(inverse, one);
  long double sumK = 0.0L, sum1 = 0.0L, value = 0.0L;
  for (std::size_t i = 0; i < n; ++i) {
    sumK += Ck[i];
    sum1 += C1[i];
  }
  const long double lagrange = (1.0L - sumK) / sum1;
  for (std::size_t i = 0; i < n; ++i) value += (Ck[i] + lagrange * C1[i]) * s.z[i];
  return std::max(0.0, static_cast<double>(value));
}

double PlainVariance(const std::vector<double>& z) {
  long double mean = 0.0L, sum = 0.0L;
  for (double v : z) mean += v;
  mean /= static_cast<long double>(z.size());
  for (double v : z) sum += (v - mean) * (v - mean);
  return static_cast<double>(sum / static_cast<long double>(z.size()));
}

bool PlainSamplesAround(const PlainSamples& all, const std::array<double, 4>& r, double x0, double y0,
                        PlainSamples& out) {
  const double hx = 0.15 * (r[1] - r[0]), hy = 0.15 * (r[3] - r[2]);
  int W = 0, E = 0, S = 0, N = 0;
  for (;;) {
    const double left = std::max(x0 - 0.5 * hx - W * 0.2 * hx, r[0]),
                 right = std::min(x0 + 0.5 * hx + E * 0.2 * hx, r[1]),
                 bottom = std::max(y0 - 0.5 * hy - S * 0.2 * hy, r[2]),
                 top = std::min(y0 + 0.5 * hy + N * 0.2 * hy, r[3]);
    PlainSamples quadrant[4];
    for (std::size_t k = 0; k < all.x.size(); ++k) {
      const double x = all.x[k], y = all.y[k];
      int q = -1;
      if (x0 < x && x <= right && y0 < y && y <= top) q = 0;
      if (left <= x && x <= x0 && y0 < y && y <= top) q = 1;
      if (left <= x && x <= x0 && bottom <= y && y <= y0) q = 2;
      if (x0 < x && x <= right && bottom <= y && y <= y0) q = 3;
      if (q < 0) continue;
      quadrant[q].x.push_back(x);
      quadrant[q].y.push_back(y);
      quadrant[q].z.push_back(all.z[k]);
    }
    bool any = false;
    for (const PlainSamples& q : quadrant) any = any || !q.x.empty();
    if (any) {
      out = {};
      for (const PlainSamples& q : quadrant) {
        out.x.insert(out.x.end(), q.x.begin(), q.x.end());
        out.y.insert(out.y.end(), q.y.begin(), q.y.end());
        out.z.insert(out.z.end(), q.z.begin(), q.z.end());
      }
      return true;
    }
    if (left <= r[0] && right >= r[1] && bottom <= r[2] && top >= r[3]) return false;
    ++E, ++N;  // quadrant 1
    ++W, ++N;  // quadrant 2
    ++W, ++S;  // quadrant 3
    ++E, ++S;  // quadrant 4
  }
}

}  // namespace sondera::plain
