// Tests of the sensitivity matrix: against an independent solver, exact identities of the wave problem, the
// difference quotient itself, and everything around it (progress, report, halt, density and ratio).
#include "inversion/sensitivity.h"

#include <unistd.h>

#include <cmath>

#include "forward/plane_wave.h"
#include "forward/rayleigh_modes.cpp"  // the independent method for phase velocities
#include "runtime/catalogue/meassetup.h"
#include "runtime/events.h"
#include "support/kernel_fixture.h"

namespace sondera::testing {
namespace {

constexpr double kStep = 6e-6;       // relative step of the derivatives
constexpr double kRootWidth = 1e-7;  // relative width at which the solver ends its bisection

/// Vs, and the thickness above it, of a site that grows stiffer with depth.
const std::vector<LayerRow> kSite = {{1.5, 0.0, 120.0, 1.8, 0.3, 0.0},
                                     {2.5, 0.0, 160.0, 1.9, 0.33, 0.0},
                                     {4.0, 0.0, 210.0, 1.9, 0.35, 0.0},
                                     {5.0, 0.0, 300.0, 2.0, 0.3, 0.0}};

class FS_GmatrixTest : public KernelTest {
 protected:
  /// Plane waves on the site, observed values somewhere near the computed ones, so that wavelengths are
  /// given. Density and Poisson's ratio stay.
  void Start(const std::vector<LayerRow>& layers, int modelParm, const std::vector<double>& wavelengths) {
    SetLayers(layers);
    SetGlobalCurve(static_cast<int>(wavelengths.size()));
    for (std::size_t i = 0; i < wavelengths.size(); ++i) {
      TheoDispInfo.globalVel[i] = 150.0;
      TheoDispInfo.globalFreq[i] = 150.0 / wavelengths[i];
      TheoDispInfo.globalWlen[i] = wavelengths[i];
    }
    FModelParam.globalVel = TheoDispInfo.globalVel;
    InvParam.MODELPARM = modelParm;
    SetCtrlVal(inversion::UPDATERHONU, 0);
    Prepare(2);
  }
  void StartSite(int modelParm) { Start(kSite, modelParm, {2.2, 3.0, 5.0, 8.2, 12.0, 20.0}); }

  /// Wavelength at which the sweep solves a row.
  static double Wavelength(int row) { return run.observations.runVel[row] / run.observations.runFreq[row]; }

  static modes::Ground GroundOfRun() {
    modes::Ground g;
    for (int l = 1; l <= run.ground.nLayersCur; ++l) {
      g.h.push_back(run.ground.layerH[l]);
      g.Vs.push_back(run.ground.layerVs[l]);
      g.rho.push_back(run.ground.layerRho[l]);
      g.nu.push_back(run.ground.layerNu[l]);
    }
    return g;
  }
  static double Mode(const modes::Ground& g, double L) {
    const modes::Ground cut = modes::CutAt(g, 2.0 * L);
    const auto found = modes::Modes(cut, L, 0.5 * cut.Vs.front(), cut.Vs.back() * (1.0 - 1e-9), 1);
    return found.empty() ? NAN : found.front();
  }
  /// Derivative of the fundamental mode by one layer value: central differences at two steps, extrapolated.
  static double ModeDerivative(const modes::Ground& g, std::vector<double> modes::Ground::*column,
                               std::size_t layer, double L) {
    const auto difference = [&](double step) {
      modes::Ground plus = g, minus = g;
      (plus.*column)[layer] += step;
      (minus.*column)[layer] -= step;
      return (Mode(plus, L) - Mode(minus, L)) / (2.0 * step);
    };
    const double h = 2e-3 * (g.*column)[layer];
    return (4.0 * difference(0.5 * h) - difference(h)) / 3.0;
  }

  /// Number of solves, counted by the polls of events: one after each point.
  int polls = 0;
};

// --- exact relations ---

TEST_F(FS_GmatrixTest, HalfSpaceHasVelocityOverVsAtEveryWavelength) {
  Start({{5.0, 0.0, 180.0, 1.9, 0.3, 0.0}}, 1, {1.0, 5.0, 30.0});
  ASSERT_EQ(FS_Gmatrix(), 0);
  const double ratio = Mode(GroundOfRun(), 1.0) / 180.0;  // c over Vs depends on Poisson's ratio alone
  EXPECT_NEAR(ratio, 0.927413, 1e-6);
  for (int i = 1; i <= 3; ++i) EXPECT_NEAR(run.update.GMatrix(i, 1), ratio, 1e-6);
}

TEST_F(FS_GmatrixTest, ColumnsOfVsAgreeWithDerivativesOfAnIndependentSolver) {
  StartSite(1);
  const modes::Ground g = GroundOfRun();
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    const double L = Wavelength(i), c = Mode(g, L);
    for (std::size_t l = 0; l < g.Vs.size(); ++l) {
      // A root is found within the width of the bisection, the step moves it by some 1e-5.
      const double tolerance = kRootWidth / kStep * c / g.Vs[l];
      EXPECT_NEAR(run.update.GMatrix(i, static_cast<int>(l) + 1), ModeDerivative(g, &modes::Ground::Vs, l, L),
                  tolerance)
          << "row " << i << " layer " << l;
    }
  }
}

TEST_F(FS_GmatrixTest, ColumnsOfThicknessAgreeWithDerivativesOfAnIndependentSolver) {
  StartSite(2);
  const modes::Ground g = GroundOfRun();
  ASSERT_EQ(FS_Gmatrix(), 0);
  ASSERT_EQ(run.parameters.nModelParm, 3);
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    const double L = Wavelength(i), c = Mode(g, L);
    for (std::size_t l = 0; l < 3; ++l)
      EXPECT_NEAR(run.update.GMatrix(i, static_cast<int>(l) + 1), ModeDerivative(g, &modes::Ground::h, l, L),
                  kRootWidth / kStep * c / g.h[l])
          << "row " << i << " layer " << l;
  }
}

TEST_F(FS_GmatrixTest, VelocityIsHomogeneousInTheShearVelocities) {
  // All Vs times a factor give all velocities times that factor, so the columns times Vs sum up to c.
  StartSite(1);
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    double sum = 0.0;
    for (int l = 1; l <= 4; ++l) sum += run.ground.layerVs[l] * run.update.GMatrix(i, l);
    const double c = Mode(GroundOfRun(), Wavelength(i));
    EXPECT_NEAR(sum, c, 0.02 * c) << i;
  }
}

/// Velocity of a row from the solver, called directly on the test's own copy of the layers.
double Solve(const modes::Ground& g, double L) {
  const int n = static_cast<int>(g.h.size()), one = 1;
  const double wave[2] = {0.0, L};
  double c[2] = {0.0, 0.0};
  FS_SASW2D(&n, g.h.data() - 1, g.Vs.data() - 1, nullptr, nullptr, g.rho.data() - 1, nullptr, g.nu.data() - 1,
            &one, wave, c);
  return c[1];
}

TEST_F(FS_GmatrixTest, IsTheCentralDifferenceOverTwiceTheStep) {
  StartSite(3);
  const modes::Ground g = GroundOfRun();
  ASSERT_EQ(FS_Gmatrix(), 0);
  ASSERT_EQ(run.parameters.nModelParm, 7);
  for (int l = 1; l <= 4; ++l) {
    for (const int q : {kQuantityH, kQuantityVs}) {
      const int p = run.parameters.MapEntry(q, l);
      if (p == 0) continue;
      const auto column = q == kQuantityH ? &modes::Ground::h : &modes::Ground::Vs;
      const std::size_t k = static_cast<std::size_t>(l - 1);
      const double value = (g.*column)[k], step = value * kStep;
      modes::Ground plus = g, minus = g;
      (plus.*column)[k] = value + step;
      (minus.*column)[k] = value + step - 2.0 * step;
      for (int i = 1; i <= run.observations.nObsRows; ++i)
        EXPECT_NEAR(run.update.GMatrix(i, p),
                    (Solve(plus, Wavelength(i)) - Solve(minus, Wavelength(i))) / (2.0 * step),
                    2e-4 * std::fabs(run.update.GMatrix(i, p)) + 1e-9)
            << "quantity " << q << " layer " << l << " row " << i;
    }
  }
}

TEST_F(FS_GmatrixTest, PointLoadColumnsFollowTheAnalysis) {
  // On uniform ground without damping c grows with Vs at a fixed wavelength, and the far field of the point
  // load is the plane wave: the columns of a frequency sum up to c - f dc/df over Vs, which is c over Vs.
  SetLayers({{4.0, 0.0, 150.0, 2.0, 0.3, 0.02}, {20.0, 0.0, 150.0, 2.0, 0.3, 0.02}});
  SetGlobalCurve(2);
  const double frequency[] = {20.0, 35.0};
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->nSubLayers = 6;
    for (std::size_t i = 0; i < 2; ++i) {
      m->globalVel[i] = 139.0;
      m->globalFreq[i] = frequency[i];
      m->globalWlen[i] = 139.0 / frequency[i];
    }
  }
  SetCtrlVal(inversion::UPDATERHONU, 0);
  Prepare(3);
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int i = 1; i <= 2; ++i)
    EXPECT_NEAR(run.update.GMatrix(i, 1) + run.update.GMatrix(i, 2), 0.927, 0.05) << i;
}

// --- What is solved ---

TEST_F(FS_GmatrixTest, TakesTwoSolvesForEveryFreeParameter) {
  for (const int modelParm : {1, 2, 3}) {
    StartSite(modelParm);
    polls = 0;
    frontEnd.onProcessEvents = [this] { ++polls; };
    ASSERT_EQ(FS_Gmatrix(), 0);
    frontEnd.onProcessEvents = nullptr;
    EXPECT_EQ(polls, 2 * run.parameters.nModelParm * run.observations.nDispPoints) << modelParm;
    EXPECT_EQ(run.parameters.nModelParm, modelParm == 1 ? 4 : modelParm == 2 ? 3 : 7);
  }
}

TEST_F(FS_GmatrixTest, OnlyVsFreeNeverAsksForThicknesses) {
  StartSite(1);
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (const std::string& text : process) EXPECT_EQ(text.find(" H"), std::string::npos) << text;
  EXPECT_TRUE(Shown(process, "Calculating G matrix: Layer 4 * Deriv. of  Vs"));
}

TEST_F(FS_GmatrixTest, ThicknessOfTheHalfSpaceIsNoParameterAndIsNotSolvedForIfItsEntryIsSet) {
  StartSite(2);
  for (int l = 1; l <= 4; ++l) EXPECT_EQ(run.parameters.MapEntry(kQuantityH, l), l < 4 ? l : 0);
  run.parameters.MapEntry(kQuantityH, 4) = 3;  // shares the number, so that a solve would spoil the column
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int i = 1; i <= 3; ++i) EXPECT_NE(run.update.GMatrix(6, i), 0.0);
}

TEST_F(FS_GmatrixTest, ConstrainedLayersHaveNoColumn) {
  SetCtrlVal(inversion::CONST_MP_VS, "2, 3");
  StartSite(1);
  ASSERT_EQ(run.parameters.nModelParm, 2);
  ASSERT_EQ(FS_Gmatrix(), 0);
  EXPECT_FALSE(Shown(process, "Layer 2 *"));
  EXPECT_FALSE(Shown(process, "Layer 3 *"));
  EXPECT_TRUE(Shown(process, "Layer 4 *"));
}

TEST_F(FS_GmatrixTest, ProgressNamesTheLayerAndTheQuantitiesSoFar) {
  StartSite(3);
  ASSERT_EQ(FS_Gmatrix(), 0);
  EXPECT_TRUE(Shown(process, "Calculating G matrix"));
  EXPECT_TRUE(Shown(process, "Calculating G matrix: Layer 2 * Deriv. of  H"));
  EXPECT_TRUE(Shown(process, "Calculating G matrix: Layer 2 * Deriv. of  H Vs"));
  EXPECT_TRUE(Shown(process, "Calculating G matrix: Layer 4 * Deriv. of  Vs"));
  EXPECT_FALSE(Shown(process, "Layer 4 * Deriv. of  H"));
}

TEST_F(FS_GmatrixTest, LayersEndWhereTheyBegan) {
  StartSite(3);
  const OffsetVector<double> H = run.ground.layerH, Vs = run.ground.layerVs;
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int l = 1; l <= 4; ++l) {
    EXPECT_NEAR(run.ground.layerH[l], H[l], 1e-15 * 4 * H[l]);
    EXPECT_NEAR(run.ground.layerVs[l], Vs[l], 1e-15 * 4 * Vs[l]);
  }
}

TEST_F(FS_GmatrixTest, ParameterOfZeroDividesByZeroAndHarmsNothingElse) {
  StartSite(3);
  run.ground.layerH[2] = 0.0;
  ASSERT_EQ(FS_Gmatrix(), 0);
  EXPECT_EQ(run.ground.layerH[2], 0.0);
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    EXPECT_FALSE(std::isfinite(run.update.GMatrix(i, run.parameters.MapEntry(kQuantityH, 2))));
    EXPECT_TRUE(std::isfinite(run.update.GMatrix(i, run.parameters.MapEntry(kQuantityVs, 1))));
  }
}

TEST_F(FS_GmatrixTest, VsOfZeroEndsWithoutACrash) {
  StartSite(1);
  run.ground.layerVs[1] = 0.0;
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int i = 1; i <= run.observations.nObsRows; ++i) EXPECT_FALSE(std::isfinite(run.update.GMatrix(i, 1)));
}

// --- Amplitudes ---

TEST_F(FS_GmatrixTest, AmplitudesHaveTheirRowsBehindTheVelocities) {
  SetLayers({{4.0, 0.0, 130.0, 2.0, 0.3, 0.02}, {20.0, 0.0, 180.0, 2.0, 0.3, 0.02}});
  SetArrayCurves(2, 1, {140.0, 135.0});
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->recLoc = {3.0, 6.0};
    m->freq[0] = 20.0;
    m->freq[1] = 30.0;
    m->nSubLayers = 5;
  }
  SetCtrlVal(inversion::UPDATERHONU, 0);
  Prepare(3);
  ASSERT_EQ(FS_Gmatrix(), 0);
  const ColumnMatrix velocities = run.update.GMatrix;
  run.switches.iUseAmplitude = 1;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  ASSERT_EQ(run.update.GMatrix.rows(), 4);
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int p = 1; p <= 2; ++p) {
    for (int i = 1; i <= 2; ++i) {
      EXPECT_NEAR(run.update.GMatrix(i, p), velocities(i, p), 1e-6);
      EXPECT_TRUE(std::isfinite(run.update.GMatrix(2 + i, p)));
      EXPECT_NE(run.update.GMatrix(2 + i, p), 0.0);
    }
  }
}

// --- Density and Poisson's ratio ---

TEST_F(FS_GmatrixTest, DensityAndRatioFollowVsWhereAsked) {
  StartSite(1);
  run.ground.layerVs[4] = 420.5;
  SetCtrlVal(inversion::UPDATERHONU, 1);
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int l = 1; l <= 3; ++l) {
    EXPECT_DOUBLE_EQ(run.ground.layerRho[l], 1800.0);
    EXPECT_DOUBLE_EQ(run.ground.layerNu[l], 0.3333333);
  }
  EXPECT_DOUBLE_EQ(run.ground.layerRho[4], 2400.0);
  EXPECT_DOUBLE_EQ(run.ground.layerNu[4], 0.2);
}

TEST_F(FS_GmatrixTest, DensityDivisorGoesByTheUnitOfLength) {
  const double divisor[] = {1.0, 0.0018, 16.019, 27080.0}, unit[] = {1.0, 0.01, 0.3048, 0.0254};
  for (int index = 0; index < 4; ++index) {
    StartSite(1);
    SetCtrlVal(inversion::UPDATERHONU, 1);
    SetCtrlIndex(meassetup::LENGTHUNIT, index);
    run.ground.layerVs[3] = 420.0 / unit[index] * (1.0 - 1e-9);
    run.ground.layerVs[4] = 420.0 / unit[index] * (1.0 + 1e-4);
    FS_Gmatrix();
    EXPECT_DOUBLE_EQ(run.ground.layerRho[3], 1800.0 / divisor[index]);
    EXPECT_DOUBLE_EQ(run.ground.layerNu[3], 0.3333333);
    EXPECT_DOUBLE_EQ(run.ground.layerRho[4], 2400.0 / divisor[index]);
    EXPECT_DOUBLE_EQ(run.ground.layerNu[4], 0.2);
  }
}

TEST_F(FS_GmatrixTest, WithoutUpdateDensityAndRatioStayAsTheyStand) {
  StartSite(1);
  const OffsetVector<double> rho = run.ground.layerRho, nu = run.ground.layerNu;
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (int l = 1; l <= 4; ++l) {
    EXPECT_EQ(run.ground.layerRho[l], rho[l]);
    EXPECT_EQ(run.ground.layerNu[l], nu[l]);
  }
}

TEST_F(FS_GmatrixTest, DerivedColumnsAreDerivedAgainByTheSweep) {
  // Density 0 and Vp given in the table: both follow from the velocities, whatever the rule says.
  Start({{2.0, 400.0, 120.0, 0.0, 0.0, 0.0}, {4.0, 0.0, 200.0, 1.9, 0.3, 0.0}}, 1, {2.0, 6.0});
  const double rho = run.ground.layerRho[1], nu = run.ground.layerNu[1];
  SetCtrlVal(inversion::UPDATERHONU, 1);
  ASSERT_EQ(FS_Gmatrix(), 0);
  EXPECT_NEAR(run.ground.layerRho[1], rho, 1e-4 * rho);
  EXPECT_NEAR(run.ground.layerNu[1], nu, 1e-4 * nu);
  EXPECT_DOUBLE_EQ(run.ground.layerRho[2], 1800.0);
}

// --- Halt, rows without velocity, report ---

TEST_F(FS_GmatrixTest, HaltEndsAtOnceAndLeavesTheValuePerturbed) {
  StartSite(1);
  const double Vs = run.ground.layerVs[2];
  run.update.GMatrix.fill(777.0);
  frontEnd.onProcessEvents = [this] {
    if (++polls == 2 * run.observations.nDispPoints + 3)
      run.course.iHaltRequest = 1;  // within the plus sweep of layer 2
  };
  EXPECT_EQ(FS_Gmatrix(), -1);
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_EQ(polls, 2 * run.observations.nDispPoints + 3);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[2], Vs * (1.0 + kStep));
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    EXPECT_NE(run.update.GMatrix(i, 1), 777.0);
    for (int p = 2; p <= 4; ++p) EXPECT_EQ(run.update.GMatrix(i, p), 777.0);
  }
}

TEST_F(FS_GmatrixTest, HaltInTheSecondSweepLeavesTheValueBelow) {
  StartSite(1);
  const double Vs = run.ground.layerVs[1];
  frontEnd.onProcessEvents = [this] {
    if (++polls == run.observations.nDispPoints + 1) run.course.iHaltRequest = 1;
  };
  EXPECT_EQ(FS_Gmatrix(), -1);
  EXPECT_DOUBLE_EQ(run.ground.layerVs[1], Vs * (1.0 - kStep));
}

TEST_F(FS_GmatrixTest, RowWithoutVelocityInAPerturbedSolveIsMarked) {
  StartSite(1);
  run.observations.runFreq[3] = 0.0;  // no wavelength, no root
  ASSERT_EQ(FS_Gmatrix(), 0);
  EXPECT_EQ(run.observations.iNoVelocity[3], 1);
  EXPECT_EQ(run.update.GMatrix(3, 1), 0.0);
  EXPECT_EQ(run.observations.iNoVelocity[2], 0);
}

std::string Row(std::initializer_list<double> values) {
  std::string text;
  for (const double v : values) {
    char number[40];
    std::snprintf(number, sizeof number, "%12.7le ", v);
    text += number;
  }
  return text + "\n";
}

TEST_F(FS_GmatrixTest, ReportHasOneLinePerRowUnderFourHeads) {
  Start({{2.0, 0.0, 120.0, 1.8, 0.3, 0.0}, {3.0, 0.0, 180.0, 1.9, 0.3, 0.0}}, 3, {2.0, 9.0});
  run.switches.reportSwitch[4] = true;
  ASSERT_EQ(FS_Gmatrix(), 0);
  const ColumnMatrix& G = run.update.GMatrix;
  const std::string once = "pdf of Velocity wrt Thickness\n" + Row({G(1, 1)}) + Row({G(2, 1)}) +
                           "pdf of Velocity wrt Shear Wave Velocity\n" + Row({G(1, 2), G(1, 3)}) +
                           Row({G(2, 2), G(2, 3)}) + "pdf of Velocity wrt Unit Weight\n" +
                           "pdf of Velocity wrt Poisson's Ratio\n";
  ASSERT_EQ(FS_Gmatrix(), 0);  // the next iteration is appended
  EXPECT_EQ(File(".G"), once + once);
}

TEST_F(FS_GmatrixTest, ReportOfAmplitudesFollowsUnderItsOwnHeads) {
  SetPlainLayers(2);
  SetArrayCurves(1, 1, {110.0});
  FModelParam.nSubLayers = TheoDispInfo.nSubLayers = 5;
  Prepare(3);
  run.switches.iUseAmplitude = 1;
  ASSERT_EQ(FS_SetUpObsData(2), 0);
  run.switches.reportSwitch[4] = true;
  ASSERT_EQ(FS_Gmatrix(), 0);
  const ColumnMatrix& G = run.update.GMatrix;
  EXPECT_EQ(File(".G"), "pdf of Velocity wrt Thickness\npdf of Velocity wrt Shear Wave Velocity\n" +
                            Row({G(1, 1), G(1, 2)}) +
                            "pdf of Velocity wrt Unit Weight\npdf of Velocity wrt Poisson's Ratio\n"
                            "pdf of Amplitude wrt Thickness\npdf of Amplitude wrt Shear Wave Velocity\n" +
                            Row({G(2, 1), G(2, 2)}) +
                            "pdf of Amplitude wrt Unit Weight\npdf of Amplitude wrt Poisson's Ratio\n");
}

TEST_F(FS_GmatrixTest, ReportIsOffUnlessItsSwitchIsOn) {
  StartSite(1);
  ASSERT_EQ(FS_Gmatrix(), 0);
  for (const std::string& name : folder.Names()) EXPECT_NE(name, "site.G");
}

TEST_F(FS_GmatrixTest, ReportThatCannotBeWrittenIsTold) {
  StartSite(1);
  run.switches.reportSwitch[4] = true;
  run.switches.baseName = folder.File("missing/site");
  EXPECT_EQ(FS_Gmatrix(), 0);
  EXPECT_THAT(OnlyMessage(),
              ::testing::StartsWith("Error in opening file " + run.switches.baseName + ".G\n"));
}

}  // namespace
}  // namespace sondera::testing
