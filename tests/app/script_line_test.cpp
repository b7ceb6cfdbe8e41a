// Tests of the reading of a script: words, quotes, pairs, header, line ends, lengths.
#include "app/script/line.h"

#include <gtest/gtest.h>

#include "app/script/fault.h"
#include "app/script/values.h"
#include "support/comma_locale.h"

namespace sondera::script {
namespace {

Line Split(std::string_view text) {
  Line line;
  SplitLine(text, line);
  return line;
}

std::string ReasonOf(std::string_view text) {
  try {
    Split(text);
  } catch (const Fault& fault) {
    return fault.reason;
  }
  return "";
}

TEST(ScriptLine, WordsStandBetweenBlanksAndTabs) {
  const Line line = Split("  mask \t 0  7.5\tjumps=1 ");
  EXPECT_EQ(line.word, "mask");
  ASSERT_EQ(line.fixed.size(), 2u);
  EXPECT_EQ(line.fixed[0].value, "0");
  EXPECT_EQ(line.fixed[1].value, "7.5");
  ASSERT_EQ(line.named.size(), 1u);
  EXPECT_EQ(line.named[0].name, "jumps");
  EXPECT_EQ(line.named[0].value, "1");
}

TEST(ScriptLine, QuotesHoldBlanksAndTheirEscapes) {
  const Line line = Split(R"(print "a \"b\" \\ c" "" id="two words")");
  ASSERT_EQ(line.fixed.size(), 2u);
  EXPECT_EQ(line.fixed[0].value, R"(a "b" \ c)");
  EXPECT_TRUE(line.fixed[0].quoted);
  EXPECT_EQ(line.fixed[1].value, "");
  ASSERT_EQ(line.named.size(), 1u);
  EXPECT_EQ(line.named[0].value, "two words");
}

TEST(ScriptLine, AQuotedTextWithAnEqualsSignIsNoPair) {
  const Line line = Split(R"(open "a=b.da")");
  ASSERT_EQ(line.fixed.size(), 1u);
  EXPECT_EQ(line.fixed[0].value, "a=b.da");
  EXPECT_TRUE(line.named.empty());
}

TEST(ScriptLine, SignsOfComparisonAreNoPairs) {
  EXPECT_EQ(Split("assert A.B <= 3").fixed.size(), 3u);
  EXPECT_EQ(Split("assert A.B = 3").fixed.size(), 3u);
  EXPECT_EQ(Split("assert A.B != 3").fixed.size(), 3u);
}

TEST(ScriptLine, CommentsNeedTheFirstColumn) {
  EXPECT_EQ(Split("# mask 1 2").word, "");
  EXPECT_EQ(Split("* mask 1 2").word, "");
  EXPECT_EQ(Split("   \t ").word, "");
  EXPECT_EQ(Split("").word, "");
  EXPECT_EQ(Split(" # mask").word, "#");
}

TEST(ScriptLine, WhatCannotBeSplitSaysWhy) {
  EXPECT_EQ(ReasonOf("print \"a"), "a quotation mark is not closed");
  EXPECT_EQ(ReasonOf("print \"a\"b"), "a blank has to follow the closing quotation mark");
  EXPECT_EQ(ReasonOf("print a\"b\""), "a quotation mark stands inside of a word; quote the whole word");
  EXPECT_EQ(ReasonOf(R"(print "a\n")"), "after a backslash in quotation marks only \" and \\ are allowed");
  EXPECT_EQ(ReasonOf(R"(print "a\)"), "after a backslash in quotation marks only \" and \\ are allowed");
  EXPECT_EQ(ReasonOf("mask jumps=1 jumps=2"), "jumps= is given twice");
  EXPECT_EQ(
      ReasonOf("project id=my site"),
      "\"site\" stands behind id=; fixed words come first, and a value with blanks needs quotation marks");
  EXPECT_EQ(ReasonOf("\"\" x"), "the first word is empty");
  EXPECT_EQ(ReasonOf(std::string_view("set a\0b", 7)), "the line holds a zero byte");
}

TEST(ScriptLine, BytesAboveSevenBitsPassThrough) {
  EXPECT_EQ(Split("print \"\xC3\x98ys\xC3\xA5nd \xE5\"").fixed[0].value, "\xC3\x98ys\xC3\xA5nd \xE5");
}

TEST(ScriptSource, TakesAMarkAndBothLineEnds) {
  Source source = Source::OfText("\xEF\xBB\xBF*sondera 2\r\nnew\r\n\nopen x");
  std::string text;
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text, "*sondera 2");
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text, "new");
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text, "");
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text, "open x");
  EXPECT_EQ(source.Number(), 4);
  EXPECT_FALSE(source.Next(text));
}

TEST(ScriptSource, ALineHasUpTo4096Bytes) {
  const std::string longest(kLongestLine, 'x'), longer = longest + "y";
  const std::string script = longest + "\n" + longest + "\r\n" + longer + "\nnew\n";
  Source source = Source::OfText(script);
  std::string text;
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text.size(), kLongestLine);
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text.size(), kLongestLine);
  EXPECT_THROW(source.Next(text), Fault);
  EXPECT_EQ(source.Number(), 3);
  ASSERT_TRUE(source.Next(text));
  EXPECT_EQ(text, "new");
}

TEST(ScriptHeader, StandsAloneInTheFirstLine) {
  EXPECT_TRUE(HasHeader("*sondera 2"));
  EXPECT_TRUE(HasHeader("*sondera 2\r\nnew\n"));
  EXPECT_TRUE(HasHeader("\xEF\xBB\xBF*sondera 2\n"));
  for (const char* other : {"", "\n*sondera 2\n", "* a comment\n*sondera 2\n", "*sondera 2 \n",
                            "*Sondera 2\n", "*sondera 1\n", "*sondera 22\n", " *sondera 2\n"})
    EXPECT_FALSE(HasHeader(other)) << other;
}

TEST(ScriptValues, NumbersAreWholeTexts) {
  EXPECT_EQ(NumberOf("7.5"), 7.5);
  EXPECT_EQ(NumberOf("+2"), 2.0);
  EXPECT_EQ(NumberOf("-1e-3"), -1e-3);
  for (const char* none : {"", " 1", "1 ", "1,5", "1x", "inf", "nan", "1e999", "+-1", "--1"})
    EXPECT_FALSE(NumberOf(none)) << none;
  EXPECT_EQ(WholeOf("-12"), -12);
  for (const char* none : {"", "1.0", "2147483648", "1e3"}) EXPECT_FALSE(WholeOf(none)) << none;
}

TEST(ScriptValues, NumbersReadBackEqual) {
  for (const double number : {0.1, 1.0 / 3.0, 7.324, 1e-300, 123456789.0, -0.0})
    EXPECT_EQ(NumberOf(TextOf(number)), number);
  EXPECT_EQ(TextOf(0.1), "0.1");
  EXPECT_EQ(TextOf(50.0), "50");
}

TEST(ScriptValues, NumbersDoNotFollowTheLocale) {
  const test::CommaLocale comma;
  if (!comma.Available()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_EQ(NumberOf("7.5"), 7.5);
  EXPECT_FALSE(NumberOf("7,5"));
  EXPECT_EQ(TextOf(7.5), "7.5");
}

TEST(ScriptValues, TheNearestNameIsOffered) {
  const std::vector<std::string> names = {"print", "press", "plot", "pair"};
  EXPECT_EQ(NearestOf("prnt", names), "print");
  EXPECT_EQ(NearestOf("PRESS", names), "press");
  EXPECT_EQ(NearestOf("zzzzzz", names), "");
  EXPECT_EQ(NearestOf("", names), "");
  EXPECT_EQ(UnknownText("word", "pres", names), "unknown word \"pres\"; did you mean \"press\"?");
  EXPECT_EQ(UnknownText("word", "zzzzzz", names), "unknown word \"zzzzzz\"");
}

}  // namespace
}  // namespace sondera::script
