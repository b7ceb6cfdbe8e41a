// Histograms: statistics by hand, outline, mean lines.
#include "plot_ps/histogram.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class Histogram : public PsTest {};

TEST_F(Histogram, StatisticsOfAKnownSet) {
  // Classes 1..5 with 1, 2, 4, 2, 1: mean 3, squares 4 + 2 + 0 + 2 + 4 = 12 over 10.
  const int data[] = {1, 2, 4, 2, 1};
  const HistogramStatistics s = stat_histo(data, 5);
  EXPECT_DOUBLE_EQ(s.classMean, 3.0);
  EXPECT_DOUBLE_EQ(s.classDeviation, std::sqrt(1.2));
  // Counts: mean 2, squares 1 + 0 + 4 + 0 + 1 = 6 over 5.
  EXPECT_DOUBLE_EQ(s.valueMean, 2.0);
  EXPECT_DOUBLE_EQ(s.valueDeviation, std::sqrt(1.2));
}

TEST_F(Histogram, StatisticsOfALopsidedSet) {
  // Classes 1, 2, 3 with 7, 0, 1: mean (7 + 3)/8 = 1.25, squares 7/16 + 49/16 = 3.5 over 8.
  const int data[] = {7, 0, 1};
  const HistogramStatistics s = stat_histo(data, 3);
  EXPECT_DOUBLE_EQ(s.classMean, 1.25);
  EXPECT_DOUBLE_EQ(s.classDeviation, std::sqrt(3.5 / 8.0));
  EXPECT_DOUBLE_EQ(s.valueMean, 8.0 / 3.0);
  EXPECT_DOUBLE_EQ(s.valueDeviation, std::sqrt((49.0 + 0.0 + 1.0) / 3.0 - 64.0 / 9.0));
}

TEST_F(Histogram, StatisticsOfNothingAreZero) {
  const int zeros[] = {0, -3, 0};
  for (const HistogramStatistics& s : {stat_histo(zeros, 3), stat_histo(nullptr, 0)}) {
    EXPECT_EQ(s.classMean, 0.0);
    EXPECT_EQ(s.classDeviation, 0.0);
    EXPECT_EQ(s.valueMean, 0.0);
  }
  const int most = std::numeric_limits<int>::max(), large[] = {most, most};
  EXPECT_DOUBLE_EQ(stat_histo(large, 2).classMean, 1.5);
}

TEST_F(Histogram, NoClassesAreTold) {
  std::string drawn;
  EXPECT_EQ(Said([] { ps_histo(nullptr, 5.0f, 5.0f, 1.0f, 0, 3); }, &drawn),
            "\aPLOT_PS: ps_histo: Class number = 0\n");
  EXPECT_EQ(drawn, "");
}

TEST_F(Histogram, TheTallestClassReachesTheHeight) {
  const int data[] = {1, 4, 2};
  EXPECT_EQ(Drawn([&] { ps_histo(data, 9.0f, 8.0f, 2.0f, 3, 0); }),
            "0.0 0.0 M\nnewpath\n0.0 0.0 M\n" + Cm(0, 2) + " L\n" + Cm(2, 2) + " L\n" + Cm(2, 8) + " L\n" +
                Cm(4, 8) + " L\n" + Cm(4, 4) + " L\n" + Cm(6, 4) + " L\n" + Cm(6, 0) +
                " L\n0.0 0.0 L\nGSG\n0.0 0.0 M\n");
  const std::string third = Drawn([&] { ps_histo(data, 6.0f, 8.0f, 0.0f, 3, 0); });
  EXPECT_EQ(third, Drawn([&] { ps_histo(data, 1.0f, 8.0f, 2.0f, 3, 0); }));
}

TEST_F(Histogram, MeanLines) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const int data[] = {1, 2, 4, 2, 1};
  const test::Trace trace = Traced([&] {
    ps_movea(2.0f, 3.0f);
    ps_histo(data, 10.0f, 4.0f, 2.0f, 5, 3);
    ps_drawa(0.0f, 0.0f);
  });
  std::vector<test::TraceMark> lines, texts;
  for (const test::TraceMark& mark : trace.marks)
    (mark.kind == test::TraceMark::text ? texts : lines).push_back(mark);
  ASSERT_EQ(lines.size(), 8u);
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0].string, "Mean");
  EXPECT_EQ(texts[1].string, "Mean");
  const double spread = 1.96 * std::sqrt(1.2), x0 = 28.3 + 2 * kCm, y0 = 56.7 + 3 * kCm;
  // Class 3 is in the middle, at 5 cm; 1 count is 1 cm high.
  const double classes[] = {3.0, 3.0 - spread, 3.0 + spread}, counts[] = {2.0, 2.0 - spread, 2.0 + spread};
  const double grays[] = {0.3, 0.7, 0.7};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(lines[1 + i].gray, grays[i], 1e-6);
    EXPECT_NEAR(lines[1 + i].paths[0][0].x, x0 + 2 * (classes[i] - 0.5) * kCm, 0.06);
    EXPECT_NEAR(lines[1 + i].paths[0][1].y - lines[1 + i].paths[0][0].y, 6 * kCm, 0.11);
    EXPECT_NEAR(lines[4 + i].gray, grays[i], 1e-6);
    EXPECT_NEAR(lines[4 + i].paths[0][0].y, y0 + counts[i] * kCm, 0.06);
    EXPECT_NEAR(lines[4 + i].paths[0][1].x - lines[4 + i].paths[0][0].x, 10 * kCm, 0.11);
  }
  EXPECT_EQ(lines[7].gray, 0.0);
  EXPECT_NEAR(lines[7].paths[0][0].x, x0, 0.06);
}

TEST_F(Histogram, EachStatisticOnItsOwn) {
  const int data[] = {1, 2, 4};
  const auto greys = [&](int stat) {
    const auto lines = Lines(Drawn([&] { ps_histo(data, 6.0f, 4.0f, 2.0f, 3, stat); }));
    return std::count_if(lines.begin(), lines.end(),
                         [](const std::string& l) { return l.ends_with("0000 setgray"); });
  };
  EXPECT_EQ(greys(0), 0);
  EXPECT_EQ(greys(1), 3);
  EXPECT_EQ(greys(2), 3);
  EXPECT_EQ(greys(3), 6);
  EXPECT_EQ(greys(4), 0);
}

}  // namespace
}  // namespace sondera::testing
