// Columns of numbers in plain text: what ends them, what separates them, what is refused.
#include "project/import_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "runtime/text_format.h"
#include "support/failing_file_driver.h"
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
  const TextColumns c = Read("0 1.5\n0.1,2.5\n0.2\t3.5\n  0.3 , \t4.5  \n", kTim);
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

TEST(ReadColumns, ALineWithMoreFieldsThanTheFormatHasIsDamage) {
  struct {
    const char* bytes;
    ColumnRule rule;
    int line;
  } const cases[] = {{"0 1\n0.1 2\n0.2 3 4\n", kTim, 3},   {"0,0 1\n", kTim, 1},
                     {"0 1\n1 2,5\n2 3\n", kTim, 2},       {"0,00 -1,5\n0,01 2,5\n", kTim, 1},
                     {"0 1 2\n1 1 2 3\n2 1 1\n", kHyx, 2}, {"0,5 1,25 -2,75\n", kHyx, 1},
                     {"0 1,5 2\n1 1,5 2\n", kHyx, 1},      {"0 1 2\n1 1 2 # checked\n", kHyx, 2}};
  for (const auto& c : cases) {
    const TextColumns columns = Read(c.bytes, c.rule);
    EXPECT_TRUE(columns.damaged) << c.bytes;
    EXPECT_EQ(columns.fault.line, c.line) << c.bytes;
    EXPECT_EQ(columns.fault.cause,
              FormatText(
                  "more than the %d fields of the format (commas separate fields; a decimal mark is a point)",
                  c.rule.values + 1));
  }
}

TEST(ReadColumns, DamageNamesItsLine) {
  EXPECT_EQ(Read("0 1\n\n1 2\nx 3\n", Later(kTim, 9)).fault.line, 4);
  EXPECT_EQ(Read("time value\n0 1\n", kTim).fault.cause, "the first field is not a number");
  EXPECT_EQ(Read("0 1\n" + std::string(300, ' ') + "\n", kTim).fault.line, 2);
}

TEST(ReadColumns, AFileThatBreaksOffInALineIsDamage) {
  for (const char* bytes :
       {"0 1.25\n0.1 2.25\n0.2 3.25\n0.3 4.25\n0.4", "0 1.25\n0.1 2.25\n0.2 3.25\n0.3 4.2",
        "0 1.25\n0.1 2.25\n0.2 3.25\n0.3 4", "0 1.5e+00\n1 1.5e+00\n2 1.5e+00\n3 1.5e+0",
        "0 1.5e+00\n1 1.5e+00\n2 1.5e+00\n3 1.5"}) {
    const TextColumns c = Read(bytes, kTim);
    EXPECT_TRUE(c.damaged) << bytes;
    EXPECT_EQ(c.fault.line, std::count(bytes, bytes + std::strlen(bytes), '\n') + 1) << bytes;
  }
  EXPECT_TRUE(Read("0 1 2\n1 3 4\n2 5", kHyx).damaged);
  EXPECT_TRUE(Read("0 1 2\n1 3 4\n2", kHyx).damaged);
  EXPECT_TRUE(Read("0 1\n1 2\n2", Later(kTim, 9)).damaged);
}

TEST(ReadColumns, EveryCutOfANumberInTheLastLineIsDamageWhereNumbersHaveOneForm) {
  const std::string whole = "0.000 1.250000\n0.001 -2.250000\n0.002 3.250000\n0.003 4.250000";
  EXPECT_FALSE(Read(whole, kTim).damaged) << "whole but for its line end";
  EXPECT_TRUE(Read(whole, kTim).endsInLine);
  for (std::size_t cut = whole.rfind('\n') + 2; cut < whole.size(); ++cut)
    EXPECT_TRUE(Read(whole.substr(0, cut), kTim).damaged) << whole.substr(0, cut);
}

TEST(ReadColumns, ALastLineWithoutLineEndIsTakenWhereNothingIsMissingInIt) {
  for (const char* bytes : {"0 10\n1 20\n2 30\n3 5", "0 1.5\n1 2.5\n2 2", "0 1\n1 2.25\n2 3\n3 4"}) {
    const TextColumns c = Read(bytes, kTim);
    EXPECT_FALSE(c.damaged) << bytes;
    EXPECT_TRUE(c.endsInLine) << bytes;
  }
  EXPECT_FALSE(Read("0 1\n1 2\n", kTim).endsInLine);
  EXPECT_FALSE(Read("0 1\r\n1 2\r", kTim).endsInLine);
  EXPECT_FALSE(Read("0 1\n1 2\n  ", kTim).endsInLine);
}

TEST(ReadColumns, CountsWhatItLeavesOut) {
  EXPECT_EQ(Read("0 1\n1 2\n\n3 4\n4 5\n", kTim).linesBehind, 2);
  EXPECT_EQ(Read("0 1\n1 2\n2\n3 4\n", kTim).linesBehind, 2) << "the line that ends the data too";
  EXPECT_EQ(Read("0 1\n1 2\nend of data\n", kTim).linesBehind, 0);
  EXPECT_EQ(Read("0 1\n1 2\n2 3\n3 4\n", Later(kTim, 3)).linesBehind, 1);
  const TextColumns c = Read("0 1 2\n1 2\n2\n3 4 5\n", kHyx);
  EXPECT_EQ(c.shortLines, 2);
  EXPECT_EQ(c.firstShort, 2);
  EXPECT_EQ(c.mostFields, 3);
}

TEST(ReadColumns, AReadErrorIsDamage) {
  test::TempFolder folder;
  std::string bytes;
  while (bytes.size() < (std::size_t{1} << 18)) bytes += "1.5 2.5\n";
  test::WriteWhole(folder.File("x.tim"), bytes);
  const test::FailingFileDriver driver({.failRead = 2, .everAfter = true});
  TextReader text;
  ASSERT_TRUE(text.Open(folder.File("x.tim")));
  const TextColumns c = ReadColumns(text, kTim);
  EXPECT_TRUE(c.damaged);
  EXPECT_EQ(c.fault.cause, "the system could not read on from here");
}

/// Columns whose axis is written by a format.
TextColumns Axis(const char* format, double first, double step, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += FormatText(format, first + i * step) + " 1.25\n";
  return Read(bytes, kTim);
}

TEST(HasEvenAxis, TheDigitsThatAreWrittenDecideHowFarAValueMayBeOff) {
  for (const char* format : {"%.17g", "%.9g", "%g", "%.4f", "%.2f", "%e"}) {
    TextColumns c = Axis(format, 0.0, 0.48828125, 512);
    EXPECT_TRUE(HasEvenAxis(c, "frequencies")) << format << ": " << c.fault.cause;
  }
  TextColumns clock = Axis("%.6f", -0.5, 1.0 / 4096, 4096);
  EXPECT_TRUE(HasEvenAxis(clock, "times"));
  TextColumns coarse = Axis("%.1f", 0.0, 0.25, 512);
  EXPECT_FALSE(HasEvenAxis(coarse, "frequencies")) << "0.2, 0.5, 0.8, 1.0";
  TextColumns exported = Axis("%e", 0.0, 0.001, 1 << 17);
  EXPECT_TRUE(HasEvenAxis(exported, "times")) << "as the export of a trace writes them";
}

TEST(HasEvenAxis, AThousandthOfAStepIsTheLimit) {
  const auto shifted = [](double by) {
    std::string bytes;
    for (int i = 0; i < 100; ++i) bytes += FormatText("%.9f 1\n", 0.5 * i + (i == 40 ? by : 0.0));
    return Read(bytes, kTim);
  };
  for (double by : {0.0004, -0.0004}) {
    TextColumns c = shifted(by);
    EXPECT_TRUE(HasEvenAxis(c, "times")) << by;
  }
  for (double by : {0.00056, -0.00056, 0.01, 0.2}) {
    TextColumns c = shifted(by);
    EXPECT_FALSE(HasEvenAxis(c, "times")) << by;
    EXPECT_TRUE(c.fault.line == 41 || c.fault.line == 42) << c.fault.line;
  }
}

TEST(HasEvenAxis, AMissingLineIsFoundWhereItIs) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i)
    if (i != 700) bytes += FormatText("%d 1\n", i);
  TextColumns c = Read(bytes, kTim);
  EXPECT_FALSE(HasEvenAxis(c, "times"));
  EXPECT_EQ(c.fault.line, 701);
  EXPECT_EQ(c.fault.cause,
            "the times are not evenly spaced: the mean step is 1.00126, and the one to 701 is another");
}

TEST(HasEvenAxis, ValuesAscend) {
  for (const char* bytes : {"0 1\n1 1\n1 1\n2 1\n", "0 1\n2 1\n1 1\n3 1\n", "0 1\n1 1\n0 1\n1 1\n"}) {
    TextColumns c = Read(bytes, kTim);
    EXPECT_FALSE(HasEvenAxis(c, "times")) << bytes;
    EXPECT_EQ(c.fault.line, 3) << bytes;
    EXPECT_TRUE(c.fault.cause.starts_with("the times do not ascend")) << c.fault.cause;
  }
}

TEST(HasEvenAxis, GapsOfALaterFileKeepTheirPlaces) {
  TextColumns c = Read("0 1\n1 2\n\n3 4\n\n5 6\n", Later(kTim, 9));
  EXPECT_TRUE(HasEvenAxis(c, "times"));
  TextColumns closed = Read("0 1\n1 2\n\n2 4\n3 5\n4 6\n", Later(kTim, 9));
  EXPECT_FALSE(HasEvenAxis(closed, "times"));
}

TEST(HasEvenAxis, ExtremeValuesDoNoHarm) {
  for (const char* bytes : {"-1e308 1\n0 1\n1e308 1\n", "0 1\n5e-324 1\n1e-323 1\n",
                            "0 1\n1e-300 1\n1e300 1\n", "1e300 1\n1.0000000001e300 1\n"}) {
    TextColumns c = Read(bytes, kTim);
    HasEvenAxis(c, "times");
    EXPECT_EQ(c.damaged, !c.fault.cause.empty()) << bytes;
  }
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
