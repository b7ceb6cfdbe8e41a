// Text files of the representative curves, byte by byte. The buttons are in panels/cdisppnl_files_test.cpp.
#include "signal/rep_curve_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "signal/rep_curves.h"
#include "support/comma_locale.h"
#include "support/rep_curve_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::ReadWhole;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Steps;

std::string Golden(const char* name) {
  return ReadWhole(std::string(SONDERA_TEST_DATA) + "/golden/rep_curve/" + name);
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
    Listener deaf;
    ASSERT_FALSE(AverageCurves(0, 0, deaf));
  }

  template <class Save>
  std::string Text(Save save) {
    const std::string path = folder.File("text");
    TextWriter file(path);
    save(file);
    EXPECT_TRUE(file.Close());
    return ReadWhole(path);
  }

  test::TempFolder folder;
};

TEST_F(RepCurveFiles, FitsOfConstantCurvesAreWrittenAsTheGoldenFilesHaveThem) {
  ConstantCurves();
  EXPECT_EQ(Text(SaveGCD), Golden("constant.gcd"));
  EXPECT_EQ(Text(SaveICD), Golden("constant.icd"));
  const std::string path = folder.File("both.red");
  EXPECT_FALSE(WriteRepCurveFile(path, RepCurveFile::Both));
  EXPECT_EQ(ReadWhole(path), Golden("constant.red"));
}

TEST_F(RepCurveFiles, AllPointsAreWrittenAsTheGoldenFilesHaveThem) {
  AllPoints();
  EXPECT_EQ(Text(SaveGCD), Golden("all_points.gcd"));
  EXPECT_EQ(Text(SaveICD), Golden("all_points.icd"));
  const std::string path = folder.File("both.red");
  EXPECT_FALSE(WriteRepCurveFile(path, RepCurveFile::Both));
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

TEST_F(RepCurveFiles, FileThatCannotBeWrittenComesBackWithItsName) {
  AllPoints();
  const std::string path = folder.File("no such folder/a.b");
  EXPECT_EQ(WriteRepCurveFile(path, RepCurveFile::Global).reason(),
            "Error in saving the global rep. disp. curve into file " + path + ".");
  EXPECT_EQ(WriteRepCurveFile(path, RepCurveFile::Array).reason(),
            "Error in saving the array rep. disp. curve into file " + path + ".");
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_FALSE(WriteRepCurveFile(folder.File("both.red"), RepCurveFile::Both));
  EXPECT_EQ(ReadWhole(folder.File("both.red")), Golden("all_points.red"));
}

TEST_F(RepCurveFiles, ArrayCurvesWithASourceBetweenReceiversAreRefused) {
  AllPoints();
  EXPECT_FALSE(CheckArrayCurves());
  m.setup->srcLoc = 30;
  EXPECT_EQ(CheckArrayCurves().reason(), ReceiverLinesFault());
  MeasDB.aDispList.clear();
  EXPECT_FALSE(CheckArrayCurves()) << "there are none to write";
}

}  // namespace
}  // namespace sondera
