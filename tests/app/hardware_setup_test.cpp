// The fields of the hardware and measurement setup and the button Configure, with a board inside the test program.
#include <cmath>
#include <random>

#include "acquisition/first_settings.h"
#include "app/measuring_fixture.h"
#include "panels/hwsetup.h"
#include "panels/mainmenu_project.h"
#include "panels/sasw_pair.h"
#include "records/kinds.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using testing::testBoard;

class HardwareSetup : public testing::MeasuringTest {
 protected:
  int Configure() { return Commit(hwsetup::COFIG_SETUP); }
  /// Bytes of the project as a file.
  std::string Bytes() {
    session.projectFileName = folder.File("bytes.da");
    EXPECT_EQ(SaveRawData(), 0);
    std::ifstream in(folder.File("bytes.da"), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void TakeData() {
    testBoard.volts = [](int r, int c, int i) { return std::sin(0.1 * i * (c + 1) + r); };
    Enter(hwsetup::NAVERAGE, 1);
    ASSERT_EQ(Start(), 0);
    ASSERT_NE(Raw().powerSpec[3], 0.0);
    testBoard.log.clear();
  }
};

TEST_F(HardwareSetup, ASpanOf100HzOnABoardFrom2000HzDecimatesByTen) {
  testBoard.minRate = 2000.0;
  Begin();
  Enter(hwsetup::FREQSPAN, 100.0);
  Enter(hwsetup::FREQLINES, 0);
  EXPECT_EQ(Configure(), 0);
  EXPECT_EQ(Hw().decimation, 10);
  EXPECT_EQ(testBoard.Words(), "task channel channel channel channel clock rate stop clear");
  EXPECT_EQ(testBoard.log[5], "clock 1 2000 10240");
  EXPECT_EQ(Hw().freqSpan, 100.0);
  EXPECT_EQ(session.samplesPerChan, 10240);
  EXPECT_EQ(session.measBuffer.size(), 40960u);
  EXPECT_EQ(session.configDone, 1);
}

TEST_F(HardwareSetup, ASpanAboveHalfTheHighestRateIsCut) {
  Enter(hwsetup::FREQSPAN, 1e6);
  EXPECT_EQ(Configure(), 0);
  EXPECT_EQ(Hw().freqSpan, 51200.0);
  EXPECT_EQ(GetCtrlVal(hwsetup::FREQSPAN), 51200.0);
}

TEST_F(HardwareSetup, EveryFieldIsStoredAtOnceAndMarksTheSettingsAsNotChecked) {
  using namespace hwsetup;
  const auto stored = [&](auto enter, auto holds, const char* name) {
    ASSERT_EQ(Configure(), 0) << name;
    ASSERT_EQ(session.configDone, 1) << name;
    EXPECT_EQ(GetPanelTitle(Panel::HMSETUP), "Hardware and Measurement Setup");
    EXPECT_EQ(enter(), 0) << name;
    EXPECT_TRUE(holds()) << name;
    EXPECT_EQ(session.configDone, 0) << name;
    EXPECT_EQ(GetPanelTitle(Panel::HMSETUP), "Hardware and Measurement Setup - not checked yet") << name;
  };
  stored([&] { return Enter(NCHANNELS1, 3); }, [&] { return Hw().nChannels == 3; }, "channels");
  stored([&] { return Enter(NCHANNELS2, 2); }, [&] { return Hw().refChannel == 2; }, "reference");
  stored([&] { return Enter(FREQLINES, 2); }, [&] { return Hw().nLines == 2048; }, "lines");
  stored([&] { return Enter(FREQSPAN, 700.0); }, [&] { return Hw().freqSpan == 700.0; }, "span");
  stored([&] { return Enter(NCHANNELS5, 1); }, [&] { return Hw().triggerChannel == 1; }, "source");
  stored([&] { return Enter(TRIGGERSLOPE, 0); }, [&] { return Hw().triggerSlope == 0; }, "slope");
  stored([&] { return Enter(TRIGGERLEVEL, 55.0); }, [&] { return Hw().triggerLevel == 55.0; }, "level");
  stored([&] { return Enter(TRIGGERDELAY, 25.0); }, [&] { return Hw().triggerDelay == 25.0; }, "delay");
  stored([&] { return Enter(AVERAGEONOFF, 0); }, [&] { return Hw().averageOn == 0; }, "averaging");
  stored([&] { return Enter(NAVERAGE, 9); }, [&] { return Hw().nAverage == 9; }, "averages");
  stored([&] { return Enter(ACDC, 1); }, [&] { return Hw().coupling[0] == 1; }, "coupling");
  stored([&] { return Enter(INPUTRANGE, 1.0); }, [&] { return Hw().inputRange[0] == 1.0; }, "range");
  ASSERT_EQ(Configure(), 0);
  EXPECT_EQ(Enter(GROUNDFLOAT, 0), 0);
  EXPECT_EQ(Hw().grounding[0], 0);
  EXPECT_EQ(session.configDone, 1) << "the grounding alone leaves it";
}

TEST_F(HardwareSetup, InputSettingsGoToTheChannelOnDisplayOrToAll) {
  using namespace hwsetup;
  EXPECT_EQ(GetNumListItems(INPUTCHNLLIST), 4);
  Enter(NCHANNELS4, 2);
  Enter(ACDC, 1);
  Enter(INPUTRANGE, 1.0);
  EXPECT_EQ(Hw().coupling, (std::vector<int>{0, 0, 1, 0}));
  EXPECT_EQ(Hw().inputRange, (std::vector<double>{10, 10, 1, 10}));
  EXPECT_EQ(GetLabelFromIndex(INPUTCHNLLIST, 2), "Ch  3: DC, F, 1.00 Volts");
  Enter(NCHANNELS4, -1);
  Enter(GROUNDFLOAT, 0);
  EXPECT_EQ(Hw().grounding, std::vector<int>(4, 0));
  SetCtrlIndex(INPUTCHNLLIST, 2);
  Commit(INPUTCHNLLIST);
  EXPECT_EQ(GetCtrlVal(NCHANNELS4), 2);
  EXPECT_EQ(GetCtrlVal(ACDC), 1);
  Hw().inputRange[2] = 0.316;
  Enter(NCHANNELS4, -1);
  Enter(ACDC, 0);
  EXPECT_EQ(GetLabelFromIndex(INPUTCHNLLIST, 2), "Ch  3: AC, G, 316.00 mVolts");
}

TEST_F(HardwareSetup, WithAllChannelsTheFirstKeepsItsOwn) {
  using namespace hwsetup;
  SetCtrlVal(NCHANNELS4, -1);
  SetCtrlVal(INPUTRANGE, 1.0);
  SetCtrlVal(ACDC, 1);
  ASSERT_EQ(Configure(), 0);
  EXPECT_EQ(Hw().inputRange, (std::vector<double>{10, 1, 1, 1}));
  EXPECT_EQ(Hw().coupling, (std::vector<int>{0, 1, 1, 1}));
  EXPECT_EQ(testBoard.log[1], "channel 1 Tst1/ai0 0 1 pseudo volts 0 dc") << "all are checked";
}

TEST_F(HardwareSetup, AnotherNumberOfChannelsKeepsWhatStays) {
  Hw().inputRange = {1, 1, 1, 10};
  Hw().refChannel = 3;
  Hw().triggerChannel = 3;
  Places().recLoc = {1, 2, 3, 4};
  PMeasInfo* pair = nullptr;
  SetupPMeasDataNode("ProjID", "measID", 0, 3, Hw(), pair);
  Enter(hwsetup::NCHANNELS1, 2);
  EXPECT_EQ(Hw().inputRange, (std::vector<double>{1, 1}));
  EXPECT_EQ(Hw().refChannel, 0);
  EXPECT_EQ(Hw().triggerChannel, -1);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{1, 2}));
  EXPECT_EQ(Raw().timeHist.size(), 2048u);
  EXPECT_EQ(FindPair(1, 0, 3), nullptr);
  EXPECT_EQ(GetNumListItems(sasw::DISPACHNL), 2);
  EXPECT_EQ(GetNumListItems(hwsetup::NCHANNELS4), 3);
  EXPECT_EQ(GetNumListItems(meassetup::NCHANNELS3), 2);
  Enter(hwsetup::NCHANNELS1, 4);
  EXPECT_EQ(Hw().inputRange, (std::vector<double>{1, 1, 1, 1}));
  EXPECT_EQ(Places().recLoc, (std::vector<double>{1, 2, 0, 0}));
}

TEST_F(HardwareSetup, RefusalsSayWhyAndChangeNothing) {
  TakeData();
  const std::string before = Bytes();
  const auto refused = [&](const std::string& cause) {
    frontEnd.messages.clear();
    EXPECT_EQ(Configure(), -1);
    EXPECT_EQ(OnlyMessage(), "Inappropriate Hardware Parameters!" + (cause.empty() ? "" : "\n" + cause));
    EXPECT_TRUE(frontEnd.questions.empty()) << "nobody is asked about data for settings that cannot be";
    EXPECT_EQ(testBoard.task, 0);
    EXPECT_FALSE(WaitCursorShown());
    EXPECT_TRUE(Bytes() == before);
    UpdateHWSetup("ProjID", "measID");
  };
  SetCtrlVal(hwsetup::FREQSPAN, 0.0);
  refused("");
  SetCtrlVal(hwsetup::FREQSPAN, std::nan(""));
  refused("");
  SetCtrlIndex(hwsetup::FREQLINES, 10);
  session.device.aiMinRate = 100000.0;
  SetCtrlVal(hwsetup::FREQSPAN, 1.0);  // 2^20 * 50000 * 4 samples
  refused("");
  session.device.aiMinRate = 0.0;
  InsertListItem(hwsetup::NCHANNELS1, -1, "  9", 9);
  SetCtrlVal(hwsetup::NCHANNELS1, 9);
  refused("board error -50");
  InsertListItem(hwsetup::INPUTRANGE, -1, "99", 99.0);
  SetCtrlVal(hwsetup::NCHANNELS4, -1);
  SetCtrlVal(hwsetup::INPUTRANGE, 99.0);
  refused("Channel 1 has no input range.");
  for (const char* request : {"task", "channel", "clock", "rate"}) {
    SCOPED_TRACE(request);
    testBoard.failAt = {{request, testBoard.Count(request) + 1}};
    refused("board error -50");
  }
  testBoard.failAt.clear();
  session.device.aiTriggerSupported = 0;
  SetCtrlVal(hwsetup::NCHANNELS5, 1);
  refused("This board has no trigger.");
}

TEST_F(HardwareSetup, ShapesAskBeforeDataGo) {
  TakeData();
  const std::string before = Bytes();
  const std::vector<std::string> question = {
      "The data of [measID] will be removed. Do you want to proceed ?"};
  const std::vector<std::pair<const char*, std::function<int()>>> edits = {
      {"lines", [&] { return Enter(hwsetup::FREQLINES, 3); }},
      {"span", [&] { return Enter(hwsetup::FREQSPAN, 123.0); }},
      {"channels", [&] { return Enter(hwsetup::NCHANNELS1, 2); }},
      {"configure", [&] { return Configure(); }}};
  for (const auto& [name, edit] : edits) {
    SCOPED_TRACE(name);
    frontEnd.questions.clear();
    EXPECT_EQ(edit(), -1);
    EXPECT_EQ(frontEnd.questions, question);
    EXPECT_TRUE(Bytes() == before);
  }
  EXPECT_EQ(GetCtrlVal(hwsetup::FREQLINES), 0) << "the controls are back";
  EXPECT_EQ(GetCtrlVal(hwsetup::FREQSPAN), 51200.0);
  EXPECT_EQ(GetCtrlVal(hwsetup::NCHANNELS1), 4);
  for (const auto& [name, edit] : edits) {
    SCOPED_TRACE(name);
    frontEnd.questions.clear();
    frontEnd.confirmAnswers = {true};
    EXPECT_EQ(edit(), 0);
    EXPECT_EQ(frontEnd.questions, question);
    for (auto block : kRawBlocks) {
      EXPECT_EQ((Raw().*block).size(), 2u * static_cast<std::size_t>(Hw().nLines * Hw().nChannels));
      for (const double x : Raw().*block) ASSERT_EQ(x, 0.0);
    }
    frontEnd.questions.clear();
    EXPECT_EQ(edit(), 0) << "empty";
    EXPECT_TRUE(frontEnd.questions.empty());
    Enter(hwsetup::FREQLINES, 0);
    Enter(hwsetup::FREQSPAN, 51200.0);
    Enter(hwsetup::NCHANNELS1, 4);
    TakeData();
  }
}

TEST_F(HardwareSetup, RandomSettingsGiveTheFieldsOfAnIndependentComputation) {
  std::mt19937 random(4);
  const auto uniform = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const int lineCounts[] = {512, 1024, 2048};
  for (int trial = 0; trial < 200; ++trial) {
    SCOPED_TRACE(trial);
    testBoard.inputs = 8;
    testBoard.category = trial % 3 == 0 ? daq_category::kMSeries : daq_category::kDynamicSignal;
    if (testBoard.category == daq_category::kMSeries) testBoard.inputs = 32;
    testBoard.minRate = trial % 2 ? uniform(1.0, 20000.0) : 0.0;
    testBoard.rates.clear();
    if (trial % 5 == 0)
      for (double rate = std::max(testBoard.minRate, 20.0); rate < 102400.0; rate *= 1.28)
        testBoard.rates.push_back(rate);
    if (trial % 5 == 0) testBoard.rates.push_back(102400.0);
    Begin();
    const int channels = 1 + static_cast<int>(random() % 8), lines = lineCounts[random() % 3];
    const double span = std::exp(uniform(std::log(30.0), std::log(60000.0)));
    const int trigger = static_cast<int>(random() % static_cast<unsigned>(channels + 1)) - 1;
    Enter(hwsetup::NCHANNELS1, channels);
    Enter(hwsetup::FREQLINES, FreqLinesID(lines));
    Enter(hwsetup::FREQSPAN, span);
    Enter(hwsetup::NCHANNELS5, trigger);
    Enter(hwsetup::NAVERAGE, 1);
    ASSERT_EQ(Configure(), 0);
    // by hand
    const double wanted = std::min(span, 51200.0);
    const double decimation =
        testBoard.minRate / 2 <= wanted ? 1.0 : std::ceil(testBoard.minRate / 2 / wanted);
    double rate = 2 * wanted * decimation;
    if (!testBoard.rates.empty()) {
      double granted = testBoard.rates.back();
      for (const double r : testBoard.rates)
        if (r >= rate - 1e-9) granted = std::min(granted, r);
      rate = granted;
    }
    for (int round = 0; round < 2; ++round) {  // after Configure, and after a run
      const HWSetup& hw = Hw();
      EXPECT_EQ(hw.nChannels, channels);
      EXPECT_EQ(hw.nLines, lines);
      EXPECT_EQ(hw.decimation, static_cast<int>(decimation));
      EXPECT_NEAR(hw.freqSpan / (rate / 2 / decimation), 1.0, 1e-12);
      EXPECT_NEAR(hw.deltaT / (decimation / rate), 1.0, 1e-12);
      EXPECT_NEAR(hw.deltaF / (rate / 2 / decimation / lines), 1.0, 1e-12);
      EXPECT_NEAR(hw.timeLength / (2.0 * lines * decimation / rate), 1.0, 1e-12);
      if (round == 1) break;
      testBoard.log.clear();
      ASSERT_EQ(Start(), 0);
    }
    std::string words = "task";
    for (int c = 0; c < channels; ++c) words += " channel";
    const bool series = testBoard.category == daq_category::kMSeries;
    const bool triggered = trigger >= 0 && !(series && channels > 1);
    words += std::string(" clock rate ") + (triggered ? "trigger" : "free") + " count start read stop clear";
    EXPECT_EQ(testBoard.Words(), words);
    // the run requests the rate that was granted before
    const std::string clock = FormatText("clock 1 %.12g %d", rate, static_cast<int>(2 * lines * decimation));
    EXPECT_EQ(std::count(testBoard.log.begin(), testBoard.log.end(), clock), 1) << clock;
  }
}

TEST_F(HardwareSetup, BoardsOfESeriesTriggerWithOneChannelOnly) {
  testBoard.category = daq_category::kESeries;
  testBoard.inputs = 8;
  Begin();
  Enter(hwsetup::NCHANNELS1, 2);
  Enter(hwsetup::NCHANNELS5, 1);
  ASSERT_EQ(Configure(), 0);
  EXPECT_EQ(Hw().triggerChannel, -1);
  EXPECT_EQ(GetCtrlVal(hwsetup::NCHANNELS5), -1);
  EXPECT_TRUE(IsDimmed(hwsetup::NCHANNELS5));
  EXPECT_TRUE(IsDimmed(hwsetup::ACDC));
  Enter(hwsetup::NCHANNELS1, 1);
  Enter(hwsetup::NCHANNELS5, 0);
  ASSERT_EQ(Configure(), 0);
  EXPECT_EQ(Hw().triggerChannel, 0);
  EXPECT_FALSE(IsDimmed(hwsetup::NCHANNELS5));
  EXPECT_FALSE(IsDimmed(hwsetup::TRIGGERLEVEL));
}

TEST_F(HardwareSetup, ASensorAsksForItsExcitation) {
  SetCtrlVal(hwsetup::SENSORTYPE, 2);
  ASSERT_EQ(Configure(), 0);
  EXPECT_EQ(Hw().sensorType, 2);
  EXPECT_EQ(testBoard.log[1], "channel 1 Tst1/ai0 0 10 pseudo accel 0.0021 ac");
}

TEST_F(HardwareSetup, ThePreviewSwitchShowsWhatHappens) {
  EXPECT_EQ(GetCtrlVal(hwsetup::PREVIEW_ONOFF), 0);
  Enter(hwsetup::PREVIEW_ONOFF, 1);
  EXPECT_EQ(session.measOptions.previewOn, 1);
  ASSERT_EQ(Configure(), 0);
  EXPECT_EQ(GetCtrlVal(hwsetup::PREVIEW_ONOFF), 1);
}

TEST_F(HardwareSetup, ConfigureShowsTheWindowOfARecord) {
  Enter(hwsetup::FREQSPAN, 100.0);
  ASSERT_EQ(Configure(), 0);
  const GraphModel& graph = GraphOf(measpanel::DISPLAY_A);
  EXPECT_NEAR(graph.xAxis.min, -102 * 0.005, 1e-12);
  EXPECT_NEAR(graph.xAxis.max, (1024 - 102) * 0.005, 1e-12);
  EXPECT_EQ(graph.yAxis.min, -10.0);
  EXPECT_EQ(graph.yAxis.max, 10.0);
}

TEST_F(HardwareSetup, AnotherBoardBringsItsOwnFacts) {
  testBoard.devices = "Tst1,Tst2";
  Begin();
  frontEnd.promptAnswers = {"second"};
  Commit(hmsetup::MEASADD);
  testBoard.inputs = 2;
  testBoard.minRate = 4000.0;
  testBoard.maxRate = 8000.0;
  testBoard.ranges = {5.0, 0.5};
  testBoard.type = "Small board";
  SetCtrlIndex(devpanel::DEVICEID, 1);
  EXPECT_EQ(Commit(devpanel::OK), 0);
  EXPECT_EQ(session.device.devName, "Tst2");
  EXPECT_EQ(session.device.devProductType, "Small board");
  EXPECT_EQ(session.device.maxChannels, 2);
  EXPECT_EQ(session.device.aiMinRate, 4000.0);
  const HWSetup& second = *MeasDB.hwSetupList.at(2);
  EXPECT_EQ(second.freqSpan, 4000.0);
  EXPECT_EQ(second.nChannels, 2);
  EXPECT_EQ(second.inputRange, std::vector<double>(2, 5.0));
  EXPECT_EQ(GetNumListItems(hwsetup::INPUTRANGE), 2);
  EXPECT_EQ(Hw().nChannels, 4) << "another measurement keeps its settings";
  EXPECT_EQ(Hw().freqSpan, 51200.0);
}

TEST_F(HardwareSetup, TheBoardPanelFindsBoardsByTheirDriver) {
  Commit(mainmenu::SETUP_BOARDS);
  EXPECT_TRUE(IsPanelShown(Panel::DEVPANEL));
  SetCtrlVal(devpanel::DRIVER, "sim:channels=3");
  EXPECT_EQ(Commit(devpanel::FIND), 0);
  EXPECT_EQ(GetLabelFromIndex(devpanel::DEVICEID, 0), "Sim1: Dynamic Signal Acquisition");
  EXPECT_EQ(session.device.maxChannels, 3);
  EXPECT_EQ(Hw().nChannels, 3);
  SetCtrlVal(devpanel::DRIVER, "sim:channels=99");
  EXPECT_EQ(Commit(devpanel::FIND), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(session.device.maxChannels, 3) << "the board in use stays";
  EXPECT_EQ(Commit(devpanel::OK), 0);
  EXPECT_FALSE(IsPanelShown(Panel::DEVPANEL));
}

TEST_F(HardwareSetup, AnotherBoardLeavesAMeasurementWithDataAlone) {
  TakeData();
  const std::string before = Bytes();
  testBoard.inputs = 2;
  testBoard.maxRate = 8000.0;
  EXPECT_EQ(Commit(devpanel::OK), 0);
  EXPECT_TRUE(Bytes() == before);
}

// ---- geometry ---------------------------------------------------------------------------------------------

TEST_F(HardwareSetup, PlacesBySpacingAndOneByOne) {
  using namespace meassetup;
  Enter(hwsetup::NCHANNELS1, 3);
  Enter(EVENSPACING, 2.0);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{2, 4, 6}));
  EXPECT_EQ(GetLabelFromIndex(RECLOCLIST, 2), "Ch  3: 6");
  Enter(SRCLOC, -1.5);
  EXPECT_EQ(Places().srcLoc, -1.5);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{2, 4, 6})) << "the source moves alone";
  Enter(EVENSPACING, 2.0);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{0.5, 2.5, 4.5}));
  Enter(RSPACING, 0);
  Enter(NCHANNELS3, 1);
  EXPECT_EQ(GetCtrlVal(CHNLLOC), 2.5);
  Enter(CHNLLOC, 3.25);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{0.5, 3.25, 4.5}));
  SetCtrlIndex(RECLOCLIST, 2);
  Commit(RECLOCLIST);
  EXPECT_EQ(GetCtrlVal(NCHANNELS3), 2);
  EXPECT_EQ(GetCtrlVal(CHNLLOC), 4.5);
  Enter(EVENSPACING, 9.0);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{0.5, 3.25, 4.5})) << "single places are meant";
  Enter(LENGTHUNIT, 0.3048);
  EXPECT_EQ(Places().lengthUnit, 0.3048);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  EXPECT_EQ(session.configDone, 0);
  TakeData();
  Bytes();
  StartSession();
  ASSERT_EQ(OpenFileProc(folder.File("bytes.da"), OpenFor::Reading), 0);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
  EXPECT_EQ(Places().recLoc, (std::vector<double>{0.5, 3.25, 4.5}));
  EXPECT_EQ(Places().srcLoc, -1.5);
  EXPECT_EQ(Places().lengthUnit, 0.3048);
}

}  // namespace
}  // namespace sondera
