// The two ways to compute a dispersion curve with their differences. Field records are in
// sasw_dispersion_records_test.cpp.
#include "panels/sasw_dispersion.h"

#include <gmock/gmock.h>

#include <cmath>

#include "numeric/pi.h"
#include "panels/meassetup.h"
#include "panels/sasw_masking.h"
#include "records/session.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kSamples = 50;  // delay per receiver spacing: 10 m in 0.05 s, 200 m/s
constexpr double kVelocity = 200.0;

/// Three receivers at 10, 20, 30 m with a wave of 200 m/s between them: exact spectra of whole-sample delays.
class Curves : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement({.nChannels = 3, .nLines = 512, .deltaT = 0.001, .spacing = 10.0});
    FillDelays(kSamples);
    SelectPair(m, 0, 1);
    RedrawHandlers handlers;
    handlers.dispCurvPlot = [this](int flag) {
      drawn.push_back(flag);
      return 0;
    };
    InstallRedrawHandlers(std::move(handlers));
  }

  void FillDelays(int samples) {
    const int n = 2 * m.hw->nLines;
    for (int c = 0; c < 3; ++c)
      for (int i = 0; i < n; ++i) {
        const double angle = -2.0 * kPi * static_cast<double>((static_cast<long>(i) * c * samples) % n) / n;
        const auto at = static_cast<std::size_t>(c * n + i);
        m.raw->crossSpecRe[at] = std::cos(angle);
        m.raw->crossSpecIm[at] = std::sin(angle);
        m.raw->powerSpec[at] = 1.0;
      }
  }

  PMeasInfo& Pair() const {
    PMeasInfo* pair = FindPair(m.key, 0, 1);
    EXPECT_NE(pair, nullptr);
    static PMeasInfo none;
    return pair ? *pair : none;
  }

  static int Press() {
    return MaskingCalcDispCallback(Panel::SASW, &sasw::MASKINGCALCDISP, Event::Commit, 0);
  }
  static int Menu() { return MaskingCalcDispMenuCallback(Panel::MAINMENU, nullptr, Event::Commit, 0); }

  static std::vector<double> Column(const PMeasInfo& pair, std::vector<double> PMeasInfo::*column) {
    return {(pair.*column).begin(), (pair.*column).begin() + pair.nDispPoints};
  }

  void AddMask(double freqInit, double freqFinal, int jumpNo) const {
    MaskingInfo* mask = MeasDB.maskingList.append();
    mask->key = m.key;
    mask->dspChan = 1;
    mask->freqInit = freqInit;
    mask->freqFinal = freqFinal;
    mask->jumpNo = jumpNo;
  }

  TestMeasurement m;
  std::vector<int> drawn;
};

using MaskingCalcDisp = Curves;
using MaskingCalcDispMenu = Curves;

TEST_F(MaskingCalcDisp, PureDelayGivesOneVelocityByEachPhase) {
  for (int option : {0, 1, 2}) {
    SetCtrlVal(sasw::DISPCURV_OPTION, option);
    ASSERT_EQ(Press(), 0);
    const PMeasInfo& pair = Pair();
    EXPECT_EQ(pair.phaseOption, option);
    // From 5 Hz (wavelength 40 m = 10 m / 0.25) to line 511.
    ASSERT_GT(pair.nDispPoints, 500) << option;
    EXPECT_EQ(pair.dispFreq[0], 6 * m.hw->deltaF);
    for (int i = 0; i < pair.nDispPoints; ++i) {
      ASSERT_NEAR(pair.dispVel[i], kVelocity, 1e-8) << "phase " << option << " point " << i;
      ASSERT_NEAR(pair.dispWlen[i] * pair.dispFreq[i], pair.dispVel[i], 1e-12);
    }
    EXPECT_EQ(pair.included, 1);
  }
  EXPECT_THAT(drawn, ElementsAre(1, 1, 1));
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(MaskingCalcDisp, WindowBIsRefused) {
  SetCtrlVal(sasw::TRACE_ONOFF, 1);
  EXPECT_EQ(Press(), -1);
  EXPECT_EQ(OnlyMessage(), "Masking is enabled only on Window A.");
  EXPECT_EQ(frontEnd.messageTitles[0], session.appTitle);
  EXPECT_EQ(MeasDB.pMeasList.count(), 0);
  EXPECT_THAT(drawn, IsEmpty());
}

TEST_F(MaskingCalcDisp, MissingLocationsAreRefused) {
  const auto refuse = [this] {
    frontEnd.messages.clear();
    EXPECT_EQ(Press(), -1);
    EXPECT_EQ(OnlyMessage(), "Source and/or Receiver locations are not specified.");
    EXPECT_EQ(frontEnd.messageTitles.back(), session.appTitle);
  };
  ASSERT_EQ(Press(), 0);
  const int points = Pair().nDispPoints;
  m.setup->srcLoc = 10.0;  // location of receiver 1
  refuse();
  m.setup->srcLoc = 0.0;
  m.setup->recLoc[1] = 10.0;
  refuse();
  m.setup->recLoc.clear();
  refuse();
  EXPECT_EQ(Pair().nDispPoints, points) << "the curve of before stands";
  EXPECT_EQ(drawn.size(), 1u);
}

TEST_F(MaskingCalcDisp, NothingSelectedIsRefusedSilently) {
  ClearListCtrl(sasw::DISPAID);
  EXPECT_EQ(Press(), -1);
  EXPECT_EQ(Menu(), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  EXPECT_THAT(drawn, IsEmpty());
}

TEST_F(MaskingCalcDisp, OnlyTheCommitEventActs) {
  for (Event e : {Event::ValChanged, Event::LeftClick, Event::GotFocus}) {
    EXPECT_EQ(MaskingCalcDispCallback(Panel::SASW, &sasw::MASKINGCALCDISP, e, 0), 0);
    EXPECT_EQ(MaskingCalcDispMenuCallback(Panel::MAINMENU, nullptr, e, 0), 0);
  }
  EXPECT_EQ(MeasDB.pMeasList.count(), 0);
}

TEST_F(MaskingCalcDisp, DistancesHaveNoSign) {
  ASSERT_EQ(Press(), 0);
  const auto velocities = Column(Pair(), &PMeasInfo::dispVel);
  m.setup->srcLoc = 20.0;
  m.setup->recLoc = {10.0, 0.0, -10.0};
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(Column(Pair(), &PMeasInfo::dispVel), velocities);
}

TEST_F(MaskingCalcDisp, SpectraAreBroughtUpToDateFirst) {
  ASSERT_EQ(Press(), 0);
  FillDelays(40);
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_NEAR(Pair().dispVel[100], 250.0, 1e-8);
}

TEST_F(MaskingCalcDisp, MaskedLinesLeaveTheCurveAndGiveItsCycles) {
  // 0.05 s are 2.49 cycles on line 51 (49.8 Hz), and 7.52 on line 154 (150.4 Hz), where the angle has wrapped
  // 8 times.
  AddMask(0.0, 50.0, 2);
  AddMask(100.0, 150.0, 5);
  SetCtrlVal(sasw::DISPCURV_OPTION, 0);
  ASSERT_EQ(Press(), 0);
  const PMeasInfo& pair = Pair();
  ASSERT_EQ(pair.nDispPoints, 511 - 51 - 53);
  for (int i = 0; i < pair.nDispPoints; ++i) {
    const int line = i < 50 ? 52 + i : 105 + i;
    const double f = line * m.hw->deltaF;
    ASSERT_EQ(pair.dispFreq[i], f);
    const double missing = line < 102 ? 0.0 : 3.0;
    ASSERT_NEAR(pair.dispWlen[i], 10.0 / (0.05 * f - missing), 1e-9) << "line " << line;
  }
}

TEST_F(MaskingCalcDisp, MasksFilterTheBackboneToo) {
  SetCtrlVal(sasw::DISPCURV_OPTION, 2);
  ASSERT_EQ(Press(), 0);
  const int all = Pair().nDispPoints;
  const auto phase = Pair().phaseBB;
  AddMask(100.0, 150.0, 77);
  EXPECT_EQ(Pair().nDispPoints, all) << "not before the next calculation";
  ASSERT_EQ(Press(), 0);
  const PMeasInfo& pair = Pair();
  EXPECT_EQ(pair.phaseBB, phase) << "the backbone phase itself ignores the mask";
  EXPECT_EQ(pair.nDispPoints, all - 53) << "lines 102 to 154";
  for (int i = 0; i < pair.nDispPoints; ++i) EXPECT_NEAR(pair.dispVel[i], kVelocity, 1e-8);
}

TEST_F(MaskingCalcDisp, CurveWithoutAPointIsExcludedUntilItHasOneAgain) {
  AddMask(0.0, 600.0, 0);
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(Pair().nDispPoints, 0);
  EXPECT_EQ(Pair().included, 0);
  EXPECT_THAT(drawn, ElementsAre(1));
  FreeMaskingInfoList();
  ASSERT_EQ(Press(), 0);
  EXPECT_GT(Pair().nDispPoints, 0);
  EXPECT_EQ(Pair().included, 1);
  Pair().included = 0;  // excluded by hand
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(Pair().included, 1) << "a calculation that finds points includes the curve";
}

TEST_F(MaskingCalcDisp, ReadsCriterionPhaseAndUnit) {
  SetCtrlVal(meassetup::HYX_WLENFILTER, 1.0);
  SetCtrlVal(sasw::DISPCURV_OPTION, 2);
  SetCtrlVal(meassetup::LENGTHUNIT, 0.3048);
  session.alphaWlen = 0.0;
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(session.alphaWlen, 1.0);
  EXPECT_EQ(Pair().phaseOption, 2);
  EXPECT_EQ(session.lengthUnit, 0.3048);
  EXPECT_LE(Pair().dispWlen[0], 10.0);
  EXPECT_EQ(Pair().wlenCrit, 0.25) << "the pair's own criterion is another matter";
}

TEST_F(MaskingCalcDisp, BandOfAMeasuredRecordEndsAtItsSpan) {
  m.hw->stopFreq = 100.0;  // as nothing has been displayed since a load
  m.hw->startFreq = 50.0;
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(m.hw->stopFreq, 500.0);
  EXPECT_EQ(m.hw->startFreq, 0.0);
  EXPECT_EQ(Pair().dispFreq[Pair().nDispPoints - 1], 511 * m.hw->deltaF);
}

TEST_F(MaskingCalcDisp, BandOfImportedSpectraEndsWhereTheyEnd) {
  m.hw->freqSpan = -499.0;
  m.hw->startFreq = 40.0;
  m.hw->stopFreq = 200.0;
  SetCtrlVal(sasw::DISPCURV_OPTION, 0);
  ASSERT_EQ(Press(), 0);
  EXPECT_EQ(m.hw->startFreq, 40.0) << "these limits are the record's own";
  EXPECT_EQ(Pair().dispFreq[0], 6 * m.hw->deltaF);
  EXPECT_EQ(Pair().dispFreq[Pair().nDispPoints - 1], 205 * m.hw->deltaF)
      << "200 / 0.9765625 = 204.8, to the nearest";
}

TEST_F(MaskingCalcDispMenu, GivesTheSameCurveForAMeasuredRecord) {
  ASSERT_EQ(Press(), 0);
  const auto vel = Column(Pair(), &PMeasInfo::dispVel), freq = Column(Pair(), &PMeasInfo::dispFreq);
  Pair().nDispPoints = 0;
  ASSERT_EQ(Menu(), 0);
  EXPECT_EQ(Column(Pair(), &PMeasInfo::dispVel), vel);
  EXPECT_EQ(Column(Pair(), &PMeasInfo::dispFreq), freq);
}

TEST_F(MaskingCalcDispMenu, DiffersWhenTheBandBeginsAbove0OrEndsBelowTheLastLine) {
  m.hw->freqSpan = -499.0;
  m.hw->startFreq = 40.0;
  m.hw->stopFreq = 200.0;
  SetCtrlVal(sasw::DISPCURV_OPTION, 0);
  ASSERT_EQ(Press(), 0);
  const int points = Pair().nDispPoints;
  const auto wlen = Column(Pair(), &PMeasInfo::dispWlen);
  ASSERT_EQ(Menu(), 0);
  const PMeasInfo& pair = Pair();
  EXPECT_EQ(pair.dispFreq[0], 40.0 + 6 * m.hw->deltaF) << "startFreq is added to each line";
  EXPECT_EQ(pair.dispWlen[0], wlen[0]);
  EXPECT_EQ(pair.dispVel[0], pair.dispWlen[0] * pair.dispFreq[0]);
  EXPECT_EQ(pair.nDispPoints, points + 511 - 205) << "up to the last line";
}

TEST_F(MaskingCalcDispMenu, KeepsCriterionAndPhase) {
  SetCtrlVal(sasw::DISPCURV_OPTION, 0);
  ASSERT_EQ(Menu(), 0);  // makes the pair, with the phase of the control
  EXPECT_EQ(Pair().phaseOption, 0);
  SetCtrlVal(sasw::DISPCURV_OPTION, 2);
  SetCtrlVal(meassetup::HYX_WLENFILTER, 5.0);
  session.alphaWlen = 1.0;
  ASSERT_EQ(Menu(), 0);
  EXPECT_EQ(Pair().phaseOption, 0);
  EXPECT_EQ(session.alphaWlen, 1.0);
  EXPECT_GT(Pair().dispWlen[0], 9.0);
  EXPECT_LE(Pair().dispWlen[0], 10.0);
}

TEST_F(MaskingCalcDispMenu, HasNoGuardOfTheWindow) {
  SetCtrlVal(sasw::TRACE_ONOFF, 1);
  ASSERT_EQ(Menu(), 0);
  EXPECT_NE(FindPair(m.key, 0, 1), nullptr) << "the pair of trace B";
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(MaskingCalcDispMenu, ZeroDistancesGiveAnExcludedCurveWithoutAWord) {
  m.setup->recLoc[1] = 10.0;
  EXPECT_EQ(Menu(), 0);
  EXPECT_EQ(Pair().nDispPoints, 0);
  EXPECT_EQ(Pair().included, 0);
  m.setup->recLoc[1] = 20.0;
  m.setup->srcLoc = 10.0;
  EXPECT_EQ(Menu(), 0);
  EXPECT_EQ(Pair().nDispPoints, 0);
  session.alphaWlen = 0.0;
  EXPECT_EQ(Menu(), 0);
  EXPECT_GT(Pair().nDispPoints, 500) << "without a criterion the source may stand anywhere";
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

// --- settings ---

TEST_F(Curves, CriterionGoesToTheSessionAndToTheImport) {
  SetCtrlVal(meassetup::HYX_WLENFILTER, 0.7);
  EXPECT_EQ(UpdateWLenFilterCallback(Panel::MEASSETUP, &meassetup::HYX_WLENFILTER, Event::GotFocus, 0), 0);
  EXPECT_EQ(session.alphaWlen, 0.25);
  EXPECT_EQ(UpdateWLenFilterCallback(Panel::MEASSETUP, &meassetup::HYX_WLENFILTER, Event::Commit, 0), 0);
  EXPECT_EQ(session.alphaWlen, 0.7);
  EXPECT_EQ(GetCtrlVal(loadtxdata::WLENGTHFILTER), 0.7);
}

TEST_F(Curves, SpacingOptionShowsItsFields) {
  for (int even : {0, 1}) {
    SetCtrlVal(meassetup::RSPACING, even);
    EXPECT_EQ(RSpacingOptionCallback(Panel::MEASSETUP, &meassetup::RSPACING, Event::Commit, 0), 0);
    EXPECT_EQ(IsVisible(meassetup::EVENSPACING), even == 1);
    EXPECT_EQ(IsVisible(meassetup::CHNLLOC), even == 0);
    EXPECT_EQ(IsVisible(meassetup::NCHANNELS3), even == 0);
    EXPECT_EQ(IsVisible(meassetup::CHNLLOCLABEL), even == 0);
  }
}

}  // namespace
}  // namespace sondera::testing
