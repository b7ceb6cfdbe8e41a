// Tests of entries (refresh and recall) and of the tables in the box of results.
#include "panels/analresult.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "records/session.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/result_entries.h"
#include "run/run_sizes.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "support/named_runs.h"
#include "support/run_fixture.h"

namespace sondera::testing {
namespace {

class ResultText : public RunTest {
 protected:
  static std::string Text(int type, int index) {
    std::string text = "so far\n";
    GetResultTextBox(type, index, text, RecordOfIndex(index));
    return text;
  }
};

TEST_F(ResultText, PlaneWaveRefreshKeepsTheWavelength) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 2);
  ASSERT_EQ(FS_RefreshDspCurve(0, Values({99.0, 0.0}), 1.5), 0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.globalVel[0], 99.0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.globalFreq[0], 9.0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.globalWlen[0], 11.0);
  EXPECT_DOUBLE_EQ(InvParam.waveL(0, 1), 6.0);
  EXPECT_DOUBLE_EQ(InvParam.freq(0, 1), 0.0);
  EXPECT_DOUBLE_EQ(InvParam.rms[0], 1.5);
  EXPECT_EQ(InvParam.nPoints, 2);
  EXPECT_EQ(InvParam.nCurves, 1);
}

TEST_F(ResultText, PointLoadRefreshKeepsTheFrequency) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshDspCurve(-3, Values({99.0, 0.0}), 1.5), 0);
  EXPECT_DOUBLE_EQ(SMPParam.freq(3, 0), 10.0);
  EXPECT_DOUBLE_EQ(SMPParam.waveL(3, 0), 9.9);
  EXPECT_DOUBLE_EQ(SMPParam.vel(3, 1), 0.0);
  EXPECT_DOUBLE_EQ(SMPParam.freq(3, 1), 20.0);
  EXPECT_DOUBLE_EQ(SMPParam.waveL(3, 1), 0.0);
  EXPECT_EQ(InvParam.nPoints, 0);
}

TEST_F(ResultText, ArrayRefreshGoesThroughTheMapOfPoints) {
  SetPlainLayers(2);
  SetArrayCurves(2, 2, {100.0, 0.0, 110.0, 120.0});
  StartRun(kInversionRun, 3);
  ASSERT_EQ(FS_RefreshDspCurve(2, Values({101.0, 111.0, 121.0}), 1.5), 0);
  EXPECT_DOUBLE_EQ(InvParam.vel(2, 0), 101.0);
  EXPECT_DOUBLE_EQ(InvParam.vel(2, 1), 0.0);
  EXPECT_DOUBLE_EQ(InvParam.vel(2, 2), 111.0);
  EXPECT_DOUBLE_EQ(InvParam.vel(2, 3), 121.0);
  EXPECT_DOUBLE_EQ(InvParam.waveL(2, 3), 12.1);
  EXPECT_DOUBLE_EQ(InvParam.freq(2, 1), 10.0);
  EXPECT_EQ(InvParam.nCurves, 2);

  std::fill(TheoDispInfo.vel.begin(), TheoDispInfo.vel.end(), 0.0);
  FS_RecallDspCurve(2);
  EXPECT_DOUBLE_EQ(TheoDispInfo.vel[3], 121.0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.wlen[3], 12.1);
}

TEST_F(ResultText, ThickHalfSpaceEndsHalfALayerBelowItsTop) {
  SetLayers({{2.0, 0.0, 100.0, 2.0, 0.3, 0.02}, {4.0, 0.0, 120.0, 2.0, 0.3, 0.02}});
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  EXPECT_DOUBLE_EQ(InvParam.depth(0, 0), 0.0);
  EXPECT_DOUBLE_EQ(InvParam.depth(0, 1), 2.0);
  EXPECT_DOUBLE_EQ(InvParam.depth(0, 2), 6.0);
  run.ground.layerH[2] = 4.5;
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  EXPECT_DOUBLE_EQ(InvParam.depth(0, 2), 3.0);
}

TEST_F(ResultText, EntryBeyondTheTablesMakesRoomAndKeepsTheOthers) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  ASSERT_EQ(FS_RefreshModelPar(200), 0);
  EXPECT_DOUBLE_EQ(InvParam.Vs(0, 1), 120.0);
  EXPECT_DOUBLE_EQ(InvParam.Vs(200, 1), 120.0);
}

TEST_F(ResultText, RecallOfTheModelLeavesTheSurfaceLayer) {
  SetPlainLayers(3);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(1), 0);
  SetLayers({{9.0, 0.0, 900.0, 2.0, 0.3, 0.02}, {9.0, 0.0, 901.0, 2.0, 0.3, 0.02}});
  FS_RecallModelPar(1);
  EXPECT_EQ(TheoDispInfo.nLayers, 3);
  EXPECT_DOUBLE_EQ(TheoDispInfo.Vs[0], 900.0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.Vs[1], 120.0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.Vs[2], 140.0);
  EXPECT_DOUBLE_EQ(TheoDispInfo.thickness[2], 2.0);
}

TEST_F(ResultText, RecallOfWhatWasNeverStoredDoesNothing) {
  TheoDispInfo.globalVel[0] = 77.0;
  for (int index : {0, 3, -3, 5000, -5000}) {
    FS_RecallDspCurve(index);
    FS_RecallModelPar(index);
  }
  EXPECT_DOUBLE_EQ(TheoDispInfo.globalVel[0], 77.0);
  EXPECT_EQ(TheoDispInfo.nLayers, 10);
}

TEST_F(ResultText, ModelTableHasTheUpperLimitFirst) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kInversionRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  ASSERT_EQ(FS_RefreshModelPar(1), 0);
  InvParam.ufVs = 0.05;
  EXPECT_EQ(Text(kModelTable, 1),
            "so far\n"
            "Layer No.    Depth       Thick.        Cp           Cs       Cs(Upper)    Cs(Lower)     Rho     "
            "     Nu "
            "      damping\n"
            "--------- ----------- ----------- ----------- ----------- ----------- ----------- ----------- "
            "----------- -----------\n"
            "    1        0.000        2.000      187.083     100.000     110.000      90.000     2.000      "
            " 0.300 "
            "      0.020\n"
            "    2        2.000        2.000      224.499     120.000     132.000     108.000     2.000      "
            " 0.300 "
            "      0.020\n");
}

TEST_F(ResultText, ProfileTableEndsAtTheReachedDepth) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  EXPECT_EQ(Text(kProfileTable, 0),
            "so far\n"
            "    Velocity    Upper V.    Lower V.      Depth\n"
            "    --------    --------    --------    ---------\n"
            "   100.00000   100.00000   100.00000      0.00000\n"
            "   100.00000   100.00000   100.00000      2.00000\n"
            "   120.00000   120.00000   120.00000      2.00000\n"
            "   120.00000   120.00000   120.00000      4.00000\n"
            "   120.00000   120.00000   120.00000      4.00000\n"
            "\n");
}

TEST_F(ResultText, PointLoadCurveOfTheGivenModelHasTheMeasuredColumns) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshDspCurve(0, Values({99.0, 0.0}), 1.5), 0);
  EXPECT_EQ(Text(kCurveTable, 0),
            "so far\n"
            "     freq.    wavel(obs)   vel(obs)  wavel(cal) vel(cal)   \n"
            "   10.00000    11.00000   110.00000     9.90000    99.00000\n"
            "   20.00000     6.00000   120.00000     0.00000     0.00000\n");
}

TEST_F(ResultText, EveryEntryShowsTheMeasuredVelocitiesAsObserved) {
  SetPlainLayers(2);
  SetGlobalCurve(1);
  StartRun(kInversionRun, 2);
  ASSERT_EQ(FS_RefreshDspCurve(0, Values({99.0}), 1.5), 0);
  ASSERT_EQ(FS_RefreshDspCurve(1, Values({110.0}), 1.0), 0);
  EXPECT_EQ(Text(kCurveTable, 1),
            "so far\n"
            "wavelength  freq(obs)   vel(obs)  freq(cal) vel(cal)   \n"
            "   11.00000    10.00000   110.00000    10.00000   110.00000\n");
  // A starting profile too, though its record has no entry 0.
  ASSERT_EQ(FS_RefreshDspCurve(-2, Values({88.0}), 1.0), 0);
  EXPECT_EQ(Text(kCurveTable, -2),
            "so far\n"
            "wavelength  freq(obs)   vel(obs)  freq(cal) vel(cal)   \n"
            "   11.00000    10.00000   110.00000     8.00000    88.00000\n");
}

TEST_F(ResultText, ArrayCurvesOfAnIterationShowTheMeasuredVelocities) {
  SetPlainLayers(2);
  SetArrayCurves(2, 2, {100.0, 0.0, 110.0, 120.0});
  StartRun(kInversionRun, 3);
  ASSERT_EQ(FS_RefreshDspCurve(0, Values({101.0, 111.0, 121.0}), 1.5), 0);
  ASSERT_EQ(FS_RefreshDspCurve(1, Values({102.0, 112.0, 122.0}), 1.5), 0);
  EXPECT_NE(Text(kCurveTable, 1)
                .find("    5.00000   100.00000   102.00000 -           -\n"
                      "   10.00000   110.00000   112.00000   120.00000   122.00000 \n"),
            std::string::npos)
      << Text(kCurveTable, 1);
}

TEST_F(ResultText, OtherCurvesThanThoseOfTheEntryAreNotShownAsObserved) {
  SetPlainLayers(2);
  SetArrayCurves(1, 1, {100.0});
  StartRun(kInversionRun, 3);
  ASSERT_EQ(FS_RefreshDspCurve(0, Values({101.0}), 1.5), 0);
  FModelParam.freq[0] = 7.0;  // loaded after the run
  EXPECT_NE(Text(kCurveTable, 0).find("    5.00000     0.00000   101.00000 \n"), std::string::npos)
      << Text(kCurveTable, 0);
}

TEST_F(ResultText, ArrayCurvesStandInTwoBlocks) {
  SetPlainLayers(2);
  SetArrayCurves(2, 2, {100.0, 0.0, 110.0, 120.0});
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshDspCurve(0, Values({101.0, 111.0, 121.0}), 1.5), 0);
  EXPECT_EQ(
      Text(kCurveTable, 0),
      "so far\n"
      "      freq.    vel(obs)    vel(cal)    vel(obs)    vel(cal) \n"
      "    5.00000   100.00000   101.00000 -           -\n"
      "   10.00000   110.00000   111.00000   120.00000   121.00000 \n"
      "...................................................\n\n"
      " waveL(obs)   vel(obs)  waveL(calc)   vel(calc)    waveL(obs)   vel(obs)  waveL(calc)   vel(calc) "
      "  \n"
      "   20.00000   100.00000    20.20000   101.00000   -          -           -            -\n"
      "   11.00000   110.00000    11.10000   111.00000      12.00000   120.00000    12.10000   121.00000   "
      "\n");
}

TEST_F(ResultText, ResolutionTableCountsLayersFromZero) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(1), 0);
  InvParam.resolution(1, 1) = 0.5;
  EXPECT_EQ(Text(kResolutionTable, 1),
            "so far\n     Layer   Resolution\n     -----  ------------\n"
            "        0     0.000000\n        1     0.500000\n");
}

TEST_F(ResultText, BoxShowsTheGivenModelWhileTheListIsHidden) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  run.ground.layerVs[1] = 555.0;
  ASSERT_EQ(FS_RefreshModelPar(-1), 0);
  SMPParam.nPoints = InvParam.nPoints = 2;
  InsertListItem(exdthd::ITERNO, -1, "SMP 1", -1);
  SetCtrlVal(exdthd::ITERNO, -1);
  SetCtrlVal(analresult::SEL_RESULT, kProfileTable);
  SetVisible(exdthd::ITERNO, true);
  PutTextResultsInBox();
  EXPECT_NE(GetCtrlVal(analresult::RESULTS).find("555.00000"), std::string::npos);
  SetVisible(exdthd::ITERNO, false);
  PutTextResultsInBox();
  EXPECT_EQ(GetCtrlVal(analresult::RESULTS).find("555.00000"), std::string::npos);
}

TEST_F(ResultText, BoxHoldsAWholeTableOfManyLayers) {
  SetPlainLayers(400);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  EXPECT_NE(Text(kModelTable, 0).find("\n  400  "), std::string::npos);
}

/// The panel of the inversion seeds entry 0 with the given model: that is not a result.
TEST_F(ResultText, ModelWithoutAComputedCurveIsNoIteration) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  for (int type = 0; type <= 3; ++type) {
    SetCtrlVal(analresult::SEL_RESULT, type);
    PutTextResultsInBox();
    EXPECT_EQ(GetCtrlVal(analresult::RESULTS), "no iteration\n");
  }
  EXPECT_EQ(SaveInvResultCallback(Panel::ANALRESULT, &analresult::SAVE, Event::Commit, 0), -1);
  EXPECT_EQ(OnlyMessage(), "There is no iteration to save.");
  EXPECT_TRUE(frontEnd.files.empty());
}

TEST_F(ResultText, RefusedInversionSaysNoIterationUnlessAFormerFileIsThere) {
  session.projectFileName = "/elsewhere/site.da";
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  const auto save = [] {
    return SaveInvResultCallback(Panel::ANALRESULT, &analresult::SAVE, Event::Commit, kNoIteration);
  };
  EXPECT_EQ(save(), 0);
  EXPECT_EQ(test::ReadWhole("site_f.results"), "no iteration\n");
  test::WriteWhole("site_f.results", "former results\n");
  EXPECT_EQ(save(), 0);
  EXPECT_EQ(test::ReadWhole("site_f.results"), "former results\n");
  std::filesystem::current_path(before);
}

TEST_F(ResultText, SavesAllTablesWithoutADialog) {
  SetPlainLayers(2);
  SetGlobalCurve(2);
  StartRun(kForwardRun, 3);
  ASSERT_EQ(FS_RefreshModelPar(0), 0);
  InvParam.nPoints = 2;
  session.projectFileName = "/elsewhere/site.da";
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_EQ(SaveInvResultCallback(Panel::ANALRESULT, &analresult::SAVE, Event::Commit, -1), 0);
  std::filesystem::current_path(before);
  EXPECT_TRUE(frontEnd.files.empty());
  std::string expected;
  for (int type = 0; type <= 3; ++type) {
    GetResultTextBox(type, 0, expected, InvParam);
    expected += "\n\n\n";
  }
  EXPECT_EQ(test::ReadWhole(folder.File("site_f.results")), expected);
}

TEST_F(ResultText, SavesUnderAChosenNameAndNothingAfterCancel) {
  session.projectFileName = "/elsewhere/site";
  InvParam.nPoints = 2;
  EXPECT_EQ(SaveInvResultCallback(Panel::ANALRESULT, &analresult::SAVE, Event::Commit, 0), 0);
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("a.results")});
  EXPECT_EQ(SaveInvResultCallback(Panel::ANALRESULT, &analresult::SAVE, Event::Commit, 0), 0);
  ASSERT_EQ(frontEnd.files.size(), 2u);
  EXPECT_EQ(frontEnd.files[0].filter, "*.results");
  EXPECT_EQ(frontEnd.files[0].title, "File Save");
  EXPECT_EQ(frontEnd.files[0].directory, "/elsewhere/");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.results"}));
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("missing/a.results")});
  EXPECT_EQ(SaveInvResultCallback(Panel::ANALRESULT, &analresult::SAVE, Event::Commit, 0), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
}

TEST_F(ResultText, TimesTakeTheUnitThatSuitsThem) {
  std::string text;
  GetNiceTimeStr(1.0, text);
  EXPECT_EQ(text, "1.00 sec");
  GetNiceTimeStr(0.9994, text);
  EXPECT_EQ(text, "999.40 msec");
  GetNiceTimeStr(0.001, text);
  EXPECT_EQ(text, "1.00 msec");
  GetNiceTimeStr(0.00025, text);
  EXPECT_EQ(text, "250.00 usec");
}

}  // namespace
}  // namespace sondera::testing
