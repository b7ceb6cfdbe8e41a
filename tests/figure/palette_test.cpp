#include "figure/palette.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace sondera {
namespace {

constexpr int kDarkTheme = 0x1E1E1E;

TEST(Palette, ContrastIsThatOfPublishedPairs) {
  EXPECT_NEAR(Contrast(0, 0xFFFFFF), 21.0, 1e-9);
  EXPECT_NEAR(Contrast(0x777777, 0xFFFFFF), 4.478, 0.001);
  EXPECT_NEAR(Contrast(0xFFFFFF, 0xFF0000), 3.998, 0.001);
  EXPECT_EQ(Contrast(0x123456, 0x123456), 1.0);
}

TEST(Palette, EveryCurveIsSeenOnPaperByItsColourOrItsEdge) {
  for (const int color : {0xFF0000, 0xFF00, 0xFFFF, 0xFFFF00, 0xC0C0C0, 0xFFFFFF, 0, 0x80, 0xA0A0A0}) {
    const Ink ink = InkFor(color, kPaper);
    EXPECT_EQ(ink.color, color) << "the colour of the record stays";
    EXPECT_GE(Contrast(ink.edged ? ink.edge : ink.color, kPaper), kLeastContrast) << std::hex << color;
  }
  EXPECT_TRUE(InkFor(0xFFFFFF, kPaper).edged);
  EXPECT_TRUE(InkFor(0xFFFF00, kPaper).edged);
  EXPECT_FALSE(InkFor(0xFF, kPaper).edged);
  EXPECT_FALSE(InkFor(0, kPaper).edged);
}

TEST(Palette, EveryCurveIsSeenOnADarkTheme) {
  for (int color = 0; color <= 0xFFFFFF; color += 0x010B17) {
    const Ink ink = InkFor(color, kDarkTheme);
    EXPECT_GE(Contrast(ink.color, kDarkTheme), kLeastContrast) << std::hex << color;
  }
  EXPECT_EQ(InkFor(0, kDarkTheme).color, 0xFFFFFF) << "black is white there";
  EXPECT_EQ(InkFor(0xC0C0C0, kDarkTheme).color, 0xC0C0C0) << "light greys stay light";
  EXPECT_EQ(InkFor(0xFFFF00, kDarkTheme).color, 0xFFFF00) << "bright ones stay";
}

TEST(Palette, TheOrderOfCurvesHasEightColoursThatAreSeenOnBothThemes) {
  for (int n = 0; n < 8; ++n) {
    for (int other = 0; other < n; ++other) EXPECT_NE(OrderColor(n), OrderColor(other));
    for (const int background : {kPaper, kDarkTheme}) {
      const Ink ink = InkFor(OrderColor(n), background);
      EXPECT_GE(Contrast(ink.edged ? ink.edge : ink.color, background), kLeastContrast);
    }
  }
  EXPECT_EQ(OrderColor(8), OrderColor(0));
  EXPECT_EQ(OrderColor(-1), OrderColor(7));
}

TEST(Palette, MapsBlendBetweenTheirLevels) {
  const std::vector<ColorLevel> levels = {{100, 0xFF0000}, {0, 0x0000FF}, {50, 0x00FF00}};
  EXPECT_EQ(MapColor(levels, 0, 1), 0x0000FF);
  EXPECT_EQ(MapColor(levels, 25, 1), 0x008080);
  EXPECT_EQ(MapColor(levels, 50, 1), 0x00FF00);
  EXPECT_EQ(MapColor(levels, -5, 1), 0x0000FF);
  EXPECT_EQ(MapColor(levels, INFINITY, 1), 0xFF0000);
  EXPECT_EQ(MapColor(levels, NAN, 1), 1);
  EXPECT_EQ(MapColor({}, 5, 1), 1);
  const std::vector<ColorLevel> hostile = {{-1e308, 0}, {1e308, 0xFFFFFF}, {NAN, 0x123456}};
  EXPECT_EQ(MapColor(hostile, 0.0, 1), 0x808080);
}

TEST(Palette, TheEvenScaleGrowsLighterAllTheWay) {
  const std::vector<ColorLevel> scale = EvenScale(-2.0, 6.0);
  EXPECT_EQ(scale.front().level, -2.0);
  EXPECT_EQ(scale.back().level, 6.0);
  for (std::size_t i = 1; i < scale.size(); ++i) {
    EXPECT_GT(scale[i].level, scale[i - 1].level);
    EXPECT_GT(Contrast(scale[i].color, 0), Contrast(scale[i - 1].color, 0));
  }
}

}  // namespace
}  // namespace sondera
