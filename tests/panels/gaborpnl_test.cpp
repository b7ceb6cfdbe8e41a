#include "panels/gaborpnl.h"

#include <cmath>
#include <limits>

#include "records/session.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "signal/gabor.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

using namespace gaborpnl;

class GaborPanel : public PairTest {
 protected:
  void SetUp() override {
    PairTest::SetUp();
    RedrawHandlers handlers;
    handlers.doPlotting = [this](int page) {
      pages.push_back(page);
      return 0;
    };
    InstallRedrawHandlers(handlers);
  }

  PMeasInfo& Pair() {
    return MakePair([](double f) { return Delay(f, 0.008); }, {.spacing = 1.5});
  }

  static int Press(Callback callback, const Control& control) {
    return callback(Panel::GABORPNL, &control, Event::Commit, 0);
  }

  std::vector<int> pages;
};

// ---- RefreshGaborSetup

TEST_F(GaborPanel, ShowsThePairAndSetsWhatIsNotSet) {
  PMeasInfo& pair = Pair();
  pair.initTime = 0.01;
  pair.initFreq = 5.0;
  pair.nContLevel = 12;
  pair.cntThreshold = 61.5;
  pair.beta = 2.385;
  pair.band = 0.41;
  pair.timeDiv = 33;
  pair.freqDiv = 44;
  RefreshGaborSetup();
  EXPECT_EQ(pair.initTime, 0.0) << "goes back to 0";
  EXPECT_EQ(pair.initFreq, 0.0);
  EXPECT_DOUBLE_EQ(pair.finalTime, 1.5 * 3.0 / 30.0);
  EXPECT_EQ(pair.finalFreq, 500.0);
  EXPECT_EQ(GetCtrlVal(PROJID), "ProjID");
  EXPECT_EQ(GetCtrlVal(MEASID), "measID");
  EXPECT_EQ(GetCtrlVal(INITTIME), 0.0);
  EXPECT_EQ(GetCtrlVal(FINALTIME), pair.finalTime);
  EXPECT_EQ(GetCtrlVal(TIMEDIV), 33);
  EXPECT_EQ(GetCtrlVal(INITFREQ), 0.0);
  EXPECT_EQ(GetCtrlVal(FINALFREQ), 500.0);
  EXPECT_EQ(GetCtrlVal(FREQDIV), 44);
  EXPECT_EQ(GetCtrlVal(BETA), 2.385);
  EXPECT_EQ(GetCtrlVal(BAND), 0.41);
  EXPECT_EQ(GetCtrlVal(NCONTLEVEL), 12);
  EXPECT_EQ(GetCtrlVal(CNTTHRESHOLD), 61.5);
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), "61.5");
}

TEST_F(GaborPanel, RangeThatIsSetStaysAndIsCutAtAFifthOfTheRecordWhenItIsNot) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.03); }, {.spacing = 40.0});
  pair.finalTime = -1.0;
  pair.finalFreq = 77.0;
  RefreshGaborSetup();
  EXPECT_DOUBLE_EQ(pair.finalTime, 0.2 * 1.023);
  EXPECT_EQ(pair.finalFreq, 500.0);
  pair.finalTime = 0.07;
  pair.finalFreq = 60.0;
  RefreshGaborSetup();
  EXPECT_EQ(pair.finalTime, 0.07);
  EXPECT_EQ(pair.finalFreq, 60.0);
  pair.finalFreq = 0.0;
  RefreshGaborSetup();
  EXPECT_EQ(pair.finalTime, 0.07);
  EXPECT_EQ(pair.finalFreq, 500.0);
}

TEST_F(GaborPanel, RefreshWithoutAPairLeavesThePanelAlone) {
  SetCtrlVal(FINALTIME, 0.7);
  LayTransfer([](double f) { return Delay(f, 0.03); });
  RefreshGaborSetup();
  EXPECT_EQ(GetCtrlVal(FINALTIME), 0.7);
  EXPECT_EQ(GetCtrlVal(PROJID), "");
}

// ---- UpdateGaborConfig

TEST_F(GaborPanel, UpdateTakesAllFieldsIntoThePair) {
  PMeasInfo& pair = Pair();
  SetCtrlVal(INITTIME, 0.002);
  SetCtrlVal(FINALTIME, 0.2);
  SetCtrlVal(TIMEDIV, 40);
  SetCtrlVal(INITFREQ, 3.0);
  SetCtrlVal(FINALFREQ, 90.0);
  SetCtrlVal(FREQDIV, 45);
  SetCtrlVal(BETA, 2.0);
  SetCtrlVal(BAND, 0.6);
  SetCtrlVal(NCONTLEVEL, 7);
  SetCtrlVal(CNTTHRESHOLD, 40.0);
  EXPECT_EQ(UpdateGaborConfig(), 0);
  EXPECT_EQ(pair.initTime, 0.002);
  EXPECT_EQ(pair.finalTime, 0.2);
  EXPECT_EQ(pair.timeDiv, 40);
  EXPECT_EQ(pair.initFreq, 3.0);
  EXPECT_EQ(pair.finalFreq, 90.0);
  EXPECT_EQ(pair.freqDiv, 45);
  EXPECT_EQ(pair.beta, 2.0);
  EXPECT_EQ(pair.band, 0.6);
  EXPECT_EQ(pair.nContLevel, 7);
  EXPECT_EQ(pair.cntThreshold, 40.0);
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), "40.0") << "the scale follows";
  EXPECT_EQ(session.gaborThreshold, 75.0) << "that of new pairs stays";
}

TEST_F(GaborPanel, DivisionsAreHeldBetweenZeroAndFifty) {
  PMeasInfo& pair = Pair();
  SetCtrlVal(TIMEDIV, 51);
  SetCtrlVal(FREQDIV, std::numeric_limits<int>::max());
  UpdateGaborConfig();
  EXPECT_EQ(pair.timeDiv, 50);
  EXPECT_EQ(pair.freqDiv, 50);
  EXPECT_EQ(GetCtrlVal(TIMEDIV), 50);
  EXPECT_EQ(GetCtrlVal(FREQDIV), 50);
  SetCtrlVal(TIMEDIV, -4);
  UpdateGaborConfig();
  EXPECT_EQ(pair.timeDiv, 0);
  EXPECT_EQ(GetCtrlVal(TIMEDIV), 0);
}

TEST_F(GaborPanel, WithoutAPairOnlyTheThresholdOfNewPairsIsTaken) {
  SetCtrlVal(CNTTHRESHOLD, 33.0);
  EXPECT_EQ(UpdateGaborConfig(), -1);
  EXPECT_EQ(session.gaborThreshold, 33.0);
  EXPECT_TRUE(MeasDB.pMeasList.empty());
  EXPECT_EQ(Pair().cntThreshold, 33.0);
}

// ---- colours

TEST_F(GaborPanel, ColourMapHasFourLevelsFromTheThresholdToAHundred) {
  session.gaborThreshold = 40.0;
  const std::vector<ColorLevel> map = MakeGaborColorMap();
  ASSERT_EQ(map.size(), 4u);
  const double levels[] = {40.0, 60.0, 80.0, 100.0};
  const int colors[] = {0, 0xFF, 0xFF0000, 0xFFFF00};
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_DOUBLE_EQ(map[k].level, levels[k]);
    EXPECT_EQ(map[k].color, colors[k]);
  }
  Pair().cntThreshold = 70.0;
  EXPECT_EQ(MakeGaborColorMap().front().level, 70.0) << "that of the pair on display";
}

TEST_F(GaborPanel, ScaleIsAStripOfTwoByFour) {
  RefreshGaborColorScale();
  const auto& strip = GraphOf(COLORSCALE).intensity;
  ASSERT_TRUE(strip);
  EXPECT_EQ(strip->columns, 2);
  EXPECT_EQ(strip->rows, 4);
  ASSERT_EQ(strip->z.size(), 8u);
  for (std::size_t column : {0u, 1u})
    for (std::size_t row = 0; row < 4; ++row)
      EXPECT_DOUBLE_EQ(strip->z[column * 4 + row], 75.0 + 25.0 / 3.0 * static_cast<double>(row));
  EXPECT_EQ(strip->yMin, 75.0);
  EXPECT_EQ(strip->yMax, 100.0);
  EXPECT_EQ(strip->colorMap.size(), 4u);
}

TEST_F(GaborPanel, LevelsHaveOneDecimal) {
  RefreshGaborColorScale();
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), "75.0");
  EXPECT_EQ(GetCtrlVal(INTCOLORVAL1), "83.3");
  EXPECT_EQ(GetCtrlVal(INTCOLORVAL2), "91.7");
  EXPECT_EQ(GetCtrlVal(HICOLORVAL), "100.0");
}

TEST_F(GaborPanel, ColoursAreTakenWhenTheyChange) {
  SetCtrlVal(LOCOLOR, 0x101010);
  SetCtrlVal(INTCOLOR1, 0x202020);
  SetCtrlVal(INTCOLOR2, 0x303030);
  SetCtrlVal(HICOLOR, 0x404040);
  EXPECT_EQ(AdjustIntenseColor(Panel::GABORPNL, &LOCOLOR, Event::GotFocus, 0), 0);
  EXPECT_EQ(session.gaborColor.lo, 0);
  EXPECT_EQ(AdjustIntenseColor(Panel::GABORPNL, &LOCOLOR, Event::ValChanged, 0), 0);
  EXPECT_EQ(session.gaborColor.lo, 0x101010);
  EXPECT_EQ(session.gaborColor.int1, 0x202020);
  EXPECT_EQ(session.gaborColor.int2, 0x303030);
  EXPECT_EQ(session.gaborColor.hi, 0x404040);
  ASSERT_TRUE(GraphOf(COLORSCALE).intensity);
  EXPECT_EQ(GraphOf(COLORSCALE).intensity->colorMap[2].color, 0x303030);
  EXPECT_EQ(session.tomoColor.lo, 0) << "the section image has its own";
}

// ---- buttons

TEST_F(GaborPanel, SetupShowsThePanelWithThePair) {
  Pair();
  EXPECT_EQ(GaborSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::GABORPNL));
  EXPECT_EQ(GetCtrlVal(MEASID), "measID");
}

TEST_F(GaborPanel, CloseHidesThePanel) {
  for (Event event : {Event::Commit, Event::Close}) {
    DisplayPanel(Panel::GABORPNL);
    GaborSetupCancelCallback(Panel::GABORPNL, &CLOSE, event, 0);
    EXPECT_FALSE(IsPanelShown(Panel::GABORPNL));
  }
}

TEST_F(GaborPanel, CalcMakesAllThreeMapsAndLeavesTheBackbonePhase) {
  PMeasInfo& pair = Pair();
  pair.phaseOption = 1;
  RefreshGaborSetup();
  EXPECT_EQ(Press(GaborCalcCallback, CALC), 0);
  EXPECT_EQ(pair.phaseOption, 2);
  ASSERT_TRUE(pair.gabor);
  for (const GaborMap& map : *pair.gabor)
    EXPECT_GT(*std::max_element(map.begin() + 500, map.begin() + 550), -50.0);
  EXPECT_FALSE(WaitCursorShown());
  EXPECT_EQ(pages, std::vector<int>{1});
}

TEST_F(GaborPanel, CalcTurnsTraceBIntoTheGaborDisplayOfThePair) {
  Pair();
  AddMeasurement({.measID = "other", .nChannels = 4});
  InsertListItem(sasw::DISPBID, -1, "other", 1);
  SetCtrlIndex(sasw::DISPBID, FindListItem(sasw::DISPBID, "other"));
  ClearListCtrl(sasw::DISPBCHNL);
  RefreshGaborSetup();
  Press(GaborCalcCallback, CALC);
  EXPECT_EQ(GetCtrlVal(sasw::DISPBTYPE), 10);
  EXPECT_EQ(GetLabelFromIndex(sasw::DISPBID, GetCtrlIndex(sasw::DISPBID)), "measID");
  EXPECT_EQ(GetCtrlVal(sasw::DISPB_REFCHNL), 0);
  EXPECT_EQ(GetCtrlVal(sasw::DISPBCHNL), 1);
  EXPECT_EQ(GetNumListItems(sasw::DISPBCHNL), 2) << "channels of that measurement";
}

TEST_F(GaborPanel, CalcLeavesTheTracesWhereOneShowsTheMapAlready) {
  Pair();
  SetCtrlVal(sasw::DISPATYPE, 10);
  RefreshGaborSetup();
  Press(GaborCalcCallback, CALC);
  EXPECT_EQ(GetCtrlVal(sasw::DISPBTYPE), 0);
  EXPECT_EQ(pages, std::vector<int>{1});
}

TEST_F(GaborPanel, CalcAndUpdateWithoutAPairEndQuietly) {
  LayTransfer([](double f) { return Delay(f, 0.03); });
  EXPECT_EQ(Press(GaborCalcCallback, CALC), -1);
  EXPECT_EQ(Press(GaborSetupUpdateCallback, UPDATE), -1);
  EXPECT_EQ(GetCtrlVal(sasw::DISPBTYPE), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_TRUE(pages.empty());
}

TEST_F(GaborPanel, UpdateTakesThePanelAndRedraws) {
  PMeasInfo& pair = Pair();
  RefreshGaborSetup();
  SetCtrlVal(CNTTHRESHOLD, 50.0);
  EXPECT_EQ(Press(GaborSetupUpdateCallback, UPDATE), 0);
  EXPECT_EQ(pair.cntThreshold, 50.0);
  EXPECT_FALSE(pair.gabor) << "nothing is calculated";
  EXPECT_EQ(pages, std::vector<int>{1});
}

TEST_F(GaborPanel, DefaultExchangesTheTwoGaussParametersOfANewPair) {
  PMeasInfo& pair = Pair();
  EXPECT_EQ(pair.band, 0.5);
  EXPECT_EQ(pair.beta, 3.0);
  pair.timeDiv = pair.freqDiv = 20;
  pair.initTime = pair.initFreq = 1.0;
  pair.finalTime = pair.finalFreq = 2.0;
  pair.nContLevel = 3;
  pair.cntThreshold = session.gaborThreshold = 12.0;
  session.gaborColor = {1, 2, 3, 4};
  EXPECT_EQ(Press(GaborDefaultCallback, DEFAULTVALUE), 0);
  EXPECT_EQ(pair.band, 3.0);
  EXPECT_EQ(pair.beta, 0.5);
  EXPECT_EQ(GetCtrlVal(BAND), 3.0);
  EXPECT_EQ(GetCtrlVal(BETA), 0.5);
  EXPECT_EQ(pair.timeDiv, 50);
  EXPECT_EQ(pair.freqDiv, 50);
  EXPECT_EQ(pair.initTime, 0.0);
  EXPECT_EQ(pair.initFreq, 0.0);
  EXPECT_DOUBLE_EQ(pair.finalTime, 0.15) << "as for a pair without a range";
  EXPECT_EQ(pair.finalFreq, 500.0);
  EXPECT_EQ(pair.nContLevel, 10);
  EXPECT_EQ(pair.cntThreshold, 75.0);
  EXPECT_EQ(session.gaborThreshold, 75.0);
  EXPECT_EQ(session.gaborColor.int2, 0xFF0000);
  EXPECT_EQ(GetCtrlVal(HICOLOR), 0xFFFF00);
}

TEST_F(GaborPanel, DefaultWithoutAPairResetsColoursAndThreshold) {
  session.gaborColor = {1, 2, 3, 4};
  session.gaborThreshold = 12.0;
  EXPECT_EQ(Press(GaborDefaultCallback, DEFAULTVALUE), 0);
  EXPECT_EQ(GetCtrlVal(INTCOLOR2), 0xFF0000);
  EXPECT_EQ(GetCtrlVal(CNTTHRESHOLD), 75.0);
  EXPECT_EQ(GetCtrlVal(LOCOLORVAL), "75.0");
}

}  // namespace
}  // namespace sondera::testing
