// Tests of splitting file names and ids.
#include "project/text_helpers.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

TEST(PlaceFileExtName, ReplacesWhatStandsBehindTheLastDot) {
  EXPECT_EQ(PlaceFileExtName("a.b.c", "tim"), "a.b.tim");
  EXPECT_EQ(PlaceFileExtName("abc", "tim"), "abc.tim");
  EXPECT_EQ(PlaceFileExtName("", "tim"), ".tim");
  EXPECT_EQ(PlaceFileExtName("abc.", "tim"), "abc.tim");
}

TEST(PlaceFileExtName, TakesADotOfAFolderWhereTheFileHasNone) {
  EXPECT_EQ(PlaceFileExtName("/sites/v1.2/line", "hyx"), "/sites/v1.hyx");
}

TEST(ExtractFName, CutsAtTheFirstDotAndTakesWhatIsBehindTheLastSeparator) {
  EXPECT_EQ(ExtractFName("/sites/oysand/H31.old.exd"), "H31");
  EXPECT_EQ(ExtractFName("H31.exd"), "H31");
  EXPECT_EQ(ExtractFName("H31"), "H31");
  EXPECT_EQ(ExtractFName("/sites/v1.2/H31.exd"), "v1") << "a dot of a folder cuts the path early";
  EXPECT_EQ(ExtractFName(""), "");
}

TEST(ExtractPathFName, KeepsTheClosingSeparatorOfTheFolder) {
  std::string dir = "x", name = "x";
  ExtractPathFName("/sites/oysand/Trace_3.da", dir, name);
  EXPECT_EQ(dir, "/sites/oysand/");
  EXPECT_EQ(name, "Trace_3");
  ExtractPathFName("Trace_3.da", dir, name);
  EXPECT_EQ(dir, "");
  EXPECT_EQ(name, "Trace_3");
  ExtractPathFName("/sites/v1.2/Trace_3.da", dir, name);
  EXPECT_EQ(dir, "/sites/");
  EXPECT_EQ(name, "v1");
}

TEST(ExtractMeasID, IsTheFirstTokenBetweenBrackets) {
  EXPECT_EQ(ExtractMeasID("H31[1:2]"), "H31");
  EXPECT_EQ(ExtractMeasID("[H31]x"), "H31");
  EXPECT_EQ(ExtractMeasID("H31"), "H31");
  EXPECT_EQ(ExtractMeasID("[]"), "");
}

}  // namespace
}  // namespace sondera
