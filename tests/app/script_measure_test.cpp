// The words board, setup, configure and measure.
#include <cmath>

#include "acquisition/acquisition_state.h"
#include "acquisition/daq_driver.h"
#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "script_fixture.h"
#include "support/test_board.h"

namespace sondera {
namespace {

using testing::testBoard;

class ScriptMeasure : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    testBoard = testing::TestBoard{};
    testBoard.volts = [](int r, int c, int i) { return std::sin(0.3 * i + c) + 0.1 * r; };
  }
  /// A session with the board of tests, as --board= gives one.
  void BeginWithTestBoard() {
    InstallDaqDriver(&testing::daqTestBoard);
    StartSession();
  }
  HWSetup& Hw() { return *MeasDB.hwSetupList.at(1); }
};

TEST_F(ScriptMeasure, ListsTheBoards) {
  EXPECT_EQ(Run("board list\n"), 0);
  EXPECT_NE(out.find("sim[:seed=1,"), std::string::npos);
  EXPECT_NE(out.find("process:PROGRAM ARGUMENTS"), std::string::npos);
}

TEST_F(ScriptMeasure, ASiteWithoutABoardFromTheFirstLineToTheSavedProject) {
  EXPECT_EQ(
      Run("board sim:seed=4,pace=0,channels=3\n"
          "project unit=m id=class\n"
          "setup freqspan=256 freqlines=512 nchannels5=0 triggerlevel=200 naverage=4 source=0 at=6,12,24\n"
          "configure\n"
          "measure\n"
          "print MEASPANEL.DISPA_AVGCOUNT\n"
          "assert HWSETUP.FREQSPAN = 256\n"
          "pair measID 1 2\n"
          "save class.da\n"),
      0)
      << err;
  EXPECT_EQ(out, "Averages: 4\n");
  EXPECT_EQ(MeasDB.measSetupList.at(1)->recLoc, (std::vector<double>{6, 12, 24}));
  const RawData taken = *MeasDB.rawDataList.at(1);
  InstallDaqDriver(&daqNone);
  StartSession();
  ASSERT_EQ(OpenFileProc(folder.File("class.da")), 0);
  EXPECT_EQ(MeasDB.rawDataList.at(1)->powerSpec, taken.powerSpec);
  EXPECT_EQ(MeasDB.rawDataList.at(1)->timeHist, taken.timeHist);
  EXPECT_EQ(Hw().nAverage, 4);
  EXPECT_EQ(Hw().triggerChannel, 0);
  EXPECT_EQ(Hw().decimation, 1);
}

TEST_F(ScriptMeasure, AcceptsAndRejectsByLetters) {
  BeginWithTestBoard();
  EXPECT_EQ(Run("setup naverage=3\nmeasure accept=ynyny\n"), 0) << err;
  EXPECT_EQ(testBoard.records, 5);
  EXPECT_EQ(session.avgCount, 3);
  EXPECT_EQ(session.measOptions.previewOn, 0) << "as before";
  EXPECT_EQ(Run("measure accept=yy\n"), 1);
  EXPECT_NE(err.find("Accept the current measurements ?"), std::string::npos) << err;
  EXPECT_EQ(Run("measure accept=yyyyy\n"), 1);
  EXPECT_EQ(err, "job:2: measure: 2 of the answers before it were not asked for\n");
  EXPECT_EQ(Check("measure accept=yx\n"), 1);
  EXPECT_EQ(Check("measure stop=0\n"), 1);
}

TEST_F(ScriptMeasure, StopCountsDeliveredRecords) {
  BeginWithTestBoard();
  EXPECT_EQ(Run("setup naverage=50\nmeasure stop=4 accept=ynyn\n"), 0) << err;
  EXPECT_EQ(testBoard.records, 4);
  EXPECT_EQ(session.avgCount, 2);
  EXPECT_EQ(measRun.measStopped, 1);
  EXPECT_EQ(Run("setup averageonoff=0\nmeasure\n"), 1);
  EXPECT_EQ(err, "job:3: measure: averaging is off, so the run would never end; give stop=N\n");
  EXPECT_EQ(Run("measure stop=3\n"), 0) << err;
  EXPECT_EQ(testBoard.records, 7);
}

TEST_F(ScriptMeasure, AHaltEndsTheRunAsStopDoes) {
  BeginWithTestBoard();
  EXPECT_EQ(Run("setup naverage=1000\nhalt after=12\nmeasure\nprint MEASPANEL.DISPA_AVGCOUNT\n"), 0) << err;
  EXPECT_GE(session.avgCount, 1);
  EXPECT_LT(session.avgCount, 12);
  EXPECT_EQ(measRun.measStopped, 1);
  EXPECT_EQ(measRun.measRunning, 0);
  EXPECT_EQ(testBoard.Count("clear"), 1);
  EXPECT_EQ(Run("setup naverage=2\nhalt after=900\nmeasure\n"), 1);
  EXPECT_NE(err.find("before the halt after 900"), std::string::npos) << err;
}

TEST_F(ScriptMeasure, AnOverloadIsADoubt) {
  BeginWithTestBoard();
  testBoard.mask = 2;
  EXPECT_EQ(Run("setup naverage=2\nmeasure\nsave x.da\n"), 3) << err;
  EXPECT_NE(report.find("doubt: measID: Overload in 2 of 2 records: channel 2"), std::string::npos) << report;
  EXPECT_TRUE(Exists("x.da")) << "and the script goes on";
}

TEST_F(ScriptMeasure, DataGoOnlyWithDiscard) {
  BeginWithTestBoard();
  ASSERT_EQ(Run("setup naverage=1\nmeasure\n"), 0) << err;
  const std::vector<double> power = MeasDB.rawDataList.at(1)->powerSpec;
  for (const char* word : {"setup freqlines=2048", "setup freqspan=77", "setup nchannels1=2", "configure"}) {
    EXPECT_EQ(Run(std::string(word) + "\n"), 1);
    EXPECT_NE(err.find("the measurement \"measID\" holds data; discard=yes removes them"), std::string::npos)
        << err;
    EXPECT_EQ(MeasDB.rawDataList.at(1)->powerSpec, power);
  }
  Hw().freqSpan = -Hw().freqSpan;
  EXPECT_EQ(Run("measure\n"), 1);
  EXPECT_EQ(err, "job:2: measure: the measurement \"measID\" was imported; discard=yes replaces its data\n");
  EXPECT_EQ(Run("measure discard=yes\n"), 0) << err;
  EXPECT_EQ(Run("configure discard=yes\n"), 0) << err;
  EXPECT_EQ(MeasDB.rawDataList.at(1)->powerSpec, std::vector<double>(power.size(), 0.0));
}

TEST_F(ScriptMeasure, WhatIsWrongIsToldByLineAndWord) {
  EXPECT_EQ(Run("measure\n"), 1);
  EXPECT_EQ(err, "job:2: measure: There is no acquisition board.\n");
  EXPECT_EQ(Run("board simm\n"), 1);
  EXPECT_NE(err.find("job:2: board: There is no board driver \"simm\""), std::string::npos) << err;
  EXPECT_EQ(Run("setup at=1,2\n"), 1);
  EXPECT_EQ(err, "job:2: setup: the measurement has 4 channels, and at= has 2 places\n");
  EXPECT_EQ(Run("setup freqspan=0\nconfigure\n"), 1);
  EXPECT_EQ(err, "job:3: configure: Inappropriate Hardware Parameters!\n");
  EXPECT_EQ(Check("setup nosuch=1\n"), 1);
}

TEST_F(ScriptMeasure, ABoardThatIsGivenUpLeavesASessionWithoutOne) {
  EXPECT_EQ(Run("board sim:channels=2\nboard none\n"), 0) << err;
  EXPECT_EQ(session.device.devName, "");
  EXPECT_EQ(session.device.aiMaxRate, 102400.0);
  EXPECT_EQ(Hw().nChannels, 4);
  EXPECT_EQ(Hw().freqSpan, 0.0);
}

}  // namespace
}  // namespace sondera
