// text_format_test.cpp - numbers from and to text, against the C library's own routines.
#include "runtime/text_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "support/comma_locale.h"
#include "support/odd_numbers.h"

namespace sondera {
namespace {

using test::CommaLocale;

TEST(ParseReal, TakesTheLeadingNumber) {
  EXPECT_EQ(ParseReal("2.385"), 2.385);
  EXPECT_EQ(ParseReal(" \t-17.5abc"), -17.5);
  EXPECT_EQ(ParseReal("+.5,6"), 0.5);
  EXPECT_EQ(ParseReal("5."), 5.0);
  EXPECT_EQ(ParseReal("1e3"), 1000.0);
  EXPECT_EQ(ParseReal("1e"), 1.0);
  EXPECT_EQ(ParseReal("1e+"), 1.0);
  EXPECT_EQ(ParseReal("1.2.3"), 1.2);
  EXPECT_EQ(ParseReal("-0"), 0.0);
  EXPECT_TRUE(std::signbit(ParseReal("-0")));
}

TEST(ParseReal, IsZeroWithoutANumber) {
  for (const char* text : {"", " ", "abc", "-", "+", ".", "e5", "--5", "+-5", "-+5", "NONE", "\xe6", "- 5"}) {
    std::size_t used = 99;
    EXPECT_EQ(ParseReal(text, &used), 0.0) << text;
    EXPECT_EQ(used, 0u) << text;
  }
}

TEST(ParseReal, SaysHowMuchItUsed) {
  std::size_t used = 0;
  ParseReal("  -1.25e-03 4.5", &used);
  EXPECT_EQ(used, 11u);
  ParseReal("1e+x", &used);
  EXPECT_EQ(used, 1u);
}

TEST(ParseReal, EndsBeyondTheRange) {
  EXPECT_EQ(ParseReal("1e999"), kInf);
  EXPECT_EQ(ParseReal("-1e999"), -kInf);
  EXPECT_EQ(ParseReal("1e-999"), 0.0);
  EXPECT_EQ(ParseReal("1e-310"), 1e-310);
  EXPECT_EQ(ParseReal(std::string(400, '9')), kInf);
  EXPECT_EQ(ParseReal(std::string("0.").append(400, '0').append("1")), 0.0);
}

// The reference is the C library, on texts of the letters that numbers are made of.
TEST(ParseReal, EqualsTheCLibraryOnRandomTexts) {
  std::mt19937 random(3);
  const std::string letters = " +-..0123456789eExXinfa,";
  for (int trial = 0; trial < 200000; ++trial) {
    std::string text;
    for (auto i = random() % 12; i > 0; --i) text += letters[random() % letters.size()];
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    std::size_t used = 0;
    const double found = ParseReal(text, &used);
    ASSERT_TRUE(std::memcmp(&found, &expected, sizeof found) == 0 ||
                (std::isnan(found) && std::isnan(expected)))
        << '"' << text << "\": " << found << " for " << expected;
    ASSERT_EQ(used, static_cast<std::size_t>(end - text.c_str())) << '"' << text << '"';
  }
}

TEST(ParseReal, ReadsPrintedNumbersBackExactly) {
  std::mt19937_64 random(8);
  for (int trial = 0; trial < 100000; ++trial) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(ParseReal(FormatText("%.17g", value)), value);
  }
}

TEST(ParseReal, KeepsThePointInALocaleWithCommas) {
  const CommaLocale locale;
  if (!locale.Available()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_EQ(std::atof("2,5"), 2.5);  // the locale is active
  EXPECT_EQ(ParseReal("2.5"), 2.5);
  EXPECT_EQ(ParseReal("2,5"), 2.0);
  EXPECT_EQ(ParseReal("1.5e999"), kInf);
  EXPECT_EQ(ParseReal("0x1.8p1"), 3.0);
  EXPECT_EQ(std::atof("2,5"), 2.5);  // and still is
}

TEST(ParseRealD, TakesExponentsMarkedByD) {
  EXPECT_EQ(ParseRealD("1.25D-03"), 1.25e-3);
  EXPECT_EQ(ParseRealD(" -.5d+2"), -50.0);
  EXPECT_EQ(ParseRealD("1.25E-03"), 1.25e-3);
  EXPECT_EQ(ParseRealD("7"), 7.0);
  EXPECT_EQ(ParseRealD("7D"), 7.0);
  EXPECT_EQ(ParseRealD("D5"), 0.0);
  EXPECT_EQ(ParseRealD(".D5"), 0.0);
  EXPECT_EQ(ParseRealD("1.2.3D4"), 1.2);
  EXPECT_EQ(ParseRealD(""), 0.0);
  std::size_t used = 0;
  ParseRealD(" 1.5D+01-2.5D+00", &used);
  EXPECT_EQ(used, 8u);
  ParseRealD("7Dx", &used);
  EXPECT_EQ(used, 1u);
}

TEST(ParseReal, DoesNotKnowExponentsMarkedByD) {
  EXPECT_EQ(ParseReal("1.25D-03"), 1.25);
}

TEST(ParseInt, TakesTheLeadingInteger) {
  EXPECT_EQ(ParseInt("42"), 42);
  EXPECT_EQ(ParseInt(" \t-17.9"), -17);
  EXPECT_EQ(ParseInt("+5abc"), 5);
  EXPECT_EQ(ParseInt("0x10"), 0);
  EXPECT_EQ(ParseInt("   4"), 4);
  std::size_t used = 0;
  ParseInt("  58b", &used);
  EXPECT_EQ(used, 4u);
}

TEST(ParseInt, IsZeroWithoutAnInteger) {
  for (const char* text : {"", "  ", "x1", "-", "+-1", ".5", "- 1"}) {
    std::size_t used = 9;
    EXPECT_EQ(ParseInt(text, &used), 0) << text;
    EXPECT_EQ(used, 0u) << text;
  }
}

TEST(ParseInt, StopsAtTheLimits) {
  EXPECT_EQ(ParseInt("2147483647"), 2147483647);
  EXPECT_EQ(ParseInt("2147483648"), 2147483647);
  EXPECT_EQ(ParseInt("-2147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(ParseInt("-2147483649"), std::numeric_limits<int>::min());
  EXPECT_EQ(ParseInt(std::string(100, '9')), 2147483647);
  EXPECT_EQ(ParseInt(std::string("-").append(100, '9')), std::numeric_limits<int>::min());
}

TEST(FormatText, PrintsAsPrintfDoes) {
  EXPECT_EQ(FormatText("%s_%d|%12.7lf|%le", "H31", 4, 2.385, -1.5), "H31_4|   2.3850000|-1.500000e+00");
  EXPECT_EQ(FormatText("%s", ""), "");
  EXPECT_EQ(FormatText("100%%"), "100%");
  EXPECT_EQ(FormatText("%s", "Oys\xe6nd"), "Oys\xe6nd");
}

TEST(FormatText, HasNoLongestText) {
  for (std::size_t length : {510u, 511u, 512u, 513u, 100000u}) {
    const std::string text(length, 'x');
    EXPECT_EQ(FormatText("%s", text.c_str()), text);
  }
}

TEST(FormatText, KeepsThePointInALocaleWithCommas) {
  const CommaLocale locale;
  if (!locale.Available()) GTEST_SKIP() << "no locale with a decimal comma";
  char plain[16];
  std::snprintf(plain, sizeof plain, "%.1f", 2.5);
  EXPECT_STREQ(plain, "2,5");  // the locale is active
  EXPECT_EQ(FormatText("%.1f", 2.5), "2.5");
}

}  // namespace
}  // namespace sondera
