// The panels of the impulse response filtration: displayed values, stored values, and each refusal by its
// text.
#include "panels/irfsetpnl.h"

#include <cmath>
#include <random>

#include "panels/sasw_pair.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/irfsetpnl2.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "signal/irf.h"
#include "support/signal_fixture.h"

namespace sondera {
namespace {

using testing::AddMeasurement;
using testing::Fold;
using testing::MeasurementPlan;
using testing::TestMeasurement;

/// Three receivers 10 m apart, 512 lines of noise, pair (0, 1) on display.
class IrfPanel : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    MeasurementPlan plan;
    plan.nChannels = 3;
    m = AddMeasurement(plan);
    SelectPair(m, 0, 1);
    std::mt19937 random(5);
    std::normal_distribution<double> normal;
    std::vector<std::vector<double>> record(3, std::vector<double>(1024));
    for (auto& channel : record)
      for (double& v : channel) v = normal(random);
    ASSERT_EQ(Fold(record), 0);
    RedrawHandlers handlers;
    handlers.doPlotting = [this](int page) {
      pages.push_back(page);
      return 0;
    };
    InstallRedrawHandlers(handlers);
  }
  PMeasInfo* MakePair(int refChan = 0, int dspChan = 1) {
    PMeasInfo* pair = nullptr;
    SetupPMeasDataNode(m.projID, m.measID, refChan, dspChan, *m.hw, pair);
    EXPECT_NE(pair, nullptr);
    return pair;
  }
  static WindowFour SmT() {
    using namespace irfsetpnl;
    return {0, GetCtrlVal(SMIRF_T1), GetCtrlVal(SMIRF_T2), GetCtrlVal(SMIRF_T3), GetCtrlVal(SMIRF_T4)};
  }
  static WindowFour SmV() {
    using namespace irfsetpnl;
    return {0, GetCtrlVal(SMIRF_V1), GetCtrlVal(SMIRF_V2), GetCtrlVal(SMIRF_V3), GetCtrlVal(SMIRF_V4)};
  }
  static WindowFour BbV() {
    using namespace irfsetpnl;
    return {0, GetCtrlVal(BBIRF_V1), GetCtrlVal(BBIRF_V2), GetCtrlVal(BBIRF_V3), GetCtrlVal(BBIRF_V4)};
  }
  static void SetSmV(double v1, double v2, double v3, double v4) {
    SetCtrlVal(irfsetpnl::SMIRF_V1, v1);
    SetCtrlVal(irfsetpnl::SMIRF_V2, v2);
    SetCtrlVal(irfsetpnl::SMIRF_V3, v3);
    SetCtrlVal(irfsetpnl::SMIRF_V4, v4);
  }
  static void SetBbV(double v1, double v2, double v3, double v4) {
    SetCtrlVal(irfsetpnl::BBIRF_V1, v1);
    SetCtrlVal(irfsetpnl::BBIRF_V2, v2);
    SetCtrlVal(irfsetpnl::BBIRF_V3, v3);
    SetCtrlVal(irfsetpnl::BBIRF_V4, v4);
  }
  static void SetSmT(double t1, double t2, double t3, double t4) {
    SetCtrlVal(irfsetpnl::SMIRF_T1, t1);
    SetCtrlVal(irfsetpnl::SMIRF_T2, t2);
    SetCtrlVal(irfsetpnl::SMIRF_T3, t3);
    SetCtrlVal(irfsetpnl::SMIRF_T4, t4);
  }
  static void SetSmT2(double t1, double t2, double t3, double t4) {
    SetCtrlVal(irfsetpnl2::SMIRF_T1, t1);
    SetCtrlVal(irfsetpnl2::SMIRF_T2, t2);
    SetCtrlVal(irfsetpnl2::SMIRF_T3, t3);
    SetCtrlVal(irfsetpnl2::SMIRF_T4, t4);
  }
  static int PressOk() { return IRFsetupOkCallback(Panel::IRFSETPNL, &irfsetpnl::OK, Event::Commit, 0); }
  static int PressApply() {
    return UpdateIrfParamCallback(Panel::IRFSETPNL, &irfsetpnl::APPLY, Event::Commit, 0);
  }
  static int PressApply2() {
    return IRFApplyCallback(Panel::IRFSETPNL2, &irfsetpnl2::APPLY, Event::Commit, 0);
  }
  static int PressDefault() {
    return DefaultIRFparmCallback(Panel::IRFSETPNL, &irfsetpnl::COMMANDBUTTON_3, Event::Commit, 0);
  }

  static constexpr double kTotal = 1023 * 0.001;
  TestMeasurement m;
  std::vector<int> pages;
};
using RefreshIRFwindowTest = IrfPanel;
using IRFsetupOk = IrfPanel;
using IRFApply = IrfPanel;
using UpdateIrfParam = IrfPanel;
using DefaultIRFparm = IrfPanel;
using SiteCategory = IrfPanel;

// --- showing ---

TEST_F(RefreshIRFwindowTest, MakesAMissingPairAndShowsItsWindows) {
  SelectPair(m, 0, 2);
  RefreshIRFwindow(Panel::SASW);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  const PMeasInfo& pair = *MeasDB.pMeasList.at(1);
  EXPECT_EQ(pair.dspChan, 2);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::MEASID), "measID");
  EXPECT_EQ(GetCtrlVal(irfsetpnl::REFCHNL), 1);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::DSPCHNL), 3);
  EXPECT_EQ(SmT(), pair.enT);
  for (std::size_t k = 1; k <= 4; ++k) {
    EXPECT_EQ(BbV()[k], 20.0 / pair.bbT[k]);
    EXPECT_EQ(SmV()[k], 20.0 / pair.enT[k]);
  }
  EXPECT_NEAR(BbV()[4], 100.0, 0.01);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::IRFMODE), kBandPass);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::RECORDLENGTH), "* Total record length = 1.023");
  EXPECT_EQ(GetCtrlVal(irfsetpnl2::SMIRF_T4), pair.enT[4]);
  EXPECT_EQ(GetCtrlVal(irfsetpnl2::BBIRF_T1), pair.bbT[1]);
}

TEST_F(RefreshIRFwindowTest, NoDelayShowsFiftyThousandMetresPerSecond) {
  PMeasInfo* pair = MakePair();
  m.setup->lengthUnit = 0.3048;
  pair->enT = {0, 0.0, 0.01, 0.02, 0.03};
  RefreshIRFwindow(Panel::SASW);
  EXPECT_EQ(SmV()[1], 50000 / 0.3048);
  EXPECT_EQ(SmV()[2], 1000.0);
}

TEST_F(RefreshIRFwindowTest, TimesThatAreNotSetComeFromTheVelocitiesInUnitsOfLength) {
  PMeasInfo* pair = MakePair();
  m.setup->lengthUnit = 0.5;
  pair->bbT[4] = 0.0;
  pair->irfMode = kLowPass;
  pair->enT = {0, 1, 2, 3, 4};
  RefreshIRFwindow(Panel::SASW);
  EXPECT_EQ(pair->irfMode, kBandPass);
  EXPECT_EQ(pair->bbT, (WindowFour{0, 0.005, 0.005263, 0.04545, 0.05}));
  EXPECT_EQ(pair->enT[4], 0.1667);
}

TEST_F(RefreshIRFwindowTest, MeasurementPageBringsItsOwnPair) {
  SetCtrlVal(measpanel::DISPA_REFCHNL, 1);
  SetCtrlVal(measpanel::DISPACHNL, 2);
  RefreshIRFwindow(Panel::MEASPANEL);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->refChan, 1);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::REFCHNL), 2);
  EXPECT_EQ(session.curMeasID, "measID");
}

TEST_F(RefreshIRFwindowTest, UnknownMeasurementChangesNothing) {
  SetCtrlVal(hmsetup::PROJID, "other");
  SetCtrlVal(irfsetpnl::MEASID, "before");
  RefreshIRFwindow(Panel::SASW);
  RefreshIRFwindow(Panel::MEASPANEL);
  RefreshIRFwindow(Panel::HMSETUP);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::MEASID), "before");
  EXPECT_TRUE(MeasDB.pMeasList.empty());
}

TEST_F(RefreshIRFwindowTest, ButtonShowsThePanelUnlessToldOtherwise) {
  EXPECT_EQ(CalcIRFCallback(Panel::SASW, &sasw::MASKINGLIST, Event::Commit, 0x7AB), 0);
  EXPECT_FALSE(IsPanelShown(Panel::IRFSETPNL));
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(CalcIRFCallback(Panel::SASW, &sasw::MASKINGLIST, Event::LeftClick, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::IRFSETPNL));
  EXPECT_EQ(CalcIRFCallback(Panel::SASW, &sasw::MASKINGLIST, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::IRFSETPNL));
  EXPECT_EQ(IRFsetupCancelCallback(Panel::IRFSETPNL, &irfsetpnl::CANCEL, Event::Commit, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::IRFSETPNL));
  DisplayPanel(Panel::IRFSETPNL2);
  EXPECT_EQ(CloseIRFCallback(Panel::IRFSETPNL2, &irfsetpnl2::CLOSE, Event::Commit, 0), 0);
  EXPECT_FALSE(IsPanelShown(Panel::IRFSETPNL2));
}

TEST_F(RefreshIRFwindowTest, MenuShowsSignedVelocitiesAndTheBareRecordLength) {
  std::swap(m.setup->recLoc[0], m.setup->recLoc[1]);
  const PMeasInfo* pair = MakePair();
  EXPECT_EQ(IRFSetupCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_TRUE(IsPanelShown(Panel::IRFSETPNL));
  EXPECT_EQ(BbV()[4], -10.0 / pair->bbT[4]);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::RECORDLENGTH), "1.023");
}

// --- OK ---

TEST_F(IRFsetupOk, StoresTheDelaysOfBothSetsAndBringsThePairUpToDate) {
  PMeasInfo* pair = MakePair();
  pair->phaseOption = 1;
  const std::vector<double> before = pair->enRe;
  SetBbV(800, 700, 120, 110);
  SetSmV(400, 300, 90, 70);
  EXPECT_EQ(PressOk(), 0);
  EXPECT_EQ(pair->bbT, (WindowFour{0, 10.0 / 800, 10.0 / 700, 10.0 / 120, 10.0 / 110}));
  EXPECT_EQ(pair->enT, (WindowFour{0, 10.0 / 400, 10.0 / 300, 10.0 / 90, 10.0 / 70}));
  EXPECT_EQ(pair->irfMode, kBandPass);
  EXPECT_NE(pair->enRe, before);
  EXPECT_EQ(pair->phaseOption, 1);
  EXPECT_EQ(pages, std::vector<int>{1});
  EXPECT_FALSE(WaitCursorShown());
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(IRFsetupOk, WrongOrderOfBackboneVelocitiesIsRefused) {
  const PMeasInfo* pair = MakePair();
  const WindowFour bb = pair->bbT;
  SetBbV(800, 900, 120, 110);
  SetSmV(1, 2, 3, 4);  // wrong as well, but the backbone set is checked first
  EXPECT_EQ(PressOk(), -1);
  EXPECT_EQ(OnlyMessage(), "Need to be BBV4 < BBV3 < BBV2 < BBT1 !!!");
  EXPECT_EQ(frontEnd.messageTitles[0], session.appTitle);
  EXPECT_EQ(pair->bbT, bb);
  EXPECT_TRUE(pages.empty());
}

TEST_F(IRFsetupOk, WrongOrderOfEnhancedVelocitiesIsRefused) {
  const PMeasInfo* pair = MakePair();
  const WindowFour en = pair->enT;
  SetBbV(800, 700, 120, 110);
  SetSmV(400, 300, 70, 90);
  EXPECT_EQ(PressOk(), -1);
  EXPECT_EQ(OnlyMessage(), "Need to be SmV4 < SmV3 < SmV2 < SmV1 !!!");
  EXPECT_EQ(pair->enT, en);
}

TEST_F(IRFsetupOk, EqualVelocitiesPass) {
  const PMeasInfo* pair = MakePair();
  SetBbV(800, 800, 110, 110);
  SetSmV(400, 400, 400, 400);
  EXPECT_EQ(PressOk(), 0);
  EXPECT_EQ(pair->enT[1], pair->enT[4]);
}

TEST_F(IRFsetupOk, DelayBeyondTheRecordIsRefused) {
  const PMeasInfo* pair = MakePair();
  const WindowFour en = pair->enT;
  SetBbV(800, 700, 120, 110);
  SetSmV(400, 300, 20, 9.7);  // 1.03 s
  DisplayPanel(Panel::IRFSETPNL);
  EXPECT_EQ(PressOk(), -1);
  EXPECT_EQ(OnlyMessage(), "T1, T2, T3, or T4 can not be greater than the record length.");
  EXPECT_TRUE(IsPanelShown(Panel::IRFSETPNL)) << "stays when it refuses";
  EXPECT_EQ(pair->enT, en);
  EXPECT_TRUE(pages.empty());
}

TEST_F(IRFsetupOk, VelocityOfZeroOrLessStandsForNoDelay) {
  const PMeasInfo* pair = MakePair();
  SetBbV(800, 700, 120, 110);
  SetSmV(400, 300, 90, -70);
  EXPECT_EQ(PressOk(), 0);
  EXPECT_EQ(pair->enT[4], 0.3333);  // a fourth time of 0 means not set, so the window is computed again
}

TEST_F(IRFsetupOk, LowPassDerivesTheLastTimesAndShowsTheEnhancedOnes) {
  const PMeasInfo* pair = MakePair();
  SetCtrlVal(irfsetpnl::IRFMODE, kLowPass);
  SetBbV(800, 700, 120, 110);
  SetSmV(400, 300, 90, 70);
  DisplayPanel(Panel::IRFSETPNL);
  EXPECT_EQ(PressOk(), 0);
  EXPECT_FALSE(IsPanelShown(Panel::IRFSETPNL));
  EXPECT_EQ(pair->irfMode, kLowPass);
  EXPECT_EQ(pair->bbT[3], kTotal - 10.0 / 700);
  EXPECT_EQ(pair->bbT[4], kTotal - 10.0 / 800);
  EXPECT_EQ(pair->enT[3], kTotal - 10.0 / 300);
  EXPECT_EQ(pair->enT[4], kTotal - 10.0 / 400);
  EXPECT_EQ(SmT()[3], pair->enT[3]);
  EXPECT_EQ(SmT()[4], pair->enT[4]);
}

TEST_F(IRFsetupOk, ShownWindowsComeBackUpToRounding) {
  const PMeasInfo* pair = MakePair();
  for (int mode : {kBandPass, kLowPass}) {
    SetCtrlVal(irfsetpnl::IRFMODE, mode);
    if (mode == kLowPass) {
      SetSmV(400, 300, 90, 70);
      ASSERT_EQ(PressOk(), 0);
    }
    RefreshIRFwindow(Panel::SASW);
    const WindowFour bb = pair->bbT, en = pair->enT;
    ASSERT_EQ(PressOk(), 0) << OnlyMessage();
    for (std::size_t k = 1; k <= 4; ++k) {
      EXPECT_NEAR(pair->bbT[k], bb[k], 1e-12) << mode;
      EXPECT_NEAR(pair->enT[k], en[k], 1e-12) << mode;
    }
  }
}

TEST_F(IRFsetupOk, NothingHappensWithoutAPairOrWithoutACommit) {
  SetBbV(800, 700, 120, 110);
  SetSmV(400, 300, 90, 70);
  EXPECT_EQ(PressOk(), 0);
  EXPECT_TRUE(MeasDB.pMeasList.empty());
  SetSmV(1, 2, 3, 4);
  EXPECT_EQ(IRFsetupOkCallback(Panel::IRFSETPNL, &irfsetpnl::OK, Event::LeftClick, 0), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

// --- Apply by times only ---

TEST_F(IRFApply, TakesBackboneFromVelocitiesAndEnhancedFromTimes) {
  const PMeasInfo* pair = MakePair();
  SetBbV(800, 700, 120, 110);
  SetSmT2(0.01, 0.02, 0.2, 0.25);
  EXPECT_EQ(PressApply2(), 0);
  EXPECT_EQ(pair->bbT[3], 10.0 / 120);
  EXPECT_EQ(pair->enT, (WindowFour{0, 0.01, 0.02, 0.2, 0.25}));
  EXPECT_EQ(pages, std::vector<int>{1});
}

TEST_F(IRFApply, WithoutAPairReturnsZeroInSilence) {
  SetSmT2(4, 3, 2, 1);
  EXPECT_EQ(PressApply2(), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(IRFApply, EitherSetOutOfOrderIsRefused) {
  const PMeasInfo* pair = MakePair();
  const WindowFour bb = pair->bbT, en = pair->enT;
  SetBbV(800, 700, 120, 110);
  SetSmT2(0.01, 0.2, 0.02, 0.25);
  EXPECT_EQ(PressApply2(), -1);
  EXPECT_EQ(OnlyMessage(), "Need to be T1 < T2 < T3 < T4 !!!");
  SetBbV(110, 120, 700, 800);
  SetSmT2(0.01, 0.02, 0.2, 0.25);
  EXPECT_EQ(PressApply2(), -1);
  EXPECT_EQ(frontEnd.messages.back(), "Need to be T1 < T2 < T3 < T4 !!!");
  EXPECT_EQ(pair->bbT, bb);
  EXPECT_EQ(pair->enT, en);
}

TEST_F(IRFApply, NegativeAndTooLongTimesAreRefused) {
  const PMeasInfo* pair = MakePair();
  const WindowFour en = pair->enT;
  SetBbV(800, 700, 120, 110);
  SetSmT2(-0.01, 0.02, 0.2, 5.0);
  EXPECT_EQ(PressApply2(), -1);
  EXPECT_EQ(OnlyMessage(), "T1, T2, T3, or T4 can not be negative.");
  SetSmT2(0.01, 0.02, 0.2, 1.024);
  EXPECT_EQ(PressApply2(), -1);
  EXPECT_EQ(frontEnd.messages.back(), "T1, T2, T3, or T4 can not be greater than the record length.");
  EXPECT_EQ(pair->enT, en);
}

TEST_F(IRFApply, LowPassShowsTheDerivedTimesInItsOwnPanel) {
  MakePair();
  SetCtrlVal(irfsetpnl::IRFMODE, kLowPass);
  SetBbV(800, 700, 120, 110);
  SetSmT2(0.01, 0.02, 0.2, 0.25);
  EXPECT_EQ(PressApply2(), 0);
  EXPECT_EQ(GetCtrlVal(irfsetpnl2::SMIRF_T3), kTotal - 0.02);
  EXPECT_EQ(GetCtrlVal(irfsetpnl2::SMIRF_T4), kTotal - 0.01);
}

// --- Apply of the present times ---

TEST_F(UpdateIrfParam, TakesTimesAndModeWithoutATestAndShowsVelocities) {
  PMeasInfo* pair = MakePair();
  RefreshIRFwindow(Panel::SASW);
  const WindowFour bb = pair->bbT;
  const std::vector<double> before = pair->enIrRe;
  SetCtrlVal(irfsetpnl::IRFMODE, kLowPass);
  SetSmT(0.02, 0.01, 0.0, 0.25);  // neither in order nor mirrored
  EXPECT_EQ(PressApply(), 0);
  EXPECT_EQ(pair->irfMode, kLowPass);
  EXPECT_EQ(pair->enT, (WindowFour{0, 0.02, 0.01, 0.0, 0.25}));
  EXPECT_EQ(pair->bbT, bb);
  EXPECT_EQ(SmV(), (WindowFour{0, 500, 1000, 250000, 250000}));  // the fourth is guarded by the third time
  EXPECT_NE(pair->enIrRe, before);
  EXPECT_EQ(pages, std::vector<int>{1});
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(UpdateIrfParam, FourthVelocityIsGuardedByTheThirdTime) {
  MakePair();
  RefreshIRFwindow(Panel::SASW);
  SetSmT(0.01, 0.02, 0.05, 0.0);
  EXPECT_EQ(PressApply(), 0);
  EXPECT_TRUE(std::isinf(SmV()[4]));
  EXPECT_EQ(SmV()[3], 200.0);
  EXPECT_EQ(FindPair(m.key, 0, 1)->enT[4], 0.3333);  // and a fourth time of 0 is computed again
}

TEST_F(UpdateIrfParam, WorksOnThePairThatThePanelShows) {
  PMeasInfo* shown = MakePair(0, 1);
  RefreshIRFwindow(Panel::SASW);
  SelectPair(m, 1, 2);  // the page shows another pair now
  PMeasInfo* other = MakePair(1, 2);
  const WindowFour otherTimes = other->enT;
  SetSmT(0.01, 0.02, 0.05, 0.06);
  EXPECT_EQ(PressApply(), 0);
  EXPECT_EQ(shown->enT[1], 0.01);
  EXPECT_EQ(other->enT, otherTimes);
  EXPECT_EQ(session.refChan, 0);  // the panel's channels are the last selected now
  EXPECT_EQ(session.dspChan, 1);
}

TEST_F(UpdateIrfParam, WorksOnTheMeasurementThatThePanelShows) {
  PMeasInfo* shown = MakePair();
  RefreshIRFwindow(Panel::SASW);
  MeasurementPlan plan;
  plan.measID = "second";
  plan.nChannels = 3;
  const TestMeasurement second = AddMeasurement(plan);
  SelectPair(second, 0, 1);
  SetSmT(0.01, 0.02, 0.05, 0.06);
  EXPECT_EQ(PressApply(), 0);
  EXPECT_EQ(shown->enT[1], 0.01);
  EXPECT_EQ(session.curMeasID, "second");
}

TEST_F(UpdateIrfParam, WithoutAPairDoesNothing) {
  SetCtrlVal(irfsetpnl::MEASID, "measID");
  SetCtrlVal(irfsetpnl::REFCHNL, 0);
  SetCtrlVal(irfsetpnl::DSPCHNL, 2);
  session.refChan = 1;
  EXPECT_EQ(PressApply(), 0);
  EXPECT_TRUE(pages.empty());
  EXPECT_EQ(session.refChan, 1);
}

// --- defaults and mode ---

TEST_F(DefaultIRFparm, ShowsTheTableOfModeAndSiteThenTurnsToLowPass) {
  PMeasInfo* pair = MakePair();
  RefreshIRFwindow(Panel::SASW);
  const WindowFour bb = pair->bbT, en = pair->enT;
  SetCtrlVal(irfsetpnl::SITECAT, 1);
  SetCtrlVal(irfsetpnl::IRFMODE, kBandPass);
  EXPECT_EQ(PressDefault(), 0);
  EXPECT_EQ(SmV(), (WindowFour{0, 4000, 3950, 550, 500}));
  EXPECT_EQ(BbV(), (WindowFour{0, 3000, 2950, 1550, 1500}));
  EXPECT_EQ(SmT(), (WindowFour{0, 10.0 / 4000, 10.0 / 3950, 10.0 / 550, 10.0 / 500}));
  EXPECT_EQ(GetCtrlVal(irfsetpnl::SITECAT), 0);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::IRFMODE), kLowPass);
  for (const NumericControl* field :
       {&irfsetpnl::SMIRF_V3, &irfsetpnl::SMIRF_V4, &irfsetpnl::BBIRF_V3, &irfsetpnl::BBIRF_V4})
    EXPECT_TRUE(IsDimmed(*field));
  EXPECT_FALSE(IsDimmed(irfsetpnl::SMIRF_V2));
  EXPECT_EQ(pair->bbT, bb);  // the record waits for Apply or OK
  EXPECT_EQ(pair->enT, en);
  EXPECT_EQ(pair->irfMode, kBandPass);
}

TEST_F(DefaultIRFparm, ZeroSpacingLeavesTheTimesShown) {
  MakePair();
  RefreshIRFwindow(Panel::SASW);
  const WindowFour times = SmT();
  m.setup->recLoc[1] = m.setup->recLoc[0];
  EXPECT_EQ(PressDefault(), 0);
  EXPECT_EQ(SmT(), times);
  EXPECT_EQ(SmV()[1], 1250.0);
}

TEST_F(DefaultIRFparm, WithoutAPairChangesNothing) {
  SetCtrlVal(irfsetpnl::SITECAT, 1);
  EXPECT_EQ(PressDefault(), 0);
  EXPECT_EQ(GetCtrlVal(irfsetpnl::SITECAT), 1);
}

TEST_F(IrfPanel, ModeIsStoredInThePairOfThePanel) {
  PMeasInfo* pair = MakePair();
  RefreshIRFwindow(Panel::SASW);
  SetCtrlVal(irfsetpnl::IRFMODE, kLowPass);
  EXPECT_EQ(IRFmodeCallback(Panel::IRFSETPNL, &irfsetpnl::IRFMODE, Event::GotFocus, 0), 0);
  EXPECT_EQ(pair->irfMode, kBandPass);
  EXPECT_EQ(IRFmodeCallback(Panel::IRFSETPNL, &irfsetpnl::IRFMODE, Event::Commit, 0), 0);
  EXPECT_EQ(pair->irfMode, kLowPass);
}

TEST_F(IrfPanel, LowPassDimsTheLastVelocitiesAndBandPassUndimsThem) {
  for (int mode : {kLowPass, kBandPass}) {
    SetCtrlVal(irfsetpnl::IRFMODE, mode);
    EXPECT_EQ(SetIRFModeCallback(Panel::IRFSETPNL, &irfsetpnl::IRFMODE, Event::Commit, 0), 0);
    EXPECT_EQ(IsDimmed(irfsetpnl::SMIRF_V3), mode == kLowPass);
    EXPECT_EQ(IsDimmed(irfsetpnl::SMIRF_V4), mode == kLowPass);
    EXPECT_EQ(IsDimmed(irfsetpnl::BBIRF_V3), mode == kLowPass);
    EXPECT_EQ(IsDimmed(irfsetpnl::BBIRF_V4), mode == kLowPass);
    EXPECT_FALSE(IsDimmed(irfsetpnl::BBIRF_V1));
  }
}

// --- site category ---

TEST_F(SiteCategory, SetsVelocitiesWindowsAndPanel) {
  const PMeasInfo* pair = MakePair();
  SetCtrlVal(irfsetpnl::SITECAT, 2);
  EXPECT_EQ(SetupSiteCatCallback(Panel::IRFSETPNL, &irfsetpnl::SITECAT, Event::ValChanged, 0), 0);
  EXPECT_EQ(session.siteCategory, 0);
  EXPECT_EQ(SetupSiteCatCallback(Panel::IRFSETPNL, &irfsetpnl::SITECAT, Event::Commit, 0), 0);
  EXPECT_EQ(session.siteCategory, 2);
  EXPECT_EQ(session.smV, (WindowFour{0, 3000, 2950, 550, 500}));
  EXPECT_EQ(pair->bbT[4], 0.01);
  EXPECT_EQ(pair->enT[4], 0.02);
  EXPECT_EQ(BbV()[4], 1000.0);
  EXPECT_EQ(SmT(), pair->enT);
}

TEST_F(SiteCategory, AtAFreshStartMakesThePairOnDisplay) {
  SetupSiteCategory();
  EXPECT_EQ(session.smV, (WindowFour{0, 2500, 2400, 35, 30}));
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->dspChan, 1);
}

TEST(SiteCategoryWithoutData, OnlySetsTheVelocities) {
  testing::ResetEverything();
  SetCtrlVal(irfsetpnl::SITECAT, 1);
  SetupSiteCategory();
  EXPECT_EQ(session.bbV, (WindowFour{0, 3000, 2950, 1550, 1500}));
  EXPECT_TRUE(MeasDB.pMeasList.empty());
}

}  // namespace
}  // namespace sondera
