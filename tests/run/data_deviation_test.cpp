// Tests of the deviation that is estimated from the data.
#include "run/data_deviation.h"

#include <gtest/gtest.h>

#include "run/run_history.h"
#include "run/run_state.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/known_site.h"

namespace sondera::testing {
namespace {

class DataDeviationTest : public UpdateTest {};

TEST_F(DataDeviationTest, IsTheRelativeMisfitOverThePointsWithAVelocity) {
  Start(3, 4);
  computed[1] = run.observations.runVel[1] * 1.10;
  computed[2] = run.observations.runVel[2] * 0.80;
  computed[3] = 0.0;
  computed[4] = run.observations.runVel[4] * 1.20;
  EXPECT_NEAR(RelativeMisfit(run.observations, computed), std::sqrt((0.01 + 0.04 + 0.04) / 3.0), 1e-12);
}

TEST_F(DataDeviationTest, IsNeverBelowFivePercent) {
  Start(3, 4);
  EXPECT_EQ(RelativeMisfit(run.observations, computed), 0.05);  // the curve is the measured one
  for (int i = 1; i <= 4; ++i) computed[i] = 0.0;
  EXPECT_EQ(RelativeMisfit(run.observations, computed), 0.05);
}

TEST_F(DataDeviationTest, GoesToEveryMeasuredVelocity) {
  Start(3, 4);
  run.observations.Cd.diag(2) = 0.0;
  SetRelativeDeviation(run.observations, 0.2);
  for (int i = 1; i <= 4; ++i)
    EXPECT_NEAR(run.observations.Cd.diag(i), std::pow(0.2 * run.observations.runVel[i], 2), 1e-9);
}

class DataDeviationRun : public KnownSite {};

TEST_F(DataDeviationRun, StartsFromAChiOfOne) {
  SetSite();
  SetCtrlVal(inversion::DATADEVIATION, 1);
  ClearFindings();
  ASSERT_EQ(RunIterations(1), 0) << Messages();
  double sum = 0.0;
  for (int i = 0; i < kPoints; ++i)
    sum += std::pow(InvParam.vel(0, i) / MeasuredVelocity(i) - 1.0, 2) / kPoints;
  ASSERT_GT(std::sqrt(sum), 0.05);
  EXPECT_NEAR(InversionHistories().back().iterations[0].chi, 1.0, 1e-9);
  for (int i = 1; i <= kPoints; ++i)
    EXPECT_NEAR(run.observations.Cd.diag(i), sum * std::pow(run.observations.runVel[i], 2), 1e-6);
  ASSERT_FALSE(Findings().empty());
  EXPECT_EQ(Findings()[0].text, FormatText("the deviation of the velocities is %.3f of their value, from the "
                                           "misfit of the starting model",
                                           std::sqrt(sum)));
}

}  // namespace
}  // namespace sondera::testing
