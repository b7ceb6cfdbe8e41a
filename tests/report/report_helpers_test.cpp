// The small parts of the pages: divisions, digits, texts from the project, rows of the legend, fonts.
#include <gtest/gtest.h>

#include <cmath>

#include "plot_ps/plot_ps.h"
#include "report/curve_ranges.h"
#include "report/data_text.h"
#include "report/draw_symbol.h"
#include "report/graph_state.h"
#include "report/plot_disp_curv.h"

namespace sondera::testing {
namespace {

TEST(ReportHelpers, DivisionsAreTheLeadingDigit) {
  EXPECT_EQ(NdivVal(300.0), 3);
  EXPECT_EQ(NdivVal(45.0), 4);
  EXPECT_EQ(NdivVal(1000.0), 10);  // by natural logarithms
  EXPECT_EQ(NdivVal(0.5), 1);
  EXPECT_EQ(NdivVal(0.0), 1);
  EXPECT_EQ(NdivVal(-20.0), 1);
  EXPECT_EQ(NdivVal(std::nan("")), 1);
}

TEST(ReportHelpers, DigitsFollowTheSize) {
  EXPECT_EQ(GetNoDigits(11.0), 0);
  EXPECT_EQ(GetNoDigits(10.0), 1);
  EXPECT_EQ(GetNoDigits(1.5), 1);
  EXPECT_EQ(GetNoDigits(1.0), 2);
  EXPECT_EQ(GetNoDigits(0.05), 3);
  EXPECT_EQ(GetNoDigits(-4.0), 2);
}

TEST(ReportHelpers, RangesAreNice) {
  const CurveRanges ranges = RangesOfCurves({{"a", {120.0, 200.0}, {7.0, 31.0}, {2.3, 41.0}}});
  EXPECT_DOUBLE_EQ(ranges.wlen.min, 2.0);
  EXPECT_DOUBLE_EQ(ranges.wlen.max, 50.0);
  EXPECT_DOUBLE_EQ(ranges.vel.min, 120.0);
  EXPECT_DOUBLE_EQ(ranges.vel.max, 210.0);
  EXPECT_FALSE(ranges.legendRight);  // the last point is at the right
  EXPECT_TRUE(RangesOfCurves({{"a", {200.0, 120.0}, {31.0, 7.0}, {41.0, 2.3}}}).legendRight);
}

TEST(ReportHelpers, TextsAreEscapedAndCutBetweenLetters) {
  EXPECT_EQ(PageText("a(b)\\c", 50), "a\\(b\\)\\\\c");
  EXPECT_EQ(PageText("Größe – µ €", 50), "Gr\\366\\337e - \\265 EUR");
  EXPECT_EQ(PageText("Gr\xF6\xDF"
                     "e",
                     50),
            "Gr\\366\\337e");  // Latin-1 already
  EXPECT_EQ(PageText("日本\n", 50), "???");
  EXPECT_EQ(PageText("abcdefgh", 6), "abc...");
  EXPECT_EQ(PageText("abcdefgh", 6, CutAt::front), "...fgh");
  EXPECT_EQ(LetterCount("a\\(b\\366"), 4u);
  std::string many;
  for (int i = 0; i < 300; ++i) many += "ö";
  for (const CutAt cut : {CutAt::end, CutAt::front}) {
    const std::string text = PageText(many, 1000, cut);
    EXPECT_LE(text.size(), 199u);
    EXPECT_GE(text.size(), 196u);
    EXPECT_EQ(text.find("..."), cut == CutAt::front ? 0 : text.size() - 3);
  }
  EXPECT_TRUE(NeedsLatin1("ö"));
  EXPECT_FALSE(NeedsLatin1("–"));
}

TEST(ReportHelpers, TheLegendEndsInDotsWhereThereIsNoRoom) {
  EXPECT_FLOAT_EQ(RowOfCurve(1, 30, 1.0f, "a").y, 7.8f);
  EXPECT_EQ(RowOfCurve(26, 26, 1.0f, "a").text, "a");
  EXPECT_NEAR(RowOfCurve(26, 26, 1.0f, "a").y, 0.3, 1e-5);
  EXPECT_EQ(RowOfCurve(26, 27, 1.0f, "a").text, "...");
  EXPECT_EQ(RowOfCurve(27, 27, 1.0f, "a").text, "");
}

TEST(ReportHelpers, NeighbouringCurvesHaveDifferentMarks) {
  for (int a = 1; a <= 21; ++a)
    for (int b = a + 1; b <= 21; ++b)
      EXPECT_FALSE(MarkOfCurve(a).shape == MarkOfCurve(b).shape &&
                   MarkOfCurve(a).kind == MarkOfCurve(b).kind);
}

}  // namespace
}  // namespace sondera::testing
