// The run without a page: its reports to a listener, and its results.
#include "acquisition/measurement_run.h"

#include <cmath>

#include "acquisition/acquisition_state.h"
#include "acquisition/hardware_settings.h"
#include "board_fixture.h"
#include "records/session.h"
#include "support/test_board.h"

namespace sondera {
namespace {

using testing::testBoard;

class Hearing : public MeasListener {
 public:
  bool Poll() override { return endAt > 0 && ++polls >= endAt; }
  void Say(const std::string& text) override { heard.push_back("say " + text); }
  void Armed(bool on) override { heard.push_back(on ? "armed" : "disarmed"); }
  void Averages(int count) override { heard.push_back("averages " + std::to_string(count)); }
  std::function<bool()> Question() override { return question; }
  void Redraw() override { heard.push_back("redraw"); }

  std::vector<std::string> heard;
  std::function<bool()> question;
  int endAt = 0, polls = 0;
};

class PlainRun : public testing::BoardTest {
 protected:
  void SetUp() override {
    BoardTest::SetUp();
    testBoard = testing::TestBoard{};
    testBoard.volts = [](int r, int c, int i) { return std::sin(0.2 * i + c) + r; };
    InstallDaqDriver(&testing::daqTestBoard);
    session.device.devName = "Tst1";
    session.device.devCategory = daq_category::kDynamicSignal;
    session.device.aiPhysicalChans = "Tst1/ai0,Tst1/ai1";
    m = testing::AddMeasurement({.nLines = 8, .deltaT = 0.001});
    m.hw->inputRange = {10.0, 10.0};
    m.hw->nAverage = 2;
  }
  RunEnd Run() {
    measRun = {.measRunning = 1};
    return PerformMeas(m.key, listener);
  }
  testing::TestMeasurement m;
  Hearing listener;
};

TEST_F(PlainRun, TellsWhatItDoes) {
  const RunEnd end = Run();
  EXPECT_EQ(end.result, 0);
  EXPECT_TRUE(end.boxes.empty());
  EXPECT_EQ(listener.heard,
            (std::vector<std::string>{"averages 1", "redraw", "averages 2", "disarmed", "redraw"}));
  EXPECT_EQ(testBoard.Words(),
            "task channel channel clock rate free count start read stop start read stop clear");
  EXPECT_EQ(session.configDone, 0);
  EXPECT_EQ(session.samplesPerChan, 16);
  EXPECT_TRUE(session.measBuffer.empty());
}

TEST_F(PlainRun, EndsWhenTheListenerSaysSo) {
  m.hw->nAverage = 1000;
  listener.endAt = 14;
  EXPECT_EQ(Run().result, 0);
  EXPECT_EQ(measRun.measStopped, 1);
  EXPECT_EQ(measRun.measRunning, 0);
  EXPECT_EQ(testBoard.Count("clear"), 1);
}

TEST_F(PlainRun, AnExceptionLeavesNoTaskAndNoFlag) {
  listener.question = []() -> bool { throw std::bad_alloc(); };
  EXPECT_THROW(Run(), std::bad_alloc);
  EXPECT_EQ(testBoard.task, 0);
  EXPECT_EQ(testBoard.Count("clear"), 1);
  EXPECT_EQ(measRun.daqTask, 0);
  EXPECT_EQ(measRun.measRunning, 0);
}

TEST_F(PlainRun, PausedFromTheStartItReturnsAtOnce) {
  measRun = {.measRunning = 1, .measPaused = 1};
  EXPECT_EQ(PerformMeas(m.key, listener).result, 0);
  EXPECT_TRUE(testBoard.log.empty());
}

TEST_F(PlainRun, StopProcedureNeedsATaskAndARun) {
  StopProcedure(0);
  EXPECT_EQ(measRun.measStopped, 0);
  measRun = {.daqTask = 1, .measRunning = 1};
  StopProcedure(1);
  EXPECT_EQ(measRun.measRunning, 1) << "another mode does nothing";
  StopProcedure(0);
  EXPECT_EQ(measRun.measStopped, 1);
  EXPECT_EQ(measRun.daqTask, 0);
  EXPECT_EQ(testBoard.Words(), "stop clear");
}

TEST_F(PlainRun, ATaskWithoutABoardIsRefused) {
  session.device.devName.clear();
  int task = 7;
  std::string reason;
  EXPECT_EQ(CreateDAQTask(m.key, task, reason), -1);
  EXPECT_EQ(task, 0);
  EXPECT_EQ(reason, "There is no acquisition board.");
}

TEST_F(PlainRun, NamesOfChannelsCountFromOne) {
  EXPECT_EQ(ChannelNames({false, true, false, true}), "channel 2, 4");
  EXPECT_EQ(ChannelNames({false}), "");
}

// ---- settings and the board -------------------------------------------------------------------------------

TEST_F(PlainRun, AChannelCountKeepsWhatStaysAndEmptiesTheData) {
  m.raw->powerSpec[3] = 1.0;
  m.hw->triggerChannel = 1;
  SetChannelCount(m.key, 1);
  EXPECT_EQ(m.hw->coupling.size(), 1u);
  EXPECT_EQ(m.hw->triggerChannel, -1);
  EXPECT_EQ(m.setup->recLoc.size(), 1u);
  EXPECT_EQ(m.raw->powerSpec, std::vector<double>(16, 0.0));
  EXPECT_FALSE(HoldsData(m.key));
}

TEST_F(PlainRun, ARecordOfAGigabyteFitsAndOneBeyondDoesNot) {
  EXPECT_TRUE(FitsRecord(524288, 128));
  EXPECT_FALSE(FitsRecord(524288, 129));
  EXPECT_TRUE(FitsRecord(512, 1, 131072));
  EXPECT_FALSE(FitsRecord(512, 1, 131073));
  EXPECT_FALSE(FitsRecord(1 << 30, 1000, 1 << 30));
}

TEST_F(PlainRun, WithoutABoardThePlanIsGrantedAsAsked) {
  InstallDaqDriver(&daqNone);
  session.device.devName.clear();
  BoardGrant grant;
  std::string reason;
  m.hw->freqSpan = 123.4;
  EXPECT_EQ(DetermineDAQParam(PlanOf(*m.hw), grant, reason), 0);
  EXPECT_EQ(grant.span, 123.4);
  EXPECT_EQ(grant.decimation, 1);
  m.hw->inputRange[1] = 0.0;
  EXPECT_EQ(DetermineDAQParam(PlanOf(*m.hw), grant, reason), -1);
  EXPECT_EQ(reason, "Channel 2 has no input range.");
}

TEST_F(PlainRun, NotANumberCountsAsData) {
  m.raw->timeHist[0] = std::nan("");
  EXPECT_TRUE(HoldsData(m.key));
}

}  // namespace
}  // namespace sondera
