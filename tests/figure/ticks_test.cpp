#include "figure/ticks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace sondera {
namespace {

AxisModel Linear(int divisions = 0, const char* unit = "") {
  AxisModel axis;
  axis.divisions = divisions;
  axis.unit = unit;
  return axis;
}
AxisModel Logarithmic() {
  AxisModel axis;
  axis.logarithmic = true;
  return axis;
}

std::vector<std::string> Texts(const AxisTicks& ticks) {
  std::vector<std::string> texts;
  for (const Tick& tick : ticks.numbers) texts.push_back(tick.text);
  return texts;
}
using Strings = std::vector<std::string>;

/// Value of a tick's text, with powers of ten.
double ValueOf(std::string text) {
  const std::pair<const char*, const char*> signs[] = {{"×10", "e"}, {"⁻", "-"}, {"⁰", "0"}, {"¹", "1"},
                                                       {"²", "2"},   {"³", "3"}, {"⁴", "4"}, {"⁵", "5"},
                                                       {"⁶", "6"},   {"⁷", "7"}, {"⁸", "8"}, {"⁹", "9"}};
  const bool barePower = text.rfind("10", 0) == 0 && text.size() > 2 && (text[2] & 0x80) != 0;
  for (const auto& [sign, plain] : signs)
    for (std::size_t at; (at = text.find(sign)) != std::string::npos;)
      text.replace(at, std::string(sign).size(), plain);
  if (barePower) text = "1e" + text.substr(2);
  return std::stod(text);
}

TEST(Ticks, StandOnRoundNumbers) {
  EXPECT_EQ(Texts(TicksOf(Linear(), {0, 400, true}, 6)), (Strings{"0", "100", "200", "300", "400"}));
  EXPECT_EQ(Texts(TicksOf(Linear(), {-40, 40, true}, 3)), (Strings{"-40", "0", "40"})) << "not 0 alone";
  EXPECT_EQ(Texts(TicksOf(Linear(), {0, 400, true}, 2)), (Strings{"0", "400"}));
  EXPECT_EQ(Texts(TicksOf(Linear(), {-0.3, 0.3, true}, 8)),
            (Strings{"-0.3", "-0.2", "-0.1", "0", "0.1", "0.2", "0.3"}));
  EXPECT_EQ(Texts(TicksOf(Linear(), {0.13, 0.94, true}, 5)), (Strings{"0.2", "0.4", "0.6", "0.8"}));
}

// The plain reference: the smallest of all steps 1, 2, 5 times a power of ten that gives no more numbers than there is room for.
TEST(Ticks, OfRandomRangesAreThoseOfAPlainSearch) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> share(-1.0, 1.0), decade(-6.0, 9.0);
  std::uniform_int_distribution<int> rooms(2, 14);
  for (int trial = 0; trial < 3000; ++trial) {
    const double size = std::pow(10.0, decade(random));
    double low = size * share(random), high = size * share(random);
    if (low > high) std::swap(low, high);
    if (high - low < 1e-9 * size) continue;
    const int room = rooms(random);
    double step = 0.0;
    std::vector<double> expected;
    for (int e = -20; e <= 12 && step == 0.0; ++e) {
      for (const double m : {1.0, 2.0, 5.0}) {
        const double tried = m * std::pow(10.0, e);
        if (step != 0.0 || (high - low) / tried > room + 1.0) continue;
        expected.clear();
        for (double k = std::ceil(low / tried - 1e-9); k <= high / tried + 1e-9; ++k)
          expected.push_back(k * tried);
        if (static_cast<int>(expected.size()) <= room) step = tried;
      }
    }

    const AxisTicks ticks = TicksOf(Linear(), {low, high, true}, room);
    ASSERT_EQ(ticks.numbers.size(), expected.size()) << low << " " << high << " " << room;
    ASSERT_LE(static_cast<int>(expected.size()), room);
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(ticks.numbers[i].at, expected[i], 1e-6 * step);
      EXPECT_NEAR(ValueOf(ticks.numbers[i].text), expected[i], 1e-6 * step) << ticks.numbers[i].text;
    }
    for (const double between : ticks.between) {
      EXPECT_GE(between, low - 1e-7 * step);
      EXPECT_LE(between, high + 1e-7 * step);
      for (const double number : expected) EXPECT_GT(std::fabs(between - number), 0.1 * step);
    }
  }
}

TEST(Ticks, OfOneAxisAreWrittenAlike) {
  EXPECT_EQ(Texts(TicksOf(Linear(), {0, 1.5, true}, 4)), (Strings{"0", "0.5", "1.0", "1.5"}));
  EXPECT_EQ(Texts(TicksOf(Linear(), {0, 3e7, true}, 4)), (Strings{"0", "1×10⁷", "2×10⁷", "3×10⁷"}));
  EXPECT_EQ(Texts(TicksOf(Linear(), {0, 3e-5, true}, 4)), (Strings{"0", "1×10⁻⁵", "2×10⁻⁵", "3×10⁻⁵"}));
}

TEST(Ticks, TakeTheDivisionsOfTheAxisWhereTheyGiveRoundNumbers) {
  EXPECT_EQ(Texts(TicksOf(Linear(4), {0, 12, true}, 8)), (Strings{"0", "3", "6", "9", "12"}));
  EXPECT_EQ(Texts(TicksOf(Linear(5), {0, 399, true}, 6)), (Strings{"0", "100", "200", "300"})) << "79.8";
  EXPECT_EQ(Texts(TicksOf(Linear(10), {0, 100, true}, 6)), (Strings{"0", "20", "40", "60", "80", "100"}))
      << "no room for eleven";
  EXPECT_EQ(Texts(TicksOf(Linear(4), {1, 13, true}, 8)), (Strings{"2", "4", "6", "8", "10", "12"}))
      << "a zoomed axis does not begin on a step";
}

TEST(Ticks, OfDegreesStandOnPartsOfATurn) {
  EXPECT_EQ(Texts(TicksOf(Linear(0, "degrees"), {-180, 180, true}, 5)),
            (Strings{"-180", "-90", "0", "90", "180"}));
  EXPECT_EQ(Texts(TicksOf(Linear(0, "degrees"), {0, 1440, true}, 6)),
            (Strings{"0", "360", "720", "1080", "1440"}));
  EXPECT_EQ(Texts(TicksOf(Linear(0, "degrees"), {0, 40000, true}, 8)),
            (Strings{"0", "7200", "14400", "21600", "28800", "36000"}));
}

TEST(Ticks, AreDividedByTheFactorAndStandInTheUnitsOfTheAxis) {
  AxisModel axis = Linear();
  axis.label = "Frequency";
  axis.unit = "Hz";
  axis.prefix = "k";
  axis.factor = 1000.0;
  const AxisTicks ticks = TicksOf(axis, {0, 25600, true}, 4);
  EXPECT_EQ(Texts(ticks), (Strings{"0", "10", "20"}));
  EXPECT_EQ(ticks.numbers[2].at, 20000.0);
  EXPECT_EQ(AxisTitle(axis), "Frequency, kHz");
}

TEST(Ticks, TitlesDoWithoutUnitOrName) {
  AxisModel axis;
  EXPECT_EQ(AxisTitle(axis), "");
  axis.label = "Power";
  axis.unit = "V^2";
  EXPECT_EQ(AxisTitle(axis), "Power, V²");
  axis.unit = "";
  axis.label = "Coherence";
  EXPECT_EQ(AxisTitle(axis), "Coherence");
  axis.label = "";
  axis.unit = "sec";
  axis.prefix = "m";
  EXPECT_EQ(AxisTitle(axis), "msec");
}

TEST(Ticks, OfALogarithmicAxisStandOn1And2And5WhereThereIsRoom) {
  const AxisTicks ticks = TicksOf(Logarithmic(), {1, 50, true}, 8);
  EXPECT_EQ(Texts(ticks), (Strings{"1", "2", "5", "10", "20", "50"}));
  EXPECT_EQ(ticks.between, (std::vector<double>{3, 4, 6, 7, 8, 9, 30, 40}));
  EXPECT_EQ(Texts(TicksOf(Logarithmic(), {1, 50, true}, 4)), (Strings{"1", "10"}));
  EXPECT_EQ(Texts(TicksOf(Logarithmic(), {0.01, 20, true}, 5)), (Strings{"0.01", "0.1", "1", "10"}));
}

TEST(Ticks, OfManyPowersOfTenLeaveSomeOut) {
  const AxisTicks ticks = TicksOf(Logarithmic(), {1e-9, 1e9, true}, 5);
  EXPECT_LE(ticks.numbers.size(), 5u);
  EXPECT_GE(ticks.numbers.size(), 3u);
  for (const Tick& tick : ticks.numbers) EXPECT_NEAR(ValueOf(tick.text) / tick.at, 1.0, 1e-12) << tick.text;
}

TEST(Ticks, OfANarrowLogarithmicRangeAreLinear) {
  EXPECT_EQ(Texts(TicksOf(Logarithmic(), {110, 190, true}, 6)), (Strings{"120", "140", "160", "180"}));
}

TEST(Ticks, OfAnyRangeAreFewAndInside) {
  constexpr double huge = std::numeric_limits<double>::max(),
                   tiny = std::numeric_limits<double>::denorm_min();
  const double ends[] = {
      -huge, -1e300, -1e17, -1,       -tiny,     0,  tiny, 1e-300, 1, std::nextafter(1.0, 2.0),
      1e17,  1e300,  huge,  INFINITY, -INFINITY, NAN};
  for (const bool logarithmic : {false, true}) {
    AxisModel axis;
    axis.logarithmic = logarithmic;
    for (const double low : ends) {
      for (const double high : ends) {
        for (const int room : {-1, 0, 2, 10}) {
          const AxisTicks ticks = TicksOf(axis, {low, high, true}, room);
          EXPECT_LE(ticks.numbers.size(), 10u) << low << " " << high;
          EXPECT_LE(ticks.between.size(), 6000u);
          for (const Tick& tick : ticks.numbers) {
            EXPECT_TRUE(std::isfinite(tick.at));
            EXPECT_FALSE(tick.text.empty());
          }
        }
      }
    }
  }
  EXPECT_TRUE(TicksOf(Linear(), {2, 1, true}, 5).numbers.empty());
  EXPECT_TRUE(TicksOf(Logarithmic(), {0, 1, true}, 5).numbers.empty());
}

TEST(Ticks, ShortNumbersHaveADecimalPointAndNoTrailingZeros) {
  EXPECT_EQ(ShortNumber(12.2149), "12.21");
  EXPECT_EQ(ShortNumber(400.0), "400");
  EXPECT_EQ(ShortNumber(-0.0), "0");
  EXPECT_EQ(ShortNumber(2e7), "2e+07");
  EXPECT_EQ(ShortNumber(1.0 / 3.0, 2), "0.33");
  EXPECT_EQ(ShortNumber(NAN), "no number");
}

}  // namespace
}  // namespace sondera
