// Boards that fail and records that overload in a measuring run.
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>

#include "app/averages_fixture.h"

namespace sondera {
namespace {

using testing::Noise;
using testing::testBoard;
class MeasuringFaults : public testing::AveragesTest {};

// ---- boards that fail -------------------------------------------------------------------------------------

TEST_F(MeasuringFaults, ARequestThatFailsLeavesNoTaskAndOneMessage) {
  testBoard.volts = Noise;
  Plan(2, 8, 2);
  ASSERT_EQ(Start(), 0);
  const RawData before = Raw();
  for (const char* request : {"task", "channel", "clock", "rate", "free", "count", "start"}) {
    SCOPED_TRACE(request);
    testBoard.log.clear();
    frontEnd.messages.clear();
    testBoard.failAt = {{request, 1}};
    EXPECT_EQ(Start(), -1);
    const bool starts = std::string(request) == "start";
    EXPECT_EQ(OnlyMessage(),
              starts ? "Something wrong with the DSA card...\nboard error -50" : "board error -50");
    EXPECT_EQ(testBoard.Count("clear"), std::string(request) == "task" ? 0 : 1);
    EXPECT_EQ(Raw().powerSpec, before.powerSpec);
    ExpectIdle();
  }
}

TEST_F(MeasuringFaults, ReadsThatFailAreTriedAgainWithoutHaste) {
  testBoard.volts = [](int r, int c, int i) {
    return r == 2 && c == 1 && i == 5 ? std::numeric_limits<double>::quiet_NaN() : Noise(r, c, i);
  };
  testBoard.failAt = {{"wait", 2}};
  testBoard.shortRecord = 1;
  Plan(2, 8, 2);
  const double seconds = SecondsOf([this] { ASSERT_EQ(Start(), 0); });
  EXPECT_GE(seconds, 0.15) << "each failure is followed by a pause";
  EXPECT_EQ(testBoard.records, 4) << "one wait failed, one record was short, one was no number";
  ExpectMeanOf({0, 3});
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(MeasuringFaults, ThreeFailuresInARowShowTheDriversText) {
  testBoard.volts = [](int, int, int) { return std::numeric_limits<double>::infinity(); };
  Plan(2, 8, 2);
  std::string early, said;
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning) return;
    if (testBoard.starts == 2) early = GetCtrlVal(measpanel::MSGBOX);
    if (testBoard.starts < 5) return;
    said = GetCtrlVal(measpanel::MSGBOX);
    Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(early, "");
  EXPECT_EQ(said, "The record has values that are not numbers.");
  ExpectIdle();
}

TEST_F(MeasuringFaults, ABoardThatGoesAwayLeavesTheMeanOfWhatWasTaken) {
  testBoard.volts = Noise;
  Plan(2, 8, 10);
  frontEnd.onProcessEvents = [] {
    if (measRun.delivered == 4) testBoard.gone = true;
  };
  EXPECT_EQ(Start(), -1);
  EXPECT_EQ(OnlyMessage(), "Something wrong with the DSA card...\nboard error -50");
  EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 4");
  ExpectMeanOf({0, 1, 2, 3});
  testBoard.task = 0;
  ExpectIdle();
}

// ---- overload ---------------------------------------------------------------------------------------------

TEST_F(MeasuringFaults, AnOverloadIsShownFoldedAndTold) {
  testBoard.volts = [](int r, int c, int i) { return r == 1 && c != 1 && i == 3 ? 10.0 : Noise(r, c, i); };
  Plan(3, 8, 5);
  std::vector<std::string> said;
  frontEnd.onProcessEvents = [&] {
    if (measRun.measRunning && measRun.delivered > 0) {
      const auto n = static_cast<std::size_t>(measRun.delivered);
      if (said.size() < n) said.resize(n);
      said[n - 1] = GetCtrlVal(measpanel::MSGBOX);
    }
  };
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(said, (std::vector<std::string>{"", "Overload: channel 1, 3", "", "", ""}));
  EXPECT_EQ(OnlyMessage(), "Overload in 1 of 5 records: channel 1, 3.");
  ExpectMeanOf({0, 1, 2, 3, 4});
}

TEST_F(MeasuringFaults, TheBoardMayReportAnOverloadThatTheSamplesDoNotShow) {
  testBoard.mask = 2;
  Plan(2, 8, 2);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(OnlyMessage(), "Overload in 2 of 2 records: channel 2.");
}

}  // namespace
}  // namespace sondera
