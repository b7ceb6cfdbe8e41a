// Tests of text for a terminal.
#include "runtime/terminal.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

using namespace std::string_literals;

TEST(TerminalText, LeavesPlainTextAndLineEnds) {
  for (const std::string& text : {""s, "Sondera 4.1: Error in reading the file.\nline 3\n"s,
                                  "Öysand, Straße 3 °C €"s, "\xF0\x9F\x8C\x8D"s})
    EXPECT_EQ(TerminalText(text), text);
}

TEST(TerminalText, ShowsControlBytesAsNumbers) {
  EXPECT_EQ(TerminalText("\033]0;title\007"), "\\x1B]0;title\\x07");
  EXPECT_EQ(TerminalText("a\r\tb\x7F"), "a\\x0D\\x09b\\x7F");
  EXPECT_EQ(TerminalText("a\0b"s), "a\\x00b");
}

/// The second control set: as UTF-8, and as the single bytes of older terminals.
TEST(TerminalText, ShowsTheControlsAbove127AsNumbers) {
  EXPECT_EQ(TerminalText("\xC2\x9B"
                         "31m"),
            "\\xC2\\x9B31m");
  EXPECT_EQ(TerminalText("\x9B"
                         "31m"),
            "\\x9B31m");
  EXPECT_EQ(TerminalText("\xC2\xA0"), "\xC2\xA0");
}

TEST(TerminalText, ShowsBytesThatAreNoUtf8AsNumbers) {
  EXPECT_EQ(TerminalText("\xD6ysand"), "\\xD6ysand");
  EXPECT_EQ(TerminalText("a\xE2\x82"), "a\\xE2\\x82");
  EXPECT_EQ(TerminalText("\xC0\x9B\xED\xA0\x80\xF5"), "\\xC0\\x9B\\xED\\xA0\\x80\\xF5");
}

TEST(VisibleText, ShowsControlBytesByTheirNumbers) {
  EXPECT_EQ(VisibleText("plain \xc3\xa9"), "plain \xc3\xa9");
  EXPECT_EQ(VisibleText(std::string_view("a\0\n\x1b[2J\x7f", 8)), "a\\x00\\x0A\\x1B[2J\\x7F");
}

TEST(PrintError, GoesThroughIt) {
  ::testing::internal::CaptureStderr();
  PrintError("%s is %.1f\n", "\033[2Jname", 1.5);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "\\x1B[2Jname is 1.5\n");
}

}  // namespace
}  // namespace sondera
