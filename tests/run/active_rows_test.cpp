// Tests of the rows that an inversion fits: a row out of use is left out in residuals and sensitivities
// alike, and the weighted misfit is the mean over the rows in use.
#include "run/active_rows.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/run_case.h"

namespace sondera::testing {
namespace {

class ActiveRowsTest : public RunCase {
 protected:
  static constexpr int kPoints = 5, kCurves = 2;

  /// One iteration by point load on the curves of two pairs. A point without a velocity is no row.
  OffsetVector<double> Correction(const std::vector<double>& velocities,
                                  const std::function<void()>& atFirstPoll = {}) {
    SetLayers({{1.0, 0.0, 120.0, 1.8, 0.33, 0.02},
               {2.0, 0.0, 150.0, 1.8, 0.33, 0.02},
               {60.0, 0.0, 190.0, 1.8, 0.33, 0.02}});
    SetArrayCurves(kPoints, kCurves, velocities);
    for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
      m->analysis = 3;
      for (std::size_t p = 0; p < kPoints; ++p) m->freq[p] = 20.0 + 10.0 * static_cast<double>(p);
      m->recLoc = {4.0, 8.0, 16.0};
    }
    bool first = true;
    frontEnd.onProcessEvents = [&first, &atFirstPoll] {
      if (first && atFirstPoll) atFirstPoll();
      first = false;
    };
    EXPECT_EQ(RunIterations(1), 0) << Messages();
    frontEnd.onProcessEvents = nullptr;
    return run.update.deltaModel;
  }

  static void ExpectSame(const OffsetVector<double>& got, const OffsetVector<double>& want) {
    ASSERT_EQ(got.hi(), want.hi());
    for (int p = 1; p <= want.hi(); ++p) {
      EXPECT_GT(std::fabs(want[p]), 1e-3) << p;
      EXPECT_NEAR(got[p], want[p], 1e-10) << p;
    }
  }

  const std::vector<double> measured_{146.0, 151.0, 141.0, 139.0, 133.0, 130.0, 129.0, 122.0, 121.0, 118.0};
};

/// For every row: the run without the row in use, and the run that never had it.
TEST_F(ActiveRowsTest, FlaggedRowThatHasAVelocityIsAsARowThatIsNotThere) {
  for (int k = 1; k <= kPoints * kCurves; ++k) {
    SCOPED_TRACE(k);
    std::vector<double> without = measured_;
    without[static_cast<std::size_t>(k - 1)] = 0.0;
    const OffsetVector<double> want = Correction(without);
    ASSERT_EQ(run.update.GActive.rows(), kPoints * kCurves - 1);
    ExpectSame(Correction(measured_, [k] { run.observations.iNoVelocity[k] = 1; }), want);
    EXPECT_GT(InvParam.vel(0, k - 1), 0.0);  // found all the same
  }
}

TEST_F(ActiveRowsTest, RowWithoutADeviationIsAsARowThatIsNotThere) {
  for (int k = 1; k <= kPoints * kCurves; ++k) {
    SCOPED_TRACE(k);
    std::vector<double> without = measured_;
    without[static_cast<std::size_t>(k - 1)] = 0.0;
    const OffsetVector<double> want = Correction(without);
    ExpectSame(Correction(measured_, [k] { run.observations.Cd.diag(k) = 0.0; }), want);
    EXPECT_EQ(run.observations.iNoVelocity[k], 1);
  }
}

/// The files and the misfit in m/s still have the whole curve.
TEST_F(ActiveRowsTest, RowThatIsOutStaysInTheFilesAndTheRms) {
  Correction(measured_, [] { run.observations.iNoVelocity[4] = 1; });
  double sum = 0.0;
  for (int i = 0; i < kPoints * kCurves; ++i) {
    EXPECT_GT(InvParam.vel(0, i), 0.0);
    sum += std::pow(InvParam.vel(0, i) - measured_[static_cast<std::size_t>(i)], 2);
  }
  EXPECT_NEAR(InvParam.rms[0], std::sqrt(sum / (kPoints * kCurves)), 1e-9);
}

class WeightedMisfitTest : public UpdateTest {};

TEST_F(WeightedMisfitTest, IsTheMeanOverTheRowsInUse) {
  Start(3, 4);
  for (int i = 1; i <= 4; ++i) run.observations.Cd.diag(i) = i * i;
  computed[1] = run.observations.runVel[1] + 2.0;  // 4
  computed[2] = run.observations.runVel[2] - 6.0;  // 9
  computed[3] = run.observations.runVel[3] + 7.0;  // out
  computed[4] = run.observations.runVel[4] + 4.0;  // 1
  run.observations.iNoVelocity[3] = 1;
  EXPECT_NEAR(WeightedMisfit(run.observations, run.switches, computed), 14.0 / 3.0, 1e-12);
  run.observations.Cd.diag(4) = 0.0;
  EXPECT_NEAR(WeightedMisfit(run.observations, run.switches, computed), 13.0 / 2.0, 1e-12);
  EXPECT_EQ(ActiveRows(run.observations, run.switches), (std::vector<int>{1, 2}));
  run.observations.iNoVelocity[1] = run.observations.iNoVelocity[2] = 1;
  EXPECT_EQ(WeightedMisfit(run.observations, run.switches, computed), -1.0);
}

}  // namespace
}  // namespace sondera::testing
