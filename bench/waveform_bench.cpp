// Computed records: the time of 1024 lines, and of additional receivers. A line is one evaluation of the
// point-load solver for any number of receivers: six more should add 5 % at most. Processor time; the numbers
// of receivers alternate, line by line, so that disturbances affect them alike.
#include <complex>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

#include "forward/plane_wave_table.h"
#include "forward/waveform_lines.h"

namespace {

using namespace sondera;

double Now() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

}  // namespace

int main() {
  WaveformSite site;
  site.layers = {{2.0, 150.0, 1.8, 0.25, 0.02},
                 {3.0, 200.0, 1.8, 0.3, 0.02},
                 {5.0, 260.0, 1.9, 0.3, 0.02},
                 {0.0, 340.0, 2.0, 0.25, 0.02}};
  std::vector<PlaneWaveLayer> plane;
  for (const WaveformLayer& l : site.layers) plane.push_back({l.thickness, l.Vs, l.density, l.nu});
  const PlaneWaveTable table(plane);

  const int counts[] = {1, 6, 12, 24};
  double time[4] = {};
  std::vector<std::unique_ptr<LineSolver>> solvers;
  for (int n : counts) {
    site.receivers.clear();
    for (int r = 0; r < n; ++r) site.receivers.push_back(1.0 + 31.0 * r / n);
    solvers.push_back(std::make_unique<LineSolver>(site));
  }
  std::vector<std::complex<double>> u;
  int withoutModes = 0;
  for (int k = 1; k <= 1024; ++k) {
    const double f = 0.25 * k, L = table.Velocity(f) / f;
    for (std::size_t i = 0; i < solvers.size(); ++i) {
      const double start = Now();
      if (!solvers[i]->Displacement(f, L, u) && i == 0) ++withoutModes;
      time[i] += Now() - start;
    }
  }
  std::printf("1024 lines of four layers, 0.25 to 256 Hz, %d without modes\nreceivers  seconds  ratio to 6\n",
              withoutModes);
  for (std::size_t i = 0; i < solvers.size(); ++i)
    std::printf("%9d  %7.2f  %10.3f\n", counts[i], time[i], time[i] / time[1]);
  return 0;
}
