// The measuring run through its buttons: averages, settings, trigger.
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>

#include "app/averages_fixture.h"
#include "runtime/catalogue/hmsetup.h"

namespace sondera {
namespace {

using testing::Noise;
using testing::testBoard;
class MeasuringRun : public testing::AveragesTest {};

TEST_F(MeasuringRun, AFreeRunOfFiveAveragesTakesFiveRecordsAndStops) {
  testBoard.volts = Noise;
  Plan(2, 512, 5);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.records, 5);
  EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 5");
  EXPECT_EQ(
      testBoard.Words(),
      "task channel channel clock rate free count start read stop start read stop start read stop start "
      "read stop start read stop clear");
  EXPECT_EQ(session.avgCount, 5);
  EXPECT_EQ(measRun.measStopped, 0);
  EXPECT_TRUE(frontEnd.messages.empty());
  ExpectIdle();
}

TEST_F(MeasuringRun, AveragesEqualThePlainMeanOfTheAcceptedRecords) {
  testBoard.volts = Noise;
  for (const int averages : {1, 5, 50, 1000}) {
    SCOPED_TRACE(averages);
    testBoard.records = 0;
    Plan(3, 8, averages);
    ASSERT_EQ(Start(), 0);
    std::vector<int> records;
    for (int r = 0; r < averages; ++r) records.push_back(r);
    ExpectMeanOf(records);
    ExpectTimesOf(averages - 1);
  }
}

TEST_F(MeasuringRun, RejectedRecordsDoNotCountAndDoNotGoIntoTheMean) {
  testBoard.volts = Noise;
  Plan(2, 8, 4);
  session.measOptions.previewOn = 1;
  frontEnd.confirmAnswers = {true, false, true, false, false, false, true, true};
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.records, 8);
  EXPECT_EQ(frontEnd.questions, std::vector<std::string>(8, "Accept the current measurements ?"));
  ExpectMeanOf({0, 2, 6, 7});
  ExpectTimesOf(7);
}

TEST_F(MeasuringRun, ARejectionLeavesSpectraBitForBitAndTheSelectionsAsTheyWere) {
  testBoard.volts = Noise;
  Plan(2, 8, 1);
  ASSERT_EQ(Start(), 0);
  const RawData before = Raw();
  Hw().nAverage = 2;
  session.measOptions.previewOn = 1;
  SetCtrlVal(measpanel::DISPATYPE, 8);
  SetCtrlVal(measpanel::DISPACHNL, 1);
  frontEnd.confirmAnswers = {false};
  AtPoll(9, [] { Commit(measpanel::STOPMEAS); });
  testBoard.neverFrom = 2;
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(Raw().powerSpec, before.powerSpec);
  EXPECT_EQ(Raw().crossSpecIm, before.crossSpecIm);
  EXPECT_EQ(Raw().linSpecRe, before.linSpecRe);
  ExpectTimesOf(1);
  EXPECT_EQ(GetCtrlVal(measpanel::DISPATYPE), 8);
  EXPECT_EQ(GetCtrlVal(measpanel::DISPACHNL), 1);
  EXPECT_EQ(session.avgCount, 0);
}

TEST_F(MeasuringRun, ThreeRejectionsWithoutAPersonEndIt) {
  testBoard.volts = Noise;
  Plan(2, 8, 5);
  session.measOptions.previewOn = 1;
  FrontEnd rule = CurrentFrontEnd();
  rule.answersByRule = true;
  const FrontEnd former = InstallFrontEnd(rule);
  EXPECT_EQ(Start(), -1);
  InstallFrontEnd(former);
  EXPECT_EQ(testBoard.records, 3);
  EXPECT_EQ(OnlyMessage(),
            "Three records in a row were rejected without a person to look at them. The run has ended.");
  ExpectIdle();
}

TEST_F(MeasuringRun, TheFirstRecordReplacesWhateverStoodThere) {
  testBoard.volts = Noise;
  Plan(2, 8, 1);
  ASSERT_EQ(Start(), 0);
  for (auto block : kRawBlocks)
    for (double& x : Raw().*block) x = std::numeric_limits<double>::quiet_NaN();
  ASSERT_EQ(Start(), 0);
  ExpectMeanOf({1});
}

TEST_F(MeasuringRun, StopAfterSomeRecordsLeavesTheirMean) {
  testBoard.volts = Noise;
  Plan(2, 8, 100);
  frontEnd.onProcessEvents = [] {
    if (measRun.measRunning && session.avgCount == 3) Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  ExpectMeanOf({0, 1, 2});
  EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 3");
  EXPECT_EQ(measRun.measStopped, 1);
  ExpectIdle();
}

TEST_F(MeasuringRun, WithoutAveragingEachRecordReplacesTheOneBefore) {
  testBoard.volts = Noise;
  Plan(2, 8, 5);
  Hw().averageOn = 0;
  frontEnd.onProcessEvents = [] {
    if (measRun.delivered == 7) Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  ExpectMeanOf({6});
  EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "");
  ExpectIdle();
}

TEST_F(MeasuringRun, NoAveragesTakeNoRecord) {
  Plan(2, 8, 0);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.starts, 0);
  EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 0");
  ExpectIdle();
}

TEST_F(MeasuringRun, TheDecimationKeepsEveryNthSampleOfTheBoard) {
  testBoard.minRate = 2000.0;
  Begin();
  testBoard.volts = Noise;
  Plan(2, 8, 3, 100.0);
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(Hw().decimation, 10);
  EXPECT_EQ(testBoard.samples, 160);
  ExpectMeanOf({0, 1, 2});
}

TEST_F(MeasuringRun, TimesAndLinesHangTogetherInEveryMeasurementOfASession) {
  for (const double minRate : {0.0, 2000.0}) {
    testBoard.minRate = minRate;
    Begin();
    Enter(hwsetup::NCHANNELS1, 4);
    Hw().nAverage = 1;
    ASSERT_EQ(Start(), 0);
    frontEnd.promptAnswers = {"second"};
    Commit(hmsetup::MEASADD);
    HWSetup& second = *MeasDB.hwSetupList.at(2);
    second.nAverage = 1;
    second.freqSpan = 440.0;
    ASSERT_EQ(Start(), 0);
    for (const HWSetup* hw : {&Hw(), &second}) {
      EXPECT_NEAR(hw->deltaF * hw->nLines / hw->freqSpan, 1.0, 1e-12);
      EXPECT_NEAR(hw->deltaT * 2.0 * hw->freqSpan, 1.0, 1e-12);
      EXPECT_NEAR(2.0 * hw->nLines * hw->deltaT * hw->deltaF, 1.0, 1e-12);
      EXPECT_NEAR(hw->timeLength, 2.0 * hw->nLines * hw->deltaT, 1e-12);
    }
    EXPECT_EQ(second.freqSpan, 440.0);
    EXPECT_EQ(second.decimation, minRate > 0.0 ? 3 : 1);
  }
}

TEST_F(MeasuringRun, RunsInARowKeepSpanAndDecimationOfTheGrantedRate) {
  testBoard.minRate = 2000.0;
  testBoard.rates = {2000.0, 2560.0, 5120.0};
  Begin();
  Enter(hwsetup::FREQSPAN, 97.66);
  ASSERT_EQ(Commit(hwsetup::COFIG_SETUP), 0);
  const double span = Hw().freqSpan;
  EXPECT_EQ(Hw().decimation, 11);
  EXPECT_NEAR(span, 2560.0 / 22.0, 1e-9);
  Hw().nAverage = 1;
  for (int run = 0; run < 3; ++run) {
    ASSERT_EQ(Start(), 0);
    EXPECT_EQ(Hw().decimation, 11);
    EXPECT_EQ(Hw().freqSpan, span);
    EXPECT_NEAR(Hw().deltaF, span / 512, 1e-12);
  }
  ASSERT_EQ(Commit(hwsetup::COFIG_SETUP), 0);
  EXPECT_EQ(Hw().freqSpan, span) << "nor does Configure drift";
}

TEST_F(MeasuringRun, LinesThatAreNoPowerOfTwoAreRaisedAndTheArraysFit) {
  testBoard.volts = Noise;
  Plan(2, 11, 2);
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(Hw().nLines, 16);
  EXPECT_NEAR(Hw().deltaF, 100.0 / 16, 1e-12);
  ExpectMeanOf({0, 1});
}

TEST_F(MeasuringRun, MoreChannelsThanAskedForWidenTheRecordBeforeTheFirstRead) {
  testBoard.volts = Noise;
  Plan(2, 8, 2);
  testBoard.countSaid = 4;
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(Hw().nChannels, 4);
  EXPECT_EQ(Places().recLoc.size(), 4u);
  ExpectMeanOf({0, 1});
  testBoard.countSaid = 1 << 24;
  EXPECT_EQ(Start(), -1);
  EXPECT_EQ(OnlyMessage(), "A record of 16777216 channels is too large.");
  ExpectIdle();
}

// ---- trigger ----------------------------------------------------------------------------------------------

TEST_F(MeasuringRun, TheTriggerIsAskedForInVoltsAndBoardSamples) {
  Plan(2, 512, 1);
  Hw().triggerChannel = 0;
  Hw().triggerLevel = 200.0;
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.Count("trigger"), 1);
  EXPECT_EQ(testBoard.Count("free"), 0);
  EXPECT_NE(std::find(testBoard.log.begin(), testBoard.log.end(), "trigger 1 0 0.2 102"),
            testBoard.log.end());
  testBoard.minRate = 2000.0;
  Begin();
  Plan(2, 512, 1);
  Hw().triggerChannel = 0;
  Hw().triggerSlope = 0;
  Hw().triggerLevel = 200.0;
  ASSERT_EQ(Start(), 0);
  EXPECT_NE(std::find(testBoard.log.begin(), testBoard.log.end(), "trigger 1 0 0.2 1024"),
            testBoard.log.end())
      << "whatever the slope says";
}

TEST_F(MeasuringRun, ABoardThatWaitsForItsTriggerIsNotStartedAnew) {
  Plan(2, 8, 1, 1000.0);
  Hw().triggerChannel = 0;
  testBoard.neverFrom = 0;
  std::string said;
  const auto begin = std::chrono::steady_clock::now();
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning) return;
    said = GetCtrlVal(measpanel::MSGBOX);
    if (std::chrono::steady_clock::now() - begin > std::chrono::milliseconds(5200))
      Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.starts, 1) << "a free run of 8 ms would have been started again after 1.008 s";
  EXPECT_EQ(said, "Waiting for the trigger ...");
  ExpectIdle();
}

TEST_F(MeasuringRun, AFreeRunThatBringsNoRecordIsStartedAnew) {
  testBoard.volts = Noise;
  Plan(2, 8, 1, 1000.0);
  testBoard.neverFrom = 0;
  testBoard.onStart = [] {
    if (testBoard.starts == 1) testBoard.neverFrom = -1;
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.starts, 2);
  ExpectMeanOf({0});
}

}  // namespace
}  // namespace sondera
