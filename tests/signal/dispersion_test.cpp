// The points of a dispersion curve: analytic truths (a pure delay has one velocity), and the selection of lines
// against a plain reference. Field records are in panels/sasw_dispersion_records_test.cpp.
#include "signal/dispersion.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>
#include <vector>

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Points {
  std::vector<double> vel, freq, wlen;
  int count = 0;
};

struct Lines {
  std::vector<double> phase = {};
  std::vector<int> maskFlag = {};
  int maxLine = 1 << 20;
  double firstFreq = 0.0, deltaF = 0.5, spacing = 10.0, srcToR1 = 10.0, alphaWlen = 0.25;
};

Points Compute(const Lines& in) {
  std::vector<int> flags = in.maskFlag;
  flags.resize(in.phase.size(), 0);
  Points p;
  p.vel.assign(in.phase.size(), -1.0);
  p.freq = p.wlen = p.vel;
  p.count = CalcDispersionPoints({in.phase.data(), flags.data(), static_cast<int>(in.phase.size()),
                                  in.maxLine, in.firstFreq, in.deltaF, in.spacing, in.srcToR1, in.alphaWlen},
                                 p.vel.data(), p.freq.data(), p.wlen.data());
  for (auto* column : {&p.vel, &p.freq, &p.wlen}) {
    for (std::size_t i = static_cast<std::size_t>(p.count); i < column->size(); ++i)
      EXPECT_EQ((*column)[i], -1.0) << "written behind the last point";
    column->resize(static_cast<std::size_t>(p.count));
  }
  return p;
}

/// Unwrapped phase of a delay of `delay` seconds: 360 f delay.
std::vector<double> DelayPhase(int lines, double deltaF, double delay) {
  std::vector<double> phase;
  for (int i = 0; i < lines; ++i) phase.push_back(360.0 * i * deltaF * delay);
  return phase;
}

TEST(CalcDispersionPoints, PureDelayHasOneVelocity) {
  for (double velocity : {31.7, 205.0, 2384.1}) {
    const Points p = Compute({.phase = DelayPhase(400, 0.5, 10.0 / velocity), .alphaWlen = 0.0});
    ASSERT_EQ(p.count, 399);
    for (int i = 0; i < p.count; ++i) {
      EXPECT_NEAR(p.vel[i], velocity, 4e-15 * velocity * 360);
      EXPECT_EQ(p.freq[i], 0.5 * (i + 1));
      EXPECT_NEAR(p.wlen[i], velocity / p.freq[i], 1e-14 * velocity / p.freq[i]);
    }
  }
}

TEST(CalcDispersionPoints, WavelengthIsTheSpacingPerCycle) {
  const Points p = Compute({.phase = {0.0, 90.0, 540.0, 3600.0}, .spacing = 7.25, .alphaWlen = 0.0});
  EXPECT_THAT(p.wlen, ElementsAre(29.0, 7.25 * 360.0 / 540.0, 0.725));
  EXPECT_THAT(p.vel, ElementsAre(14.5, 7.25 * 360.0 / 540.0, 0.725 * 1.5));
}

TEST(CalcDispersionPoints, AlphaOfZeroLetsEveryPositiveWavelengthThrough) {
  const Points p = Compute({.phase = {5.0, 1e-300, -3.0, 0.0, 1e9, 20.0}, .srcToR1 = 1e-9, .alphaWlen = 0.0});
  EXPECT_THAT(p.freq, ElementsAre(0.5, 2.0, 2.5));
}

TEST(CalcDispersionPoints, ZeroAndNegativePhasesDropOutWhateverAlpha) {
  const double nan = std::nan(""), inf = std::numeric_limits<double>::infinity();
  for (double alpha : {-1.0, 0.0, 0.25, inf, nan}) {
    const Points p = Compute({.phase = {1.0, 0.0, -0.0, -360.0, nan, -inf, 1e-320}, .alphaWlen = alpha});
    EXPECT_EQ(p.count, 0) << alpha;
  }
}

TEST(CalcDispersionPoints, LineZeroIsNeverUsed) {
  EXPECT_EQ(Compute({.phase = {720.0}}).count, 0);
  EXPECT_THAT(Compute({.phase = {720.0, 720.0}}).freq, ElementsAre(0.5));
  EXPECT_EQ(Compute({.phase = {}}).count, 0);
}

TEST(CalcDispersionPoints, NothingAboveTheLastLineOfTheBand) {
  const std::vector<double> phase(10, 720.0);
  EXPECT_EQ(Compute({.phase = phase, .maxLine = 4}).count, 4);
  EXPECT_EQ(Compute({.phase = phase, .maxLine = 9}).count, 9);
  EXPECT_EQ(Compute({.phase = phase, .maxLine = 900}).count, 9);
  EXPECT_EQ(Compute({.phase = phase, .maxLine = 0}).count, 0);
  EXPECT_EQ(Compute({.phase = phase, .maxLine = -5}).count, 0);
}

TEST(CalcDispersionPoints, MaskedLinesLeaveGapsInFrequencyAndNoneInTheArrays) {
  const Points p = Compute({.phase = std::vector<double>(8, 720.0), .maskFlag = {0, 0, 1, 1, 0, 0, 1, 0}});
  EXPECT_THAT(p.freq, ElementsAre(0.5, 2.0, 2.5, 3.5));
  EXPECT_THAT(p.wlen, ElementsAre(5.0, 5.0, 5.0, 5.0));
}

TEST(CalcDispersionPoints, RaisingAlphaCutsTheLongWavelengthsNeverTheShort) {
  Lines in{.phase = DelayPhase(400, 0.5, 0.05), .srcToR1 = 12.0};
  Points before = Compute({.phase = in.phase, .srcToR1 = 12.0, .alphaWlen = 0.0});
  for (double alpha : {0.1, 0.25, 0.5, 1.0, 2.0, 5.0}) {
    in.alphaWlen = alpha;
    const Points p = Compute(in);
    ASSERT_LT(p.count, before.count);
    EXPECT_LE(p.wlen.front(), 12.0 / alpha);
    const auto cut = static_cast<std::size_t>(before.count - p.count);
    EXPECT_GT(before.wlen[cut - 1], 12.0 / alpha) << "the longest one that went";
    EXPECT_TRUE(
        std::equal(p.wlen.begin(), p.wlen.end(), before.wlen.begin() + static_cast<std::ptrdiff_t>(cut)))
        << "the short ones are all there";
    before = p;
  }
}

TEST(CalcDispersionPoints, WavelengthAtTheCriterionIsTaken) {
  EXPECT_EQ(Compute({.phase = {0.0, 90.0}, .spacing = 10.0, .srcToR1 = 10.0, .alphaWlen = 0.25}).count, 1);
  EXPECT_EQ(Compute({.phase = {0.0, 89.99}, .spacing = 10.0, .srcToR1 = 10.0, .alphaWlen = 0.25}).count, 0);
}

TEST(CalcDispersionPoints, RandomLinesGiveThePlainSelection) {
  std::mt19937 random(77);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (int round = 0; round < 300; ++round) {
    Lines in;
    const int n = 1 + static_cast<int>(random() % 60);
    for (int i = 0; i < n; ++i) {
      in.phase.push_back(random() % 8 == 0 ? 0.0 : 900.0 * unit(random) - 150.0);
      in.maskFlag.push_back(random() % 5 == 0);
    }
    in.maxLine = static_cast<int>(random() % 70);
    in.firstFreq = random() % 2 ? 0.0 : 4.875;
    in.alphaWlen = unit(random);
    in.spacing = 20.0 * unit(random);
    const Points p = Compute(in);
    std::size_t k = 0;
    for (int line = 1; line < n; ++line) {
      const double phase = in.phase[static_cast<std::size_t>(line)];
      if (line > in.maxLine || in.maskFlag[static_cast<std::size_t>(line)] == 1 || phase <= 0.0) continue;
      const double cycles = phase / 360.0, f = in.firstFreq + line * in.deltaF;
      const double wlen = in.spacing / cycles;
      if (wlen == 0.0 || in.alphaWlen * wlen > in.srcToR1) continue;
      ASSERT_LT(k, p.wlen.size());
      ASSERT_DOUBLE_EQ(p.freq[k], f);
      ASSERT_NEAR(p.wlen[k], wlen, 1e-14 * wlen);
      ASSERT_NEAR(p.vel[k], wlen * f, 1e-14 * wlen * f);
      ++k;
    }
    ASSERT_EQ(p.count, static_cast<int>(k));
  }
}

}  // namespace
}  // namespace sondera::testing
