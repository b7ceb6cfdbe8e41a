// plane_wave_bench.cpp - how much faster the plane-wave solver is than its plain formula.
//
// Sites of 2, 5 and 10 layers, 60 wavelengths from 0.5 to 60 one after the other as in a sweep. The plain
// formula (complex arithmetic, all 101 trial velocities, all roots) and the solver alternate in the same run;
// the medians of the repeats and their ratio, in processor time, are printed. Results must agree, otherwise
// the program says so and fails.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

#include "forward/plane_wave.h"
#include "forward/plane_wave_lanes.h"
#include "forward/plane_wave_reference.cpp"

namespace {

using sondera::plain::Ground;

constexpr int kRepeats = 15;

/// Stiffness growing with depth, thicknesses growing too, 25 deep.
Ground NormalSite(int n) {
  Ground site;
  for (int l = 0; l < n; ++l) {
    const double x = n > 1 ? static_cast<double>(l) / (n - 1) : 0.0;
    site.h.push_back(25.0 * (l + 1) / (0.5 * n * (n + 1)));
    site.Vs.push_back(140.0 + 360.0 * x);
    site.rho.push_back(1.75 + 0.3 * x);
    site.nu.push_back(0.3333 + 0.1 * x);
  }
  return site;
}

/// The same with a softer layer below a stiffer one.
Ground SoftLayerSite(int n) {
  Ground site = NormalSite(n);
  site.Vs[0] = 260.0;
  return site;
}

std::vector<double> Wavelengths() {
  std::vector<double> L;
  for (int i = 0; i < 60; ++i) L.push_back(0.5 * std::pow(120.0, i / 59.0));
  return L;
}

double Solve(const Ground& site, double wavelength) {
  const int n = static_cast<int>(site.h.size()), one = 1;
  const double L[] = {0.0, wavelength};
  double c[] = {0.0, 0.0};
  sondera::FS_SASW2D(&n, site.h.data() - 1, site.Vs.data() - 1, nullptr, nullptr, site.rho.data() - 1,
                     nullptr, site.nu.data() - 1, &one, L, c);
  return c[1];
}

double SolvePlain(const Ground& site, double wavelength) {
  double c = 0.0;
  sondera::plain::PhaseVelocity(site, wavelength, &c);
  return c;
}

/// Seconds of processor time, which other programs on the machine hardly change.
double ProcessorTime() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

/// Seconds of one call of solve over all wavelengths, the whole run `times` times; results to c.
template <class Solver>
double Seconds(Solver solve, const Ground& site, const std::vector<double>& L, int times,
               std::vector<double>* c) {
  const double start = ProcessorTime();
  for (int t = 0; t < times; ++t) {
    c->clear();
    for (double wavelength : L) c->push_back(solve(site, wavelength));
  }
  return (ProcessorTime() - start) / times / static_cast<double>(L.size());
}

double Median(std::vector<double> x) {
  std::sort(x.begin(), x.end());
  return x[x.size() / 2];
}

bool Report(const char* name, const Ground& site) {
  const std::vector<double> L = Wavelengths();
  std::vector<double> plain, fast, cPlain, cFast, ratio;
  for (int i = 0; i < kRepeats; ++i) {
    plain.push_back(Seconds(SolvePlain, site, L, 1, &cPlain));
    fast.push_back(Seconds(Solve, site, L, 20, &cFast));
    ratio.push_back(plain.back() / fast.back());
  }
  double worst = 0.0;
  for (std::size_t i = 0; i < L.size(); ++i) {
    worst = std::max(worst, std::fabs(cFast[i] - cPlain[i]) / std::max(cPlain[i], 1e-300));
  }
  std::printf(
      "%-18s %2d layers: plain %8.2f us, solver %7.3f us per wavelength, ratio %5.1f, largest difference "
      "%g\n",
      name, static_cast<int>(site.h.size()), Median(plain) * 1e6, Median(fast) * 1e6, Median(ratio), worst);
  return worst <= 1e-12;
}

/// Time of eight trial velocities over ten layers with each instruction set, against the widest.
void ReportLanes() {
  using namespace sondera;
  const Ground site = NormalSite(10);
  std::vector<LaneLayer> table;
  for (std::size_t l = 0; l < site.h.size(); ++l) {
    const double V2 = site.Vs[l] * site.Vs[l];
    table.push_back({0.25 * site.h[l], 1.0 / V2, 0.25 / V2, V2 * site.rho[l]});
  }
  const LaneStack stack{table.data(), 10};
  const std::pair<const char*, LaneSet> sets[] = {
      {"plain build", LaneSet::kPortable}, {"AVX2", LaneSet::kAvx2}, {"AVX-512", LaneSet::kAvx512}};
  for (auto [name, set] : sets) {
    const LaneFunction lanes = LanesFor(set);
    if (lanes == nullptr) continue;
    std::vector<double> spent;
    for (int r = 0; r < kRepeats; ++r) {
      double c[kLanes], g[kLanes], sum = 0.0;
      const double start = ProcessorTime();
      for (int i = 0; i < 2000; ++i) {
        for (int k = 0; k < kLanes; ++k) c[k] = 150.0 + 0.01 * i + k;
        lanes(stack, c, g);
        sum += g[0];
      }
      spent.push_back((ProcessorTime() - start) / 2000 * 1e9 + (std::isnan(sum) ? 1.0 : 0.0));
    }
    std::printf("eight trials, 10 layers, %-11s %7.1f ns\n", name, Median(spent));
  }
}

}  // namespace

int main() {
  bool same = true;
  for (int n : {2, 5, 10}) same = Report("stiffer with depth", NormalSite(n)) && same;
  for (int n : {2, 5, 10}) same = Report("stiff top", SoftLayerSite(n)) && same;
  ReportLanes();
  if (!same) std::printf("the results differ\n");
  return same ? 0 : 1;
}
