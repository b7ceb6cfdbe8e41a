// Tests of the tables of receiver set-ups, the clock of a run, and TheoDispInfo before a run.
#include "run/receiver_setups.h"

#include <gtest/gtest.h>

#include "run/observations.h"
#include "run/run_clock.h"
#include "run/run_sizes.h"
#include "run/theo_disp_info.h"
#include "runtime/catalogue/exdthd.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class ReceiverSetups : public RunTest {
 protected:
  void Start() {
    SetPlainLayers(2);
    ASSERT_EQ(FS_AllocMemoryBlocks(), 0);
    ASSERT_EQ(FS_RetrieveSystemPM(kForwardRun, 0), 0);
    ASSERT_EQ(FS_GetStartMP(), 0);
    ASSERT_EQ(FS_SetUpObsData(run.switches.iDispSource), 0);
  }
};

TEST_F(ReceiverSetups, GlobalPointsHaveTheSetUpOfTheSettings) {
  SetGlobalCurve(3);
  FModelParam.GlobalRecType = 4;
  Start();
  FS_SetupReceivers(0, run.observations, run.receivers);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(run.receivers.nRecCfgPerPoint[i], 1);
    EXPECT_EQ(run.receivers.recCfgOfPoint[i], 4);
  }
}

TEST_F(ReceiverSetups, ArrayPointsHaveOneSetUpForEachPair) {
  SetArrayCurves(2, 3, {100.0, 0.0, 120.0, 110.0, 115.0, 0.0});
  Start();
  FS_SetupReceivers(1, run.observations, run.receivers);
  for (int p = 1; p <= 2; ++p) {
    EXPECT_EQ(run.receivers.nRecCfgPerPoint[p], 3);
    for (int k = 1; k <= 3; ++k) EXPECT_EQ(run.receivers.recCfgOfPoint[(k - 1) * 2 + p], 3 + k);
  }
  FS_SetupReceivers(2, run.observations, run.receivers);  // there is no such item
  EXPECT_EQ(run.receivers.recCfgOfPoint[1], 4);
}

TEST_F(ReceiverSetups, SetUpsInUseAreCollectedAscending) {
  SetGlobalCurve(3);
  FModelParam.GlobalRecType = 4;
  Start();
  run.observations.globalRecType[2] = 3;
  FS_SearchReceivers(run.observations, run.receivers);
  EXPECT_EQ(run.receivers.nRecSetupsUsed, 2);
  EXPECT_EQ(run.receivers.recSetupList[1], 3);
  EXPECT_EQ(run.receivers.recSetupList[2], 4);
}

TEST_F(ReceiverSetups, SetUpThatAPointDoesNotUseGivesZero) {
  SetGlobalCurve(2);
  Start();
  FS_SetupReceivers(0, run.observations, run.receivers);
  OffsetVector<double> table(1, 2);
  table[1] = 11.0;
  table[2] = 22.0;
  EXPECT_DOUBLE_EQ(FS_CheckRecNo(run.receivers, run.observations.nDispPoints, 2, 3, table), 22.0);
  EXPECT_DOUBLE_EQ(FS_CheckRecNo(run.receivers, run.observations.nDispPoints, 2, 4, table), 0.0);
}

TEST_F(ReceiverSetups, RowsCountOnlyPointsThatAreThere) {
  SetArrayCurves(2, 3, {100.0, 0.0, 120.0, 0.0, 115.0, 118.0});
  Start();
  const int expected[][2] = {{1, 1}, {1, 3}, {2, 2}, {2, 3}};
  int freq = -1, pair = -1;
  for (int row = 1; row <= 4; ++row) {
    FS_GetFreqIDAndRecPairID(run.observations.obsCurves.front(), row, &freq, &pair);
    EXPECT_EQ(freq, expected[row - 1][0]) << row;
    EXPECT_EQ(pair, expected[row - 1][1]) << row;
  }
  FS_GetFreqIDAndRecPairID(run.observations.obsCurves.front(), 5, &freq, &pair);
  EXPECT_EQ(freq, 0);
  EXPECT_EQ(pair, 0);
}

TEST(RunClock, ElapsedTimeByTheDigitsOfTheClock) {
  EXPECT_EQ(ElapsedText({9, 59, 58}, {11, 0, 1}), "[1hr 0min 3sec]");
  EXPECT_EQ(ElapsedText({9, 59, 58}, {9, 59, 58}), "[0hr 0min 0sec]");
}

TEST(RunClock, MidnightDuringARunGivesTheRightTime) {
  EXPECT_EQ(ElapsedText({23, 59, 30}, {0, 1, 0}), "[0hr 1min 30sec]");
}

TEST(RunClock, RunOfMoreThanADayShowsTooLittle) {
  // 25 hours: the clock has moved by one.
  EXPECT_EQ(ElapsedText({8, 0, 0}, {9, 0, 0}), "[1hr 0min 0sec]");
}

TEST_F(ReceiverSetups, ReportTimeClearsAtTheStartAndTellsAtTheEnd) {
  run.course.timeText = "former run";
  FS_ReportTime(0);
  EXPECT_EQ(run.course.timeText, "");
  FS_ReportTime(1);
  EXPECT_EQ(run.course.timeText.substr(0, 11), "[0hr 0min 0");
}

TEST_F(ReceiverSetups, ResetForArrayCurvesListsThePairs) {
  SetArrayCurves(2, 2, {100.0, 0.0, 120.0, 110.0});
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  EXPECT_EQ(TheoDispInfo.nDispPointsG, 0);
  EXPECT_EQ(TheoDispInfo.nDispPoints, 2);
  EXPECT_EQ(TheoDispInfo.nDispCurves, 2);
  EXPECT_DOUBLE_EQ(TheoDispInfo.vel[0], 0.0);
  EXPECT_EQ(GetNumListItems(exdthd::THDTYPE), 4);
  EXPECT_EQ(GetLabelFromIndex(exdthd::THDTYPE, 0), "Not Displayed");
  EXPECT_EQ(GetValueFromIndex(exdthd::THDTYPE, 0), -2.0);
  EXPECT_EQ(GetLabelFromIndex(exdthd::THDTYPE, 3), "Theoretical [2:3]");
  EXPECT_EQ(GetLabelFromIndex(exdthd::ARRAYDISPID, 1), "Array R. [1:2]");
}

TEST_F(ReceiverSetups, ResetForAGlobalCurveHasOneCurveAndTheFixedItems) {
  SetPlainLayers(3);
  SetGlobalCurve(2);
  TheoDispInfo.nLayers = 1;
  TheoDispInfo.Vs[2] = 0.0;
  ASSERT_EQ(ResetTheoDispInfo(), 0);
  EXPECT_EQ(TheoDispInfo.nDispPointsG, 2);
  EXPECT_EQ(TheoDispInfo.nDispPoints, 0);
  EXPECT_EQ(TheoDispInfo.nDispCurves, 1);
  EXPECT_EQ(TheoDispInfo.nLayers, 3);
  EXPECT_DOUBLE_EQ(TheoDispInfo.Vs[2], 140.0);
  EXPECT_EQ(GetNumListItems(exdthd::THDTYPE), 2);
  EXPECT_EQ(GetNumListItems(exdthd::ARRAYDISPID), 1);
}

}  // namespace
}  // namespace sondera::testing
