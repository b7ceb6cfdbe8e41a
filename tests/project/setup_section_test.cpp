// Tests of the setup and raw data sections: layout, names and keys, duplicates, what is not in the file.
#include "project/setup_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "project/raw_section.h"
#include "records/session.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// One measurement of one channel and one line, as bytes. freqSpan below 0 brings the band along.
ByteStream Hardware(int key, const std::string& projectField, const std::string& measID,
                    double freqSpan = 500.0, int nChannels = 1) {
  ByteStream s;
  s.I(key).T(projectField).T(measID).I(key).I(nChannels).I(1).D(freqSpan);
  if (freqSpan < 0) s.D(2.5).D(310.25).I(7);
  s.D(0.75).D(0.001).D(0.5);
  const int n = nChannels < 1 ? 8 : nChannels;
  for (int c = 0; c < n; ++c) s.I(1);
  for (int c = 0; c < n; ++c) s.I(0);
  for (int c = 0; c < n; ++c) s.D(5.0 + c);
  return s.D(-1.25).I(-1).I(1).D(10.0).D(20.0).I(1).I(33).I(6);
}

ByteStream Geometry(double srcLoc, std::vector<double> recLoc, double lengthUnit = 1.0) {
  ByteStream s;
  return s.I(999).D(srcLoc).Ds(recLoc, static_cast<int>(recLoc.size())).I(4).D(lengthUnit);
}

ByteStream Raw(double first, int length = 2) {
  ByteStream s;
  s.I(-77);
  for (int block = 0; block < 6; ++block)
    for (int i = 0; i < length; ++i) s.D(first + 10 * block + i);
  return s;
}

/// The sections of a file given as bytes.
class SetupSection : public SessionTest {
 protected:
  void SetUp() override { StartEmptyProject(); }

  int ReadSetup(const ByteStream& s) {
    bytes = s.bytes;
    file.OpenMemory(bytes.data(), bytes.size());
    file.BeginSection("setup");
    const int status = ReadMHWSetup(file);
    file.EndSection();
    return status;
  }

  SectionReader file;
  std::string bytes;
};

TEST_F(SetupSection, ReadsEveryFieldOfAMeasurement) {
  ByteStream s;
  s.I(1).Add(Hardware(3, "site||||  12", "line 4", 500.0, 2));
  s.I(1).Add(Geometry(-3.5, {2.0, 4.0}, 0.3048));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_EQ(file.Trouble(), "");
  ASSERT_EQ(MeasDB.hwSetupList.count(), 1);
  const HWSetup& h = *MeasDB.hwSetupList.at(1);
  EXPECT_EQ(MeasDB.idList.at(1)->key, 3);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "site");
  EXPECT_EQ(MeasDB.idList.at(1)->MeasID, "line 4");
  EXPECT_EQ(h.key, 3);
  EXPECT_EQ(h.decimation, 12);
  EXPECT_EQ(h.nChannels, 2);
  EXPECT_EQ(h.nLines, 1);
  EXPECT_EQ(h.freqSpan, 500.0);
  EXPECT_EQ(h.timeLength, 0.75);
  EXPECT_EQ(h.deltaT, 0.001);
  EXPECT_EQ(h.deltaF, 0.5);
  EXPECT_THAT(h.coupling, ElementsAre(1, 1));
  EXPECT_THAT(h.grounding, ElementsAre(0, 0));
  EXPECT_THAT(h.inputRange, ElementsAre(5.0, 6.0));
  EXPECT_EQ(h.reservedReal, -1.25);
  EXPECT_EQ(h.triggerChannel, -1);
  EXPECT_EQ(h.triggerSlope, 1);
  EXPECT_EQ(h.triggerDelay, 10.0);
  EXPECT_EQ(h.triggerLevel, 20.0);
  EXPECT_EQ(h.averageOn, 1);
  EXPECT_EQ(h.reservedInt, 33);
  EXPECT_EQ(h.nAverage, 6);
  const MeasSetup& m = *MeasDB.measSetupList.at(1);
  EXPECT_EQ(m.key, 3);
  EXPECT_EQ(m.srcLoc, -3.5);
  EXPECT_THAT(m.recLoc, ElementsAre(2.0, 4.0));
  EXPECT_EQ(m.wlenFilter, 4);
  EXPECT_EQ(m.lengthUnit, 0.3048);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  EXPECT_THAT(session.fileKeyList, ElementsAre(3));
}

TEST_F(SetupSection, ANegativeSpanCarriesTwentyFurtherBytes) {
  const ByteStream measured = Hardware(1, "p||||   1", "m", 500.0),
                   imported = Hardware(1, "p||||   1", "m", -500.0);
  EXPECT_EQ(imported.bytes.size(), measured.bytes.size() + 20);
  ByteStream s;
  s.I(1).Add(imported).I(1).Add(Geometry(0, {1}));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->startFreq, 2.5);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->stopFreq, 310.25);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->spanKind, 7);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->nAverage, 6) << "what follows is in step";
}

TEST_F(SetupSection, AMeasuredRecordHasItsBandLimitsAfterALoad) {
  ByteStream s;
  s.I(1).Add(Hardware(1, "p||||   1", "m", 500.0)).I(1).Add(Geometry(0, {1}));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->startFreq, 0.0);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->stopFreq, 500.0);
}

TEST_F(SetupSection, TheProjIDIsCutAtItsFirstFourBars) {
  ByteStream s;
  s.I(1).Add(Hardware(1, "a||||7b||||   3", "m")).I(0);
  ReadSetup(s);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "a");
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 7);
}

TEST_F(SetupSection, AProjIDWithBarsOfItsOwnLosesWhatFollowsThem) {
  InsertNewIDInfo("a||||b", "m", 1);
  SetupHWSetupArrays(1, 1)->decimation = 6;
  test::TempFolder folder;
  std::string reason;
  ASSERT_TRUE(WriteProjectFile(folder.File("x.da"), reason));
  StartEmptyProject();
  ASSERT_EQ(OpenFileProc(folder.File("x.da")), 0) << LastMessage();
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "a");
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 1);
}

TEST_F(SetupSection, AFieldWithoutBarsHasDecimationOne) {
  ByteStream s;
  s.I(2).Add(Hardware(1, "old|||  5", "m")).Add(Hardware(2, "", "n")).I(0);
  ReadSetup(s);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "old|||  5");
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 1);
  EXPECT_EQ(MeasDB.idList.at(2)->ProjID, "");
}

TEST_F(SetupSection, BarsAtTheVeryEndOfAFieldAreText) {
  ByteStream s;
  s.I(2).Add(Hardware(1, "abc||||", "m")).Add(Hardware(2, "abc||||9", "n")).I(0);
  ReadSetup(s);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, "abc||||");
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 1);
  EXPECT_EQ(MeasDB.idList.at(2)->ProjID, "abc");
  EXPECT_EQ(MeasDB.hwSetupList.at(2)->decimation, 9);
}

TEST_F(SetupSection, ALongProjIDIsCutTo247BytesSoThatBarsAndNumberFit) {
  MakeSmallProject();
  MeasDB.idList.at(1)->ProjID = std::string(255, 'x');
  MeasDB.idList.at(1)->MeasID = std::string(255, 'y');
  MeasDB.hwSetupList.at(1)->decimation = 32;
  test::TempFolder folder;
  std::string reason;
  ASSERT_TRUE(WriteProjectFile(folder.File("x.da"), reason));
  std::string field(247, 'x');
  field += "||||  32";
  field.resize(256, '\0');
  EXPECT_EQ(test::ReadWhole(folder.File("x.da")).substr(8, 256), field);
  StartEmptyProject();
  ASSERT_EQ(OpenFileProc(folder.File("x.da")), 0);
  EXPECT_EQ(MeasDB.idList.at(1)->ProjID, std::string(247, 'x'));
  EXPECT_EQ(MeasDB.idList.at(1)->MeasID, std::string(255, 'y'));
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 32);
}

TEST_F(SetupSection, ALongDecimationStillFitsBehindALongProjID) {
  MakeSmallProject();
  MeasDB.idList.at(1)->ProjID = std::string(255, 'x');
  MeasDB.hwSetupList.at(1)->decimation = -2000000000;
  test::TempFolder folder;
  std::string reason;
  ASSERT_TRUE(WriteProjectFile(folder.File("x.da"), reason));
  StartEmptyProject();
  ASSERT_EQ(OpenFileProc(folder.File("x.da")), 0);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, -2000000000);
}

TEST_F(SetupSection, AChannelCountBelowOneIsEight) {
  for (int wrong : {0, -3}) {
    StartEmptyProject();
    ByteStream s;
    s.I(1).Add(Hardware(1, "p||||   1", "m", 500.0, wrong)).I(1).Add(Geometry(0, {1, 2, 3, 4, 5, 6, 7, 8}));
    ASSERT_EQ(ReadSetup(s), 0);
    EXPECT_EQ(MeasDB.hwSetupList.at(1)->nChannels, 8);
    EXPECT_EQ(MeasDB.hwSetupList.at(1)->inputRange.size(), 8u);
    EXPECT_EQ(MeasDB.measSetupList.at(1)->recLoc.at(7), 8.0);
    EXPECT_EQ(file.Trouble(), "");
  }
}

TEST_F(SetupSection, GapsInTheKeysSurviveALoad) {
  ByteStream s;
  s.I(3)
      .Add(Hardware(2, "p||||   1", "a"))
      .Add(Hardware(7, "p||||   1", "b"))
      .Add(Hardware(5, "p||||   1", "c"));
  s.I(3).Add(Geometry(1, {1})).Add(Geometry(2, {2})).Add(Geometry(3, {3}));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_THAT(session.fileKeyList, ElementsAre(2, 7, 5));
  EXPECT_EQ(GetKeyFromID("p", "b"), 7);
  EXPECT_EQ(MeasDB.measSetupList.at(3)->key, 5);
  EXPECT_EQ(MeasDB.measSetupList.at(3)->srcLoc, 3.0);
}

TEST_F(SetupSection, ASecondMeasurementWithTheKeyOfTheFirstGetsAFreeOne) {
  ByteStream s;
  s.I(2).Add(Hardware(4, "p||||   1", "a")).Add(Hardware(4, "p||||   9", "b"));
  s.I(2).Add(Geometry(1, {1})).Add(Geometry(2, {2}));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_THAT(session.fileKeyList, ElementsAre(4, 5));
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 1);
  EXPECT_EQ(MeasDB.hwSetupList.at(2)->decimation, 9);
  EXPECT_EQ(MeasDB.measSetupList.at(2)->srcLoc, 2.0);
  EXPECT_THAT(file.Trouble(), HasSubstr("b"));
}

TEST_F(SetupSection, TheKeyThatMeansNoneIsNeverGiven) {
  ByteStream s;
  s.I(1).Add(Hardware(-1, "p||||   1", "a")).I(1).Add(Geometry(1, {1}));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_THAT(session.fileKeyList, ElementsAre(1));
}

// --- duplicates ---

constexpr char kOverwrite[] = "The same measurement ID is in the list. Overwrite it ?";

class Duplicates : public SetupSection {
 protected:
  ByteStream TwoOfOneName() {
    ByteStream s;
    s.I(2).Add(Hardware(1, "p||||   1", "m")).Add(Hardware(2, "p||||   5", "m"));
    return s.I(2).Add(Geometry(1, {1})).Add(Geometry(2, {2}));
  }
};

TEST_F(Duplicates, YesOverwritesTheFirstOneWithoutASecondEntry) {
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(ReadSetup(TwoOfOneName()), 0);
  EXPECT_THAT(frontEnd.questions, ElementsAre(kOverwrite));
  EXPECT_EQ(MeasDB.idList.count(), 1);
  ASSERT_EQ(MeasDB.hwSetupList.count(), 1);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 5);
  ASSERT_EQ(MeasDB.measSetupList.count(), 1);
  EXPECT_EQ(MeasDB.measSetupList.at(1)->srcLoc, 2.0);
  EXPECT_THAT(session.fileKeyList, ElementsAre(1, 1));
}

TEST_F(Duplicates, NoAsksForANewNameUnderAFreeKey) {
  frontEnd.promptAnswers = {"m, again"};
  ASSERT_EQ(ReadSetup(TwoOfOneName()), 0);
  EXPECT_THAT(frontEnd.prompts, ElementsAre("Enter a new measurement ID."));
  EXPECT_EQ(GetKeyFromID("p", "m, again"), 2);
  ASSERT_EQ(MeasDB.hwSetupList.count(), 2);
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 1);
  EXPECT_EQ(MeasDB.hwSetupList.at(2)->decimation, 5);
  EXPECT_EQ(file.Trouble(), "");
}

TEST_F(Duplicates, ANewNameThatIsTakenTooIsAskedAboutAgain) {
  frontEnd.confirmAnswers = {false, false};
  frontEnd.promptAnswers = {"m", "other"};
  ASSERT_EQ(ReadSetup(TwoOfOneName()), 0);
  EXPECT_EQ(frontEnd.questions.size(), 2u);
  EXPECT_EQ(GetKeyFromID("p", "other"), 2);
}

TEST_F(Duplicates, TheSameWrongNameOverAndOverEndsTheReading) {
  for (int i = 0; i < 100; ++i) frontEnd.promptAnswers.push_back("m");
  EXPECT_EQ(ReadSetup(TwoOfOneName()), -1);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
}

TEST_F(Duplicates, ACancelledPromptGivesUpTheFile) {
  EXPECT_EQ(ReadSetup(TwoOfOneName()), -1);
  EXPECT_TRUE(file.Ended());
  EXPECT_EQ(file.Int32(), 0);
  EXPECT_THAT(file.Trouble(), HasSubstr("m"));
  EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
  EXPECT_EQ(MeasDB.measSetupList.count(), 0);
}

TEST_F(Duplicates, TheRestOfTheLoadRunsOnBehindACancelledPrompt) {
  test::TempFolder folder;
  ByteStream s = TwoOfOneName();
  s.I(2).Add(Raw(1)).Add(Raw(2));
  test::WriteWhole(folder.File("x.da"), s.bytes);
  EXPECT_EQ(OpenFileProc(folder.File("x.da")), -1);
  EXPECT_EQ(GetPanelTitle(Panel::PANEL), "Sondera 4.1 - " + folder.File("x.da"));
  EXPECT_EQ(MeasDB.rawDataList.count(), 0);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_THAT(frontEnd.messages[0], HasSubstr("given up"));
}

TEST_F(Duplicates, OpeningAFileWithOneNameTwiceAsksWithinTheLoad) {
  test::TempFolder folder;
  ByteStream s = TwoOfOneName();
  s.I(2).Add(Raw(1)).Add(Raw(1000));
  test::WriteWhole(folder.File("x.da"), s.bytes);
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(OpenFileProc(folder.File("x.da")), 0);
  EXPECT_THAT(frontEnd.questions, ElementsAre(kOverwrite));
  ASSERT_EQ(MeasDB.rawDataList.count(), 1);
  EXPECT_EQ(MeasDB.rawDataList.at(1)->timeHist[0], 1000.0) << "the later one stands";
}

TEST_F(Duplicates, ARenamedOneDoesNotTakeTheKeyOfALaterMeasurement) {
  ByteStream s;
  s.I(3)
      .Add(Hardware(1, "p||||   1", "m"))
      .Add(Hardware(7, "p||||   5", "m"))
      .Add(Hardware(2, "p||||   8", "n"));
  s.I(0);
  frontEnd.promptAnswers = {"m2"};
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_NE(GetKeyFromID("p", "m2"), GetKeyFromID("p", "n"));
  EXPECT_EQ(MeasDB.hwSetupList.count(), 3);
  EXPECT_EQ(MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(GetKeyFromID("p", "m2")))->decimation, 5);
  EXPECT_EQ(MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(GetKeyFromID("p", "n")))->decimation, 8);
}

// --- geometry and raw data ---

TEST_F(SetupSection, MoreGeometryThanMeasurementsGivesUp) {
  ByteStream s;
  s.I(1).Add(Hardware(1, "p||||   1", "m")).I(2).Add(Geometry(1, {1})).Add(Geometry(2, {2}));
  EXPECT_EQ(ReadSetup(s), -1);
  EXPECT_THAT(file.Trouble(), HasSubstr("geometry"));
  EXPECT_EQ(MeasDB.measSetupList.count(), 1);
}

TEST_F(SetupSection, RawRecordsGoByTheirOrderAndNotByTheirKeys) {
  ByteStream s;
  s.I(2).Add(Hardware(4, "p||||   3", "a")).Add(Hardware(9, "p||||   1", "b"));
  s.I(2).Add(Geometry(1, {1})).Add(Geometry(2, {2})).I(2).Add(Raw(1)).Add(Raw(100));
  ASSERT_EQ(ReadSetup(s), 0);
  ASSERT_EQ(ReadRawData(file), 0);
  ASSERT_EQ(MeasDB.rawDataList.count(), 2);
  const RawData& b = *MeasDB.rawDataList.at(2);
  EXPECT_EQ(b.key, 9);
  EXPECT_THAT(b.timeHist, ElementsAre(100.0, 101.0));
  EXPECT_THAT(b.linSpecRe, ElementsAre(110.0, 111.0));
  EXPECT_THAT(b.linSpecIm, ElementsAre(120.0, 121.0));
  EXPECT_THAT(b.powerSpec, ElementsAre(130.0, 131.0));
  EXPECT_THAT(b.crossSpecRe, ElementsAre(140.0, 141.0));
  EXPECT_THAT(b.crossSpecIm, ElementsAre(150.0, 151.0));
}

TEST_F(SetupSection, MoreRawRecordsThanMeasurementsGivesUp) {
  ByteStream s;
  s.I(1).Add(Hardware(4, "p||||   3", "a")).I(1).Add(Geometry(1, {1})).I(2).Add(Raw(1)).Add(Raw(100));
  ASSERT_EQ(ReadSetup(s), 0);
  EXPECT_EQ(ReadRawData(file), -1);
  EXPECT_THAT(file.Trouble(), HasSubstr("raw data"));
}

TEST_F(SetupSection, RawBlocksHaveRoomForAPowerOfTwoBehindTheirData) {
  ByteStream h = Hardware(1, "p||||   1", "m");
  PutInt(h.bytes, 4 + 256 + 256 + 4 + 4, 3);  // nLines
  ByteStream s;
  s.I(1).Add(h).I(1).Add(Geometry(1, {1})).I(1).Add(Raw(1, 6));
  ASSERT_EQ(ReadSetup(s), 0);
  ASSERT_EQ(ReadRawData(file), 0);
  EXPECT_THAT(MeasDB.rawDataList.at(1)->crossSpecIm, ElementsAre(51, 52, 53, 54, 55, 56, 0, 0));
}

TEST_F(SetupSection, DecimationDoesNotEnterTheLengthOfTheBlocks) {
  ByteStream s;
  s.I(1).Add(Hardware(1, "p||||   4", "m")).I(1).Add(Geometry(1, {1})).I(1).Add(Raw(1));
  ASSERT_EQ(ReadSetup(s), 0);
  ASSERT_EQ(ReadRawData(file), 0);
  EXPECT_FALSE(file.Ended());
  EXPECT_EQ(file.Remaining(), 0);
}

TEST_F(SetupSection, RecordsOutOfStepAreWrittenInTheOrderOfTheMeasurements) {
  // A measurement without data before one with data: its place in the file is filled, so that the order
  // stays.
  InsertNewIDInfo("p", "a", 1);
  SetupHWSetupArrays(1, 1)->nLines = 1;
  InsertNewIDInfo("p", "b", 2);
  SetupHWSetupArrays(2, 1)->nLines = 1;
  SetupMSetupArrays(2)->srcLoc = 22.0;
  SetupMSetupArrays(1)->srcLoc = 11.0;
  SetupRawDataArrays(2)->powerSpec[0] = 222.0;
  test::TempFolder folder;
  std::string reason;
  ASSERT_TRUE(WriteProjectFile(folder.File("x.da"), reason));
  StartEmptyProject();
  ASSERT_EQ(OpenFileProc(folder.File("x.da")), 0) << LastMessage();
  MeasRecords a, b;
  ASSERT_EQ(GetInfoFromKey(1, a), 1);
  ASSERT_EQ(GetInfoFromKey(2, b), 2);
  EXPECT_EQ(a.measSetup->srcLoc, 11.0);
  EXPECT_EQ(b.measSetup->srcLoc, 22.0);
  EXPECT_EQ(a.rawData->powerSpec[0], 0.0);
  EXPECT_EQ(b.rawData->powerSpec[0], 222.0);
}

TEST_F(SetupSection, ReferenceChannelAndSensorAreNotInTheFile) {
  MakeSmallProject();
  const std::string plain = ProjectBytes().bytes;
  MeasDB.hwSetupList.at(1)->refChannel = 1;
  MeasDB.hwSetupList.at(1)->sensorType = 2;
  EXPECT_EQ(ProjectBytes().bytes, plain);
  test::TempFolder folder;
  std::string reason;
  ASSERT_TRUE(WriteProjectFile(folder.File("x.da"), reason));
  EXPECT_EQ(test::ReadWhole(folder.File("x.da")), plain);
}

}  // namespace
}  // namespace sondera::testing
