// Analytic starting profiles of the published curves of two sites (docs/published-records.md), compared with
// a least-squares fit of the same curve and with the curve itself; and profiles of a known ground.
#include <gtest/gtest.h>

#include <cmath>

#include "forward/plane_wave.h"
#include "forward/synthetic_site.h"
#include "run/analytic_profile.h"
#include "run/observations.h"
#include "run/run_sizes.h"
#include "signal/site_curves.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class SiteProfile : public RunTest {
 protected:
  void MakeProfile(const SiteCurve& curve, const std::vector<LayerRow>& layers, double ratio) {
    SetLayers(layers);
    const int n = static_cast<int>(curve.size());
    SetGlobalCurve(n);
    for (std::size_t k = 0; k < curve.size(); ++k) {
      FModelParam.globalVel[k] = curve[k].vel;
      FModelParam.globalFreq[k] = curve[k].freq;
      FModelParam.globalWlen[k] = curve[k].vel / curve[k].freq;
    }
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, kAnalyticProfile), 0);
    run.switches.alphaDepth = ratio;
    ASSERT_EQ(FS_GetStartMP(), 0);
  }
  /// Root mean square of the relative misfit of the profile's own plane-wave curve.
  static double Misfit(const SiteCurve& curve) {
    double sum = 0.0;
    for (const SitePoint& p : curve) {
      const int one = 1;
      const double L[] = {0.0, p.vel / p.freq};
      double c[] = {0.0, 0.0};
      FS_SASW2D(&run.ground.nLayersCur, run.ground.layerH.shifted(), run.ground.layerVs.shifted(), nullptr,
                nullptr, run.ground.layerRho.shifted(), nullptr, run.ground.layerNu.shifted(), &one, L, c);
      sum += (c[1] / p.vel - 1.0) * (c[1] / p.vel - 1.0);
    }
    return std::sqrt(sum / static_cast<double>(curve.size()));
  }
};

TEST_F(SiteProfile, OysandComesNearTheLeastSquaresFit) {
  SKIP_WITHOUT_FIELD_DATA("dispersion");
  ASSERT_EQ(kOysandCurve.size(), 30u);
  // Layers and ratios of the fit: water table at 1.8 m. The fit has 0.22 % rms.
  const std::vector<LayerRow> layers = {{0.8, 0, 100, 1.9, 0.3, 0.02},  {1.0, 0, 100, 1.9, 0.3, 0.02},
                                        {2.0, 0, 100, 1.9, 0.49, 0.02}, {3.0, 0, 100, 1.9, 0.49, 0.02},
                                        {4.0, 0, 100, 1.9, 0.49, 0.02}, {500, 0, 100, 1.9, 0.49, 0.02}};
  const double fit[] = {110.0, 133.2, 172.1, 186.1, 175.6, 196.4};
  for (double ratio : {0.45, 0.5, 0.55}) {
    MakeProfile(kOysandCurve, layers, ratio);
    for (int l = 1; l <= 6; ++l)
      EXPECT_NEAR(run.ground.layerVs[l] / fit[l - 1], 1.0, 0.08) << ratio << " " << l;
    EXPECT_LT(Misfit(kOysandCurve), 0.04) << ratio;
  }
}

TEST_F(SiteProfile, KnownGroundIsFoundFromItsOwnCurve) {
  const SiteSimulator ground((SyntheticSite()));
  SiteCurve curve;
  for (double f = 5.0; f < 60.0; f *= 1.09) curve.push_back({f, ground.PhaseVelocity(f)});
  const std::vector<LayerRow> layers = {{2.0, 0, 100, 1.8, 1.0 / 3, 0.02},
                                        {4.0, 0, 100, 1.8, 1.0 / 3, 0.02},
                                        {8.0, 0, 100, 1.8, 1.0 / 3, 0.02},
                                        {500, 0, 100, 1.8, 1.0 / 3, 0.02}};
  for (double ratio : {0.4, 0.5}) {
    MakeProfile(curve, layers, ratio);
    for (int l = 1; l <= 4; ++l)
      EXPECT_NEAR(run.ground.layerVs[l] / StandardGround()[static_cast<std::size_t>(l - 1)].Vs, 1.0, 0.12)
          << ratio << " " << l;
    EXPECT_LT(Misfit(curve), 0.06) << ratio;
  }
}

TEST_F(SiteProfile, WellingtonStiffensWithDepth) {
  const std::vector<LayerRow> layers = {{2.0, 0, 100, 1.9, 0.3, 0.02},
                                        {3.0, 0, 100, 1.9, 0.3, 0.02},
                                        {4.0, 0, 100, 1.9, 0.3, 0.02},
                                        {6.0, 0, 100, 1.9, 0.3, 0.02},
                                        {500, 0, 100, 1.9, 0.3, 0.02}};
  for (double ratio : {0.4, 0.5}) {
    MakeProfile(kWghsCurve, layers, ratio);
    EXPECT_NEAR(run.ground.layerVs[1], 176.0 / 0.927, 6.0)
        << "the slowest wave measures the ground at the surface";
    for (int l = 2; l <= 5; ++l) EXPECT_GT(run.ground.layerVs[l], run.ground.layerVs[l - 1]) << ratio;
    EXPECT_LT(run.ground.layerVs[5], 350.0);
    EXPECT_LT(Misfit(kWghsCurve), 0.04) << ratio;
  }
}

}  // namespace
}  // namespace sondera::testing
