// Tests of a run's boxes: share done and time left after the text, and the poll for a halt.
#include "panels/run_boxes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "run/run_state.h"
#include "run/solve_counter.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/events.h"
#include "runtime/version.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class RunBoxesTest : public RunTest {
 protected:
  static std::string Status() { return GetCtrlVal(exdthd::STATUSMSG); }
  RunBoxes boxes;
};

TEST_F(RunBoxesTest, TextHasTheShareAndTheTimeLeft) {
  EXPECT_EQ(ProgressText(0.25, 10.0), "     25 % done, 30 s left");
  EXPECT_EQ(ProgressText(0.01, 3.0), "     1 % done, 4 min 57 s left");
  EXPECT_EQ(ProgressText(0.01, 60.0), "     1 % done, 1 h 39 min left");
}

TEST_F(RunBoxesTest, NoTimeIsToldWhileThereIsNothingToJudgeItBy) {
  EXPECT_EQ(ProgressText(0.0, 10.0), "     0 % done");
  EXPECT_EQ(ProgressText(0.05, 0.1), "     5 % done");
  EXPECT_EQ(ProgressText(1.0, 10.0), "     100 % done");
  EXPECT_EQ(ProgressText(1.5, 10.0), "     100 % done");
}

TEST_F(RunBoxesTest, StatusKeepsItsTextAndGetsTheShareBehindIt) {
  SolveCounter run(boxes, 10);
  run.Status("Inv. Analysis: Iter. No = 1");
  EXPECT_EQ(Status(), "Inv. Analysis: Iter. No = 1     0 % done");
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(run.Poll());
  run.Status("Inv. Analysis: Iter. No = 2");
  EXPECT_EQ(Status(), "Inv. Analysis: Iter. No = 2     40 % done");
  run.Status("");
  EXPECT_EQ(Status(), "");
}

TEST_F(RunBoxesTest, WithoutACountTheTextStandsAlone) {
  boxes.Status("ready");
  EXPECT_FALSE(boxes.Poll());
  EXPECT_EQ(Status(), "ready");
  SolveCounter nothing(boxes, 0);
  nothing.Status("again");
  EXPECT_FALSE(nothing.Poll());
  EXPECT_EQ(Status(), "again");
}

TEST_F(RunBoxesTest, HaltIsAnsweredOnceAndTheInterruptStays) {
  run.course.iHaltRequest = 1;
  EXPECT_TRUE(boxes.Poll());
  EXPECT_TRUE(PressHalted());
  EXPECT_FALSE(boxes.Poll());
  RequestInterrupt();
  EXPECT_TRUE(boxes.Poll());
  EXPECT_TRUE(boxes.Poll());
  ClearInterrupt();
}

TEST_F(RunBoxesTest, MisfitProcessAndMessagesGoToTheirPlaces) {
  SolveCounter counted(boxes, 3);
  RunListener& listener = counted;
  listener.Misfit(2.5);
  listener.Process("Calculating");
  listener.Tell(std::string("The file is lost."));
  EXPECT_EQ(GetCtrlVal(exdthd::RMSERROR), 2.5);
  EXPECT_EQ(GetCtrlVal(exdthd::PROCESSMSG), "Calculating");
  EXPECT_EQ(OnlyMessage(), "The file is lost.");
}

TEST_F(RunBoxesTest, AMessageHasTheTitleThatItNames) {
  boxes.ShowMessage("Checks", "A layer is thin.");
  boxes.ShowMessage("", "The rest is well.");
  EXPECT_EQ(frontEnd.messageTitles, (std::vector<std::string>{"Checks", std::string(kAppTitle)}));
}

TEST_F(RunBoxesTest, LockForgetsARequestFromBeforeAndKeepsOtherButtonsOut) {
  run.course.iHaltRequest = 1;
  NoteHalt();
  const AnalysisLock lock;
  EXPECT_EQ(run.course.iHaltRequest, 0);
  EXPECT_FALSE(PressHalted());
  EXPECT_EQ(Commit(exdthd::RUN_FMODEL), -1);
  EXPECT_EQ(OnlyMessage(), "An analysis is running. Please halt it first.");
}

}  // namespace
}  // namespace sondera::testing
