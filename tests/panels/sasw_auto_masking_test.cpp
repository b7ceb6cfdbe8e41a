#include "panels/sasw_auto_masking.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "panels/sasw_pair.h"
#include "records/session.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "signal/auto_masking.h"
#include "signal/gabor.h"
#include "signal/irf.h"
#include "signal/line_masks.h"
#include "signal/wave_groups.h"
#include "support/odd_numbers.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

constexpr const char* kQuestion = "Need to recalculate Gabor spectrum. Allow to do it ?";

class AutoMaskingTest : public PairTest {
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

  static double Band(double f, double at) {
    const double u = (f - at) / 45.0;
    return std::exp(-u * u);
  }
  /// Weak late energy at 485 Hz, so that the removed energy is known and is not just rounding of the
  /// transforms.
  static std::complex<double> Late(double f) {
    std::complex<double> sum = 0.0;
    for (int i = 600; i < 800; ++i) {
      const double t = 0.001 * i, u = std::sin(M_PI * (i - 600) / 200.0);
      sum += 1e-4 * u * u * std::cos(2.0 * M_PI * 485.0 * t) * Delay(f, t);
    }
    return sum;
  }
  static std::complex<double> Bands(double f, double amp2, double delay2) {
    return (Band(f, 100.0) + 1e-4) * Delay(f, 0.05) + amp2 * Band(f, 250.0) * Delay(f, delay2) + Late(f);
  }
  /// Bands about 100 Hz after 0.05 s and about 250 Hz after 0.055 s; next to nothing elsewhere.
  static std::complex<double> TwoBands(double f) { return Bands(f, 0.8, 0.055); }
  /// A burst of 100 Hz from 0.02 to 0.27 s: longer than the first range, which is a fifth of the record.
  static std::complex<double> LongGroup(double f) {
    std::complex<double> sum = 0.0;
    for (int i = 20; i < 270; ++i) {
      const double t = 0.001 * i;
      sum += std::sin(M_PI * (t - 0.02) / 0.25) * std::cos(2.0 * M_PI * 100.0 * t) * Delay(f, t);
    }
    return sum + Late(f);
  }
  PMeasInfo& Pair() {
    PMeasInfo* pair = FindPair(m.key, 0, 1);
    EXPECT_NE(pair, nullptr);
    return *pair;
  }
  bool Masked(double freq) const {
    for (const MaskingInfo& mask : MeasDB.maskingList)
      if (mask.key == m.key && mask.refChan == 0 && mask.dspChan == 1 && mask.freqInit <= freq &&
          freq <= mask.freqFinal)
        return true;
    return false;
  }
  std::vector<int> pages;
};

// ---- the run

TEST_F(AutoMaskingTest, LeavesTheTwoGroupsAndMasksAllElse) {
  LayTransfer(TwoBands);
  EXPECT_EQ(AutoMasking(), 0);
  for (double f : {90.0, 100.0, 110.0, 240.0, 250.0, 260.0}) EXPECT_FALSE(Masked(f)) << f;
  for (double f : {5.0, 20.0, 175.0, 340.0, 420.0, 480.0}) EXPECT_TRUE(Masked(f)) << f;
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(pages.back(), 1);
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(AutoMaskingTest, NumbersComeFromTheBackbonePhaseAtTheLastLine) {
  LayTransfer(TwoBands);
  AutoMasking();
  int behindTheFirst = 0;
  for (const MaskingInfo& mask : MeasDB.maskingList) {
    const double p = Pair().phaseBB[static_cast<std::size_t>(mask.lineFinal)];
    EXPECT_EQ(mask.jumpNo, p >= 180.0 ? static_cast<int>((p - 180.0) / 360.0) + 1 : 0);
    if (mask.freqInit < 170 && mask.freqFinal > 180) behindTheFirst = mask.jumpNo;
  }
  EXPECT_GT(behindTheFirst, 5) << "0.05 s at 180 Hz are nine cycles";
}

TEST_F(AutoMaskingTest, PairIsMadeWhenMissing) {
  LayTransfer(TwoBands);
  EXPECT_TRUE(MeasDB.pMeasList.empty());
  AutoMasking();
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(Pair().phaseOption, 1) << "as the page has it";
  ASSERT_TRUE(Pair().gabor);
  EXPECT_NE((*Pair().gabor)[2], GaborMap{});
}

TEST_F(AutoMaskingTest, ExistingPairStartsFromTheSiteAndKeepsItsPhaseOption) {
  PMeasInfo& pair = MakePair(TwoBands);
  AutoMasking();
  const auto bb = pair.bbT, en = pair.enT;
  const int masks = MeasDB.maskingList.count();
  pair.phaseOption = 2;
  pair.irfMode = kLowPass;
  pair.bbT = pair.enT = {0, 0.1, 0.2, 0.3, 0.4};
  AutoMasking();
  EXPECT_EQ(pair.bbT, bb);
  EXPECT_EQ(pair.enT, en);
  EXPECT_EQ(pair.irfMode, kBandPass);
  EXPECT_EQ(pair.phaseOption, 2);
  EXPECT_EQ(MeasDB.maskingList.count(), masks);
}

TEST_F(AutoMaskingTest, MasksOfThePairAreReplacedAndThoseOfOthersStay) {
  MakePair(TwoBands, {.nChannels = 3});
  *MeasDB.maskingList.append() = {m.key, 0, 1, 90.0, 110.0, 3, 0, 0};
  *MeasDB.maskingList.append() = {m.key, 0, 2, 90.0, 110.0, 3, 0, 0};
  *MeasDB.maskingList.append() = {m.key + 1, 0, 1, 90.0, 110.0, 3, 0, 0};
  AutoMasking();
  EXPECT_FALSE(Masked(100.0));
  EXPECT_EQ(MeasDB.maskingList.at(1)->dspChan, 2);
  EXPECT_EQ(MeasDB.maskingList.at(2)->key, m.key + 1);
  EXPECT_EQ(MeasDB.maskingList.at(1)->jumpNo, 0) << "numbered by this pair: its line 0 has no cycle";
  EXPECT_EQ(MeasDB.maskingList.at(2)->jumpNo, 3) << "of another measurement";
}

TEST_F(AutoMaskingTest, TopFifthOfTheMapIsAlwaysMasked) {
  LayTransfer([](double f) { return Delay(f, 0.05) + Late(f); });  // all frequencies alike
  AutoMasking();
  for (int line = 410; line < 511; ++line) EXPECT_TRUE(Masked(line * m.hw->deltaF)) << line;
}

TEST_F(AutoMaskingTest, LowBackboneAmplitudeIsMaskedWhateverTheMapSays) {
  // The second group is as clear as before on the map, in dB, and yet a fifth of the first.
  LayTransfer([](double f) { return Bands(f, 0.2, 0.055); });
  AutoMasking();
  EXPECT_FALSE(Masked(100.0));
  EXPECT_TRUE(Masked(250.0));
  WaveGroups groups;
  IdentifyWaveGroup(50, 50, 0.0, Pair().finalTime, Pair().gaborMap(1).data(), 75.0, 10.0, groups);
  EXPECT_EQ(groups.nPeaks, 2);
}

TEST_F(AutoMaskingTest, BandOfAGroupFasterThanTheSiteIsMasked) {
  // The band about 250 Hz arrives after 3 ms: 3300 m/s.
  LayTransfer([](double f) { return Bands(f, 1.0, 0.003); });
  AutoMasking();
  EXPECT_TRUE(Masked(250.0));
  EXPECT_FALSE(Masked(100.0));
}

TEST_F(AutoMaskingTest, WindowsCloseAroundTheStrongestGroup) {
  LayTransfer([](double f) { return Delay(f, 0.05) + Late(f); });
  AutoMasking();
  const PMeasInfo& pair = Pair();
  EXPECT_GT(pair.bbT[1], 0.0);
  EXPECT_LT(pair.bbT[1], 0.05);
  EXPECT_LE(pair.bbT[1], pair.bbT[2]);
  EXPECT_LE(pair.bbT[2], 0.051);
  EXPECT_GE(pair.bbT[3], 0.05);
  EXPECT_GE(pair.bbT[4], pair.bbT[3]);
  EXPECT_LT(pair.bbT[4], 0.08);
  EXPECT_EQ(pair.enT[1], 0.0);
  EXPECT_EQ(pair.enT[2], pair.bbT[1]);
  EXPECT_EQ(pair.enT[3], pair.bbT[4]);
  EXPECT_LE(pair.enT[4], 2.0 * pair.bbT[4]);
}

TEST_F(AutoMaskingTest, ReversedPairIsMaskedByTheAbsoluteSpacing) {
  LayTransfer(TwoBands);
  std::swap(m.setup->recLoc[0], m.setup->recLoc[1]);
  EXPECT_EQ(AutoMasking(), 0);
  EXPECT_FALSE(Masked(100.0));
  EXPECT_GT(Pair().finalTime, 0.0);
  EXPECT_GT(Pair().bbT[4], 0.0);
}

TEST_F(AutoMaskingTest, WithoutAMeasurementNothingHappens) {
  EXPECT_EQ(AutoMasking(), -1);
  EXPECT_TRUE(MeasDB.maskingList.empty());
  EXPECT_TRUE(frontEnd.messages.empty());
}

// ---- the question

TEST_F(AutoMaskingTest, AsksBeforeTheMapsAreMadeAnewAndTakesNoForAnAnswer) {
  LayTransfer(LongGroup);
  EXPECT_EQ(AutoMasking(), 0);
  EXPECT_EQ(frontEnd.questions, std::vector<std::string>{kQuestion});
  EXPECT_DOUBLE_EQ(Pair().finalTime, 0.2046);
}

TEST_F(AutoMaskingTest, OnYesItBeginsAnewWithTheBetterRange) {
  LayTransfer(LongGroup);
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(AutoMasking(), 0);
  EXPECT_EQ(frontEnd.questions.size(), 2u) << "and asks again";
  EXPECT_NEAR(Pair().finalTime, 2.0 * 50 * 0.2046 / 49, 1e-12) << "twice the whole range";
}

TEST_F(AutoMaskingTest, RangeGrowsUntilItCoversHalfOfTheRecord) {
  LayTransfer(LongGroup);
  frontEnd.confirmAnswers.assign(1000, true);
  EXPECT_EQ(AutoMasking(), 0);
  EXPECT_EQ(frontEnd.questions.size(), 2u);
  EXPECT_GT(Pair().finalTime, 0.5 * m.hw->timeLength);
  EXPECT_GT(MeasDB.maskingList.count(), 0);
}

TEST_F(AutoMaskingTest, EndsAfterSixteenRangesWhateverTheMapsSay) {
  // A long silence after a short group, and noise at all times: each range may contradict the one before.
  std::size_t most = 0;
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SetUp();
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    std::vector<std::complex<double>> h(513);
    for (auto& v : h) v = {normal(random), normal(random)};
    const double step = 500.0 / 512;
    LayTransfer([&](double f) { return h[static_cast<std::size_t>(f / step + 0.5)]; },
                {.spacing = 0.05 + 0.3 * seed});
    frontEnd.questions.clear();
    frontEnd.confirmAnswers.assign(1000, true);
    EXPECT_EQ(AutoMasking(), 0);
    most = std::max(most, frontEnd.questions.size());
  }
  EXPECT_GT(most, 0u);
  EXPECT_LE(most, 16u);
}

TEST_F(AutoMaskingTest, RangeThatIsSetBackEachTimeIsAskedForSixteenTimes) {
  PMeasInfo& pair = MakePair(LongGroup);
  frontEnd.onProcessEvents = [&] { pair.finalTime = 0.2046; };
  frontEnd.confirmAnswers.assign(1000, true);
  EXPECT_EQ(AutoMasking(), 0);
  EXPECT_EQ(frontEnd.questions.size(), 16u);
}

TEST_F(AutoMaskingTest, RefusalOfALaterRangeIsReportedAndTheMasksOfTheFirstStay) {
  PMeasInfo& pair = MakePair(LongGroup);
  frontEnd.confirmAnswers.assign(10, true);
  frontEnd.onProcessEvents = [&] {
    if (!frontEnd.questions.empty()) pair.freqDiv = 1;  // typed while the second maps are made
  };
  EXPECT_EQ(AutoMasking(), -1);
  EXPECT_EQ(frontEnd.questions.size(), 1u);
  EXPECT_EQ(OnlyMessage(), "The Gabor spectrum has no range or no divisions. Please check its setup.");
  ASSERT_GT(MeasDB.maskingList.count(), 1);
  EXPECT_GT(MeasDB.maskingList.at(MeasDB.maskingList.count())->jumpNo, 0) << "numbered";
  EXPECT_EQ(pages.back(), 1) << "and shown";
}

TEST_F(AutoMaskingTest, TinyRangeEndsQuietly) {
  for (double spacing : {1e-10, 10.0}) {
    SetUp();
    PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.0); }, {.spacing = spacing});
    pair.finalTime = 1e-12;
    pair.finalFreq = 500.0;
    frontEnd.confirmAnswers.assign(1000, true);
    EXPECT_EQ(AutoMasking(), 0);
    EXPECT_LE(frontEnd.questions.size(), 16u);
    EXPECT_GT(MeasDB.maskingList.count(), 0);
  }
}

// ---- bad settings

TEST_F(AutoMaskingTest, MapWithoutDivisionsOrRangeIsRefusedAndNothingChanges) {
  struct Bad {
    double PMeasInfo::*real;
    int PMeasInfo::*whole;
    double value;
  };
  const Bad cases[] = {{nullptr, &PMeasInfo::timeDiv, 0},          {nullptr, &PMeasInfo::timeDiv, 1},
                       {nullptr, &PMeasInfo::freqDiv, 0},          {nullptr, &PMeasInfo::freqDiv, -7},
                       {&PMeasInfo::finalTime, nullptr, kNaN},     {&PMeasInfo::finalTime, nullptr, -0.1},
                       {&PMeasInfo::initTime, nullptr, 0.5},       {&PMeasInfo::finalFreq, nullptr, 0.0},
                       {&PMeasInfo::finalFreq, nullptr, INFINITY}, {&PMeasInfo::initFreq, nullptr, kNaN}};
  for (const Bad& bad : cases) {
    SetUp();
    PMeasInfo& pair = MakePair(TwoBands);
    *MeasDB.maskingList.append() = {m.key, 0, 1, 10.0, 20.0, 3, 0, 0};
    pair.bbT = {0, 0.01, 0.02, 0.03, 0.04};
    pair.finalTime = 0.2;
    pair.finalFreq = 400.0;
    if (bad.real)
      pair.*bad.real = bad.value;
    else
      pair.*bad.whole = static_cast<int>(bad.value);
    const std::size_t before = frontEnd.messages.size();
    EXPECT_EQ(AutoMasking(), -1);
    ASSERT_EQ(frontEnd.messages.size(), before + 1);
    EXPECT_EQ(frontEnd.messages.back(),
              "The Gabor spectrum has no range or no divisions. Please check its setup.");
    EXPECT_EQ(MeasDB.maskingList.count(), 1);
    EXPECT_EQ(pair.bbT[4], 0.04);
  }
}

TEST_F(AutoMaskingTest, MeasurementWithoutAnAnalysisBandIsRefused) {
  LayTransfer(TwoBands);
  m.hw->freqSpan = 0.0;
  EXPECT_EQ(AutoMasking(), -1);
  EXPECT_EQ(OnlyMessage(), "The Gabor spectrum has no range or no divisions. Please check its setup.");
  EXPECT_TRUE(MeasDB.maskingList.empty());
}

TEST_F(AutoMaskingTest, DivisionsAboveFiftyBecomeFifty) {
  PMeasInfo& pair = MakePair(TwoBands);
  pair.timeDiv = 999;
  pair.freqDiv = 51;
  EXPECT_EQ(AutoMasking(), 0);
  EXPECT_EQ(pair.timeDiv, 50);
  EXPECT_EQ(pair.freqDiv, 50);
  EXPECT_FALSE(Masked(100.0));
}

TEST_F(AutoMaskingTest, FilterThatPassesNothingMasksTheWholeMap) {
  for (double band : {3.0, kNaN, -1.0, 0.0}) {
    SetUp();
    PMeasInfo& pair = MakePair(TwoBands);
    pair.band = band;
    frontEnd.confirmAnswers.assign(100, true);
    EXPECT_EQ(AutoMasking(), 0);
    ASSERT_EQ(MeasDB.maskingList.count(), 1) << band;
    EXPECT_EQ(MeasDB.maskingList.at(1)->freqInit, 0.0);
    EXPECT_EQ(MeasDB.maskingList.at(1)->lineFinal, 511);
    EXPECT_EQ(pair.bbT[4], 0.1) << "windows of the velocities";
  }
}

TEST_F(AutoMaskingTest, HostileRecordsEndInBoundedTime) {
  const double values[] = {0.0, 1e-300, 1e300, -1.0, kNaN, INFINITY};
  for (double scale : values) {
    for (double spacing : {0.0, 1e-9, 10.0, 1e9}) {
      SetUp();
      LayTransfer([=](double f) { return f > 300 ? std::complex<double>(scale, scale) : TwoBands(f); },
                  {.spacing = spacing});
      frontEnd.confirmAnswers.assign(100, true);
      EXPECT_EQ(AutoMasking(), 0) << scale << " " << spacing;
      for (const MaskingInfo& mask : MeasDB.maskingList) {
        EXPECT_GE(mask.freqInit, 0.0);
        EXPECT_LE(mask.freqFinal, 500.0);
      }
    }
  }
}

TEST_F(AutoMaskingTest, ChannelWithItselfIsMaskedByALowPassWindow) {
  LayTransfer(TwoBands);
  SelectPair(m, 1, 1);
  EXPECT_EQ(AutoMasking(), 0);
  const PMeasInfo* pair = FindPair(m.key, 1, 1);
  ASSERT_NE(pair, nullptr);
  EXPECT_EQ(pair->irfMode, kLowPass);
}

TEST_F(AutoMaskingTest, MeasurementTakenAwayWhileTheMapsAreMadeEndsIt) {
  LayTransfer(TwoBands);
  frontEnd.onProcessEvents = [&] { RemoveMeasurement(m.key); };
  EXPECT_EQ(AutoMasking(), -1);
  EXPECT_FALSE(WaitCursorShown());
}

// ---- MaskingAutoCallback

TEST_F(AutoMaskingTest, ButtonMasksAndShowsTheWindows) {
  LayTransfer(TwoBands);
  EXPECT_EQ(MaskingAutoCallback(Panel::SASW, &sasw::MASKINGAUTO, Event::LeftClick, 0), 0);
  EXPECT_TRUE(MeasDB.maskingList.empty());
  EXPECT_EQ(MaskingAutoCallback(Panel::SASW, &sasw::MASKINGAUTO, Event::Commit, 0), 0);
  EXPECT_FALSE(MeasDB.maskingList.empty());
  EXPECT_EQ(GetCtrlVal(irfsetpnl::MEASID), "measID");
  EXPECT_EQ(GetCtrlVal(irfsetpnl::SMIRF_T4), Pair().enT[4]);
}

TEST_F(AutoMaskingTest, ButtonIsForWindowA) {
  LayTransfer(TwoBands);
  SetCtrlVal(sasw::TRACE_ONOFF, 1);
  EXPECT_EQ(MaskingAutoCallback(Panel::SASW, &sasw::MASKINGAUTO, Event::Commit, 0), -1);
  EXPECT_EQ(OnlyMessage(), "Masking is enabled only on Window A.");
  EXPECT_TRUE(MeasDB.pMeasList.empty());
}

TEST_F(AutoMaskingTest, NewNumbersActFromTheNextCalculationOn) {
  LayTransfer(TwoBands);
  AutoMasking();
  const std::vector<double> before = Pair().phaseOrig;
  CalcIRF(0, Panel::SASW);
  EXPECT_NE(Pair().phaseOrig, before);
}

}  // namespace
}  // namespace sondera::testing
