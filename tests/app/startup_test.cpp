// Tests of session start and shutdown, with and without boards.
#include "app/startup.h"

#include "numeric/complex_one.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

using testing::AppTest;

/// A board with settable properties; remembers the requested names.
struct FakeBoard {
  std::string names = "Dev12345, Dev2";
  int category = daq_category::kDynamicSignal;
  std::string type = "NI-9234";
  std::string channels = "Dev1/ai0, Dev1/ai1, Dev1/ai2, Dev1/ai3, Dev1/ai4, Dev1/ai5, Dev1/ai6, Dev1/ai7";
  std::vector<std::string> askedAbout;
};
FakeBoard board;

DaqDriver FakeDriver() {
  DaqDriver d = daqNone;
  d.name = "fake";
  d.sysDevNames = [](std::string& names) {
    names = board.names;
    return 0;
  };
  d.devProductCategory = [](const std::string& dev, int& c) {
    board.askedAbout.push_back(dev);
    c = board.category;
    return 0;
  };
  d.devProductType = [](const std::string& dev, std::string& t) {
    board.askedAbout.push_back(dev);
    t = board.type;
    return 0;
  };
  d.devAIPhysicalChans = [](const std::string& dev, std::string& c) {
    board.askedAbout.push_back(dev);
    c = board.channels;
    return 0;
  };
  d.devAIMaxSingleChanRate = [](const std::string&, double& r) {
    r = 51200.0;
    return 0;
  };
  d.devAIMinRate = [](const std::string&, double& r) {
    r = 2000.0;
    return 0;
  };
  d.devAIVoltageRngs = [](const std::string&, std::vector<double>& l) {
    l = {-10.0, 10.0, -1.0, 1.0};
    return 0;
  };
  return d;
}

class Startup : public AppTest {
 protected:
  void StartWithBoard() {
    driver_ = FakeDriver();
    InstallDaqDriver(&driver_);
    StartSession();
  }
  void SetUp() override {
    board = FakeBoard{};
    AppTest::SetUp();
  }
  DaqDriver driver_ = daqNone;
};

TEST_F(Startup, NoDeviceGivesFourChannelsAndTheMaskingPageFirst) {
  EXPECT_EQ(session.device.maxChannels, 4);
  EXPECT_EQ(session.device.aiMaxRate, 102400.0);
  EXPECT_EQ(session.device.aiVoltageRngs[0], 10.0);
  EXPECT_EQ(session.device.aiVoltageRngs[254], 10.0);
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 1);
  EXPECT_FALSE(IsPanelShown(Panel::DEVPANEL));
}

/// A kernel that cannot continue ends the process; before that the data can be saved.
TEST_F(Startup, EndOfTheProcessOffersASave) {
  session.projectFileName = folder.File("rescued.da");
  EXPECT_EXIT(
      {
        frontEnd.confirmAnswers = {true};
        EndOnZeroDivisor();
      },
      ::testing::ExitedWithCode(1), "");
  EXPECT_TRUE(Exists("rescued.da"));
}

TEST_F(Startup, MakesOneEmptyMeasurementWithKeyOne) {
  ASSERT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(MeasDB.idList.at(1)->key, 1);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "ProjID");
  EXPECT_EQ(MeasDB.idList.at(1)->MeasID, "measID");
  ASSERT_EQ(MeasDB.hwSetupList.count(), 1);
  const HWSetup& hw = *MeasDB.hwSetupList.at(1);
  EXPECT_EQ(hw.nChannels, 4);
  EXPECT_EQ(hw.nLines, 512);
  EXPECT_EQ(hw.freqSpan, 0.0) << "no board says a span";
  EXPECT_DOUBLE_EQ(hw.deltaT, 0.5 / 52100.0);
  EXPECT_DOUBLE_EQ(hw.timeLength, 1023 * 0.5 / 52100.0);
  EXPECT_DOUBLE_EQ(hw.deltaF, 52100.0 / 512.0);
  EXPECT_EQ(hw.decimation, 1);
  EXPECT_EQ(hw.triggerChannel, -1);
  EXPECT_EQ(hw.nAverage, 5);
  EXPECT_EQ(hw.inputRange, std::vector<double>(4, 10.0));
  EXPECT_EQ(hw.coupling, std::vector<int>(4, 0));
  EXPECT_EQ(hw.grounding, std::vector<int>(4, 1));
  EXPECT_EQ(MeasDB.measSetupList.at(1)->recLoc, std::vector<double>(4, 0.0));
  EXPECT_EQ(MeasDB.measSetupList.at(1)->lengthUnit, 1.0);
  EXPECT_EQ(MeasDB.rawDataList.at(1)->timeHist.size(), 2u * 512u * 4u);
  EXPECT_EQ(GetCtrlVal(hmsetup::MEASID), "measID");
  EXPECT_EQ(GetNumListItems(hmsetup::MEASIDLISTBOX), 1);
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "Sondera 4.1 - ProjID:measID");
}

TEST_F(Startup, SetsTheSessionDefaults) {
  EXPECT_EQ(session.appTitle, "Sondera 4.1");
  EXPECT_EQ(session.lengthUnit, 1.0);
  EXPECT_EQ(session.smV, (std::array<double, 5>{0, 2500, 2400, 35, 30}));
  EXPECT_EQ(session.bbV, (std::array<double, 5>{0, 1000, 950, 110, 100}));
  EXPECT_EQ(session.alphaWlen, 0.25);
  EXPECT_EQ(session.measOptions.previewOn, 0);
  EXPECT_EQ(GetCtrlVal(sasw::DISPCURV_OPTION), 1);
  EXPECT_EQ(GetCtrlVal(sasw::PHASE_ENHANCED), 1);
  EXPECT_EQ(GetCtrlVal(meassetup::RSPACING), 1);
  EXPECT_TRUE(IsVisible(meassetup::EVENSPACING));
  EXPECT_FALSE(IsVisible(meassetup::CHNLLOC));
  EXPECT_EQ(GetCtrlVal(fmodeling::GLOBAL_ARRAY), FModelParam.dispCurvType);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(Startup, DeviceNamesLongerThanFourCharactersAreCutForTheDriverToo) {
  StartWithBoard();
  EXPECT_EQ(session.device.devName, "Dev1");
  ASSERT_FALSE(board.askedAbout.empty());
  for (const std::string& name : board.askedAbout) EXPECT_LE(name.size(), 4u) << name;
  EXPECT_EQ(GetLabelFromIndex(devpanel::DEVICEID, 0), "Dev12345: Dynamic Signal Acquisition");
}

TEST_F(Startup, ABoardBringsTheMeasurementPageAndItsOwnSpan) {
  StartWithBoard();
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 0);
  EXPECT_EQ(session.device.maxChannels, 8);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->freqSpan, 25600.0);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->inputRange[0], 10.0);
}

TEST_F(Startup, MoreThanOneBoardShowsTheChoiceAndGoesOn) {
  StartWithBoard();
  EXPECT_TRUE(IsPanelShown(Panel::DEVPANEL));
  EXPECT_EQ(MeasDB.idList.count(), 1);
  SetCtrlIndex(devpanel::DEVICEID, 1);
  Commit(devpanel::OK);
  EXPECT_EQ(session.device.devName, "Dev2");
  EXPECT_FALSE(IsPanelShown(Panel::DEVPANEL));
}

TEST_F(Startup, Usb4432HasFourChannelsWhateverItsListSays) {
  board.type = "USB-4432 (DSA)";
  StartWithBoard();
  EXPECT_EQ(session.device.maxChannels, 4);
}

TEST_F(Startup, DifferentialBoardsHalveTheChannelCount) {
  for (int category : {daq_category::kESeries, daq_category::kMSeries}) {
    board.category = category;
    StartWithBoard();
    EXPECT_EQ(session.device.maxChannels, 4);
    EXPECT_EQ(MeasDB.hwSetupList.at(1)->coupling[0], 1);
    EXPECT_EQ(MeasDB.hwSetupList.at(1)->grounding[0], 0);
    EXPECT_EQ(MeasDB.hwSetupList.at(1)->freqSpan, 51200.0 * 0.5 / 4);
  }
}

TEST_F(Startup, UnknownCategoryHasItsText) {
  EXPECT_EQ(DeviceListText("Dev1", 4711), "Dev1: Unknown category");
  EXPECT_EQ(DeviceListText("Dev1", 14643), "Dev1: M Series DAQ");
  EXPECT_EQ(DeviceListText("Dev1", 14642), "Dev1: E Series DAQ");
}

TEST_F(Startup, QuitAsksAndNoLeavesEverything) {
  Commit(mainmenu::QUIT);
  ASSERT_EQ(frontEnd.questions.size(), 1u);
  EXPECT_EQ(frontEnd.questions[0], "Do you want to exit the program ?");
  EXPECT_FALSE(QuitRequested());
  EXPECT_EQ(MeasDB.idList.count(), 1);
}

TEST_F(Startup, QuitWithYesReleasesAllAndEndsTheLoop) {
  frontEnd.confirmAnswers = {true};
  Commit(mainmenu::QUIT);
  EXPECT_TRUE(QuitRequested());
  EXPECT_EQ(MeasDB.idList.count(), 0);
  EXPECT_EQ(RunUserInterface(), 0);
}

}  // namespace
}  // namespace sondera
