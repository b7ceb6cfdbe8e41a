// Columns of numbers in plain text: what ends them, what separates them, what is refused.
#include "project/import_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/temp_folder.h"

namespace sondera {
namespace {

constexpr ColumnRule kTim{.values = 1, .tokensNeeded = 2};
constexpr ColumnRule kHyx{.values = 2, .tokensNeeded = 1};

TextColumns Read(const std::string& bytes, const ColumnRule& rule) {
  TextReader text;
  text.OpenMemory(bytes);
  return ReadColumns(text, rule);
}

/// A later file of a first one with `lines` lines.
ColumnRule Later(ColumnRule rule, int lines) {
  rule.keepGoing = rule.maxLines = lines;
  return rule;
}

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ReadColumns, BlanksCommasAndTabsSeparate) {
  const TextColumns c = Read("0 1.5\n0.1,2.5\n0.2\t3.5\n  0.3 , \t4.5  ignored columns 7\n", kTim);
  EXPECT_FALSE(c.damaged);
  EXPECT_THAT(c.axis, ElementsAre(0.0, 0.1, 0.2, 0.3));
  EXPECT_THAT(c.a, ElementsAre(1.5, 2.5, 3.5, 4.5));
  EXPECT_THAT(c.b, IsEmpty());
  EXPECT_EQ(c.lastValue, 4.5);
}

TEST(ReadColumns, CrLfIsALineEnd) {
  const TextColumns c = Read("0 1 -2\r\n0.5 3 4\r\n1 5 6\r", kHyx);
  EXPECT_FALSE(c.damaged);
  EXPECT_THAT(c.axis, ElementsAre(0.0, 0.5, 1.0));
  EXPECT_THAT(c.a, ElementsAre(1.0, 3.0, 5.0));
  EXPECT_THAT(c.b, ElementsAre(-2.0, 4.0, 6.0));
}

TEST(ReadColumns, LastLineNeedsNoLineEnd) {
  EXPECT_EQ(Read("0 1\n1 2", kTim).count(), 2);
}

TEST(ReadColumns, SamplesEndAtTheFirstLineWithoutTwoTokens) {
  EXPECT_EQ(Read("0 1\n1 2\n2\n3 4\n", kTim).count(), 2);
  EXPECT_EQ(Read("0 1\n1 2\n\n3 4\n", kTim).count(), 2);
  EXPECT_EQ(Read("title\n0 1\n1 2\n", kTim).count(), 0);
}

TEST(ReadColumns, SpectrumLinesEndAtTheFirstLineWithoutAToken) {
  const TextColumns c = Read("0 1 2\n1\n2 5\n \t\n3 7 8\n", kHyx);
  EXPECT_FALSE(c.damaged);
  EXPECT_THAT(c.axis, ElementsAre(0.0, 1.0, 2.0));
  EXPECT_THAT(c.a, ElementsAre(1.0, 0.0, 5.0)) << "a missing token is 0";
  EXPECT_THAT(c.b, ElementsAre(2.0, 0.0, 0.0));
}

TEST(ReadColumns, EmptyTextHasNoLines) {
  for (const char* bytes : {"", "\n", "\r\n", "   \n\n"}) {
    EXPECT_EQ(Read(bytes, kTim).count(), 0);
    EXPECT_EQ(Read(bytes, kHyx).count(), 0);
    EXPECT_EQ(Read(bytes, Later(kTim, 4)).count(), 0);
  }
}

TEST(ReadColumns, LaterFileGoesOnOverGapsAndStopsAtItsLimit) {
  const TextColumns c = Read("0 1\n1\n\n3 4\n4 5\n", Later(kTim, 4));
  EXPECT_FALSE(c.damaged);
  EXPECT_THAT(c.a, ElementsAre(1.0, 0.0, 0.0, 4.0));
  EXPECT_EQ(c.lastValue, 4.0);
  EXPECT_TRUE(std::isnan(c.axis[2]));
}

TEST(ReadColumns, BlankLinesBehindALaterFileAreNotSamples) {
  const TextColumns c = Read("0 1\n1 2\n\n   \n", Later(kTim, 8));
  EXPECT_THAT(c.a, ElementsAre(1.0, 2.0));
  EXPECT_EQ(c.lastValue, 2.0);
}

TEST(ReadColumns, LaterSpectrumEndsAtABlankLineOnceItIsLongerThanTheFirst) {
  ColumnRule rule = kHyx;
  rule.keepGoing = 2;
  rule.maxLines = 8;
  EXPECT_THAT(Read("0 1 1\n\n2 3 3\n3 4 4\n\nend of data\n", rule).a, ElementsAre(1.0, 0.0, 3.0, 4.0));
}

TEST(ReadColumns, ExponentsMayBeMarkedByD) {
  EXPECT_THAT(Read("0 1.25D-03\n1 -2d2\n2 3E1\n", kTim).a, ElementsAre(1.25e-3, -200.0, 30.0));
}

TEST(ReadColumns, ATokenThatIsNoFiniteNumberStandsAsNotANumber) {
  for (const char* token : {"nan", "NAN", "inf", "-Infinity", "1e999", "volts", "1.5x", "1.5-103", "1.2.3",
                            "--1", "1e", "****", "1.5D", "0x"}) {
    const TextColumns c = Read(std::string("0 1\n1 ") + token + "\n2 3\n", kTim);
    ASSERT_EQ(c.count(), 3) << token;
    EXPECT_FALSE(c.damaged) << token;
    EXPECT_TRUE(std::isnan(c.a[1])) << token;
    EXPECT_EQ(c.a[2], 3.0) << token;
  }
}

TEST(ReadColumns, AnAxisValueThatIsNoNumberIsDamage) {
  EXPECT_TRUE(Read("time value\n0 1\n1 2\n", kTim).damaged);
  EXPECT_TRUE(Read("0 1\nnan 2\n", kTim).damaged);
  EXPECT_TRUE(Read("0 1 1\nEND\n", kHyx).damaged);
  EXPECT_TRUE(Read("\xEF\xBB\xBF"
                   "0 1\n1 2\n",
                   kTim)
                  .damaged)
      << "a byte order mark in front";
}

TEST(ReadColumns, ALineOfMoreThan256BytesIsDamage) {
  const std::string fits = "1 2" + std::string(253, ' ');
  EXPECT_FALSE(Read("0 1\n" + fits + "\n2 3\n", kTim).damaged);
  EXPECT_EQ(Read("0 1\n" + fits + "\n2 3\n", kTim).count(), 3);
  EXPECT_FALSE(Read("0 1\r\n" + fits + "\r\n2 3\r\n", kTim).damaged);
  EXPECT_TRUE(Read("0 1\n" + fits + " \n2 3\n", kTim).damaged);
  EXPECT_TRUE(Read("0 1\n" + std::string(300, ' ') + "\n2 3\n", kTim).damaged) << "not the end of the data";
  EXPECT_TRUE(Read(std::string(1 << 20, '1'), kHyx).damaged);
  EXPECT_TRUE(Read("0 1\r1 2\r2 3\r" + std::string(300, ' '), kTim).damaged);
}

TEST(ReadColumns, ZeroBytesEndALine) {
  const TextColumns c = Read(std::string("0 1\0x\n1 2\n", 10), kTim);
  EXPECT_THAT(c.a, ElementsAre(1.0, 2.0));
  EXPECT_EQ(Read(std::string(4096, '\0'), kHyx).count(), 0);
}

TEST(ReadColumns, LinesAreNotCountedBeyondTheLimitOfALaterFile) {
  std::string many;
  for (int i = 0; i < 1000; ++i) many += "1 2\n";
  EXPECT_EQ(Read(many, Later(kTim, 10)).count(), 10);
  EXPECT_FALSE(Read(many, Later(kTim, 10)).damaged);
}

TEST(ReadColumns, AMillionLinesAreNoMoreThanAFew) {
  std::string many;
  for (int i = 0; i < 1000000; ++i) many += "7 1\n";
  const TextColumns c = Read(many, kTim);
  EXPECT_FALSE(c.damaged);
  EXPECT_EQ(c.count(), 1000000);
}

TEST(ReadColumns, SameTextFromMemoryAndFromAFile) {
  test::TempFolder folder;
  std::string bytes;
  for (int i = 0; i < 30000; ++i)
    bytes += std::to_string(i) + " " + std::to_string(i % 91) + " " + std::to_string(i % 7) + "\n";
  test::WriteWhole(folder.File("x.Hyx"), bytes);
  TextReader text;
  ASSERT_TRUE(text.Open(folder.File("x.Hyx")));
  const TextColumns fromFile = ReadColumns(text, kHyx);
  const TextColumns fromMemory = Read(bytes, kHyx);
  EXPECT_EQ(fromFile.axis, fromMemory.axis);
  EXPECT_EQ(fromFile.a, fromMemory.a);
  EXPECT_EQ(fromFile.b, fromMemory.b);
}

TEST(SameAxis, HalfAStepIsTheLimit) {
  TextColumns first, later;
  first.axis = {0.0, 1.0, 2.0};
  later.axis = {0.0, 1.49, 1.51};
  EXPECT_TRUE(SameAxis(first, later, 1.0));
  later.axis = {0.0, 1.51};
  EXPECT_FALSE(SameAxis(first, later, 1.0));
  later.axis = {0.5, std::numeric_limits<double>::quiet_NaN(), 2.0, 77.0};
  EXPECT_TRUE(SameAxis(first, later, 1.0))
      << "blank lines and lines behind the first file's end do not count";
}

}  // namespace
}  // namespace sondera
