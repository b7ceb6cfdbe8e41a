// The measuring run with the boards of the program: the simulated site, and a board in another program.
#include <sys/wait.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "acquisition/board_choice.h"
#include "app/averages_fixture.h"
#include "app/script_fixture.h"
#include "panels/mainmenu_project.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/text_format.h"
#include "support/failing_file_driver.h"

namespace sondera {
namespace {

const std::string kSource = std::filesystem::absolute(SONDERA_SOURCE_DIR).string();

/// A session without the board of tests.
class MeasuringBoards : public testing::AveragesTest {
 protected:
  void SetUp() override {
    MeasuringTest::SetUp();
    InstallDaqDriver(&daqNone);
    StartSession();
  }
  void Choose(const std::string& choice) { ASSERT_EQ(UseBoard(choice), ""); }
  std::string TestProgram(const std::string& fault = "") const {
    return "process:python3 " + kSource + "/tests/acquisition/test_board.py " + folder.File("log") + " " +
           fault;
  }
  int CountInLog(const std::string& word) const {
    std::ifstream in(folder.File("log"));
    int count = 0;
    for (std::string line; std::getline(in, line);) count += line.substr(0, line.find(' ')) == word ? 1 : 0;
    return count;
  }
  /// Keeps every record of the run.
  void KeepRecords() {
    records.clear();
    frontEnd.onProcessEvents = [this] {
      if (measRun.measRunning && measRun.delivered > static_cast<int>(records.size()))
        records.push_back(Raw().timeHist);
    };
  }
  std::vector<std::vector<double>> records;
};

bool HasChildren() {
  siginfo_t info{};
  return !(waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) < 0 && errno == ECHILD);
}

/// The records as those of the test board, for the plain formula.
void LayOut(const std::vector<std::vector<double>>& records, int frame) {
  testing::testBoard.volts = [&records, frame](int r, int c, int i) {
    return records[static_cast<std::size_t>(r)][static_cast<std::size_t>(c * frame + i)];
  };
}

TEST_F(MeasuringBoards, TheSimulatedSiteGivesTheMeanOfItsRecords) {
  Choose("sim:pace=0,seed=7");
  Enter(hwsetup::NCHANNELS1, 3);
  Enter(meassetup::EVENSPACING, 5.0);
  Enter(hwsetup::FREQSPAN, 256.0);
  Enter(hwsetup::NCHANNELS5, 0);
  Enter(hwsetup::TRIGGERLEVEL, 200.0);
  ASSERT_EQ(Commit(hwsetup::COFIG_SETUP), 0);
  KeepRecords();
  ASSERT_EQ(Start(), 0);
  ASSERT_EQ(records.size(), 5u);
  EXPECT_TRUE(frontEnd.messages.empty());
  const int frame = 2 * Hw().nLines;
  LayOut(records, frame);
  ExpectMeanOf({0, 1, 2, 3, 4});
  for (const auto& record : records) {
    // the crossing of 0.2 V is at the pre-trigger sample
    EXPECT_LT(record[100], 0.2);
    EXPECT_GE(*std::max_element(record.begin() + 102, record.begin() + 104), 0.2);
  }
}

TEST_F(MeasuringBoards, ARunEqualsTheImportOfTheSameRecordsAsFiles) {
  Choose("sim:pace=0,seed=3");
  Enter(hwsetup::NCHANNELS1, 3);
  Enter(meassetup::EVENSPACING, 6.0);
  Enter(hwsetup::FREQSPAN, 256.0);
  ASSERT_EQ(Commit(hwsetup::COFIG_SETUP), 0);
  KeepRecords();
  ASSERT_EQ(Start(), 0);
  ASSERT_EQ(records.size(), 5u);
  const RawData run = Raw();
  const HWSetup hw = Hw();
  const auto frame = static_cast<std::size_t>(2 * hw.nLines);
  std::string files;
  for (std::size_t r = 0; r < records.size(); ++r) {
    std::string text;
    for (std::size_t i = 0; i < frame; ++i)
      text += FormatText("%.17g %.17g %.17g %.17g\n", static_cast<double>(i) * hw.deltaT, records[r][i],
                         records[r][frame + i], records[r][2 * frame + i]);
    Write(FormatText("shot%zu.txt", r), text);
    files += FormatText("%sshot%zu.txt", r > 0 ? "," : "", r);
  }
  const std::string lines =
      "*sondera 2\nread columns id=files files=" + files + " source=0 at=6,12,18 unit=m pairs=no\n";
  script::Source source = script::Source::OfText(lines);
  script::Run job("job", {});
  ASSERT_NE(job.run(source), 1);
  const int position = MeasDB.rawDataList.findKey(GetKeyFromID(session.curProjID, "files"));
  ASSERT_GT(position, 0);
  const RawData& imported = *MeasDB.rawDataList.at(position);
  const HWSetup& importedHw = *MeasDB.hwSetupList.at(position);
  EXPECT_EQ(importedHw.nLines, hw.nLines);
  EXPECT_NEAR(importedHw.deltaF / hw.deltaF, 1.0, 1e-9);
  EXPECT_LT(testing::Misfit(imported.powerSpec, run.powerSpec), 1e-12);
  EXPECT_LT(testing::Misfit(imported.crossSpecRe, run.crossSpecRe), 1e-12);
  EXPECT_LT(testing::Misfit(imported.crossSpecIm, run.crossSpecIm), 1e-12);
}

TEST_F(MeasuringBoards, RecordsOfTheSiteThatGoWrong) {
  Choose("sim:pace=0,overload=2,fail=4,miss=5");
  Enter(hwsetup::NCHANNELS1, 2);
  Enter(meassetup::EVENSPACING, 5.0);
  Enter(hwsetup::FREQSPAN, 256.0);
  Enter(hwsetup::NCHANNELS5, 0);
  Enter(hwsetup::TRIGGERLEVEL, 200.0);
  ASSERT_EQ(Commit(hwsetup::COFIG_SETUP), 0);
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(GetCtrlVal(measpanel::DISPA_AVGCOUNT), "Averages: 5");
  EXPECT_EQ(OnlyMessage(), "Overload in 1 of 5 records: channel 1.");
}

TEST_F(MeasuringBoards, AFullDiskBehindARunLosesNothing) {
  Choose("sim:pace=0");
  Enter(hwsetup::FREQSPAN, 256.0);
  Enter(meassetup::EVENSPACING, 5.0);
  ASSERT_EQ(Start(), 0);
  session.projectFileName = folder.File("site.da");
  ASSERT_EQ(SaveRawData(), 0);
  ASSERT_EQ(Start(), 0);
  const RawData taken = Raw();
  {
    const test::FailingFileDriver full({.failWrite = 1, .everAfter = true, .error = ENOSPC});
    EXPECT_EQ(SaveRawData(), -1);
  }
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(Raw().powerSpec, taken.powerSpec);
  EXPECT_EQ(SaveRawData(), 0) << "once there is room";
  StartSession();
  ASSERT_EQ(OpenFileProc(folder.File("site.da"), OpenFor::Reading), 0);
  EXPECT_EQ(Raw().powerSpec, taken.powerSpec);
  EXPECT_EQ(Raw().timeHist, taken.timeHist);
}

TEST_F(MeasuringBoards, ABoardProgramIsAskedInItsOrder) {
  Choose(TestProgram());
  Enter(hwsetup::NAVERAGE, 2);
  Enter(hwsetup::FREQSPAN, 1000.0);
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(CountInLog("start"), 2);
  EXPECT_EQ(CountInLog("stop"), 2);
  EXPECT_EQ(CountInLog("clear"), 1);
  EXPECT_NEAR(Hw().freqSpan, 1280.25, 1e-9) << "the rate that the board says it takes";
  EXPECT_EQ(OnlyMessage(), "Overload in 2 of 2 records: channel 1, 3.") << "as the board says";
}

TEST_F(MeasuringBoards, WhateverABoardProgramDoesThereIsOneMessageAndTheSessionGoesOn) {
  struct Case {
    const char *fault, *request;
    int result;
  };
  std::vector<Case> cases;
  for (const char* request : {"task", "channel", "clock", "rate", "free", "count", "start"})
    for (const char* fault : {"die", "garbage", "prose", "long", "err"})
      cases.push_back({fault, request, -1});
  for (const char* fault : {"die", "garbage", "prose", "long"})
    for (const char* request : {"wait", "read", "stop"}) cases.push_back({fault, request, -1});
  for (const char* fault : {"huge", "short", "more", "nan", "stuck"}) cases.push_back({fault, "read", -1});
  cases.push_back({"hang", "wait", -1});
  cases.push_back({"err", "wait", 0});  // one failed read, which is repeated
  cases.push_back({"err", "read", 0});
  double worst = 0.0;
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.fault) + " at " + c.request);
    Choose(TestProgram(std::string(c.fault) + " " + c.request));
    Enter(hwsetup::NAVERAGE, 3);
    Enter(hwsetup::FREQSPAN, 1000.0);
    frontEnd.messages.clear();
    int result = 0;
    worst = std::max(worst, SecondsOf([&] { result = Start(); }));
    EXPECT_EQ(result, c.result);
    std::erase_if(frontEnd.messages, [](const std::string& text) { return text.starts_with("Overload in"); });
    EXPECT_EQ(frontEnd.messages.size(), c.result < 0 ? 1u : 0u);
    EXPECT_EQ(measRun.daqTask, 0);
    EXPECT_FALSE(IsLocked());
    EXPECT_TRUE(session.measBuffer.empty());
    InstallDaqDriver(&daqNone);
    EXPECT_FALSE(HasChildren());
  }
  EXPECT_LT(worst, 6.0) << "5 s of silence and what it takes to end the program";
  Choose(TestProgram());
  Enter(hwsetup::NAVERAGE, 1);
  EXPECT_EQ(Start(), 0);
}

}  // namespace
}  // namespace sondera
