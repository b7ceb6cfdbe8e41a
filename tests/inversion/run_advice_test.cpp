// Tests of the line that summarises an inversion, and of the advice at its end.
#include "inversion/run_advice.h"

#include <gtest/gtest.h>

#include "run/run_history.h"
#include "run/run_state.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/run_case.h"

namespace sondera::testing {
namespace {

class RunAdviceTest : public UpdateTest {
 protected:
  void SetUp() override {
    UpdateTest::SetUp();
    ClearInversionHistories();
    ClearFindings();
    Start(3, 4);
    run.switches.iAnalysis = 3;
    run.switches.fDispBulb = 1.75;
    InvParam.nEntries = 5;
    for (int l = 0; l < 3; ++l) InvParam.resolution(1, l) = 0.5;
    for (int i = 1; i <= 4; ++i) run.observations.Cd.diag(i) = 4.0;
    NoteIteration(run, 0, computed, 9.0);
  }
  void TearDown() override {
    ClearInversionHistories();
    ClearFindings();
    UpdateTest::TearDown();
  }
  /// A curve that is off by this at all points.
  void Iteration(int number, double off) {
    for (int i = 1; i <= 4; ++i) computed[i] = run.observations.runVel[i] + off;
    NoteIteration(run, number, computed, off);
  }
};

TEST_F(RunAdviceTest, FitNamesTheIterationWithTheLowestChi) {
  ClearInversionHistories();
  EXPECT_EQ(FitOfRun(), "");
  Iteration(0, 6.0);
  Iteration(1, 2.0);
  EXPECT_EQ(FitOfRun(), "RMS 2.00, chi 1.00 on 4 of 4 points (lowest chi 1.00 in iteration 1)");
  run.observations.iNoVelocity[2] = 1;
  Iteration(2, 3.0);
  EXPECT_EQ(FitOfRun(), "RMS 3.00, chi 2.25 on 3 of 4 points (lowest chi 1.00 in iteration 1)");
  for (int i = 1; i <= 4; ++i) run.observations.iNoVelocity[i] = 1;
  Iteration(3, 0.0);
  EXPECT_EQ(FitOfRun(), "no point of 4 in the fit");
}

TEST_F(RunAdviceTest, GoodRunNeedsNone) {
  EXPECT_EQ(RunAdvice(run), "");  // nothing but the starting model
  Iteration(1, 2.8);              // chi 1.96
  EXPECT_EQ(ReportRunAdvice(run), "");
  EXPECT_TRUE(Findings().empty());
}

TEST_F(RunAdviceTest, LostPointsAdviseAWiderBulb) {
  run.observations.iNoVelocity[3] = 1;
  Iteration(1, 1.0);
  EXPECT_EQ(
      RunAdvice(run),
      "1 of 4 points ended without a result and is not in the fit: set the displacement bulb, now 1.75, "
      "to 2.5 (1.8 times the time)");
  run.switches.fDispBulb = 2.5;
  EXPECT_EQ(RunAdvice(run), "1 of 4 points ended without a result and is not in the fit");
  run.switches.fDispBulb = 1.75;
  run.switches.iAnalysis = 2;  // plane waves have none
  EXPECT_EQ(RunAdvice(run), "1 of 4 points ended without a result and is not in the fit");
}

TEST_F(RunAdviceTest, HighChiAdvisesLargerDeviationsAndFewerLayers) {
  Iteration(1, 3.0);
  const std::string advice =
      "chi ends at 2.25, above 2: the data are further off than their deviations allow; try a deviation of "
      "0.15 (uf of Vph, with the data covariance uf x Vph) and one layer fewer";
  EXPECT_EQ(ReportRunAdvice(run), advice);
  EXPECT_EQ(Findings(), (std::vector<Finding>{{FindingKind::Note, advice}}));
}

TEST_F(RunAdviceTest, LayersThatTheDataHardlySeeAreNamed) {
  InvParam.resolution(1, 1) = 0.29;
  Iteration(1, 1.0);
  EXPECT_EQ(RunAdvice(run), "layer 2 has a resolution below 0.3");
  InvParam.resolution(1, 2) = 0.0;
  EXPECT_EQ(RunAdvice(run), "layers 2, 3 have a resolution below 0.3");
  run.parameters.MapEntry(kQuantityVs, 3) = 0;  // fixed: the data have no influence
  EXPECT_EQ(RunAdvice(run), "layer 2 has a resolution below 0.3");
}

class FitInTheStatus : public RunCase {};

/// Chi by the stored curves and the deviation of 5 %, beside the text of the status.
TEST_F(FitInTheStatus, HasTheWeightedMisfitOfTheCurve) {
  ClearInversionHistories();
  const std::vector<LayerRow> truth = {{2.0, 0.0, 130.0, 1.8, 0.33, 0.02},
                                       {5.0, 0.0, 220.0, 1.8, 0.33, 0.02}};
  SetLayers(Uniform(truth, 180.0));
  SetCurveOf(truth, Wavelengths(2.0, 20.0, 9));
  const std::vector<double> observed = FModelParam.globalVel;
  ASSERT_EQ(RunIterations(2), 0) << Messages();
  for (int k = 0; k <= 2; ++k) {
    double chi = 0.0;
    for (int i = 0; i < 9; ++i)
      chi += std::pow((InvParam.vel(k, i) - observed[static_cast<std::size_t>(i)]) /
                          (0.05 * observed[static_cast<std::size_t>(i)]),
                      2) /
             9.0;
    EXPECT_NEAR(InversionHistories().back().iterations[static_cast<std::size_t>(k)].chi, chi, 1e-9 * chi);
    if (k > 0) {
      EXPECT_TRUE(Shown(status, FormatText("RMS %.2f, chi %.2f on 9 of 9 points", InvParam.rms[k], chi)))
          << k;
    }
  }
  EXPECT_NE(GetCtrlVal(exdthd::STATUSMSG).find("in iteration 2)"), std::string::npos);
}

}  // namespace
}  // namespace sondera::testing
