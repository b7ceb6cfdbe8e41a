// The automatic masking without a page. The button, with whole runs, is in panels/sasw_auto_masking_test.cpp.
#include "signal/auto_masking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/odd_numbers.h"
#include "support/pair_fixture.h"

namespace sondera::testing {
namespace {

class MaskPairTest : public PairTest {
 protected:
  /// A burst of 100 Hz from 0.02 to 0.27 s: longer than the first range, which is a fifth of the record.
  static std::complex<double> LongGroup(double f) {
    std::complex<double> sum = 0.0;
    for (int i = 20; i < 270; ++i) {
      const double t = 0.001 * i;
      sum += std::sin(M_PI * (t - 0.02) / 0.25) * std::cos(2.0 * M_PI * 100.0 * t) * Delay(f, t);
    }
    return sum;
  }
  AutoMaskRequest Request(std::function<bool()> allowNewRange = {}) const {
    return {[this] { return Current(); }, kEnhancedPhase, std::move(allowNewRange)};
  }
  Listener deaf;
};

TEST_F(MaskPairTest, ShowsNothingAndAsksNobodyWithoutAFunctionForIt) {
  LayTransfer(LongGroup);
  const AutoMaskResult result = MaskPair(Request(), deaf);
  EXPECT_TRUE(result.masked);
  EXPECT_FALSE(result.refusal);
  EXPECT_GT(MeasDB.maskingList.count(), 0);
  EXPECT_TRUE(frontEnd.questions.empty());
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(MaskPairTest, AnswerDecidesWhetherTheRangeGrows) {
  LayTransfer(LongGroup);
  int asked = 0;
  MaskPair(Request([&] { return ++asked > 99; }), deaf);
  EXPECT_EQ(asked, 1);
  const double first = Current().pair->finalTime;
  MaskPair(Request([&] { return true; }), deaf);
  EXPECT_GT(Current().pair->finalTime, 1.9 * first);
}

TEST_F(MaskPairTest, RefusalHasItsReasonAndLeavesTheMasks) {
  PMeasInfo& pair = MakePair(LongGroup);
  *MeasDB.maskingList.append() = {m.key, 0, 1, 10.0, 20.0, 3, 0, 0};
  pair.timeDiv = 1;
  const AutoMaskResult result = MaskPair(Request(), deaf);
  EXPECT_FALSE(result.masked);
  EXPECT_EQ(result.refusal.reason(),
            "The Gabor spectrum has no range or no divisions. Please check its setup.");
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
  EXPECT_TRUE(frontEnd.messages.empty()) << "showing it is the page's business";
}

// ---- UpdateJumpNo

class UpdateJumpNoTest : public PairTest {
 protected:
  int NumberFor(double phase) {
    PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.01); });
    MeasDB.maskingList.clear();
    pair.phaseBB[100] = phase;
    *MeasDB.maskingList.append() = {m.key, 0, 1, 0.0, 1.0, -5, 0, 100};
    UpdateJumpNo(pair);
    return MeasDB.maskingList.at(1)->jumpNo;
  }
};

TEST_F(UpdateJumpNoTest, CountsFullCyclesFromHalfACircleOn) {
  EXPECT_EQ(NumberFor(-500.0), 0);
  EXPECT_EQ(NumberFor(179.999), 0) << "below 180 degrees";
  EXPECT_EQ(NumberFor(180.0), 1);
  EXPECT_EQ(NumberFor(539.999), 1);
  EXPECT_EQ(NumberFor(540.0), 2);
  EXPECT_EQ(NumberFor(3000.0), 8);
}

TEST_F(UpdateJumpNoTest, HostilePhasesGiveANumber) {
  EXPECT_EQ(NumberFor(kNaN), 0);
  EXPECT_EQ(NumberFor(-INFINITY), 0);
  EXPECT_EQ(NumberFor(INFINITY), std::numeric_limits<int>::max());
}

TEST_F(UpdateJumpNoTest, LineOutsideTheSpectrumHasPhaseZero) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.01); });
  std::fill(pair.phaseBB.begin(), pair.phaseBB.end(), 5000.0);
  for (int line : {511, 512, 1023, 2000000000, -1})
    *MeasDB.maskingList.append() = {m.key, 0, 1, 0.0, 1.0, 7, 0, line};
  UpdateJumpNo(pair);
  EXPECT_EQ(MeasDB.maskingList.at(1)->jumpNo, 14);
  for (int k = 2; k <= 5; ++k) EXPECT_EQ(MeasDB.maskingList.at(k)->jumpNo, 0) << k;
}

TEST_F(UpdateJumpNoTest, AllMasksOfTheMeasurementAreNumberedByThisPair) {
  PMeasInfo& pair = MakePair([](double f) { return Delay(f, 0.01); }, {.nChannels = 3});
  pair.phaseBB[100] = 1000.0;
  *MeasDB.maskingList.append() = {m.key, 0, 2, 0.0, 1.0, 7, 0, 100};
  *MeasDB.maskingList.append() = {m.key + 1, 0, 1, 0.0, 1.0, 7, 0, 100};
  UpdateJumpNo(pair);
  EXPECT_EQ(MeasDB.maskingList.at(1)->jumpNo, 3) << "of another pair";
  EXPECT_EQ(MeasDB.maskingList.at(2)->jumpNo, 7) << "of another measurement";
}

}  // namespace
}  // namespace sondera::testing
