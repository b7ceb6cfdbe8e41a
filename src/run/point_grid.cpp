// point_grid.cpp - see point_grid.h.
#include "run/point_grid.h"

#include <algorithm>
#include <cmath>

namespace sondera {

OffsetVector<double> PointGrid(double min, double max, double ratio, int n) {
  OffsetVector<double> x(1, n);
  if (ratio == 1.0) {
    const double step = n > 1 ? (max - min) / (n - 1) : 0.0;
    for (int k = 1; k <= n; ++k) x[k] = min + (k - 1) * step;
  } else if (ratio == -1.0) {
    const double step = n > 1 ? std::log10(max / min) / (n - 1) : 0.0;
    for (int k = 1; k <= n; ++k) x[k] = std::pow(10.0, std::log10(min) + (k - 1) * step);
  } else {
    // Steps d, d r, d r^2, ...: the k-th point lies their sum above min.
    const double d = n > 1 ? (ratio - 1.0) * (max - min) / (std::pow(ratio, n - 1) - 1.0) : 0.0;
    for (int k = 1; k <= n; ++k) x[k] = min + d * (std::pow(ratio, k - 1) - 1.0) / (ratio - 1.0);
  }
  return x;
}

bool PointsAreUsable(const OffsetVector<double>& points) {
  return std::all_of(points.begin(), points.end(), [](double x) { return std::isfinite(x) && x > 0.0; });
}

}  // namespace sondera
