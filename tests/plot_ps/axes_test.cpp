// Axes: ticks, numbers, titles.
#include "plot_ps/axes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "plot_ps/ink.h"
#include "plot_ps/moves.h"
#include "ps_fixture.h"

namespace sondera::testing {
namespace {

constexpr double kLeft = 28.3, kBottom = 56.7;

class Axes : public PsTest {};

struct Marks {
  std::vector<std::vector<test::TracePoint>> lines;
  std::vector<test::TraceMark> texts;
};

Marks Sorted(const test::Trace& trace) {
  Marks marks;
  for (const test::TraceMark& mark : trace.marks) {
    if (mark.kind == test::TraceMark::text) marks.texts.push_back(mark);
    if (mark.kind == test::TraceMark::stroke)
      for (const auto& path : mark.paths) marks.lines.push_back(path);
  }
  return marks;
}

TEST_F(Axes, XAxisHasTicksOfThreeLengths) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  // Length 4: step 0.1; 40 ticks, none at the end.
  const Marks marks = Sorted(Traced([] {
    ps_movea(2.0f, 5.0f);
    ps_X_axis(1.0f, 5.0f, 0.1f, 1.0f, 5.0f, "Time, s", "%.1f", 0.3f);
    EXPECT_NEAR(plotPs.curX, 2.0f * kPointsPerCm, 1e-3);
    EXPECT_NEAR(plotPs.curY, 5.0f * kPointsPerCm, 1e-3);
  }));
  ASSERT_EQ(marks.lines.size(), 41u);
  EXPECT_NEAR(marks.lines[0][0].x, kLeft + 2 * kCm, 0.06);
  EXPECT_NEAR(marks.lines[0][1].x, kLeft + 6 * kCm, 0.06);
  for (int k = 0; k < 40; ++k) {
    const auto& tick = marks.lines[static_cast<std::size_t>(k + 1)];
    const double size = k % 10 == 0 ? 0.3 : k % 5 == 0 ? 0.2 : 0.1;
    EXPECT_NEAR(tick[0].x, kLeft + (2 + 0.1 * k) * kCm, 0.06) << k;
    EXPECT_NEAR(tick[1].x, tick[0].x, 1e-9);
    EXPECT_NEAR(tick[0].y - tick[1].y, size * kCm, 0.11) << k;
  }
  ASSERT_EQ(marks.texts.size(), 5u);
  for (int i = 0; i < 4; ++i) {
    const test::TraceMark& number = marks.texts[static_cast<std::size_t>(i)];
    EXPECT_EQ(number.string, std::to_string(i + 1) + ".0");
    EXPECT_NEAR(number.paths[0][0].x, kLeft + (2 + i - 3 * 0.3 * 0.6 / 2) * kCm, 0.06);
    EXPECT_NEAR(number.paths[0][0].y, kBottom + (5 - 3 * 0.1 - 1.2 * 0.3) * kCm, 0.06);
  }
  EXPECT_EQ(marks.texts[4].string, "Time, s");
  EXPECT_NEAR(marks.texts[4].paths[0][0].x, kLeft + (6 - 7 * 0.3 * 0.6 + 0.1) * kCm, 0.06);
  EXPECT_NEAR(marks.texts[4].paths[0][0].y, kBottom + (5 - 2 * 0.3 - 4 * 0.1) * kCm, 0.06);
}

TEST_F(Axes, YAxisInUserUnits) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  // 0.02 cm a unit; length 250: m = 2.5, step 10; from 20 to 240: 22 ticks, numbers at 20, 120, 220.
  const Marks marks = Sorted(Traced([] {
    ps_echel(1.0f, 0.02f, 3.0f, 1.0f, 1.0f, 0.0f);
    ps_movea(0.0f, 0.0f);
    ps_Y_axis(0.0f, 250.0f, 0.1f, 20.0f, 240.0f, "Depth", "%g", 0.2f);
  }));
  ASSERT_EQ(marks.lines.size(), 23u);
  EXPECT_NEAR(marks.lines[0][1].y, kBottom + 6 * kCm, 0.11);
  for (int k = 0; k < 22; ++k) {
    const auto& tick = marks.lines[static_cast<std::size_t>(k + 1)];
    EXPECT_NEAR(tick[0].y, kBottom + (1 + 0.02 * (20 + 10 * k)) * kCm, 0.06) << k;
    EXPECT_NEAR(tick[0].x - tick[1].x, (k % 10 == 0 ? 0.3 : k % 5 == 0 ? 0.2 : 0.1) * kCm, 0.11) << k;
  }
  ASSERT_EQ(marks.texts.size(), 4u);
  const char* const numbers[] = {"20", "120", "220"};
  for (int i = 0; i < 3; ++i) {
    const test::TraceMark& number = marks.texts[static_cast<std::size_t>(i)];
    EXPECT_EQ(number.string, numbers[i]);
    EXPECT_NEAR(number.paths[0][0].x,
                kLeft + (3 - 0.3 - static_cast<double>(number.string.size()) * 0.2 * 0.6) * kCm, 0.06);
    EXPECT_NEAR(number.paths[0][0].y, kBottom + (1 + 0.02 * (20 + 100 * i)) * kCm, 0.06);
  }
  EXPECT_NEAR(marks.texts[3].paths[0][0].x, kLeft + (3 - 2 * 0.2 - 4 * 0.1) * kCm, 0.06);
  EXPECT_NEAR(marks.texts[3].paths[0][0].y, kBottom + (6 - 5 * 0.2 * 0.6) * kCm, 0.06);
}

TEST_F(Axes, StepsAreTenthsOfAPowerOfTen) {
  const auto ticks = [this](float length) {
    const std::string drawn = Drawn([&] { ps_X_axis(0.0f, length, 0.1f, 0.0f, length, "", "%g", 0.3f); });
    const auto lines = Lines(drawn);
    return std::count(lines.begin(), lines.end(), "newpath") - 1;
  };
  EXPECT_EQ(ticks(1.0f), 10);
  EXPECT_EQ(ticks(10.0f), 100);
  EXPECT_EQ(ticks(20.0f), 20);
  EXPECT_EQ(ticks(0.5f), 50);
  EXPECT_EQ(ticks(0.03f), 30);
}

TEST_F(Axes, NoLengthIsToldAndDrawsNothing) {
  for (const auto& [min, max] :
       {std::pair(2.0f, 2.0f), {3.0f, 2.0f}, {kNan, 1.0f}, {0.0f, kInf}, {-kInf, kInf}}) {
    std::string drawn;
    EXPECT_EQ(Said(
                  [&, low = min, high = max] {
                    ps_X_axis(low, high, 0.1f, low, high, "x", "%g", 0.3f);
                    ps_Y_axis(low, high, 0.1f, low, high, "y", "%g", 0.3f);
                  },
                  &drawn),
              "\aPLOT_PS: ps_X_axis: null axis length! (min = max)\n"
              "\aPLOT_PS: ps_Y_axis: null axis length! (min = max)\n");
    EXPECT_EQ(drawn, "");
  }
}

TEST_F(Axes, TicksHaveALimit) {
  const std::string drawn = Drawn([] { ps_X_axis(0.0f, 1.0f, 0.0f, 0.0f, 1e9f, "", "%g", 0.3f); });
  const auto lines = Lines(drawn);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "newpath"), 10001);
  EXPECT_LT(drawn.size(), 1000000u);
  EXPECT_EQ(
      std::count(lines.begin(), lines.end(), "newpath"),
      std::count_if(lines.begin(), lines.end(), [](const std::string& l) { return l.ends_with(" L"); }));
  const auto none = Lines(Drawn([] { ps_X_axis(0.0f, 1.0f, 0.1f, kNan, kInf, "", "%g", 0.3f); }));
  EXPECT_LE(std::count(none.begin(), none.end(), "newpath"), 10001);
}

TEST_F(Axes, OnlyRealFormatsReachTheFormatter) {
  const auto number = [this](const char* format) {
    const std::string drawn = Drawn([&] { ps_X_axis(1.5f, 2.0f, 0.1f, 1.5f, 1.52f, "", format, 0.3f); });
    const std::size_t from = drawn.find('(');
    return drawn.substr(from, drawn.find(" S\n") - from);
  };
  EXPECT_EQ(number("%.2f"), "(1.50)");
  EXPECT_EQ(number("\xff"), "(1.50)");
  EXPECT_EQ(number(nullptr), "(1.50)");
  EXPECT_EQ(number("%6.1e"), "(1.5e+00)");
  EXPECT_EQ(number("%g %%"), "(1.5 %)");
  for (const char* bad : {"%s", "%n", "%d", "%g %g", "", "%", "%*g", "%Lg", "%100g", "plain", "%.123f"})
    EXPECT_EQ(number(bad), "(1.5)") << bad;
}

TEST_F(Axes, AxesOfAGraph) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const Marks marks = Sorted(Traced([] {
    ps_movea(2.0f, 3.0f);
    ps_axes(8.0f, 4.0f, -1.0f, 3.0f, 0.0f, 5.0f, "across", "up", 0.3f, 1);
  }));
  ASSERT_EQ(marks.lines.size(), 2u);  // the frame, and the line at x = 0; y has its zero at the edge
  EXPECT_EQ(marks.lines[0].size(), 5u);
  EXPECT_NEAR(marks.lines[1][0].x, kLeft + (2 + 2) * kCm, 0.06);
  EXPECT_NEAR(marks.lines[1][1].y, kBottom + 7 * kCm, 0.06);
  ASSERT_EQ(marks.texts.size(), 2u);
  EXPECT_NEAR(marks.texts[0].paths[0][0].x, kLeft + (2 + 2) * kCm, 0.06);
  EXPECT_NEAR(marks.texts[0].paths[0][0].y, kBottom + (3 - 0.9) * kCm, 0.06);
  EXPECT_NEAR(marks.texts[1].paths[0][0].x, kLeft + (2 - 0.9) * kCm, 0.06);
  EXPECT_NEAR(marks.texts[1].paths[0][0].y, kBottom + (3 + 1) * kCm, 0.06);
}

TEST_F(Axes, AxesWithoutZeroOrFrameHaveTitlesOnly) {
  const std::string drawn = Drawn([] { ps_axes(8.0f, 4.0f, 1.0f, 3.0f, kNan, 5.0f, "x", "y", 0.3f, 0); });
  EXPECT_EQ(drawn.find(" L\n"), std::string::npos) << drawn;
  const std::string lines = Drawn([] { ps_axes(8.0f, 4.0f, 1.0f, 3.0f, -5.0f, 5.0f, "x", "y", 0.3f, 0); });
  EXPECT_NE(lines.find(Cm(0, 2) + " M\nnewpath\n" + Cm(0, 2) + " M\n" + Cm(8, 2) + " L\n"), std::string::npos)
      << lines;
}

TEST_F(Axes, TickedAxesAreBothAxesAndAFrame) {
  const auto axes = [] {
    ps_X_axis(0.0f, 4.0f, 0.1f, 0.0f, 4.0f, "x", "%g", 0.3f);
    ps_Y_axis(1.0f, 3.0f, 0.1f, 1.0f, 3.0f, "y", "%g", 0.3f);
  };
  const std::string apart = Drawn(axes);
  EXPECT_EQ(Drawn([] { ps_ticked_axes(0.0f, 4.0f, 1.0f, 3.0f, 0.1f, "x", "y", "%g", "%g", 0.3f, 0); }),
            apart);
  EXPECT_EQ(
      Drawn([] { ps_ticked_axes(0.0f, 4.0f, 1.0f, 3.0f, 0.1f, "x", "y", "%g", "%g", 0.3f, 1); }),
      apart + "newpath\n0.0 0.0 M\n0.0 56.7 rL\n113.4 0.0 rL\n0.0 -56.7 rL\n-113.4 0.0 rL\nGSG\n0.0 0.0 M\n");
}

}  // namespace
}  // namespace sondera::testing
