// known_site.h - a ground of three layers, its plane-wave curve as the measured one, and a uniform start.
#pragma once

#include <vector>

#include "support/run_case.h"

namespace sondera::testing {

class KnownSite : public RunCase {
 protected:
  static constexpr int kPoints = 15;
  const std::vector<LayerRow> truth{{2.0, 0.0, 130.0, 1.8, 0.33, 0.02},
                                    {3.0, 0.0, 180.0, 1.8, 0.33, 0.02},
                                    {5.0, 0.0, 260.0, 1.8, 0.33, 0.02}};

  void SetSite(double start = 180.0) {
    SetLayers(Uniform(truth, start));
    SetCurveOf(truth, Wavelengths(2.0, 25.0, kPoints));
  }
  double MeasuredVelocity(int i) const { return FModelParam.globalVel[static_cast<std::size_t>(i)]; }
  /// Another velocity at a point (from 0), its wavelength unchanged.
  static void SpoilPoint(int i, double factor) {
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
      m->globalVel[static_cast<std::size_t>(i)] *= factor;
      m->globalFreq[static_cast<std::size_t>(i)] *= factor;
    }
  }
  /// Largest relative distance of the last profile from the ground.
  double WorstLayer(int iteration) const {
    double worst = 0.0;
    for (int l = 0; l < 3; ++l) {
      const double Vs = truth[static_cast<std::size_t>(l)].Vs;
      worst = std::max(worst, std::fabs(InvParam.Vs(iteration, l) / Vs - 1.0));
    }
    return worst;
  }
};

}  // namespace sondera::testing
