// Numbers of the file against printf.
#include "plot_ps/statement.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class StatementTest : public PsTest {};

TEST_F(StatementTest, TenthsAreThoseOfPrintf) {
  std::mt19937 random(7);
  const std::string name = folder.File("numbers.ps");
  ps_iniplot(name);
  std::string expected;
  char text[80];
  const auto put = [&](float value) {
    Statement().Tenths(value).Put("\n");
    std::snprintf(text, sizeof text, "%.1f \n", static_cast<double>(value));
    expected += text;
  };
  for (const float value : {0.0f, -0.0f, -0.04f, 0.05f, 0.25f, 0.35f, 0.75f, -2.25f, 999999.96f, 1e6f, 1e9f})
    put(value);
  for (int i = 0; i < 20000; ++i)
    put(std::ldexp(static_cast<float>(random()) / 4.3e9f - 0.5f, static_cast<int>(random() % 30)));
  for (int i = 0; i < 20000; ++i) put(static_cast<float>(static_cast<int>(random() % 40001) - 20000) / 40.0f);
  ps_endplot("", 'f');
  const std::string bytes = test::ReadWhole(name);
  EXPECT_NE(bytes.find("translate\n" + expected + "GSG\n"), std::string::npos);
}

TEST_F(StatementTest, WhatIsNoNumberIsHeld) {
  const std::string name = folder.File("numbers.ps");
  ps_iniplot(name);
  const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
  Statement().Tenths(nan).Tenths(inf).Tenths(-inf).Tenths(3e38f).Put("\n");
  Statement().Number(static_cast<double>(nan), 6).Number(-1e300, 2).Number(0.125, 2).Put("\n");
  ps_endplot("", 'f');
  EXPECT_NE(test::ReadWhole(name).find("0.0 1000000000.0 -1000000000.0 1000000000.0 \n"
                                       "0.000000 -1000000000.00 0.12 \n"),
            std::string::npos);
}

TEST_F(StatementTest, LimitsOfValues) {
  const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
  EXPECT_EQ(HeldToOne(nan), 0.0f);
  EXPECT_EQ(HeldToOne(0.25f), 0.25f);
  EXPECT_EQ(HeldToOne(inf), 1.0f);
  EXPECT_EQ(Length(nan), 0.0f);
  EXPECT_EQ(Length(inf), 0.0f);
  EXPECT_EQ(Length(-1.0f), 0.0f);
  EXPECT_EQ(Length(1e30f), 1e6f);
  EXPECT_EQ(WholeDegrees(89.99f), 89);
  EXPECT_EQ(WholeDegrees(-0.5f), 0);
  EXPECT_EQ(WholeDegrees(inf), 0);
  EXPECT_EQ(WholeDegrees(3600010.0f), 10);
}

}  // namespace
}  // namespace sondera::testing
