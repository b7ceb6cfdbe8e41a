// Kriging of a section: ratio of the plain method (variogram matrix, inverse, weights, sum for every node) to
// one factorisation that equal neighbourhoods share, for one neighbourhood and for whole grids. Results must
// agree, otherwise the program says so and fails. Then the times of large sections.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "best_time.h"
#include "signal/kriging.h"
#include "support/plain_kriging.cpp"
#include "support/section_lines.h"

namespace {

using namespace sondera;

Listener nobody;

bool OneNeighbourhood(int n) {
  std::mt19937 random(n);
  std::uniform_real_distribution<double> x(0.0, 40.0), y(1.0, 30.0), z(100.0, 300.0);
  plain::PlainSamples s;
  for (int i = 0; i < n; ++i) {
    s.x.push_back(x(random));
    s.y.push_back(y(random));
    s.z.push_back(z(random));
  }
  KrigingSolver solver;
  std::vector<double> dual(s.x.size());
  double level = 0.0, fast = 0.0, slow = 0.0;
  const double fastTime = bench::BestMicroseconds(
      [&] {
        solver.Solve(kExponential, n, s.x.data(), s.y.data(), s.z.data(), 24.7, 0.0, nobody, dual.data(),
                     &level);
        fast = DualValue(kExponential, n, s.x.data(), s.y.data(), dual.data(), level, 24.0, 20.0, 15.0);
      },
      3e5);
  const double slowTime = bench::BestMicroseconds(
      [&] { slow = plain::PlainKriging<double>(2, s, 0.0, 1.0, 24.7, 24.0, 20.0, 15.0); }, 6e5);
  std::printf("  %4d  %10.1f  %11.1f  %8.1f\n", n, fastTime, slowTime, slowTime / fastTime);
  return std::fabs(fast - slow) < 1e-8 * slow;
}

bool Grid(const char* name, const std::vector<SectionStation>& line, int nx, int ny, bool fill) {
  const SectionSamples samples = CollectSamples(line);
  GridSettings settings = test::SettingsOf(line, nx, ny);
  settings.fill = fill;
  SectionGrid grid;
  bool good = true;
  const double time =
      bench::BestMicroseconds([&] { good = !DoKriging(samples, settings, nobody, grid) && good; }, 1.0);
  std::printf("  %-34s %4d x %-4d %9.3f s  %8.1f us a node, %5.1f %% empty\n", name, nx, ny, 1e-6 * time,
              time / static_cast<double>(grid.value.size()),
              100.0 * grid.nEmpty / static_cast<double>(grid.value.size()));
  return good;
}

}  // namespace

int main() {
  std::printf("One neighbourhood\n     n     fast us     plain us  plain/fast\n");
  bool good = true;
  for (int n : {10, 30, 100, 300}) good = OneNeighbourhood(n) && good;

  const auto line = test::MakeLine(9, 50, false, test::SmoothVelocity);
  const SectionSamples samples = CollectSamples(line);
  const GridSettings settings = test::SettingsOf(line);
  SectionGrid grid;
  std::vector<double> slow;
  plain::PlainSamples all;
  all.x = samples.x;
  all.y = samples.y;
  all.z = samples.z;
  const double fastTime =
      bench::BestMicroseconds([&] { good = !DoKriging(samples, settings, nobody, grid) && good; }, 3e5);
  const double slowTime = bench::BestMicroseconds(
      [&] {
        slow = plain::PlainImage<double>(all, {0.0, 40.0, 1.0, 30.0}, 20, 10);
      },
      3e5);
  for (std::size_t k = 0; k < slow.size(); ++k)
    good = good && (std::fabs(grid.value[k] - slow[k]) <= 1e-8 * slow[k] ||
                    (std::isnan(grid.value[k]) && std::isnan(slow[k])));
  std::printf("Grid of 231 nodes, 9 stations of 50: plain / fast %.1f\n", slowTime / fastTime);

  std::printf("Large sections\n");
  good &= Grid("9 stations of 50, even", test::MakeLine(9, 50, false, test::SmoothVelocity), 200, 100, false);
  good &= Grid("9 stations of 50, log", test::MakeLine(9, 50, true, test::SmoothVelocity), 200, 100, false);
  good &= Grid("9 stations of 50, log, filled", test::MakeLine(9, 50, true, test::SmoothVelocity), 200, 100,
               true);
  good &=
      Grid("200 stations of 100, even", test::MakeLine(200, 100, false, test::SmoothVelocity), 20, 10, false);
  good &=
      Grid("200 stations of 100, log", test::MakeLine(200, 100, true, test::SmoothVelocity), 20, 10, false);
  if (!good) std::printf("The two routes do not agree.\n");
  return good ? 0 : 1;
}
