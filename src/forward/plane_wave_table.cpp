// plane_wave_table.cpp - see plane_wave_table.h.
#include "forward/plane_wave_table.h"

#include <algorithm>
#include <cmath>

#include "forward/plane_wave.h"

namespace sondera {

PlaneWaveTable::PlaneWaveTable(const std::vector<PlaneWaveLayer>& layers) {
  constexpr int kPoints = 600;
  const auto n = static_cast<int>(layers.size());
  std::vector<double> h(1), Vs(1), rho(1), nu(1);  // element 0 is not used
  double depth = 0.0;
  for (const PlaneWaveLayer& l : layers) {
    h.push_back(l.thickness);
    Vs.push_back(l.Vs);
    rho.push_back(l.density);
    nu.push_back(l.nu);
    if (&l != &layers.back()) depth += l.thickness;
  }
  const double longest = n > 1 ? 100.0 * depth : 2.0, shortest = n > 1 ? 0.1 * layers[0].thickness : 1.0;
  std::vector<double> L(1), c(1);
  for (int i = 0; i < kPoints; ++i) {  // the shortest wavelength, the highest frequency, comes last
    L.push_back(longest * std::pow(shortest / longest, i / (kPoints - 1.0)));
    c.push_back(0.0);
  }
  const auto solve = [&](int from, int count) {
    FS_SASW2D(&n, h.data(), Vs.data(), nullptr, nullptr, rho.data(), nullptr, nu.data(), &count,
              L.data() + from - 1, c.data() + from - 1);
  };
  // The solver cleans a curve from its ends inward: one without a root at an end would lose all its roots.
  const auto hasRoot = [&](int i) {
    solve(i, 1);
    return c[static_cast<std::size_t>(i)] > 0.0;
  };
  int first = 1, last = kPoints;
  while (first < last && !hasRoot(first)) ++first;
  while (last > first && !hasRoot(last)) --last;
  std::fill(c.begin(), c.end(), 0.0);
  solve(first, last - first + 1);
  for (int i = 1; i <= kPoints; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const double f = c[at] / L[at];
    if (!(c[at] > 0.0) || (!freq_.empty() && f <= freq_.back())) {
      whole_ = false;
      continue;
    }
    freq_.push_back(f);
    vel_.push_back(c[at]);
    minusWlen_.push_back(-L[at]);
  }
}

double PlaneWaveTable::Interpolate(const std::vector<double>& x, double at) const {
  if (x.empty()) return 0.0;
  const auto above = std::lower_bound(x.begin(), x.end(), at);
  if (above == x.begin()) return vel_.front();
  if (above == x.end()) return vel_.back();
  const auto i = static_cast<std::size_t>(above - x.begin());
  const double share = (at - x[i - 1]) / (x[i] - x[i - 1]);
  return vel_[i - 1] + share * (vel_[i] - vel_[i - 1]);
}

double PlaneWaveTable::Velocity(double frequency) const {
  return Interpolate(freq_, frequency);
}

double PlaneWaveTable::Slowest() const {
  return vel_.empty() ? 0.0 : *std::min_element(vel_.begin(), vel_.end());
}

double PlaneWaveTable::VelocityAtWavelength(double wavelength) const {
  return Interpolate(minusWlen_, -wavelength);
}

}  // namespace sondera
