// Tests of the progress of a run: share done, time left, and the status box.
#include "run/run_progress.h"

#include <gtest/gtest.h>

#include "run/sweep_solvers.h"
#include "run/system_model.h"
#include "runtime/catalogue/exdthd.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class RunProgress : public RunTest {
 protected:
  void TearDown() override {
    EndRunProgress();
    RunTest::TearDown();
  }
  static std::string Status() { return GetCtrlVal(exdthd::STATUSMSG); }
};

TEST_F(RunProgress, TextHasTheShareAndTheTimeLeft) {
  EXPECT_EQ(ProgressText(25, 100, 10.0), "     25 % done, 30 s left");
  EXPECT_EQ(ProgressText(1, 100, 3.0), "     1 % done, 4 min 57 s left");
  EXPECT_EQ(ProgressText(1, 100, 60.0), "     1 % done, 1 h 39 min left");
}

TEST_F(RunProgress, NoTimeIsToldWhileThereIsNothingToJudgeItBy) {
  EXPECT_EQ(ProgressText(0, 100, 10.0), "     0 % done");
  EXPECT_EQ(ProgressText(5, 100, 0.1), "     5 % done");
  EXPECT_EQ(ProgressText(100, 100, 10.0), "     100 % done");
  EXPECT_EQ(ProgressText(3, 0, 10.0), "");
}

TEST_F(RunProgress, StatusKeepsItsTextAndGetsTheShareBehindIt) {
  BeginRunProgress(10);
  ShowRunStatus("Inv. Analysis: Iter. No = 1");
  EXPECT_EQ(Status(), "Inv. Analysis: Iter. No = 1     0 % done");
  for (int i = 0; i < 4; ++i) CountSolve();
  ShowRunStatus("Inv. Analysis: Iter. No = 2");
  EXPECT_EQ(Status(), "Inv. Analysis: Iter. No = 2     40 % done");
  ShowRunStatus("");
  EXPECT_EQ(Status(), "");
}

TEST_F(RunProgress, WithoutARunTheTextStandsAloneAndNothingIsCounted) {
  ShowRunStatus("ready");
  CountSolve();
  EXPECT_EQ(Status(), "ready");
}

TEST_F(RunProgress, EverySolveOfASweepIsCounted) {
  BeginRunProgress(4);
  SetPlainLayers(2);
  ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
  run.switches.iAnalysis = -2;
  SweepSolvers solvers(1);
  double velocity = 0.0;
  solvers.PlaneWave(10.0, velocity);
  solvers.PlaneWave(10.0, velocity);
  ShowRunStatus("x");
  EXPECT_EQ(Status(), "x     50 % done");
}

TEST_F(RunProgress, SolvesOfASweepFollowTheKindOfTheRun) {
  run.observations.nDispPoints = 7;
  run.observations.nObsRows = 12;
  run.observations.globalRecCount = OffsetVector<int>(1, 7);
  for (int i = 1; i <= 7; ++i) run.observations.globalRecCount[i] = i == 1 ? 3 : 1;
  run.switches.iDispSource = 1;
  run.switches.iAnalysis = 2;
  EXPECT_EQ(SolvesOfSweep(), 7);
  run.switches.iAnalysis = 3;
  EXPECT_EQ(SolvesOfSweep(), 9);
  run.switches.iDispSource = 2;
  EXPECT_EQ(SolvesOfSweep(), 12);
  run.switches.iAnalysis = 2;  // plane waves work on the global points in any case
  EXPECT_EQ(SolvesOfSweep(), 7);
}

}  // namespace
}  // namespace sondera::testing
