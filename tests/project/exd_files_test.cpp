// Tests of experimental dispersion curves in text files.
#include "project/exd_files.h"

#include <cmath>

#include "panels/mainmenu_curves.h"
#include "records/session.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

constexpr char kOverwrite[] = "The same measurement ID is in the list. Overwrite it ?";

/// A curve of n points: velocity 100 + i at 2 (i + 1) Hz.
std::string CurveText(const std::string& id, int n, int claimed = -1) {
  std::string text =
      "ID : " + id + "_[0:1]\n" +
      FormatText("No. of Points in Dispersion Curve : %d\n", claimed < 0 ? n : claimed) +
      "markerType: 0\nmarkerLine: 0\ncolorType: 3\n     Vel         Freq       waveL       TRFamp\n";
  for (int i = 0; i < n; ++i)
    text +=
        FormatText("%lg \t%lg \t%lg \t%lg \n", 100.0 + i, 2.0 * (i + 1), (100.0 + i) / (2.0 * (i + 1)), 0.5);
  return text;
}

class ExdFiles : public SessionTest {
 protected:
  int Load(const std::string& text) {
    test::WriteWhole(folder.File("site.exd"), text);
    return LoadExdData(folder.File("site.exd"), "site");
  }
  PMeasInfo* PairNamed(const std::string& id) { return FindPair(GetKeyFromID("ProjID", id), 0, 1); }
  test::TempFolder folder;
};

TEST_F(ExdFiles, ACurveGetsASyntheticMeasurementOfItsOwn) {
  int redraws = 0;
  RedrawHandlers handlers;
  handlers.dispCurvPlot = [&](int flag) { return redraws += flag, 0; };
  InstallRedrawHandlers(handlers);
  ASSERT_EQ(Load(CurveText("H31", 5)), 0);
  EXPECT_EQ(redraws, 1);
  MeasRecords r;
  const int key = GetKeyFromID("ProjID", "H31@site");
  ASSERT_NE(GetInfoFromKey(key, r), -1);
  ASSERT_TRUE(r.hwPos > 0 && r.measPos > 0 && r.rawPos > 0);
  const HWSetup& hw = *r.hwSetup;
  EXPECT_EQ(hw.nChannels, 2);
  EXPECT_EQ(hw.nLines, 6);
  EXPECT_EQ(hw.freqSpan, 5.0);
  EXPECT_EQ(hw.deltaT, 0.1);
  EXPECT_DOUBLE_EQ(hw.timeLength, 1.1);
  EXPECT_EQ(hw.deltaF, 1.0);
  EXPECT_EQ(hw.decimation, 1);
  EXPECT_EQ(hw.triggerDelay, 10.0);
  EXPECT_EQ(hw.nAverage, 5);
  EXPECT_EQ(r.measSetup->srcLoc, 0.0);
  EXPECT_EQ(r.measSetup->recLoc, (std::vector<double>{0.0, 0.0}));
  EXPECT_EQ(r.measSetup->lengthUnit, 1.0);
  EXPECT_EQ(r.rawData->crossSpecRe, std::vector<double>(32, 0.0));
  const PMeasInfo* p = PairNamed("H31@site");
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(p->nDispPoints, 5);
  EXPECT_EQ(p->included, 1);
  EXPECT_EQ(p->dispVel[4], 104.0);
  EXPECT_EQ(p->dispFreq[4], 10.0);
  EXPECT_EQ(p->dispWlen[4], 10.4);
}

TEST_F(ExdFiles, AnUnitLineSetsTheLengthUnitAndItsControl) {
  ASSERT_EQ(Load("unit = 0\n" + CurveText("a", 2)), 0);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  EXPECT_EQ(GetCtrlVal(meassetup::LENGTHUNIT), 0.3048);
  ASSERT_EQ(Load("unit = 2\n" + CurveText("b", 2)), 0);
  EXPECT_EQ(session.lengthUnit, 1.0);
  EXPECT_EQ(GetCtrlVal(meassetup::LENGTHUNIT), 1.0);
}

TEST_F(ExdFiles, ASecondLoadOfTheSameFileMeetsTheOverwriteQuestion) {
  ASSERT_EQ(Load(CurveText("H31", 5)), 0);
  EXPECT_TRUE(frontEnd.questions.empty());
  const int key = GetKeyFromID("ProjID", "H31@site");
  frontEnd.confirmAnswers = {true};
  ASSERT_EQ(Load(CurveText("H31", 3)), 0);
  EXPECT_EQ(frontEnd.questions, std::vector<std::string>{kOverwrite});
  EXPECT_EQ(GetKeyFromID("ProjID", "H31@site"), key);
  EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(PairNamed("H31@site")->nDispPoints, 3);
  EXPECT_EQ(PairNamed("H31@site")->capacity(), 4);
}

TEST_F(ExdFiles, ANoAsksForANewIdAndInsertsIt) {
  ASSERT_EQ(Load(CurveText("H31", 5)), 0);
  frontEnd.confirmAnswers = {false};
  frontEnd.promptAnswers = {"other"};
  ASSERT_EQ(Load(CurveText("H31", 3)), 0);
  EXPECT_EQ(frontEnd.prompts, std::vector<std::string>{"Please enter a new measurement ID."});
  EXPECT_EQ(PairNamed("H31@site")->nDispPoints, 5);
  ASSERT_NE(PairNamed("other"), nullptr);
  EXPECT_EQ(PairNamed("other")->nDispPoints, 3);
}

TEST_F(ExdFiles, NeitherOverwriteNorANewIdLosesNothing) {
  ASSERT_EQ(Load(CurveText("H31", 5)), 0);
  EXPECT_EQ(Load(CurveText("H31", 3) + CurveText("H32", 2)), -1);
  EXPECT_NE(OnlyMessage().find("The curve H31@site was not loaded"), std::string::npos);
  EXPECT_EQ(PairNamed("H31@site")->nDispPoints, 5);
  EXPECT_NE(PairNamed("H32@site"), nullptr) << "the next curve comes in";
}

TEST_F(ExdFiles, AnIdEndsAtItsFirstBar) {
  ASSERT_EQ(Load(CurveText("Line_7", 2)), 0);
  EXPECT_NE(PairNamed("Line@site"), nullptr);
}

TEST_F(ExdFiles, AMissingFileIsItsStatedMessage) {
  EXPECT_EQ(LoadExdData(folder.File("none.exd"), "none"), -1);
  EXPECT_EQ(OnlyMessage(), "Error in reading the file.");
}

TEST_F(ExdFiles, CountsAreHeldAgainstTheFile) {
  for (int claimed : {6, 1000, 2000000000, 2147483647}) {
    ResetEverything();
    frontEnd.messages.clear();
    EXPECT_EQ(Load(CurveText("H31", 5, claimed)), -1) << claimed;
    EXPECT_EQ(frontEnd.messages.size(), 1u);
    EXPECT_TRUE(MeasDB.idList.empty()) << claimed;
  }
}

TEST_F(ExdFiles, ACurveThatClaimsTooManyPointsDoesNotSwallowTheNextOne) {
  EXPECT_EQ(Load(CurveText("bad", 5, 7) + CurveText("good", 3)), -1);
  EXPECT_EQ(GetKeyFromID("ProjID", "bad@site"), -1);
  ASSERT_NE(PairNamed("good@site"), nullptr);
  EXPECT_EQ(PairNamed("good@site")->nDispPoints, 3);
  EXPECT_NE(OnlyMessage().find("claims 7 points and has 5"), std::string::npos);
}

TEST_F(ExdFiles, ThatHoldsForTwoCurvesOfOneIdToo) {
  EXPECT_EQ(Load(CurveText("a", 5, 7) + CurveText("a", 3)), -1);
  ASSERT_NE(PairNamed("a@site"), nullptr);
  EXPECT_EQ(PairNamed("a@site")->nDispPoints, 3);
  EXPECT_EQ(Load(CurveText("b", 5, 7) + "unit = 0\n"), -1);
  EXPECT_EQ(session.lengthUnit, 0.3048) << "nor the line of the unit";
}

TEST_F(ExdFiles, EveryCutEndsInAtMostOneMessageAndWholeCurves) {
  const std::string whole = "unit = 1\n" + CurveText("a", 3) + CurveText("b", 4);
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    ResetEverything();
    frontEnd.messages.clear();
    const int result = Load(whole.substr(0, cut));
    ASSERT_EQ(frontEnd.messages.size(), static_cast<std::size_t>(-result)) << cut;
    for (const PMeasInfo& p : MeasDB.pMeasList) ASSERT_TRUE(p.nDispPoints == 3 || p.nDispPoints == 4) << cut;
    ASSERT_LE(MeasDB.pMeasList.count(), 1) << "the last curve is never whole";
  }
}

TEST_F(ExdFiles, NumbersThatAreNoneRefuseTheCurve) {
  std::string text = CurveText("a", 3);
  text.replace(text.find("101"), 3, "abc");
  EXPECT_EQ(Load(text), -1);
  EXPECT_TRUE(MeasDB.idList.empty());
  EXPECT_EQ(frontEnd.messages.size(), 1u);
}

TEST_F(ExdFiles, ACurveWithoutPointsIsPassedOver) {
  EXPECT_EQ(Load(CurveText("a", 0)), 0);
  EXPECT_TRUE(MeasDB.idList.empty());
}

/// A measurement with a curve on some of its lines.
PMeasInfo& AddCurve(const std::string& measID, int included = 1) {
  const TestMeasurement m = AddMeasurement({.measID = measID, .nLines = 16});
  PMeasInfo& p = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(p, 16);
  p.key = m.key;
  p.dspChan = 1;
  p.included = included;
  p.color = 7;
  p.nDispPoints = 3;
  for (std::size_t i = 0; i < 3; ++i) {
    p.dispFreq[i] = static_cast<double>(2 * i + 4) * m.hw->deltaF;
    p.dispVel[i] = 150.0 - static_cast<double>(i);
    p.dispWlen[i] = p.dispVel[i] / p.dispFreq[i];
  }
  for (std::size_t i = 0; i < 32; ++i) {
    p.hAmp[i] = 1.0 + static_cast<double>(i);
    p.enAmp[i] = 101.0 + static_cast<double>(i);
    p.bbAmp[i] = 201.0 + static_cast<double>(i);
  }
  return p;
}

TEST_F(ExdFiles, ExportWritesHeaderAndPointsOfEveryIncludedPair) {
  AddCurve("one").phaseOption = 1;
  AddCurve("two", 0);
  ASSERT_EQ(ExportExdData(folder.File("out.exd")), 0);
  EXPECT_EQ(test::ReadWhole(folder.File("out.exd")),
            "ID : one_[0:1]\n"
            "No. of Points in Dispersion Curve : 3\n"
            "markerType: 0\n"
            "markerLine: 0\n"
            "colorType: 7\n"
            "     Vel         Freq       waveL       TRFamp\n"
            "150 \t125 \t1.2 \t105 \n"
            "149 \t187.5 \t0.794667 \t107 \n"
            "148 \t250 \t0.592 \t109 \n");
}

TEST_F(ExdFiles, TheAmplitudeIsThatOfThePhaseInUse) {
  for (auto [option, first] : {std::pair{0, "\t5 \n"}, {1, "\t105 \n"}, {2, "\t205 \n"}}) {
    ResetEverything();
    AddCurve("one").phaseOption = option;
    ASSERT_EQ(ExportExdData(folder.File("out.exd")), 0);
    EXPECT_NE(test::ReadWhole(folder.File("out.exd")).find(first), std::string::npos) << option;
  }
}

TEST_F(ExdFiles, OutAndInGivesTheCurvesBack) {
  AddCurve("one");
  AddCurve("two");
  ASSERT_EQ(ExportExdData(folder.File("out.exd")), 0);
  const PMeasInfo& first = *MeasDB.pMeasList.at(1);
  const std::vector<double> velocity = first.dispVel, wavelength = first.dispWlen;
  ASSERT_EQ(LoadExdData(folder.File("out.exd"), "out"), 0);
  for (const char* id : {"one@out", "two@out"}) {
    const PMeasInfo* p = PairNamed(id);
    ASSERT_NE(p, nullptr);
    ASSERT_EQ(p->nDispPoints, 3);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(p->dispVel[i], velocity[i]);
      EXPECT_NEAR(p->dispWlen[i], wavelength[i], 1e-6);
    }
  }
}

TEST_F(ExdFiles, TheMenuItemsHaveTheirTitlesAndMessages) {
  frontEnd.fileAnswers = {{FileAnswer::IsNew, "/none.exd"},
                          {},
                          {FileAnswer::Exists, "x.exd"},
                          {FileAnswer::IsNew, folder.File("none/x.exd")}};
  EXPECT_EQ(LoadExdFileMenuCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(frontEnd.files[0].title, "Load EXD file from Sondera Ver 1.");
  EXPECT_EQ(OnlyMessage(), "File does not exist.");
  EXPECT_EQ(LoadExdFileMenuCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1) << "cancelled";
  EXPECT_EQ(Export_ExdDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(frontEnd.files[2].title, "Export Experimental Dispersion Curve.");
  EXPECT_EQ(frontEnd.questions,
            std::vector<std::string>{"File already exists. Do you want to overwrite it ?"});
  EXPECT_EQ(Export_ExdDataCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  ASSERT_EQ(frontEnd.messages.size(), 2u);
  EXPECT_EQ(frontEnd.messages[1],
            "Error in saving the exp. disp. curve into file " + folder.File("none/x.exd") + ".");
}

TEST_F(ExdFiles, AfterALoadTheDispersionPageIsShown) {
  test::WriteWhole(folder.File("site.exd"), CurveText("H31", 5));
  frontEnd.fileAnswers = {{FileAnswer::Exists, folder.File("site.exd")}};
  EXPECT_EQ(LoadExdFileMenuCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 2);
  EXPECT_TRUE(IsPanelShown(Panel::DISPCURV));
  EXPECT_TRUE(IsPanelShown(Panel::MEASSETUP));
}

}  // namespace
}  // namespace sondera::testing
