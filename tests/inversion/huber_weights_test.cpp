// Tests of the Huber weights: the formulas, and that a wrong point does not dominate the profile.
#include "inversion/huber_weights.h"

#include <gtest/gtest.h>

#include "run/run_state.h"
#include "support/known_site.h"

namespace sondera::testing {
namespace {

class HuberWeightsTest : public UpdateTest {};

TEST_F(HuberWeightsTest, TermIsSquareThenLinearAndSmoothBetween) {
  EXPECT_EQ(HuberTerm(0.0), 0.0);
  EXPECT_EQ(HuberTerm(-1.0), 1.0);
  EXPECT_EQ(HuberTerm(1.5), 2.25);
  EXPECT_EQ(HuberTerm(4.0), 2.0 * 1.5 * 4.0 - 2.25);
  EXPECT_EQ(HuberTerm(-4.0), HuberTerm(4.0));
  const double h = 1e-6;  // the slope is 3 on both sides of the limit
  EXPECT_NEAR((HuberTerm(1.5) - HuberTerm(1.5 - h)) / h, 3.0, 1e-5);
  EXPECT_NEAR((HuberTerm(1.5 + h) - HuberTerm(1.5)) / h, 3.0, 1e-5);
}

TEST_F(HuberWeightsTest, VarianceGrowsWithTheDistanceBeyondTheLimit) {
  Start(3, 4);
  for (int i = 1; i <= 4; ++i) run.observations.Cd.diag(i) = 4.0;
  computed[1] = run.observations.runVel[1] + 2.9;   // 1.45 deviations
  computed[2] = run.observations.runVel[2] - 6.0;   // 3 deviations
  computed[3] = run.observations.runVel[3] + 30.0;  // 15, but out
  computed[4] = run.observations.runVel[4] + 15.0;  // 7.5
  run.observations.iNoVelocity[3] = 1;
  const DiagonalMatrix Cd = HuberCovariance(run.observations, run.switches, computed);
  const double expected[] = {4.0, 8.0, 4.0, 20.0};
  for (int i = 1; i <= 4; ++i) {
    EXPECT_NEAR(Cd.diag(i), expected[i - 1], 1e-12) << i;
    EXPECT_EQ(run.observations.Cd.diag(i), 4.0);
  }
  // The force of a residual on the model, residual over variance, is that of 1.5 deviations at most.
  EXPECT_NEAR(15.0 / Cd.diag(4), 1.5 * 2.0 / 4.0, 1e-12);
}

class HuberRun : public KnownSite {};

TEST_F(HuberRun, WrongPointDoesNotCarryTheProfileAway) {
  SetSite();
  SpoilPoint(10, 1.4);
  ASSERT_EQ(RunIterations(8), 0) << Messages();
  const double plain = WorstLayer(8);
  SetSite();
  SpoilPoint(10, 1.4);
  SetCtrlVal(inversion::HUBERWEIGHTS, 1);
  ASSERT_EQ(RunIterations(8), 0) << Messages();
  EXPECT_GT(plain, 0.05);
  EXPECT_LT(WorstLayer(8), 0.5 * plain);
  for (int i = 1; i <= kPoints; ++i)  // the deviations themselves stay: chi is computed with them
    EXPECT_NEAR(run.observations.Cd.diag(i), std::pow(0.05 * run.observations.runVel[i], 2), 1e-9);
}

TEST_F(HuberRun, GoodDataAreTreatedAsWithoutIt) {
  SetSite(200.0);
  ASSERT_EQ(RunIterations(6), 0) << Messages();
  const double plain = WorstLayer(6);
  SetSite(200.0);
  SetCtrlVal(inversion::HUBERWEIGHTS, 1);
  ASSERT_EQ(RunIterations(6), 0) << Messages();
  EXPECT_LT(WorstLayer(6), std::max(2.0 * plain, 0.01));
}

}  // namespace
}  // namespace sondera::testing
