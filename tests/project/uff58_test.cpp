// Reading of universal files, from bytes made by hand.
#include "project/uff58.h"

#include <gtest/gtest.h>

#include <string>

#include "runtime/text_format.h"

namespace sondera {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct SetText {
  std::string label = "    58";
  std::string function = "    4         1    0         0 NONE               2   3 NONE               1   3";
  int ordinate = 5;
  long points = 3;
  int spacing = 1;
  std::string abscissa = "  0.00000E+00  5.00000E-01  0.00000E+00";
  std::string data = "  1.00000E+00  2.00000E+00  3.00000E+00  4.00000E+00  5.00000E+00  6.00000E+00\n";
};

std::string Text(const SetText& s) {
  const std::string form = FormatText("%10d%10ld%10d", s.ordinate, s.points, s.spacing);
  std::string text;
  for (std::string_view piece : {std::string_view("    -1\n"), std::string_view(s.label),
                                 std::string_view("\nid one\nNONE\n09-JUN-17 16:56:18\n"),
                                 std::string_view("NONE\nNONE\n"), std::string_view(s.function),
                                 std::string_view("\n"), std::string_view(form), std::string_view(s.abscissa),
                                 std::string_view("\n        18    0    0    0 Frequency            Hz\n"
                                                  "        11    0    0    0 Velocity             counts\n"
                                                  "        11    0    0    0 Velocity             counts\n"
                                                  "         0    0    0    0 NONE                 NONE\n"),
                                 std::string_view(s.data), std::string_view("    -1\n")})
    text += piece;
  return text;
}

Uff58Status Read(const std::string& bytes, Uff58Set& set, const std::vector<int>& types = {4, 3},
                 Uff58Scan scan = Uff58Scan::FirstSetOnly) {
  TextReader text;
  text.OpenMemory(bytes);
  return ReadUff58(text, types, scan, set);
}

Uff58Status Read(const std::string& bytes) {
  Uff58Set set;
  return Read(bytes, set);
}

TEST(ReadUff58, ASetOfComplexValues) {
  Uff58Set set;
  ASSERT_EQ(Read(Text({}), set), Uff58Status::Ok);
  EXPECT_EQ(set.functionType, 4);
  EXPECT_EQ(set.ordinateType, 5);
  EXPECT_EQ(set.points, 3);
  EXPECT_EQ(set.abscissaMin, 0.0);
  EXPECT_EQ(set.abscissaStep, 0.5);
  EXPECT_THAT(set.re, ElementsAre(1, 3, 5));
  EXPECT_THAT(set.im, ElementsAre(2, 4, 6));
}

TEST(ReadUff58, RealOrdinatesHaveAnImaginaryPartOfZero) {
  for (int ordinate : {2, 4}) {
    Uff58Set set;
    ASSERT_EQ(Read(Text({.ordinate = ordinate, .points = 6}), set), Uff58Status::Ok);
    EXPECT_THAT(set.re, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(set.im, ElementsAre(0, 0, 0, 0, 0, 0));
  }
}

TEST(ReadUff58, OtherOrdinateTypesStoreNothing) {
  for (int ordinate : {0, 1, 3, 7, -5}) {
    Uff58Set set;
    EXPECT_EQ(Read(Text({.ordinate = ordinate}), set), Uff58Status::Ok) << ordinate;
    EXPECT_THAT(set.re, IsEmpty());
  }
}

TEST(ReadUff58, LineEndsPaddingAndLongLinesDoNotMatter) {
  std::string crlf;
  for (char c : Text({})) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  std::string padded;
  for (char c : Text({})) padded += c == '\n' ? std::string(200, ' ').append("\n") : std::string(1, c);
  Uff58Set set;
  ASSERT_EQ(Read(crlf, set), Uff58Status::Ok);
  EXPECT_THAT(set.im, ElementsAre(2, 4, 6));
  ASSERT_EQ(Read(padded, set), Uff58Status::Ok);
  EXPECT_THAT(set.im, ElementsAre(2, 4, 6));
}

TEST(ReadUff58, AllValuesOnOneLineOrOnePerLine) {
  Uff58Set set;
  ASSERT_EQ(Read(Text({.data = "1 2 3 4 5 6\n"}), set), Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(1, 3, 5));
  ASSERT_EQ(Read(Text({.data = "1\n2\n\n3\n4\n5   \n6\n"}), set), Uff58Status::Ok);
  EXPECT_THAT(set.im, ElementsAre(2, 4, 6));
}

TEST(ReadUff58, FieldsMayTouchAndExponentsMayBeD) {
  Uff58Set set;
  ASSERT_EQ(
      Read(Text({.data = "-1.00000E+00-2.00000E+00-3.00000E-01 4.00000D+00 5.00000d-01-6.00000E+000\n"}),
           set),
      Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(-1, -0.3, 0.5));
  EXPECT_THAT(set.im, ElementsAre(-2, 4, -6));
}

TEST(ReadUff58, AnExponentMayStandWithoutItsLetter) {
  Uff58Set set;
  ASSERT_EQ(
      Read(Text({.data = " 1.50000-103-2.50000+102 3.00000E+00-4.00000-100-5.00000E+00 6.00000-001\n"}), set),
      Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(1.5e-103, 3, -5));
  EXPECT_THAT(set.im, ElementsAre(-2.5e102, -4e-100, 0.6));
}

TEST(ReadUff58, WhatIsNoNumberIsDamage) {
  for (const char* token :
       {"nan", "inf", "1e999", "****", "1.2.3", "1.0E+001.0E+00", "x", "1.0x", "1.0E", "1,5"})
    EXPECT_EQ(Read(Text({.data = std::string("1 2 ") + token + " 4 5 6\n"})), Uff58Status::Damaged) << token;
}

TEST(ReadUff58, DataThatEndEarlyAreDamage) {
  EXPECT_EQ(Read(Text({.points = 4})), Uff58Status::Damaged) << "the closing line is no value";
  EXPECT_EQ(Read(Text({.data = "1 2 3 4 5\n"})), Uff58Status::Damaged);
  EXPECT_EQ(Read(Text({.data = ""})), Uff58Status::Damaged);
  const std::string whole = Text({});
  const std::size_t data = whole.find("  1.00000E+00");
  for (std::size_t length = data; length < whole.find("6.00000E+00"); ++length)
    EXPECT_EQ(Read(whole.substr(0, length)), Uff58Status::Damaged) << length;
}

TEST(ReadUff58, EveryCutOfTheHeaderIsRefused) {
  const std::string whole = Text({});
  for (std::size_t length = 0; length < whole.find("  1.00000E+00"); ++length)
    EXPECT_NE(Read(whole.substr(0, length)), Uff58Status::Ok) << length;
}

TEST(ReadUff58, MoreDataThanPointsAreLeftUnread) {
  Uff58Set set;
  ASSERT_EQ(Read(Text({.points = 2}), set), Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(1, 3));
}

TEST(ReadUff58, ACountThatTheFileCannotHoldAllocatesNothing) {
  for (int ordinate : {2, 3, 4, 5, 6, 9}) {
    Uff58Set set;
    EXPECT_EQ(Read(Text({.ordinate = ordinate, .points = 2000000000}), set), Uff58Status::Damaged)
        << ordinate;
    EXPECT_LE(set.re.capacity(), 64u);
  }
  EXPECT_EQ(Read(Text({.points = 99999999999})), Uff58Status::Damaged);
}

TEST(ReadUff58, NoOrNegativePointsAreDamage) {
  EXPECT_EQ(Read(Text({.points = 0})), Uff58Status::Damaged);
  EXPECT_EQ(Read(Text({.points = -3})), Uff58Status::Damaged);
}

TEST(ReadUff58, FirstLineMustBeTheDelimiter) {
  for (const char* text : {"", "\n", "-1\n", "     -1\n", "    58\n", "   -1\n", "hello\n", "0 1 2\n1 2 3\n"})
    EXPECT_EQ(Read(text), Uff58Status::NotUff58) << text;
  EXPECT_EQ(Read(std::string(1, 'x').append(Text({}))), Uff58Status::NotUff58);
  EXPECT_EQ(Read(std::string(1, '\n').append(Text({}))), Uff58Status::NotUff58);
  EXPECT_EQ(Read(std::string("\xEF\xBB\xBF").append(Text({}))), Uff58Status::NotUff58);
}

TEST(ReadUff58, AFileWithoutASetIsNoUniversalFileForUs) {
  EXPECT_EQ(Read("    -1\n"), Uff58Status::NotUff58);
  EXPECT_EQ(Read("    -1\n   151\nmodel\n    -1\n    -1\n    15\n    -1\n"), Uff58Status::NotUff58);
}

TEST(ReadUff58, TheBinaryVarietyIsRefused) {
  EXPECT_EQ(Read(Text({.label = "    58b     1     2          11        1024"})), Uff58Status::NotUff58);
  EXPECT_EQ(Read(Text({.label = "    58b"}) + Text({})), Uff58Status::NotUff58);
}

TEST(ReadUff58, TheLabelIsSixCharactersAndNothingElse) {
  for (const char* label : {"    580", "    58 1", "   58", "     58", "58", "    59", "\t58"})
    EXPECT_EQ(Read(Text({.label = label})), Uff58Status::NotUff58) << label;
  EXPECT_EQ(Read(Text({.label = std::string("    58").append(74, ' ')})), Uff58Status::Ok);
}

TEST(ReadUff58, AnIdLineOfNoneDoesNotSwallowTheNext) {
  // Five short ID lines; the function type is that of the sixth line whatever they hold.
  std::string bytes = Text({});
  for (const char* id : {"id one", "09-JUN-17 16:56:18"})
    bytes.replace(bytes.find(id), std::string(id).size(), "");
  EXPECT_EQ(Read(bytes), Uff58Status::Ok);
}

TEST(ReadUff58, TheFirstSetDecidesUnlessAllAreLookedAt) {
  const std::string time = "    1         1    0         0 NONE               2   3 NONE               1   3";
  const std::string bytes =
      Text({.function = time, .ordinate = 2, .points = 6}) + Text({.data = "7 8 9 10 11 12\n"});
  Uff58Set set;
  EXPECT_EQ(Read(bytes, set), Uff58Status::NoMatch);
  ASSERT_EQ(Read(bytes, set, {4}, Uff58Scan::UntilMatch), Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(7, 9, 11));
  EXPECT_EQ(Read(bytes, set, {9}, Uff58Scan::UntilMatch), Uff58Status::NoMatch);
}

TEST(ReadUff58, OfSeveralSetsThatMatchTheFirstIsTaken) {
  Uff58Set set;
  ASSERT_EQ(Read(Text({}) + Text({.data = "7 8 9 10 11 12\n"}), set, {4}, Uff58Scan::UntilMatch),
            Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(1, 3, 5));
}

TEST(ReadUff58, UnevenSpacingDoesNotMatch) {
  EXPECT_EQ(Read(Text({.spacing = 0})), Uff58Status::NoMatch);
  Uff58Set set;
  ASSERT_EQ(Read(Text({.spacing = 0}) + Text({.data = "7 8 9 10 11 12\n"}), set, {4}, Uff58Scan::UntilMatch),
            Uff58Status::Ok);
  EXPECT_THAT(set.re, ElementsAre(7, 9, 11));
}

TEST(ReadUff58, FunctionTypesNotAskedForDoNotMatch) {
  Uff58Set set;
  EXPECT_EQ(Read(Text({}), set, {3}), Uff58Status::NoMatch);
  EXPECT_EQ(Read(Text({}), set, {}), Uff58Status::NoMatch);
  EXPECT_EQ(Read(Text({.function = "NONE"}), set), Uff58Status::NoMatch);
  EXPECT_EQ(Read(Text({.function = ""}), set), Uff58Status::NoMatch);
  EXPECT_EQ(Read(Text({.function = "    41234567890    0"}), set), Uff58Status::Ok)
      << "fields of five and ten columns";
  EXPECT_EQ(Read(Text({.function = "4 1 0 0 NONE"}), set), Uff58Status::Ok);
}

TEST(ReadUff58, AbscissaeMayTouchAndCarryLongExponents) {
  Uff58Set set;
  ASSERT_EQ(Read(Text({.abscissa = " 0.00000E+000 5.00000E-005 0.00000E+000           "}), set),
            Uff58Status::Ok);
  EXPECT_EQ(set.abscissaStep, 5e-5);
  ASSERT_EQ(Read(Text({.abscissa = " -1.0000E-01 1.00000D-03-1.00000E+00"}), set), Uff58Status::Ok);
  EXPECT_EQ(set.abscissaMin, -0.1);
  EXPECT_EQ(set.abscissaStep, 1e-3);
  ASSERT_EQ(Read(Text({.abscissa = "       NONE"}), set), Uff58Status::Ok)
      << "fields that are no numbers count as 0";
  EXPECT_EQ(set.abscissaStep, 0.0);
}

TEST(ReadUff58, TheFormIsReadByColumnsOrByBlanks) {
  Uff58Set set;
  std::string bytes = Text({});
  const std::string form = FormatText("%10d%10d%10d  0.00000E+00", 5, 3, 1);
  bytes.replace(bytes.find(form), form.size(), "5 3 1 0.5");
  ASSERT_EQ(Read(bytes, set), Uff58Status::Ok);
  EXPECT_EQ(set.points, 3);
  EXPECT_EQ(set.abscissaMin, 0.5);
  EXPECT_EQ(set.abscissaStep, 0.5);
  bytes.replace(bytes.find("5 3 1 0.5"), 9, "NONE");
  EXPECT_EQ(Read(bytes, set), Uff58Status::NoMatch) << "no spacing flag";
}

TEST(NextUff58Number, TakesNumbersOffTheFront) {
  std::string_view line = "  1.5 -2.5-3E2";
  double value = 0.0;
  bool bad = false;
  for (double wanted : {1.5, -2.5, -300.0}) {
    ASSERT_TRUE(NextUff58Number(line, value, bad));
    EXPECT_EQ(value, wanted);
  }
  EXPECT_FALSE(NextUff58Number(line, value, bad));
  EXPECT_FALSE(bad);
}

TEST(NextUff58Number, ANumberInFrontOfASignedOneIsNoExponent) {
  std::string_view line = "1.5-2.25";
  double value = 0.0;
  bool bad = false;
  ASSERT_TRUE(NextUff58Number(line, value, bad));
  EXPECT_EQ(value, 1.5);
  ASSERT_TRUE(NextUff58Number(line, value, bad));
  EXPECT_EQ(value, -2.25);
}

}  // namespace
}  // namespace sondera
