// Text files of the representative curves, byte by byte, and the buttons that write them.
#include "signal/rep_curve_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panels/cdisppnl.h"
#include "panels/cdisppnl_files.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/paths.h"
#include "signal/rep_curves.h"
#include "support/comma_locale.h"
#include "support/failing_file_driver.h"
#include "support/rep_curve_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::ReadWhole;
using test::WriteWhole;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Steps;
using testing::TestMeasurement;

std::string Golden(const char* name) {
  return ReadWhole(std::string(SONDERA_TEST_DATA) + "/golden/rep_curve/" + name);
}

int PressSaveGCD(Event event = Event::Commit) {
  return SaveGCDCallback(Panel::CDISPPNL, &cdisppnl::SAVEGCD, event, 0);
}
int PressSaveICD(Event event = Event::Commit) {
  return SaveICDCallback(Panel::CDISPPNL, &cdisppnl::SAVEICD, event, 0);
}
int PressSaveRED(Event event = Event::Commit) {
  return SaveREDCallback(Panel::CDISPPNL, &cdisppnl::SAVERED, event, 0);
}

class RepCurveFiles : public testing::RepCurveTest {
 protected:
  void ConstantCurves() {
    m = Measurement("m1", {10, 20, 40});
    Pair(m, 1, 2, Steps(10, 1, 41), std::vector<double>(41, 200.0), std::vector<double>(41, 2.0));
    Pair(m, 0, 1, Steps(10, 1, 41), std::vector<double>(41, 180.0), std::vector<double>(41, 4.0));
    CDispParam.nPointsG = 4;
    CDispParam.nSpanG = CDispParam.nSpanA = 2;
    CDispParam.incRatioG = 1.0;
    CDispParam.globalPolyOrder = CDispParam.arrayPolyOrder = 2;
    ASSERT_EQ(PerformAveraging(0, 0), 0);
  }

  void AllPoints() {
    m = Measurement("m1", {10, 20, 40});
    Pair(m, 1, 2, {10, 20, 30}, {300, 240, 180}, {1.5, 2.5, 3.5});
    Pair(m, 0, 1, {10, 20}, {200, 160}, {4, 5});
    ASSERT_EQ(PerformAveraging(1, 1), 0);
  }

  /// Lays out the answer of the next file dialog.
  std::string Choose(const char* name, FileAnswer answer = FileAnswer::IsNew) {
    const std::string path = folder.File(name);
    frontEnd.fileAnswers.push_back({answer, path});
    return path;
  }

  template <class Save>
  std::string Text(Save save) {
    const std::string path = folder.File("text");
    TextWriter file(path);
    save(file);
    EXPECT_TRUE(file.Close());
    return ReadWhole(path);
  }

  TestMeasurement m;
  test::TempFolder folder;
};

TEST_F(RepCurveFiles, FitsOfConstantCurvesAreWrittenAsTheGoldenFilesHaveThem) {
  ConstantCurves();
  EXPECT_EQ(Text(SaveGCD), Golden("constant.gcd"));
  EXPECT_EQ(Text(SaveICD), Golden("constant.icd"));
  const std::string path = Choose("both.red");
  EXPECT_EQ(PressSaveRED(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("constant.red"));
}

TEST_F(RepCurveFiles, AllPointsAreWrittenAsTheGoldenFilesHaveThem) {
  AllPoints();
  EXPECT_EQ(Text(SaveGCD), Golden("all_points.gcd"));
  EXPECT_EQ(Text(SaveICD), Golden("all_points.icd"));
  const std::string path = Choose("both.red");
  EXPECT_EQ(PressSaveRED(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("all_points.red"));
}

TEST_F(RepCurveFiles, ADesktopWithDecimalCommasChangesNothing) {
  AllPoints();
  test::CommaLocale comma;
  EXPECT_EQ(Text(SaveGCD), Golden("all_points.gcd"));
  EXPECT_EQ(Text(SaveICD), Golden("all_points.icd"));
}

TEST_F(RepCurveFiles, RowsOfAnArrayFileDescendInFrequency) {
  AllPoints();
  const std::string text = Text(SaveICD);
  EXPECT_LT(text.find("  30.0000000"), text.find("  20.0000000"));
  EXPECT_LT(text.find("  20.0000000  240"), text.find("  10.0000000  300"));
}

TEST_F(RepCurveFiles, NothingIsWrittenWithoutArrayRecords) {
  AllPoints();
  MeasDB.aDispList.clear();
  EXPECT_EQ(Text(SaveICD), "");
  EXPECT_EQ(Text(SaveGCD), Golden("all_points.gcd"));
}

TEST_F(RepCurveFiles, NothingIsWrittenWithoutAGlobalCurve) {
  EXPECT_EQ(Text(SaveGCD), "");
}

TEST_F(RepCurveFiles, ACurveWhosePairIsExcludedIsNotWritten) {
  AllPoints();
  MeasDB.pMeasList.at(1)->included = 0;
  const std::string text = Text(SaveICD);
  EXPECT_THAT(text, HasSubstr("1\n2\t10.000000\t20.000000\t\n1\t1  2\t\n2\n\n[Velocity]\n"));
  EXPECT_THAT(text, HasSubstr("  20.0000000  160.0000000 \n  10.0000000  200.0000000 \n"));
  EXPECT_EQ(text.find("300.0000000"), std::string::npos);
}

TEST_F(RepCurveFiles, WithNoPairLeftTheSectionsAreEmpty) {
  AllPoints();
  for (PMeasInfo& pair : MeasDB.pMeasList) pair.included = 0;
  EXPECT_EQ(
      Text(SaveICD),
      "1\n0\t\n0\t\n0\n\n[Velocity]\n\n[StdDev of Velocity]\n\n[Amplitude]\n\n[StdDev of Amplitude]\n\n");
}

TEST_F(RepCurveFiles, AGlobalRecordOfAMeasurementIsHeadedByItsTexts) {
  AllPoints();
  Global().key = m.key;
  Global().label = "not used";
  EXPECT_THAT(Text(SaveGCD), ::testing::StartsWith("ProjID:Site, MeasID: m1\n5\n"));
}

TEST_F(RepCurveFiles, EachGlobalRecordIsWritten) {
  AllPoints();
  DispInfo* second = MeasDB.gDispList.append();
  second->label = "50 % sand";
  EXPECT_EQ(Text(SaveGCD), Golden("all_points.gcd") + "ProjID:50 % sand, MeasID: \n0\n");
}

TEST_F(RepCurveFiles, ButtonsAskInTheFolderOfTheProject) {
  AllPoints();
  session.projectFileName = "/somewhere/site.da";
  PressSaveGCD();
  PressSaveICD();
  PressSaveRED();
  ASSERT_EQ(frontEnd.files.size(), 3u);
  const char* filters[] = {"*.gcd", "*.icd", "*.red"};
  const char* titles[] = {"Save a Global Rep. Dispersion Curve.", "Save an Array Rep. Dispersion Curve.",
                          "Save a Global and Array Rep. Dispersion Curve."};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(frontEnd.files[i].filter, filters[i]);
    EXPECT_EQ(frontEnd.files[i].title, titles[i]);
    EXPECT_EQ(frontEnd.files[i].directory, "/somewhere/");
    EXPECT_TRUE(frontEnd.files[i].forSaving);
  }
}

TEST_F(RepCurveFiles, BeforeThereIsAProjectFileTheyAskInTheWorkingFolder) {
  PressSaveRED();
  EXPECT_EQ(frontEnd.files.at(0).directory, CurrentDirectory());
}

TEST_F(RepCurveFiles, ANewFileIsWrittenWithoutAQuestion) {
  AllPoints();
  std::string path = Choose("new.gcd");
  EXPECT_EQ(PressSaveGCD(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("all_points.gcd"));
  path = Choose("new.icd");
  EXPECT_EQ(PressSaveICD(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("all_points.icd"));
  EXPECT_THAT(frontEnd.questions, IsEmpty());
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(RepCurveFiles, AnExistingFileIsOverwrittenOnYesOnly) {
  AllPoints();
  for (int (*press)(Event) : {PressSaveGCD, PressSaveICD}) {
    const std::string path = Choose("old", FileAnswer::Exists);
    WriteWhole(path, "old");
    EXPECT_EQ(press(Event::Commit), -1);
    EXPECT_EQ(ReadWhole(path), "old");
    Choose("old", FileAnswer::Exists);
    frontEnd.confirmAnswers.push_back(true);
    EXPECT_EQ(press(Event::Commit), 0);
    EXPECT_NE(ReadWhole(path), "old");
  }
  EXPECT_THAT(frontEnd.questions, ::testing::Each("File already exists. Do you want to overwrite it ?"));
  EXPECT_EQ(frontEnd.questions.size(), 4u);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(RepCurveFiles, TheCombinedFileIsOverwrittenWithoutAQuestion) {
  AllPoints();
  const std::string path = Choose("old.red", FileAnswer::Exists);
  WriteWhole(path, "old");
  EXPECT_EQ(PressSaveRED(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("all_points.red"));
  EXPECT_THAT(frontEnd.questions, IsEmpty());
}

TEST_F(RepCurveFiles, ASourceBetweenTheReceiversOfAPairIsRefusedBeforeAFileIsAskedFor) {
  AllPoints();
  m.setup->srcLoc = 30;
  for (int (*press)(Event) : {PressSaveICD, PressSaveRED}) EXPECT_EQ(press(Event::Commit), -1);
  EXPECT_THAT(frontEnd.messages, ::testing::ElementsAre(ReceiverLinesFault(), ReceiverLinesFault()));
  EXPECT_THAT(frontEnd.messages.front(), ::testing::HasSubstr("m1[2:3] stands between its receivers"));
  EXPECT_THAT(frontEnd.files, IsEmpty());
}

TEST_F(RepCurveFiles, ACancelledDialogGoesOnWithTheNameThatItLeft) {
  AllPoints();
  EXPECT_EQ(PressSaveGCD(), -1);
  EXPECT_EQ(PressSaveICD(), -1);
  EXPECT_THAT(frontEnd.messages,
              ::testing::ElementsAre("Error in saving the global rep. disp. curve into file .",
                                     "Error in saving the array rep. disp. curve into file ."));
  const std::string path = Choose("left.gcd", FileAnswer::Cancelled);
  EXPECT_EQ(PressSaveGCD(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("all_points.gcd"));
}

TEST_F(RepCurveFiles, TheCombinedFileIsWrittenForAChosenFileOnly) {
  AllPoints();
  Choose("left.red", FileAnswer::Cancelled);
  EXPECT_EQ(PressSaveRED(), 0);
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(RepCurveFiles, AFailedOpenIsReportedWithTheName) {
  AllPoints();
  const std::string path = Choose("no such folder/a.b");
  frontEnd.fileAnswers.assign(3, {FileAnswer::IsNew, path});
  EXPECT_EQ(PressSaveGCD(), -1);
  EXPECT_EQ(PressSaveICD(), -1);
  EXPECT_EQ(PressSaveRED(), -1);
  EXPECT_THAT(frontEnd.messages,
              ::testing::ElementsAre("Error in saving the global rep. disp. curve into file " + path + ".",
                                     "Error in saving the array rep. disp. curve into file " + path + ".",
                                     "Error in saving the global rep. disp. curve into file " + path + "."));
  EXPECT_EQ(frontEnd.messageTitles.front(), session.appTitle);
}

TEST_F(RepCurveFiles, AFailedWriteIsReportedAndLeavesTheOldFile) {
  AllPoints();
  const std::string path = Choose("old.gcd", FileAnswer::Exists);
  WriteWhole(path, "old");
  frontEnd.confirmAnswers.push_back(true);
  {
    test::FilePlan plan;
    plan.failWrite = 1;
    test::FailingFileDriver driver(plan);
    EXPECT_EQ(PressSaveGCD(), -1);
  }
  EXPECT_EQ(OnlyMessage(), "Error in saving the global rep. disp. curve into file " + path + ".");
  EXPECT_EQ(ReadWhole(path), "old");
}

TEST_F(RepCurveFiles, NamesWithPercentSignsAreNames) {
  AllPoints();
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, "/no such folder/%s%n%d.gcd"});
  PressSaveGCD();
  EXPECT_EQ(OnlyMessage(),
            "Error in saving the global rep. disp. curve into file /no such folder/%s%n%d.gcd.");
}

TEST_F(RepCurveFiles, OtherEventsDoNothing) {
  AllPoints();
  EXPECT_EQ(PressSaveGCD(Event::GotFocus) + PressSaveICD(Event::GotFocus) + PressSaveRED(Event::GotFocus), 0);
  EXPECT_THAT(frontEnd.files, IsEmpty());
}

}  // namespace
}  // namespace sondera
