// Pause, stop and all other buttons in the middle of a measuring run.
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>

#include "app/averages_fixture.h"
#include "runtime/catalogue/panel.h"

namespace sondera {
namespace {

using testing::Noise;
using testing::testBoard;
class MeasuringStop : public testing::AveragesTest {};

// ---- pause and stop ---------------------------------------------------------------------------------------

TEST_F(MeasuringStop, APauseBeforeTheFirstRecordStartsNoTask) {
  Plan(2, 8, 2);
  int startsWhilePaused = -1;
  std::string said;
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning) return;
    ++polls_;
    if (polls_ == 1) Enter(measpanel::SASWPAUSECONT, 1);
    if (polls_ == 6) {
      startsWhilePaused = testBoard.starts;
      said = GetCtrlVal(measpanel::MSGBOX);
      Enter(measpanel::SASWPAUSECONT, 0);
    }
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(startsWhilePaused, 0);
  EXPECT_EQ(said, "Paused");
  EXPECT_EQ(testBoard.records, 2);
  ExpectIdle();
}

TEST_F(MeasuringStop, APauseInARecordLetsItFinishAndNoneFollows) {
  testBoard.volts = Noise;
  testBoard.seconds = 0.2;
  Plan(2, 8, 5);
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning) return;
    if (testBoard.starts == 1 && testBoard.records == 0) Enter(measpanel::SASWPAUSECONT, 1);
    if (measRun.delivered == 1 && ++polls_ == 8) Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.starts, 1);
  ExpectMeanOf({0});
  ExpectIdle();
}

TEST_F(MeasuringStop, BehindAPauseTheReasonOfTheFailuresStandsAgain) {
  testBoard.volts = [](int, int, int) { return std::numeric_limits<double>::infinity(); };
  Plan(2, 8, 2);
  std::string paused, after;
  int starts = 0;
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning || testBoard.starts < 4) return;
    if (++polls_ == 1) Enter(measpanel::SASWPAUSECONT, 1);
    const std::string said = GetCtrlVal(measpanel::MSGBOX);
    if (said == "Paused" && paused.empty()) {
      paused = said;
      starts = testBoard.starts;
      Enter(measpanel::SASWPAUSECONT, 0);
    } else if (!paused.empty() && testBoard.starts > starts) {
      after = said;
      Commit(measpanel::STOPMEAS);
    }
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(paused, "Paused");
  EXPECT_EQ(after, "The record has values that are not numbers.");
  ExpectIdle();
}

TEST_F(MeasuringStop, APauseWhileIdleChangesNothingThatLasts) {
  Plan(2, 8, 2);
  Enter(measpanel::SASWPAUSECONT, 1);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(testBoard.records, 2);
  ExpectIdle();
}

TEST_F(MeasuringStop, TwoSecondsOfPauseCostNextToNothing) {
  Plan(2, 8, 1);
  const auto begin = std::chrono::steady_clock::now();
  const std::clock_t cpu = std::clock();
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning) return;
    if (++polls_ == 1) Enter(measpanel::SASWPAUSECONT, 1);
    if (std::chrono::steady_clock::now() - begin > std::chrono::seconds(2)) Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_LT(static_cast<double>(std::clock() - cpu) / CLOCKS_PER_SEC, 0.04);
}

TEST_F(MeasuringStop, StopEndsItWithinATenthOfASecondWhereverItIs) {
  double worst = 0.0;
  for (int press = 0; press < 100; ++press) {
    SCOPED_TRACE(press);
    testBoard = testing::TestBoard{};
    testBoard.volts = Noise;
    Plan(2, 512, 1000);
    const int where = press % 4;  // waiting for a trigger, in a long record, paused, before the first record
    if (where == 0) Hw().triggerChannel = 0;
    if (where == 0) testBoard.neverFrom = 1;
    if (where == 1) testBoard.seconds = 60.0;
    if (where == 1) Hw().freqSpan = 8.0;
    std::chrono::steady_clock::time_point pressed;
    int polls = 0;
    const int wanted = where == 3 ? 1 : 4 + press % 3;
    frontEnd.onProcessEvents = [&] {
      if (!measRun.measRunning) return;
      ++polls;
      if (where == 2 && polls == 3) Enter(measpanel::SASWPAUSECONT, 1);
      if (polls != wanted) return;
      pressed = std::chrono::steady_clock::now();
      Commit(measpanel::STOPMEAS);
    };
    ASSERT_EQ(Start(), 0);
    worst =
        std::max(worst, std::chrono::duration<double>(std::chrono::steady_clock::now() - pressed).count());
    EXPECT_EQ(testBoard.Count("clear"), 1);
    EXPECT_EQ(testBoard.Count("stop") > 0, true);
    ExpectIdle();
    frontEnd.onProcessEvents = nullptr;
    Hw().triggerChannel = -1;
  }
  EXPECT_LT(worst, 0.1);
  testBoard = testing::TestBoard{};
  testBoard.volts = Noise;
  Plan(2, 16, 2);
  EXPECT_EQ(Start(), 0) << "and the session measures again";
  ExpectMeanOf({0, 1});
}

TEST_F(MeasuringStop, AnInterruptAndTheWayOutActAsStop) {
  for (int way = 0; way < 2; ++way) {
    testBoard.volts = Noise;
    testBoard.records = 0;
    Plan(2, 8, 100);
    frontEnd.onProcessEvents = [&] {
      if (session.avgCount != 2 || !measRun.measRunning) return;
      if (way == 0)
        RequestInterrupt();
      else
        QuitUserInterface(0);
    };
    EXPECT_EQ(Start(), 0);
    ResetEvents();
    EXPECT_EQ(measRun.measStopped, 1);
    ExpectMeanOf({0, 1});
    ExpectIdle();
  }
}

// ---- refused during a run
// ----------------------------------------------------------------------------------

TEST_F(MeasuringStop, WithoutABoardItSaysSoAndNothingIsLocked) {
  InstallDaqDriver(&daqNone);
  StartSession();
  EXPECT_EQ(Start(), -1);
  EXPECT_EQ(OnlyMessage(), "There is no acquisition board.");
  EXPECT_EQ(measRun.measRunning, 0);
  EXPECT_FALSE(WaitCursorShown());
  Enter(hwsetup::FREQSPAN, 400.0);
  EXPECT_EQ(Commit(hwsetup::COFIG_SETUP), 0) << "a plan is made in the office";
  EXPECT_EQ(Hw().freqSpan, 400.0);
  EXPECT_EQ(Hw().deltaF, 400.0 / 512);
}

TEST_F(MeasuringStop, OnlyStopPauseAndTheDisplayAnswerWhileItRuns) {
  testBoard.volts = Noise;
  Plan(2, 8, 3);
  const int measurements = MeasDB.idList.count();
  int refused = 0, tried = 0;
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning || session.avgCount != 1 || tried > 0) return;
    const RawData before = Raw();
    for (int p = 0; p < kPanelCount; ++p)
      for (const ControlId control : ControlsOf(static_cast<Panel>(p))) {
        ++tried;
        const std::size_t said = frontEnd.messages.size();
        if (Answers(*control)) {
          if (control == &measpanel::STOPMEAS || control == &measpanel::SASWPAUSECONT) continue;
          EXPECT_EQ(control->panel, Panel::MEASPANEL) << control->name;
          Commit(*control);
          continue;
        }
        EXPECT_EQ(Commit(*control), -1) << control->name;
        ASSERT_EQ(frontEnd.messages.size(), said + 1) << control->name;
        EXPECT_EQ(frontEnd.messages.back(), "Measurement is running...") << control->name;
        ++refused;
      }
    SetCtrlVal(measpanel::DISPATYPE, 10);
    Commit(measpanel::DISPATYPE);
    SetCtrlVal(measpanel::DISPATYPE, 3);
    EXPECT_EQ(Raw().powerSpec, before.powerSpec);
    EXPECT_EQ(Raw().timeHist, before.timeHist);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_GT(refused, 450);
  EXPECT_EQ(static_cast<int>(frontEnd.messages.size()), refused)
      << "one message each; a display without a map is silent, its box would keep the next record waiting";
  EXPECT_EQ(MeasDB.idList.count(), measurements);
  EXPECT_FALSE(QuitRequested());
  ExpectMeanOf({0, 1, 2});
  ExpectIdle();
}

TEST_F(MeasuringStop, TheCloseOfTheWindowIsRefusedWhileItRuns) {
  Plan(2, 8, 2);
  int result = 0;
  frontEnd.onProcessEvents = [&] {
    if (measRun.measRunning && ++polls_ == 2) result = SendEvent(panel::CLOSE, Event::Close);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(result, -1);
  EXPECT_EQ(OnlyMessage(), "Measurement is running...");
}

TEST_F(MeasuringStop, ImportedDataAreAskedForBeforeTheyGo) {
  testBoard.volts = Noise;
  Plan(2, 8, 2);
  ASSERT_EQ(Start(), 0);
  Hw().freqSpan = -100.0;
  const RawData before = Raw();
  EXPECT_EQ(Start(), -1);
  EXPECT_EQ(frontEnd.questions,
            std::vector<std::string>{"The data of [measID] will be removed. Do you want to proceed ?"});
  EXPECT_EQ(Raw().powerSpec, before.powerSpec);
  EXPECT_EQ(Hw().freqSpan, -100.0);
  testBoard.failAt = {{"clock", testBoard.Count("clock") + 1}};
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Start(), -1);
  EXPECT_EQ(Raw().powerSpec, before.powerSpec) << "a board that refuses takes nothing away";
  EXPECT_EQ(Hw().freqSpan, -100.0);
  testBoard.failAt.clear();
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(Hw().freqSpan, 100.0);
  ExpectMeanOf({2, 3});
}

TEST_F(MeasuringStop, WithoutARecordDataAndTheirFrequenciesStay) {
  testBoard.volts = Noise;
  Plan(2, 8, 2);
  ASSERT_EQ(Start(), 0);
  const RawData before = Raw();
  testBoard.rates = {250.0};
  AtPoll(2, [] { Commit(measpanel::STOPMEAS); });
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(Raw().powerSpec, before.powerSpec);
  EXPECT_EQ(Hw().freqSpan, 100.0);
  EXPECT_EQ(Hw().deltaF, 100.0 / 8);
}

}  // namespace
}  // namespace sondera
