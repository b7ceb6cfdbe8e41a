// Inversion of the published mean curve of the Oysand site, plane waves, from the profile that its publishers
// start from; against a least-squares fit that was made with a solver of its own.
//
// Vp is given below the water table (1500 m/s) and above it, so that Poisson's ratio follows from the
// velocities. Data deviations are 1.5 % of the velocities, about what the curve has (0.8 to 2.8 %).
#include <cmath>
#include <fstream>
#include <iostream>
#include <sstream>

#include "support/field_data.h"
#include "support/run_case.h"

namespace sondera::testing {
namespace {

using Rows = std::vector<std::vector<double>>;

/// Numbers of a text table; lines that begin with # are skipped.
Rows ReadTable(const std::string& name) {
  std::istringstream text(test::ReadWhole(test::FieldFile("dispersion/" + name)));
  Rows rows;
  for (std::string line; std::getline(text, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream numbers(line);
    rows.emplace_back();
    for (double x = 0.0; numbers >> x;) rows.back().push_back(x);
  }
  return rows;
}

/// Thickness, Vs, density, Vp.
LayerRow LayerOf(const std::vector<double>& r, double Vs) {
  constexpr double kHalfSpace = 8.0;  // the table has 0 there
  return {r[0] > 0.0 ? r[0] : kHalfSpace, r[3], Vs, r[2], 0.0, 0.02};
}

class OysandInversion : public RunCase {
 protected:
  void SetUp() override {
    RunCase::SetUp();
    SKIP_WITHOUT_FIELD_DATA("dispersion");
    curve = ReadTable("oysand_curve.txt");
    given = ReadTable("oysand_layers.txt");
    fit = ReadTable("oysand_own_fit.txt");
    ASSERT_EQ(curve.size(), 30u);
    ASSERT_EQ(given.size(), 4u);
    ASSERT_EQ(fit.size(), 6u);
    std::vector<double> wavelength, velocity;
    for (const auto& point : curve) {
      wavelength.push_back(point[3]);
      velocity.push_back(point[1]);
    }
    SetCurve(wavelength, velocity);
    run.switches.ufVph = 0.015;
    InvParam.ufVs = 0.1;
    SetCtrlVal(inversion::UPDATERHONU, 1);
  }

  std::vector<LayerRow> GivenLayers() const {
    std::vector<LayerRow> layers;
    for (const auto& r : given) layers.push_back(LayerOf(r, r[1]));
    return layers;
  }
  /// The thicknesses of the other fit with the given velocities.
  std::vector<LayerRow> FinerLayers() const {
    std::vector<LayerRow> layers;
    double top = 0.0;
    for (const auto& r : fit) {
      double bottom = 0.0;
      std::size_t g = 0;
      while (g + 1 < given.size() && top >= (bottom += given[g][0]) - 1e-9) ++g;
      layers.push_back(LayerOf(r, given[g][1]));
      top += r[0];
    }
    return layers;
  }

  /// Root mean square of the relative differences of an iteration's curve; all points have to be there.
  double RelativeMisfit(int iteration) const {
    double sum = 0.0;
    for (std::size_t i = 0; i < curve.size(); ++i) {
      const double c = InvParam.vel(iteration, static_cast<int>(i));
      EXPECT_GT(c, 0.0) << i;
      sum += std::pow(c / curve[i][1] - 1.0, 2);
    }
    return std::sqrt(sum / static_cast<double>(curve.size()));
  }

  void Print(const char* what) const {
    std::cout << what << ": misfit";
    for (int k = 0; k < Listed(); ++k) std::cout << ' ' << 100.0 * RelativeMisfit(k);
    std::cout << " %; Vs (resolution)";
    for (int l = 0; l < InvParam.nLayers; ++l)
      std::cout << ' ' << InvParam.Vs(Listed() - 1, l) << " (" << InvParam.resolution(Listed() - 1, l) << ')';
    std::cout << "\n";
  }

  Rows curve, given, fit;
};

TEST_F(OysandInversion, GivenLayersFitTheCurveInFiveIterations) {
  SetLayers(GivenLayers());
  ASSERT_EQ(RunIterations(5), 0) << Messages();
  Print("four layers");
  EXPECT_GT(RelativeMisfit(0), 0.03);
  EXPECT_LT(RelativeMisfit(5), 0.015);
  const double expected[] = {110.0, 132.0, 180.0, 195.0}, tolerance[] = {5.0, 8.0, 10.0, 6.0};
  for (int l = 0; l < 4; ++l) {
    EXPECT_GT(InvParam.resolution(5, l), 0.8) << l;
    EXPECT_NEAR(InvParam.Vs(5, l), expected[l], tolerance[l]) << l;
  }
}

TEST_F(OysandInversion, FinerLayersComeNearTheOtherFitWhereTheyAreResolved) {
  SetLayers(FinerLayers());
  ASSERT_EQ(run.switches.cdMode, 1);
  ASSERT_EQ(RunIterations(5), 0) << Messages();
  Print("six layers");
  EXPECT_GT(RelativeMisfit(0), 0.03);
  EXPECT_LT(RelativeMisfit(5), 0.005);
  int resolved = 0;
  for (int l = 0; l < 6; ++l) {
    if (InvParam.resolution(5, l) <= 0.8) continue;
    ++resolved;
    const double other = fit[static_cast<std::size_t>(l)][1];
    EXPECT_NEAR(InvParam.Vs(5, l), other, 0.02 * other) << l;
  }
  EXPECT_GE(resolved, 5);
}

TEST_F(OysandInversion, PanelDefaultsOfTheFactorsFitTheCurveToo) {
  SetLayers(GivenLayers());
  InvParam.ufVs = GetCtrlVal(inversion::UF_VS);
  run.switches.ufVph = GetCtrlVal(inversion::UF_VPH);
  ASSERT_EQ(RunIterations(GetCtrlVal(inversion::NITER)), 0) << Messages();
  Print("four layers, factors of the panel");
  EXPECT_LT(RelativeMisfit(5), 0.015);
}

}  // namespace
}  // namespace sondera::testing
