// text_reader_test.cpp - lines of any length and end, tokens as the C library cuts them.
#include "runtime/text_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "support/failing_file_driver.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::TempFolder;
using test::WriteWhole;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::string> LinesOf(TextReader& reader, std::size_t maxBytes = 256) {
  std::vector<std::string> lines;
  std::string line;
  while (reader.ReadLine(line, maxBytes)) lines.push_back(line);
  EXPECT_EQ(line, "");
  return lines;
}

std::vector<std::string> LinesOf(const std::string& text, std::size_t maxBytes = 256) {
  TextReader reader;
  reader.OpenMemory(text);
  return LinesOf(reader, maxBytes);
}

std::vector<std::string> PhysicalLinesOf(const std::string& text) {
  TextReader reader;
  reader.OpenMemory(text);
  std::vector<std::string> lines;
  std::string line;
  while (reader.ReadPhysicalLine(line)) {
    lines.push_back(line);
    EXPECT_FALSE(reader.LineWasCut());
  }
  EXPECT_EQ(line, "");
  return lines;
}

TEST(ReadLine, KeepsTheLineEndAndNeedsNoneAtTheEnd) {
  EXPECT_THAT(LinesOf("a b\n\nlast"), ElementsAre("a b\n", "\n", "last"));
  EXPECT_THAT(LinesOf("one\n"), ElementsAre("one\n"));
  EXPECT_THAT(LinesOf(""), IsEmpty());
}

TEST(ReadLine, CarriageReturnBeforeLineFeedIsPartOfTheEnd) {
  EXPECT_THAT(LinesOf("a\r\n\r\nb\r\n"), ElementsAre("a\n", "\n", "b\n"));
  EXPECT_THAT(LinesOf("a\rb\r\r\nc\r"), ElementsAre("a\rb\r\n", "c\r"));
}

TEST(ReadLine, LongLinesComeInPieces) {
  const std::string text = std::string(600, 'x').append("\nnext\n");
  EXPECT_THAT(LinesOf(text), ElementsAre(std::string(256, 'x'), std::string(256, 'x'),
                                         std::string(88, 'x').append("\n"), "next\n"));
}

TEST(ReadLine, LineEndCountsAsOneByteOfThePiece) {
  EXPECT_THAT(LinesOf("abc\ndef\n", 4), ElementsAre("abc\n", "def\n"));
  EXPECT_THAT(LinesOf("abc\r\ndef\r\n", 4), ElementsAre("abc\n", "def\n"));
  EXPECT_THAT(LinesOf("abcd\nef\n", 4), ElementsAre("abcd", "\n", "ef\n"));
  EXPECT_THAT(LinesOf("abcd\r\nef\r\n", 4), ElementsAre("abcd", "\n", "ef\n"));
  EXPECT_THAT(LinesOf("abc\rd", 4), ElementsAre("abc\r", "d"));
}

// The reference is the C library itself on the same bytes.
TEST(ReadLine, CutsAsTheCLibraryDoes) {
  std::mt19937 random(5);
  for (int trial = 0; trial < 200; ++trial) {
    std::string text;
    const int length = static_cast<int>(random() % 900);
    for (int i = 0; i < length; ++i)
      text += random() % 60 == 0 ? '\n' : static_cast<char>('a' + random() % 26);
    const int maxBytes = 1 + static_cast<int>(random() % 90);
    std::vector<std::string> expected;
    if (!text.empty()) {
      std::FILE* file = ::fmemopen(text.data(), text.size(), "r");
      ASSERT_NE(file, nullptr);
      std::vector<char> buffer(static_cast<std::size_t>(maxBytes) + 1);
      while (std::fgets(buffer.data(), maxBytes + 1, file)) expected.emplace_back(buffer.data());
      std::fclose(file);
    }
    EXPECT_EQ(LinesOf(text, static_cast<std::size_t>(maxBytes)), expected) << "trial " << trial;
  }
}

TEST(ReadLine, GivesTheSameFromFileAndMemoryAcrossTheBuffer) {
  const TempFolder folder;
  for (std::size_t shift : {0u, 1u, 2u, 3u}) {
    std::string text(shift, '#');
    while (text.size() < 300000) text += "12.5, 3.75e-03\r\n";
    WriteWhole(folder.File("text"), text);
    TextReader file;
    ASSERT_TRUE(file.Open(folder.File("text")));
    EXPECT_EQ(LinesOf(file), LinesOf(text));
    file.Rewind();
    std::string line;
    std::size_t count = 0;
    while (file.ReadPhysicalLine(line)) ++count;
    EXPECT_EQ(count, LinesOf(text).size());
  }
}

TEST(ReadLine, PassesAllBytesThrough) {
  std::string text;
  for (int c = 0; c < 256; ++c)
    if (c != '\n' && c != '\r') text += static_cast<char>(c);
  EXPECT_THAT(LinesOf(text), ElementsAre(text));
  EXPECT_THAT(PhysicalLinesOf(text + "\n"), ElementsAre(text));
}

TEST(ReadPhysicalLine, TakesEveryLineEndOff) {
  EXPECT_THAT(PhysicalLinesOf("a\nb\r\n\n\r\nlast"), ElementsAre("a", "b", "", "", "last"));
  EXPECT_THAT(PhysicalLinesOf("a\rb\r\r\nc\r"), ElementsAre("a\rb\r", "c\r"));
  EXPECT_THAT(PhysicalLinesOf(""), IsEmpty());
}

TEST(ReadPhysicalLine, LongLinesStayWhole) {
  const std::string longLine(900000, 'y');
  EXPECT_THAT(PhysicalLinesOf(longLine + "\r\nend"), ElementsAre(longLine, "end"));
}

TEST(ReadPhysicalLine, LineBeyondTheBoundIsCutAndSaysSo) {
  for (const char* end : {"\n", "\r\n"}) {
    const std::string text = std::string("abcde") + end + "abcdef" + end + "abcdefghijk\r" + end + "ab" + end;
    TextReader reader;
    reader.OpenMemory(text);
    std::string line;
    ASSERT_TRUE(reader.ReadPhysicalLine(line, 5));
    EXPECT_EQ(line, "abcde");
    EXPECT_FALSE(reader.LineWasCut());
    ASSERT_TRUE(reader.ReadPhysicalLine(line, 5));
    EXPECT_EQ(line, "abcde");
    EXPECT_TRUE(reader.LineWasCut());
    ASSERT_TRUE(reader.ReadPhysicalLine(line, 5));
    EXPECT_EQ(line, "abcde");
    EXPECT_TRUE(reader.LineWasCut());
    ASSERT_TRUE(reader.ReadPhysicalLine(line, 5));
    EXPECT_EQ(line, "ab");
    EXPECT_FALSE(reader.LineWasCut());
    EXPECT_FALSE(reader.ReadPhysicalLine(line, 5));
  }
}

TEST(ReadPhysicalLine, FileWithoutLineEndsStaysWithinTheBound) {
  const TempFolder folder;
  WriteWhole(folder.File("blob"), std::string(3 << 20, 'z'));
  TextReader reader;
  ASSERT_TRUE(reader.Open(folder.File("blob")));
  std::string line;
  ASSERT_TRUE(reader.ReadPhysicalLine(line));
  EXPECT_EQ(line.size(), TextReader::kLongestLine);
  EXPECT_TRUE(reader.LineWasCut());
  EXPECT_FALSE(reader.ReadPhysicalLine(line));
}

TEST(TextReader, RewindStartsOver) {
  const TempFolder folder;
  WriteWhole(folder.File("a"), "first\nsecond\n");
  TextReader reader;
  ASSERT_TRUE(reader.Open(folder.File("a")));
  EXPECT_THAT(LinesOf(reader), ElementsAre("first\n", "second\n"));
  EXPECT_THAT(LinesOf(reader), IsEmpty());
  reader.Rewind();
  EXPECT_THAT(LinesOf(reader), ElementsAre("first\n", "second\n"));
}

TEST(TextReader, MissingFileAndFolderAreRefusedWithAReason) {
  TextReader reader;
  std::string reason, line;
  EXPECT_FALSE(reader.Open("/no/such/job.txt", &reason));
  EXPECT_THAT(reason, HasSubstr("No such file"));
  EXPECT_FALSE(reader.Open("/tmp", &reason));
  EXPECT_THAT(reason, HasSubstr("folder"));
  EXPECT_FALSE(reader.ReadLine(line));
  EXPECT_FALSE(reader.ReadPhysicalLine(line));
}

TEST(TextReader, ReadErrorEndsTheText) {
  const TempFolder folder;
  WriteWhole(folder.File("a"), "first\n");
  const test::FailingFileDriver driver({.failRead = 1});
  TextReader reader;
  ASSERT_TRUE(reader.Open(folder.File("a")));
  std::string line;
  EXPECT_FALSE(reader.ReadLine(line));
  EXPECT_TRUE(reader.ReadFailed());
}

std::vector<std::string> TokensOf(const std::string& text, const char* delimiters) {
  std::vector<std::string> tokens;
  Tokenizer tokenizer(text, delimiters);
  while (const auto token = tokenizer.Next()) tokens.emplace_back(*token);
  return tokens;
}

TEST(Tokenizer, RunsOfDelimitersSeparateOnce) {
  EXPECT_THAT(TokensOf("  masking, H31\t400,,300\n", " ,\t\n"), ElementsAre("masking", "H31", "400", "300"));
  EXPECT_THAT(TokensOf(" ,\t\n", " ,\t\n"), IsEmpty());
  EXPECT_THAT(TokensOf("", " ,\t\n"), IsEmpty());
  EXPECT_THAT(TokensOf("no delimiters", ""), ElementsAre("no delimiters"));
}

TEST(Tokenizer, CutsAsTheCLibraryDoes) {
  std::mt19937 random(11);
  for (int trial = 0; trial < 300; ++trial) {
    std::string text;
    for (auto i = random() % 40; i > 0; --i) text += " ,\tab\xe6"[random() % 6];
    std::string copy = text;
    std::vector<std::string> expected;
    for (char* t = std::strtok(copy.data(), " ,\t"); t; t = std::strtok(nullptr, " ,\t"))
      expected.emplace_back(t);
    EXPECT_EQ(TokensOf(text, " ,\t"), expected) << "trial " << trial;
  }
}

TEST(Tokenizer, DelimitersMayChangeBetweenTokens) {
  const std::string text = "H_31[m/s] 5 6";
  Tokenizer tokenizer(text);
  EXPECT_EQ(tokenizer.Next("_["), "H");
  EXPECT_EQ(tokenizer.Next("]"), "31[m/s");
  EXPECT_EQ(tokenizer.Next(), "5");
  EXPECT_EQ(tokenizer.Rest(), "6");
}

TEST(Tokenizer, StopsAtAZeroByte) {
  EXPECT_THAT(TokensOf(std::string("a b\0c d", 7), " "), ElementsAre("a", "b"));
}

}  // namespace
}  // namespace sondera
