// Tests of the options after the name of a board driver.
#include "acquisition/board_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sondera {
namespace {

using ::testing::HasSubstr;

class BoardOptions : public ::testing::Test {
 protected:
  std::string Parse(std::string_view text) {
    const BoardOption table[] = {{"seed", 0.0, 9.0, true, &seed}, {"noise", -1.0, 1.0, false, &noise}};
    return ParseBoardOptions("toy", text, table);
  }
  double seed = 5.0, noise = 0.5;
};

TEST_F(BoardOptions, ThoseThatAreNotGivenKeepTheirValue) {
  EXPECT_EQ(Parse(""), "");
  EXPECT_EQ(Parse("noise=-0.25"), "");
  EXPECT_EQ(seed, 5.0);
  EXPECT_EQ(noise, -0.25);
  EXPECT_EQ(Parse("noise=1,seed=9"), "") << "both ends are taken";
  EXPECT_EQ(seed, 9.0);
  EXPECT_EQ(noise, 1.0);
}

TEST_F(BoardOptions, WhatIsWrongIsOneSentence) {
  EXPECT_EQ(Parse("sede=1"), "Board driver toy has no option \"sede\"; it has seed, noise.");
  EXPECT_EQ(Parse("seed=1,seed=2"), "The option seed of board driver toy is given twice.");
  EXPECT_EQ(Parse("seed=1.5"),
            "The option seed of board driver toy takes a whole number from 0 to 9, not \"1.5\".");
  for (const char* value : {"", "1.01", "-1.01", "nan", "inf", "1e999", "1x", "0,5"})
    EXPECT_NE(Parse(std::string("noise=") + value), "") << value;
  EXPECT_NE(Parse("noise"), "") << "no value";
  EXPECT_NE(Parse(","), "") << "no name";
  EXPECT_THAT(Parse(std::string("se\x1b[2Jed=1")), ::testing::Not(HasSubstr("\x1b")))
      << "nothing for a terminal";
}

}  // namespace
}  // namespace sondera
