// Tests of the setup and raw data files of earlier versions, against bytes put together here.
#include "project/legacy_files.h"

#include "panels/mainmenu_legacy.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

/// Bytes of a ".sms" with the present database.
ByteStream SmsBytes(const std::string& measID = {}) {
  ByteStream b;
  b.Count(MeasDB.idList.count());
  for (int i = 1; i <= MeasDB.idList.count(); ++i) {
    const IDInfo& id = *MeasDB.idList.at(i);
    const HWSetup& hw = *MeasDB.hwSetupList.at(i);
    b.I(id.key).T(id.ProjID).T(measID.empty() ? id.MeasID : measID).I(hw.key);
    b.Count(hw.nChannels).Count(hw.nLines);
    b.D(hw.freqSpan).D(hw.timeLength).D(hw.deltaT).D(hw.deltaF);
    b.Is(hw.coupling, hw.nChannels).Is(hw.grounding, hw.nChannels).Ds(hw.inputRange, hw.nChannels);
    b.D(hw.reservedReal).I(hw.triggerChannel).I(hw.triggerSlope).D(hw.triggerDelay).D(hw.triggerLevel);
    b.I(hw.averageOn).I(hw.reservedInt).I(hw.nAverage);
  }
  b.Count(MeasDB.measSetupList.count());
  for (const MeasSetup& ms : MeasDB.measSetupList)
    b.I(ms.key)
        .D(ms.srcLoc)
        .Ds(ms.recLoc, static_cast<int>(ms.recLoc.size()))
        .I(ms.wlenFilter)
        .D(ms.lengthUnit);
  return b;
}

ByteStream SrdBytes() {
  ByteStream b = RawBytes();
  return b.D(session.rawFileReal);
}

/// Three measurements of 2 channels and 4 lines with data; the second is imported (negative span).
void MakeThree() {
  SetupGlobalArrays();
  for (int i = 1; i <= 3; ++i) {
    const TestMeasurement m = AddMeasurement({.measID = "m" + std::to_string(i), .nLines = 4});
    m.hw->decimation = 1;
    if (i == 2) m.hw->freqSpan = -m.hw->freqSpan;
    m.hw->inputRange = {1.0 * i, 2.0 * i};
    for (auto block : kRawBlocks)
      for (std::size_t k = 0; k < (m.raw->*block).size(); ++k)
        (m.raw->*block)[k] = i * 100.0 + static_cast<double>(k);
  }
}

class LegacyFiles : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    MakeThree();
    session.rawFileReal = 6.25;
  }
  std::string Sms() const { return folder.File("old.sms"); }
  std::string Srd() const { return folder.File("old.srd"); }
  int LoadRaw() {
    frontEnd.fileAnswers = {{FileAnswer::Exists, Srd()}};
    return Load_PrevRawDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0);
  }
  test::TempFolder folder;
};

TEST_F(LegacyFiles, ASetupFileHasPlainProjectTextsAndNoBand) {
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  EXPECT_TRUE(test::ReadWhole(Sms()) == SmsBytes().bytes);
}

TEST_F(LegacyFiles, AGivenTextStandsForEveryId) {
  ASSERT_EQ(SaveMHWSetup(Sms(), "all"), 0);
  EXPECT_TRUE(test::ReadWhole(Sms()) == SmsBytes("all").bytes);
}

TEST_F(LegacyFiles, RawDataGoBesideTheSetupWithTheClosingNumber) {
  ASSERT_EQ(Save_RawData(Srd(), ""), 0);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"old.sms", "old.srd"}));
  EXPECT_TRUE(test::ReadWhole(Srd()) == SrdBytes().bytes);
  EXPECT_TRUE(test::ReadWhole(Sms()) == SmsBytes().bytes);
}

TEST_F(LegacyFiles, OutAndInGivesTheSameBytesAgain) {
  ASSERT_EQ(Save_RawData(Srd(), ""), 0);
  const std::string sms = test::ReadWhole(Sms()), srd = test::ReadWhole(Srd());
  ResetEverything();
  ASSERT_EQ(LoadRaw(), 0);
  EXPECT_EQ(frontEnd.files[0].title, "Open File");
  EXPECT_EQ(frontEnd.files[0].filter, "*.srd");
  EXPECT_EQ(session.rawFileReal, 6.25);
  EXPECT_EQ(MeasDB.rawDataList.at(3)->powerSpec[7], 307.0);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 1);
  ASSERT_EQ(Save_RawData(Srd(), ""), 0);
  EXPECT_TRUE(test::ReadWhole(Sms()) == sms);
  EXPECT_TRUE(test::ReadWhole(Srd()) == srd);
}

TEST_F(LegacyFiles, AFileOfThreeShowsTheSecondAndAFileOfOneTheFirst) {
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  ResetEverything();
  ASSERT_EQ(LoadMHWSetup(Sms()), 0);
  EXPECT_EQ(session.curMeasID, "m2");
  EXPECT_EQ(GetCtrlVal(hmsetup::MEASID), "m2");
  ResetEverything();
  AddMeasurement({.measID = "only", .nLines = 4});
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  ResetEverything();
  ASSERT_EQ(LoadMHWSetup(Sms()), 0);
  EXPECT_EQ(session.curMeasID, "only");
}

TEST_F(LegacyFiles, ImportedSpectraGetTheBandThatTheFileCannotTell) {
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  ResetEverything();
  ASSERT_EQ(LoadMHWSetup(Sms()), 0);
  const HWSetup& hw = *MeasDB.hwSetupList.at(2);
  EXPECT_LT(hw.freqSpan, 0.0);
  EXPECT_EQ(hw.startFreq, 0.0);
  EXPECT_EQ(hw.stopFreq, -hw.freqSpan);
}

TEST_F(LegacyFiles, AnOverwriteKeepsTheKeyAndMakesNoSecondEntry) {
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  MeasDB.hwSetupList.at(3)->nAverage = 99;
  MeasDB.hwSetupList.at(3)->decimation = 4;
  frontEnd.confirmAnswers = {true, true, true};
  ASSERT_EQ(LoadMHWSetup(Sms()), 0);
  EXPECT_EQ(frontEnd.questions.size(), 3u);
  EXPECT_EQ(MeasDB.idList.count(), 3);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 3);
  EXPECT_EQ(MeasDB.measSetupList.count(), 3);
  EXPECT_EQ(MeasDB.hwSetupList.at(3)->nAverage, 5);
  EXPECT_EQ(MeasDB.hwSetupList.at(3)->decimation, 4) << "not in the file";
  EXPECT_EQ(MeasDB.rawDataList.count(), 3) << "data of the same size stay";
}

TEST_F(LegacyFiles, AnOverwriteByAnotherSizeTakesTheFormerDataAway) {
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  AddMeasurement({.measID = "m3", .nLines = 8});
  frontEnd.confirmAnswers = {true, true, true};
  ASSERT_EQ(LoadMHWSetup(Sms()), 0);
  EXPECT_EQ(MeasDB.rawDataList.findKey(3), -1);
  EXPECT_GT(MeasDB.rawDataList.findKey(2), 0);
}

TEST_F(LegacyFiles, ANoPutsTheMeasurementInUnderANewId) {
  ASSERT_EQ(SaveMHWSetup(Sms(), ""), 0);
  frontEnd.confirmAnswers = {true, false, true};
  frontEnd.promptAnswers = {"second"};
  ASSERT_EQ(LoadMHWSetup(Sms()), 0);
  EXPECT_EQ(MeasDB.idList.count(), 4);
  EXPECT_EQ(GetKeyFromID("ProjID", "second"), 4);
  EXPECT_EQ(session.curMeasID, "second");
}

TEST_F(LegacyFiles, LoadingSetupsEmptiesTheListsBeforeTheDialog) {
  session.projectFileName = "site.da";
  EXPECT_EQ(Load_MHWSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(MeasDB.idList.count(), 3) << "the answer was no";
  EXPECT_EQ(frontEnd.questions,
            std::vector<std::string>{"All the measurements will be removed. Do you want to proceed ?"});
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Load_MHWSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_TRUE(MeasDB.idList.empty());
  EXPECT_EQ(frontEnd.files[0].title, "Load the Measurement and Hardware Setup");
  EXPECT_EQ(session.projectFileName, "") << "the next save must not empty the old file";
}

TEST_F(LegacyFiles, TheDialogsSayWhatIsMissing) {
  frontEnd.confirmAnswers = {true};
  frontEnd.fileAnswers = {{FileAnswer::IsNew, "none.sms"}, {FileAnswer::IsNew, "none.srd"}};
  EXPECT_EQ(Load_MHWSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(Load_PrevRawDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(frontEnd.messages, (std::vector<std::string>{"File does not exist.", "File does not exist."}));
}

TEST_F(LegacyFiles, RawDataWithoutTheirSetupFileAreNotRead) {
  test::WriteWhole(Srd(), SrdBytes().bytes);
  EXPECT_EQ(LoadRaw(), -1);
  EXPECT_EQ(OnlyMessage(), "File does not exist.");
}

TEST_F(LegacyFiles, SavingAsksBeforeItOverwrites) {
  test::WriteWhole(Sms(), "old");
  frontEnd.fileAnswers = {{FileAnswer::Exists, Sms()}, {FileAnswer::Exists, Sms()}};
  frontEnd.confirmAnswers = {false, true};
  EXPECT_EQ(Save_MHWSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(frontEnd.files[0].title, "Save the Measurement and Hardware Setup");
  EXPECT_EQ(test::ReadWhole(Sms()), "old");
  EXPECT_EQ(Save_MHWSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_TRUE(test::ReadWhole(Sms()) == SmsBytes().bytes);
}

TEST_F(LegacyFiles, EveryCutOfASetupFileIsToldAndLeavesWholeMeasurements) {
  const std::string whole = SmsBytes().bytes;
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    SetupGlobalArrays();
    SectionReader file;
    file.OpenMemory(whole.data(), cut);
    ReadLegacySetups(file);
    ASSERT_NE(file.Trouble(), "") << cut;
    ASSERT_EQ(MeasDB.idList.count(), MeasDB.hwSetupList.count()) << cut;
    for (const HWSetup& hw : MeasDB.hwSetupList) ASSERT_EQ(hw.nAverage, 5) << cut;
  }
}

TEST_F(LegacyFiles, ACutSetupFileIsOneMessage) {
  test::WriteWhole(Sms(), SmsBytes().bytes.substr(0, 700));
  SetupGlobalArrays();
  EXPECT_EQ(LoadMHWSetup(Sms()), -1);
  EXPECT_EQ(OnlyMessage(), "The file " + Sms() + " was not read whole. It ends early, in the setup section.");
}

TEST_F(LegacyFiles, EveryCutOfARawFileIsOneMessageWithZerosBehindIt) {
  ASSERT_EQ(Save_RawData(Srd(), ""), 0);
  const std::string whole = SrdBytes().bytes;
  for (std::size_t cut = 0; cut < whole.size(); cut += cut < 64 ? 1 : 7) {
    SetupGlobalArrays();
    session.rawFileReal = 0.0;
    frontEnd.messages.clear();
    test::WriteWhole(Srd(), whole.substr(0, cut));
    ASSERT_EQ(LoadRaw(), -1) << cut;
    ASSERT_EQ(frontEnd.messages.size(), 1u) << cut;
    for (const RawData& raw : MeasDB.rawDataList)
      for (auto block : kRawBlocks) ASSERT_EQ((raw.*block).size(), 16u) << cut;
    ASSERT_EQ(session.rawFileReal, 0.0) << "the number at the end was cut";
  }
}

TEST_F(LegacyFiles, HostileCountsAreRefusedInOneMessage) {
  const ByteStream sms = SmsBytes();
  for (std::size_t at : sms.counts) {
    for (int value : {-1, 0x7fffffff, -2147483647, 1 << 24}) {
      std::string bytes = sms.bytes;
      PutInt(bytes, at, value);
      ResetEverything();
      frontEnd.messages.clear();
      test::WriteWhole(Sms(), bytes);
      EXPECT_LE(LoadMHWSetup(Sms()), 0);
      EXPECT_LE(frontEnd.messages.size(), 1u) << at << " " << value;
    }
  }
}

TEST_F(LegacyFiles, DataThatASmallFileCannotHoldAreNotAllocated) {
  const int lines = 1 << 24;
  MeasDB.hwSetupList.at(1)->nLines = lines;
  test::WriteWhole(Sms(), SmsBytes().bytes);
  ByteStream srd;
  test::WriteWhole(Srd(), srd.I(3).I(1).D(0.0).bytes);
  ResetEverything();
  EXPECT_EQ(LoadRaw(), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  for (const RawData& raw : MeasDB.rawDataList) EXPECT_LT(raw.timeHist.size(), 1000u);
}

TEST_F(LegacyFiles, ABadNumberOfChannelsIsNotMended) {
  const ByteStream sms = SmsBytes();
  std::string bytes = sms.bytes;
  PutInt(bytes, sms.counts[1], 0);
  test::WriteWhole(Sms(), bytes);
  ResetEverything();
  EXPECT_EQ(LoadMHWSetup(Sms()), -1);
  EXPECT_NE(OnlyMessage().find("claims 0 channels"), std::string::npos);
  EXPECT_TRUE(MeasDB.hwSetupList.empty());
}

}  // namespace
}  // namespace sondera::testing
