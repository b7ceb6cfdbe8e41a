// run_case.h - whole inversions on curves of known ground, without a session: the records are filled, the
// settings are given, FS_RunIAnal is called.
#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "forward/plane_wave.h"
#include "records/inv_records.h"
#include "run/run_state.h"
#include "support/kernel_fixture.h"

namespace sondera::testing {

class RunCase : public KernelTest {
 protected:
  void SetUp() override {
    KernelTest::SetUp();
    SetCtrlVal(inversion::UPDATERHONU, 0);
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) m->analysis = 2;
    run.switches.cdMode = 1;
    run.switches.ufVph = 0.05;
    InvParam.ufVs = 0.3;
  }

  /// Plane-wave velocity of a ground at a wavelength, 0 without a root. Density and ratio as given, Vp left
  /// to the ratio.
  static double PlaneWave(const std::vector<LayerRow>& ground, double L) {
    std::vector<double> h, Vs, rho, nu;
    for (const LayerRow& row : ground) {
      h.push_back(row.thickness);
      Vs.push_back(row.Vs);
      rho.push_back(row.density);
      nu.push_back(row.nu);
    }
    const int n = static_cast<int>(ground.size()), one = 1;
    const double wave[2] = {0.0, L};
    double c[2] = {0.0, 0.0};
    FS_SASW2D(&n, h.data() - 1, Vs.data() - 1, nullptr, nullptr, rho.data() - 1, nullptr, nu.data() - 1, &one,
              wave, c);
    return c[1];
  }

  /// Evenly spaced over the logarithm.
  static std::vector<double> Wavelengths(double from, double to, int n) {
    std::vector<double> L;
    for (int i = 0; i < n; ++i) L.push_back(n > 1 ? from * std::pow(to / from, i / (n - 1.0)) : from);
    return L;
  }

  /// Measured points on the global curve of both records.
  void SetCurve(const std::vector<double>& wavelengths, const std::vector<double>& velocities) {
    SetGlobalCurve(static_cast<int>(wavelengths.size()));
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
      for (std::size_t i = 0; i < wavelengths.size(); ++i) {
        m->globalVel[i] = velocities[i];
        m->globalWlen[i] = wavelengths[i];
        m->globalFreq[i] = velocities[i] / wavelengths[i];
      }
    }
  }
  void SetCurveOf(const std::vector<LayerRow>& ground, const std::vector<double>& wavelengths) {
    std::vector<double> velocities;
    for (const double L : wavelengths) velocities.push_back(PlaneWave(ground, L));
    SetCurve(wavelengths, velocities);
  }

  /// Layers of the ground with one Vs for all of them.
  static std::vector<LayerRow> Uniform(std::vector<LayerRow> ground, double Vs) {
    for (LayerRow& row : ground) row.Vs = Vs;
    return ground;
  }

  /// A run on the present records.
  int RunIterations(int n) {
    InvParam.nEntries = n;
    const int ready = FS_AllocMemoryBlocks();
    return ready < 0 ? ready : FS_RunIAnal();
  }

  /// Iterations in the list of results, the starting model among them.
  static int Listed() { return GetNumListItems(exdthd::ITERNO); }

  std::string Messages() const {
    std::string all;
    for (const std::string& text : frontEnd.messages) all += text + "\n";
    return all;
  }
};

}  // namespace sondera::testing
