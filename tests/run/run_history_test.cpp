// Tests of the history of a run's iterations.
#include "run/run_history.h"

#include "support/run_case.h"

namespace sondera::testing {
namespace {

const std::vector<LayerRow> kGround = {{2.0, 0.0, 150.0, 1.8, 0.33, 0.02},
                                       {4.0, 0.0, 220.0, 1.8, 0.33, 0.02},
                                       {20.0, 0.0, 300.0, 1.8, 0.33, 0.02}};

class RunHistory : public RunCase {
 protected:
  void SetUp() override {
    RunCase::SetUp();
    ClearInversionHistories();
    SetLayers(Uniform(kGround, 200.0));
    SetCurveOf(kGround, Wavelengths(2.0, 30.0, 12));
  }
  void TearDown() override {
    ClearInversionHistories();
    RunCase::TearDown();
  }
};

TEST_F(RunHistory, EachIterationHasItsFit) {
  ASSERT_EQ(RunIterations(2), 0) << Messages();
  ASSERT_EQ(InversionHistories().size(), 1u);
  const InversionHistory& history = InversionHistories().front();
  EXPECT_EQ(history.rowsOfData, 12);
  ASSERT_EQ(history.iterations.size(), 3u);
  for (int k = 0; k <= 2; ++k) {
    const IterationFit& fit = history.iterations[static_cast<std::size_t>(k)];
    EXPECT_EQ(fit.iteration, k);
    EXPECT_EQ(fit.rms, InvParam.rms[k]);
    EXPECT_EQ(fit.rows, 12);
    double chi = 0.0;  // from the stored curves: deviations are 5 % of the measured velocities
    for (int p = 0; p < 12; ++p) {
      const double measured = FModelParam.globalVel[static_cast<std::size_t>(p)];
      chi += std::pow((InvParam.vel(k, p) - measured) / (0.05 * measured), 2) / 12;
    }
    EXPECT_NEAR(fit.chi, chi, 1e-9 * chi) << k;
  }
  EXPECT_LT(history.iterations[2].chi, history.iterations[0].chi);
}

TEST_F(RunHistory, ASecondRunHasAHistoryOfItsOwn) {
  ASSERT_EQ(RunIterations(1), 0) << Messages();
  ASSERT_EQ(RunIterations(2), 0) << Messages();
  ASSERT_EQ(InversionHistories().size(), 2u);
  EXPECT_EQ(InversionHistories()[0].iterations.size(), 2u);
  EXPECT_EQ(InversionHistories()[1].iterations.size(), 3u);
}

TEST_F(RunHistory, AnIterationThatWasHaltedIsNotInIt) {
  // The first sweep, 6 sweeps of the matrix, and into the one after the update: its curve stays a part.
  int poll = 0;
  frontEnd.onProcessEvents = [&poll] {
    if (++poll == 12 * 7 + 5) run.course.iHaltRequest = 1;
  };
  ASSERT_EQ(RunIterations(2), -1);
  frontEnd.onProcessEvents = nullptr;
  ASSERT_EQ(Listed(), 2) << "its model is whole and stays in the list";
  ASSERT_EQ(InversionHistories().size(), 1u);
  EXPECT_EQ(InversionHistories()[0].iterations.size(), 1u);
}

TEST_F(RunHistory, PointsWithoutADeviationAreNotInTheFit) {
  run.switches.cdMode = 0;
  run.switches.ufVph = 0.0;  // deviations of the data, which are 0
  RunIterations(1);
  ASSERT_EQ(InversionHistories().size(), 1u);
  EXPECT_EQ(InversionHistories()[0].iterations[0].rows, 0);
  EXPECT_EQ(InversionHistories()[0].iterations[0].chi, -1.0);
}

}  // namespace
}  // namespace sondera::testing
