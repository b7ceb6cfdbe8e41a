// exact_records.cpp - see the header.
#include "forward/exact_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "forward/plane_wave_table.h"
#include "forward/wavenumber_integral.h"

namespace sondera::test {

WaveformLines ExactLines(const WaveformSetup& setup, double silent) {
  PulseRecord p = setup.pulse;
  p.Derive();
  const auto force = ForceSpectrum(p, setup.source);
  double largest = 0.0;
  for (const auto& f : force) largest = std::max(largest, std::abs(f));
  std::vector<truth::Layer> ground;
  std::vector<PlaneWaveLayer> plane;
  for (const WaveformLayer& l : setup.site.layers) {
    ground.push_back({l.thickness, l.Vs, l.density, l.nu, l.damping});
    plane.push_back({l.thickness, l.Vs, l.density, l.nu});
  }
  const PlaneWaveTable table(plane);
  const LineSolver solver(setup.site);
  WaveformLines lines;
  lines.deltaF = 1.0 / p.timeLength;
  lines.u.assign(setup.site.receivers.size(), std::vector<std::complex<double>>(force.size()));
  for (std::size_t k = 1; k < force.size(); ++k) {
    if (std::abs(force[k]) < silent * largest) continue;
    const double f = static_cast<double>(k) * lines.deltaF, radius = solver.LoadRadius(table.Velocity(f) / f);
    for (std::size_t r = 0; r < lines.u.size(); ++r)
      lines.u[r][k] = truth::DiskLoad(ground, 2.0 * std::numbers::pi * f, setup.site.receivers[r], radius);
  }
  return lines;
}

WaveformResult Generated(const WaveformSetup& setup) {
  WaveformResult result;
  Listener nobody;
  const Refusal refusal = GenerateWaveform(setup, nobody, result);
  EXPECT_FALSE(refusal) << refusal.reason();
  return result;
}

std::vector<double> WorstPercent(const WaveformRecord& a, const WaveformRecord& b) {
  std::vector<double> worst;
  for (std::size_t r = 0; r < b.trace.size(); ++r) {
    double peak = 0.0, difference = 0.0;
    for (std::size_t i = 0; i < b.trace[r].size(); ++i) {
      peak = std::max(peak, std::fabs(b.trace[r][i]));
      difference = std::max(difference, std::fabs(a.trace[r][i] - b.trace[r][i]));
    }
    worst.push_back(100.0 * difference / peak);
  }
  return worst;
}

}  // namespace sondera::test
