// The contents of a project, as text and as pictures, compared with known ground.
#include "app/show.h"

#include <gtest/gtest.h>

#include <cmath>

#include "app/picture.h"
#include "app/script_fixture.h"
#include "app/table_export.h"
#include "figure/figure_file.h"
#include "support/site_records.h"

namespace sondera {
namespace {

const std::string kCurve =
    "read hyx id=ID files=H31.hyx source=0 at=14,30\npair ID 1 2\nphase original\nmask 0 7\nmask 48 "
    "500\ndisperse\n"
    "condense points=12\nlayers 2,3,4,6,80\nload global\nproject id=site\n";

class ShowTest : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
  }
  std::string Text(const ShowChoices& choices = {}, const KnownGround& known = {}) {
    return ShowText(OpenProjectTables(false), choices, known);
  }
  GraphModel Picture(const std::string& what, const KnownGround& known = {}) {
    GraphModel graph;
    EXPECT_EQ(PictureOf(OpenProjectTables(false), what, known, graph), "");
    return graph;
  }
};

TEST_F(ShowTest, AnEmptyProjectSaysSo) {
  const std::string text = Text();
  for (const char* words : {"no masks\n", "no pair has a dispersion curve\n"})
    EXPECT_NE(text.find(words), std::string::npos) << text;
  GraphModel graph;
  for (const char* what : {"curves", "fit", "phase", "nothing"})
    EXPECT_NE(PictureOf(OpenProjectTables(false), what, {}, graph), "") << what;
}

TEST_F(ShowTest, CurvesMasksAndProfileStandInTheText) {
  ASSERT_EQ(Run(kCurve + "start analytic ratios=0.5,0.5,1\ninvert iterations=1\n") % 3, 0) << err;
  const std::string text = Text();
  EXPECT_NE(text.find("measurement \"ID\": 2 receivers"), std::string::npos) << text;
  EXPECT_NE(text.find("mask ID[1:2]: 0 to 7 Hz, full cycles at its end: 0\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nID[1:2] "), std::string::npos) << text;
  EXPECT_NE(text.find("\nglobal curve "), std::string::npos) << text;
  EXPECT_NE(text.find("RMS, m/s, from the starting model on: "), std::string::npos) << text;
  EXPECT_NE(text.find("inverted profile, iteration 1\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n  below 15.0 "), std::string::npos) << text;
  EXPECT_NE(text.find("Vs30: "), std::string::npos) << text;
  EXPECT_EQ(Text({true, false, false}).find("Vs30"), std::string::npos);
  EXPECT_EQ(Text({false, true, false}).find("mask"), std::string::npos);
}

TEST_F(ShowTest, WhatIsKnownStandsBesideWhatWasFound) {
  ASSERT_EQ(Run(kCurve), 0) << err;
  Write("curve.txt", "# f v - w\n10 200 0 20\n20 200 0 10\n40 200 0 5\n");
  Write("layers.txt", "0 2 150\n2 4 220\n6 8 300\n14 0 400\n");
  KnownGround known;
  ASSERT_EQ(ReadKnownGround("curve.txt", "layers.txt", known), "");
  EXPECT_EQ(known.layers.size(), 4u);
  // Travel time by hand: 1 m of 150 and 3 m of 220.
  EXPECT_NEAR(MeanVs(known.layers, 1.0, 5.0), 4.0 / (1.0 / 150.0 + 3.0 / 220.0), 1e-9);
  EXPECT_NEAR(MeanVs(known.layers, 20.0, 21.0), 400.0, 1e-9);
  EXPECT_NEAR(MedianRatio({{10, 20, 190}, {20, 10, 210}, {30, 7, 220}}, known.curve), 1.05, 1e-12);
  const std::string text = Text({}, known);
  EXPECT_NE(text.find("  ratio\n"), std::string::npos) << text;
  EXPECT_NE(text.find("known Vs"), std::string::npos) << text;
  EXPECT_EQ(Picture("curves", known).plots.back().legend, "known");
  Write("bad.txt", "1 2\n");
  KnownGround none;
  EXPECT_EQ(ReadKnownGround("bad.txt", "", none), "bad.txt, line 1: 4 numbers are wanted");
  EXPECT_NE(ReadKnownGround("", "missing.txt", none), "");
}

TEST_F(ShowTest, PicturesHoldTheCurvesAndLeaveOutWhatIsMasked) {
  ASSERT_EQ(Run(kCurve + "forward type=2\n") % 3, 0) << err;
  const GraphModel curves = Picture("curves"), phase = Picture("phase"), fit = Picture("fit"),
                   profile = Picture("profile");
  EXPECT_TRUE(curves.xAxis.logarithmic);
  EXPECT_EQ(curves.plots.front().legend, "ID[1:2]");
  ASSERT_EQ(phase.plots.size(), 1u);
  const PlotModel& plot = phase.plots.front();
  ASSERT_FALSE(plot.x.empty());
  EXPECT_GT(plot.x.front(), 6.0);  // masked to 7 Hz and from 48 Hz on
  EXPECT_LT(plot.x.back(), 49.0);
  EXPECT_EQ(fit.plots.front().legend, "measured");
  EXPECT_TRUE(profile.yAxis.reversed);
}

TEST_F(ShowTest, ASvgFileHasItsTextsAsTextAndNamesCannotBreakIt) {
  ASSERT_EQ(Run(kCurve), 0) << err;
  GraphModel graph = Picture("curves");
  graph.plots.front().legend = "a <b> & \"c\"\x01";
  ASSERT_FALSE(WriteFigure(graph, folder.File("a.svg")));
  const std::string svg = Read("a.svg");
  EXPECT_NE(svg.find("Wavelength"), std::string::npos);
  EXPECT_EQ(svg.find("<b>"), std::string::npos);
  EXPECT_EQ(svg.find('\x01'), std::string::npos);
  EXPECT_TRUE(WriteFigure(graph, folder.File("none/a.svg")));
  EXPECT_TRUE(WriteFigure(graph, folder.File("a.txt")));
  EXPECT_FALSE(Exists("a.txt"));
}

}  // namespace
}  // namespace sondera
