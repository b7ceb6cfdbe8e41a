// Tests of tables of numbers in plain text, and of column text as a shot.
#include "project/number_table.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "project/shot_columns.h"
#include "runtime/text_format.h"
#include "support/comma_locale.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

NumberTable Good(const std::string& text) {
  NumberTable table;
  EXPECT_EQ(ReadNumberTable(text, table), "");
  return table;
}
std::string Refusal(const std::string& text) {
  NumberTable table;
  return ReadNumberTable(text, table);
}

TEST(NumberTable, TakesCommasSemicolonsTabsAndBlanks) {
  for (const char* text : {"1.5,2\n-3,4e-1\n", "1.5;2\n-3;4e-1\n", "1,5;2\n-3;4e-1\n", "1.5\t2\n-3\t4e-1\n",
                           "  1.5   2 \n -3 \t 4e-1", "1.5 , 2\r\n\r\n-3,  4e-1\r\n",
                           "\xEF\xBB\xBF"
                           "1.5,2\n-3,0.4"}) {
    const NumberTable table = Good(text);
    ASSERT_EQ(table.columns.size(), 2u) << text;
    EXPECT_THAT(table.columns[0], ElementsAre(1.5, -3.0)) << text;
    EXPECT_THAT(table.columns[1], ElementsAre(2.0, 0.4)) << text;
    EXPECT_THAT(table.header, IsEmpty());
  }
}

TEST(NumberTable, FirstLineOrLastCommentNamesTheColumns) {
  EXPECT_THAT(Good("time,\"a, b\"\n1,2\n").header, ElementsAre("time", "a, b"));
  EXPECT_THAT(Good("# made by\n#Frequency (Hz),Velocity (m/s)\n1,2\n").header,
              ElementsAre("Frequency (Hz)", "Velocity (m/s)"));
  EXPECT_THAT(Good("# just a remark\n1,2\n").header, IsEmpty());
}

TEST(NumberTable, EmptyCellsHaveNoValue) {
  const NumberTable table = Good("a,b\n1,\n,2\n");
  EXPECT_TRUE(std::isnan(table.columns[1][0]));
  EXPECT_TRUE(std::isnan(table.columns[0][1]));
}

TEST(NumberTable, WhatIsNoTableHasItsLine) {
  EXPECT_EQ(Refusal(""), "the file holds no row of numbers");
  EXPECT_EQ(Refusal("a,b\n"), "the file holds no row of numbers");
  EXPECT_EQ(Refusal("1,2\n3\n"), "line 2 has 1 columns, and the lines before it 2");
  EXPECT_EQ(Refusal("1,2\n3,x\n"), "line 2: \"x\" is not a number");
  EXPECT_EQ(Refusal("a,b,c\n1,2\n"), "the first line names 3 columns, and there are 2");
  EXPECT_EQ(
      Refusal("x\ty\n1,6\t3\n"),
      "line 2: \"1,6\" is not a number; with decimal commas the columns have to be separated by semicolons");
  std::string wide = "1";
  for (int i = 0; i < 5000; ++i) wide += ",1";
  EXPECT_THAT(Refusal(wide + "\n"), HasSubstr("at most 4096 are read"));
}

TEST(NumberTable, AnyBytesAreATableOrASentence) {
  std::mt19937 random(3);
  const std::string alphabet = "0123456789.,;\t -+eE#\"\nab\r\0";
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (auto i = random() % 60; i > 0; --i) text += alphabet[random() % alphabet.size()];
    NumberTable table;
    const std::string reason = ReadNumberTable(text, table);
    if (!reason.empty()) continue;
    EXPECT_GT(table.rows(), 0u);
    for (const auto& column : table.columns) EXPECT_EQ(column.size(), table.rows());
  }
}

// ---- column text ----------------------------------------------------------------------------------------

std::string Columns(std::size_t channels, const char* separator, bool time, bool header, bool decimalComma) {
  std::string text;
  const auto line = [&](auto cell) {
    std::string row;
    if (time) row += cell(0);
    for (std::size_t c = 1; c <= channels; ++c) row += (row.empty() ? "" : separator) + cell(c);
    text += row + "\n";
  };
  if (header) line([](std::size_t c) { return c == 0 ? std::string("Time (s)") : FormatText("CH%zu", c); });
  for (int i = 0; i < 40; ++i)
    line([&](std::size_t c) {
      std::string cell =
          FormatText("%.4f", c == 0 ? -0.01 + 0.002 * i : std::sin(0.3 * i + static_cast<double>(c)));
      if (decimalComma) cell.replace(cell.find('.'), 1, ",");
      return cell;
    });
  return text;
}

TEST(ShotColumns, AllSeparatorsWithAndWithoutHeadersOneAndManyChannels) {
  struct Form {
    const char* separator;
    bool decimalComma;
  };
  for (const Form& form :
       {Form{",", false}, Form{";", true}, Form{";", false}, Form{"\t", false}, Form{"  ", false}})
    for (bool header : {true, false})
      for (std::size_t channels : {1u, 24u})
        for (bool time : {true, false}) {
          // With blanks in the names, the separator must be another character.
          if (header && form.separator[0] == ' ' && time) continue;
          // A single column has no semicolons to distinguish a decimal comma from a separator.
          if (form.decimalComma && channels == 1 && !time) continue;
          const std::string text = Columns(channels, form.separator, time, header, form.decimalComma);
          Shot shot;
          ASSERT_EQ(ShotOfColumns("file", text, time ? 0.0 : 0.002, shot), "") << text.substr(0, 60);
          ASSERT_EQ(shot.traces.size(), channels);
          EXPECT_NEAR(shot.traces[0].interval, 0.002, 1e-12);
          EXPECT_EQ(shot.traces[0].firstTime, time ? -0.01 : 0.0);
          EXPECT_NEAR(shot.traces.back().samples[7], std::sin(2.1 + static_cast<double>(channels)), 1e-4);
          EXPECT_EQ(shot.traces.back().samples.size(), 40u);
          EXPECT_EQ(shot.lengthUnit, 0.0);
          EXPECT_TRUE(shot.traces[0].receiver.empty());
        }
}

TEST(ShotColumns, TimeInMillisecondsIsTakenByItsName) {
  Shot shot;
  ASSERT_EQ(ShotOfColumns("file", "t [ms],a\n-1,2\n0,3\n1,5\n", 0.0, shot), "");
  EXPECT_NEAR(shot.traces[0].interval, 0.001, 1e-15);
  EXPECT_NEAR(shot.traces[0].firstTime, -0.001, 1e-15);
  EXPECT_EQ(ShotOfColumns("file", "t [h],a\n-1,2\n0,3\n", 0.0, shot),
            "the unit of the time, \"t [h]\", is not s, ms or us");
}

TEST(ShotColumns, WithoutATimeTheIntervalIsAskedFor) {
  Shot shot;
  const char* asks = "the first column is not a time with even steps; give the sampling interval";
  EXPECT_EQ(ShotOfColumns("file", "1,2\n1,3\n2,4\n", 0.0, shot), asks);
  EXPECT_EQ(ShotOfColumns("file", "0,2\n1,3\n3,4\n", 0.0, shot), asks);
  EXPECT_EQ(ShotOfColumns("file", "0,2\n", 0.0, shot), asks);
  EXPECT_EQ(ShotOfColumns("file", "0\n1\n2\n", 0.0, shot), "there is no column beside the time");
  EXPECT_EQ(ShotOfColumns("file", "1,2\n1,3\n2,4\n", 0.5, shot), "");
  EXPECT_EQ(shot.traces.size(), 2u);
  EXPECT_EQ(ShotOfColumns("file", "1,x\n1,3\n2,y\n", 0.5, shot), "line 3: \"y\" is not a number");
}

}  // namespace
}  // namespace sondera::testing
