// The buttons that write the representative curves: names, questions and failures. The contents of the files
// are tested in signal/rep_curve_files_test.cpp.
#include "panels/cdisppnl_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/paths.h"
#include "signal/rep_curves.h"
#include "support/failing_file_driver.h"
#include "support/rep_curve_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::ReadWhole;
using test::WriteWhole;
using ::testing::IsEmpty;

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

class RepCurveButtons : public testing::RepCurveTest {
 protected:
  /// Prepares the answer of the next file dialog.
  std::string Choose(const char* name, FileAnswer answer = FileAnswer::IsNew) {
    const std::string path = folder.File(name);
    frontEnd.fileAnswers.push_back({answer, path});
    return path;
  }

  test::TempFolder folder;
};

TEST_F(RepCurveButtons, ButtonsAskInTheFolderOfTheProject) {
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

TEST_F(RepCurveButtons, BeforeThereIsAProjectFileTheyAskInTheWorkingFolder) {
  PressSaveRED();
  EXPECT_EQ(frontEnd.files.at(0).directory, CurrentDirectory());
}

TEST_F(RepCurveButtons, ANewFileIsWrittenWithoutAQuestion) {
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

TEST_F(RepCurveButtons, AnExistingFileIsOverwrittenOnYesOnly) {
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

TEST_F(RepCurveButtons, TheCombinedFileIsOverwrittenWithoutAQuestion) {
  AllPoints();
  const std::string path = Choose("old.red", FileAnswer::Exists);
  WriteWhole(path, "old");
  EXPECT_EQ(PressSaveRED(), 0);
  EXPECT_EQ(ReadWhole(path), Golden("all_points.red"));
  EXPECT_THAT(frontEnd.questions, IsEmpty());
}

TEST_F(RepCurveButtons, ASourceBetweenTheReceiversOfAPairIsRefusedBeforeAFileIsAskedFor) {
  AllPoints();
  m.setup->srcLoc = 30;
  for (int (*press)(Event) : {PressSaveICD, PressSaveRED}) EXPECT_EQ(press(Event::Commit), -1);
  EXPECT_THAT(frontEnd.messages, ::testing::ElementsAre(ReceiverLinesFault(), ReceiverLinesFault()));
  EXPECT_THAT(frontEnd.messages.front(), ::testing::HasSubstr("m1[2:3] is between its receivers"));
  EXPECT_THAT(frontEnd.files, IsEmpty());
}

TEST_F(RepCurveButtons, ACancelledDialogGoesOnWithTheNameThatItLeft) {
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

TEST_F(RepCurveButtons, TheCombinedFileIsWrittenForAChosenFileOnly) {
  AllPoints();
  Choose("left.red", FileAnswer::Cancelled);
  EXPECT_EQ(PressSaveRED(), 0);
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(RepCurveButtons, AFailedOpenIsReportedWithTheName) {
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

TEST_F(RepCurveButtons, AFailedWriteIsReportedAndLeavesTheOldFile) {
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

TEST_F(RepCurveButtons, NamesWithPercentSignsAreNames) {
  AllPoints();
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, "/no such folder/%s%n%d.gcd"});
  PressSaveGCD();
  EXPECT_EQ(OnlyMessage(),
            "Error in saving the global rep. disp. curve into file /no such folder/%s%n%d.gcd.");
}

TEST_F(RepCurveButtons, OtherEventsDoNothing) {
  AllPoints();
  EXPECT_EQ(PressSaveGCD(Event::GotFocus) + PressSaveICD(Event::GotFocus) + PressSaveRED(Event::GotFocus), 0);
  EXPECT_THAT(frontEnd.files, IsEmpty());
}

}  // namespace
}  // namespace sondera
