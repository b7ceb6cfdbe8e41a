// Tests of the starting model without any panel: thicknesses, the loop over the ratios, the choice of the best.
#include "inversion/starting_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace sondera {
namespace {

using Numbers = std::vector<double>;

// --- thicknesses ---

TEST(DoublingThicknesses, DoubleEveryFourLayersUntilTheDepthIsPassed) {
  double sum = 0.0;
  EXPECT_EQ(DoublingThicknesses(0.5, 10.0, sum), (Numbers{0.5, 0.5, 0.5, 0.5, 1, 1, 1, 1, 2, 2, 2}));
  EXPECT_EQ(sum, 12.0);
}

TEST(DoublingThicknesses, SumEqualToTheDepthGoesOn) {
  double sum = 0.0;
  EXPECT_EQ(DoublingThicknesses(0.5, 1.0, sum), (Numbers{0.5, 0.5, 0.5}));
  EXPECT_EQ(sum, 1.5);
}

TEST(DoublingThicknesses, NeverMakeMoreThanFourHundredLayers) {
  double sum = 0.0;
  EXPECT_EQ(DoublingThicknesses(0.0, 10.0, sum).size(), 400u);
  EXPECT_EQ(sum, 0.0);
  const Numbers endless = DoublingThicknesses(0.5, std::numeric_limits<double>::infinity(), sum);
  EXPECT_EQ(endless.size(), 400u);
  EXPECT_TRUE(std::isfinite(sum));
  EXPECT_EQ(endless.back(), std::ldexp(0.5, 99));
}

TEST(DoublingThicknesses, DepthBelowZeroMakesOneLayer) {
  double sum = 0.0;
  EXPECT_EQ(DoublingThicknesses(0.5, -1e30, sum), Numbers{0.5});
}

TEST(FirstThickness, IsLimitedByTheDepthInOneFigure) {
  EXPECT_EQ(FirstThickness(0.5, 10.0), 0.5);
  EXPECT_EQ(FirstThickness(0.5, 1.45), 0.4);  // 0.435
  EXPECT_EQ(FirstThickness(0.5, 0.0), 0.0);
}

TEST(LayersForDepth, HalfSpaceIsAThousandTimesTheLayers) {
  EXPECT_EQ(LayersForDepth(0.5, 1.0, false).thickness, (Numbers{0.5, 0.5, 0.5}));
  const Layering layers = LayersForDepth(0.5, 1.0, true);
  EXPECT_EQ(layers.thickness, (Numbers{0.5, 0.5, 0.5, 1500.0}));
  EXPECT_EQ(layers.depth, 1.5);
}

TEST(DepthOfCurves, IsZeroWithoutACurve) {
  EXPECT_EQ(DepthOfCurves({}), 0.0);
}

// --- ratios ---

TEST(RatioOf, RatiosAreEvenlySpacedAndOneIsTheFirst) {
  const RatioSettings four{4, 0.35, 0.65};
  for (int k = 1; k <= 4; ++k) EXPECT_NEAR(RatioOf(four, k), 0.25 + 0.1 * k, 1e-15);
  EXPECT_EQ(RatioOf({1, 0.35, 0.65}, 1), 0.35);
}

class RatiosTest : public ::testing::Test, public Listener {
 protected:
  RatiosTest() {
    settings.nDispPointsG = 1;
    settings.globalVel = {200.0};
    profiles.rms = OffsetVector<double>(0, 50);
    profiles.nEntries = 10;
    steps.begun = [this] { log += "begun "; };
    steps.run = [this](int k, double ratio) {
      log += "run " + std::to_string(k) + " ";
      asked.push_back(ratio);
      profiles.rms[k] = misfits[static_cast<std::size_t>(k - 1)];
      return k == failsAt ? -1 : 0;
    };
    steps.done = [this](int k) {
      log += "done " + std::to_string(k) + " ";
      return k != lastAt;
    };
  }
  void Status(const std::string& text) override { status = text; }
  EvaluationEnd Evaluate(int count) {
    return EvaluateRatios({count, 0.4, 0.6}, settings, profiles, steps, *this);
  }

  ModelRecord settings;
  InvRecord profiles;
  EvaluationSteps steps;
  std::vector<double> asked, misfits = {9.0, 5.0, 7.0};
  int failsAt = 0, lastAt = 0;
  std::string log, status;
};

TEST_F(RatiosTest, EachRatioRunsAndIsDoneInItsOrder) {
  const EvaluationEnd end = Evaluate(3);
  EXPECT_TRUE(end.started && end.whole && !end.refusal);
  EXPECT_EQ(log, "begun run 1 done 1 run 2 done 2 run 3 done 3 ");
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_NEAR(asked[1], 0.5, 1e-15);
  EXPECT_EQ(status, "Starting Model P. 3 : alpha=0.6");
  EXPECT_EQ(profiles.nEntries, 3);
  EXPECT_EQ(BestProfile(profiles, 3), 0) << "no layers are stored";
  profiles.nLayers = 2;
  EXPECT_EQ(BestProfile(profiles, 3), 2);
  EXPECT_EQ(BestProfile(profiles, 1), 1);
}

TEST_F(RatiosTest, RunThatFailsEndsTheLoopAndHasNoMisfit) {
  failsAt = 2;
  const EvaluationEnd end = Evaluate(3);
  EXPECT_TRUE(end.started && !end.whole && !end.refusal);
  EXPECT_EQ(log, "begun run 1 done 1 run 2 ");
  EXPECT_EQ(profiles.rms[1], 9.0);
  EXPECT_EQ(profiles.rms[2], -1.0);
  EXPECT_EQ(profiles.rms[3], -1.0);
}

TEST_F(RatiosTest, WhoListsASlotCanEndTheLoop) {
  lastAt = 1;
  const EvaluationEnd end = Evaluate(3);
  EXPECT_TRUE(end.started && !end.whole);
  EXPECT_EQ(log, "begun run 1 done 1 ");
}

TEST_F(RatiosTest, WithoutACurveOrWithAnImpossibleNumberNothingChanges) {
  for (const int count : {-1, kMostRatios + 1}) {
    const EvaluationEnd end = Evaluate(count);
    EXPECT_FALSE(end.started);
    EXPECT_EQ(end.refusal.reason(), "The number of Depth-to-WaveL Ratios is " + std::to_string(count) +
                                        ". It must be from 1 to 1000.");
  }
  settings.globalVel = {0.0};
  EXPECT_EQ(Evaluate(3).refusal.reason(), "Please calculate the global rep. dispersion curve, first.");
  EXPECT_EQ(log, "");
  EXPECT_EQ(profiles.nEntries, 10);
}

}  // namespace
}  // namespace sondera
