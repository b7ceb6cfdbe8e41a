// Tests of the replies of a board program: lines, fields, samples.
#include "acquisition/board_reply.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace sondera {
namespace {

/// A reader that was fed one line.
BoardReplyReader Fed(const std::string& bytes) {
  BoardReplyReader reader;
  reader.ExpectLine();
  reader.Feed(bytes.data(), bytes.size());
  return reader;
}

TEST(BoardReply, LineEndsAtItsLineFeedAndTakesNoByteMore) {
  BoardReplyReader reader;
  reader.ExpectLine();
  EXPECT_EQ(reader.Feed("ok 1", 4), 4u);
  EXPECT_FALSE(reader.Whole());
  EXPECT_EQ(reader.Feed("2\nok", 4), 2u);
  EXPECT_TRUE(reader.Whole());
  EXPECT_EQ(reader.Line(), "ok 12");
  EXPECT_EQ(reader.Feed("more", 4), 0u);
}

TEST(BoardReply, LinesOf4096BytesAreTakenAndOf4097Refused) {
  const std::string longest(4095, 'x');
  EXPECT_TRUE(Fed(longest + "\n").Whole());
  const BoardReplyReader tooLong = Fed(longest + "x\n");
  EXPECT_FALSE(tooLong.Whole());
  EXPECT_EQ(tooLong.Fault(), "its reply has a line of more than 4096 bytes");
  EXPECT_EQ(Fed(longest + "x").Fault(), tooLong.Fault()) << "without waiting for its end";
}

TEST(BoardReply, ControlBytesAreRefused) {
  for (const char* text : {"ok\r\n", "ok\t1\n", "ok \x1b[2J\n", "\xc3\xa4\n", "\x7f\n"})
    EXPECT_EQ(Fed(text).Fault(), "its reply has a byte that is not printable ASCII") << text;
  EXPECT_FALSE(Fed(std::string("ok\0\n", 4)).Fault().empty());
}

TEST(BoardReply, SamplesComeWholeWhateverThePieces) {
  const double sent[] = {0.25, -1.5, 3.141592653589793, -0.0, 1e-300};
  char bytes[sizeof sent + 3] = {};
  std::memcpy(bytes, sent, sizeof sent);
  for (const std::size_t piece : {1u, 3u, 7u, 8u, 11u, 43u}) {
    double got[5] = {};
    BoardReplyReader reader;
    reader.ExpectSamples(got, 5);
    std::size_t at = 0;
    while (!reader.Whole()) at += reader.Feed(bytes + at, std::min(piece, sizeof bytes - at));
    EXPECT_EQ(at, sizeof sent) << "the three bytes behind are not its own";
    EXPECT_EQ(std::memcmp(got, sent, sizeof sent), 0) << piece;
  }
}

TEST(BoardReply, NoSamplesAreWholeAtOnce) {
  BoardReplyReader reader;
  double none = 7.0;
  reader.ExpectSamples(&none, 0);
  EXPECT_TRUE(reader.Whole());
  EXPECT_EQ(reader.Feed("x", 1), 0u);
  EXPECT_EQ(none, 7.0);
}

TEST(BoardReply, SamplesThatAreNotFiniteAreAFault) {
  for (const double bad : {std::nan(""), std::numeric_limits<double>::infinity()}) {
    const double sent[] = {1.0, bad, 2.0};
    double got[3];
    BoardReplyReader reader;
    reader.ExpectSamples(got, 3);
    reader.Feed(reinterpret_cast<const char*>(sent), sizeof sent);
    EXPECT_FALSE(reader.Whole());
    EXPECT_EQ(reader.Fault(), "its record has a sample that is not finite");
  }
}

TEST(BoardReply, OkAndErrLines) {
  BoardReply reply;
  ASSERT_TRUE(ParseBoardReply("ok", reply));
  EXPECT_TRUE(reply.ok);
  EXPECT_EQ(reply.text, "");
  ASSERT_TRUE(ParseBoardReply("ok Dev1,Dev2", reply));
  EXPECT_EQ(reply.text, "Dev1,Dev2");
  ASSERT_TRUE(ParseBoardReply("err -200284 no record in time", reply));
  EXPECT_FALSE(reply.ok);
  EXPECT_EQ(reply.code, -200284);
  EXPECT_EQ(reply.text, "no record in time");
  ASSERT_TRUE(ParseBoardReply("err -1", reply));
  EXPECT_EQ(reply.text, "");
  for (const char* line : {"", "o", "OK", "okay", " ok", "err", "err ", "err 0 x", "err 5 x", "err x",
                           "err -99999999999 x", "error -1 x", "err -1x y"})
    EXPECT_FALSE(ParseBoardReply(line, reply)) << line;
}

TEST(BoardReply, WholeNumbersAreDecimalAndWithinTheirLimits) {
  std::int64_t value = 77;
  for (const char* text :
       {"", " 1", "1 ", "+1", "0x1", "1.0", "1e3", "nan", "6", "-6", "99999999999999999999"})
    EXPECT_FALSE(ParseWholeField(text, -5, 5, value)) << text;
  EXPECT_EQ(value, 77);
  EXPECT_TRUE(ParseWholeField("-5", -5, 5, value));
  EXPECT_EQ(value, -5);
}

TEST(BoardReply, RealNumbersAreFinite) {
  double value = 77.0;
  for (const char* text : {"", "inf", "nan", "1e999", "1,5", "2 ", "0x10", "1.5V"})
    EXPECT_FALSE(ParseRealField(text, value)) << text;
  EXPECT_EQ(value, 77.0);
  EXPECT_TRUE(ParseRealField("2.56e3", value));
  EXPECT_EQ(value, 2560.0);
}

TEST(BoardReply, NamesOfDevicesHaveAtMostFourCharactersAndDiffer) {
  std::vector<std::string> names = {"old"};
  for (const char* text : {",", "Dev1,", "Dev10", "De v", "a:b", "Dev1,Dev1"})
    EXPECT_FALSE(ParseDeviceNames(text, names)) << text;
  EXPECT_EQ(names, std::vector<std::string>{"old"});
  EXPECT_TRUE(ParseDeviceNames("Dev1,Dev2", names));
  EXPECT_EQ(names, (std::vector<std::string>{"Dev1", "Dev2"}));
  EXPECT_TRUE(ParseDeviceNames("", names));
  EXPECT_TRUE(names.empty());
  EXPECT_FALSE(ParseInputNames("", names));
  EXPECT_TRUE(ParseInputNames("Dev1/ai0,Dev1/ai1", names));
}

TEST(BoardReply, RangesArePairsOfLowAndHigh) {
  std::vector<double> limits = {7.0};
  for (const char* text : {"", "1", "-1 1 -2", "1 -1", "1 1", "-1  1", "-1 x", "-inf inf"})
    EXPECT_FALSE(ParseRanges(text, limits)) << text;
  std::string many;
  for (int i = 0; i < 128; ++i) many += i ? " -1 1" : "-1 1";
  EXPECT_FALSE(ParseRanges(many, limits)) << "more than the table takes";
  EXPECT_EQ(limits, std::vector<double>{7.0});
  EXPECT_TRUE(ParseRanges("-10 10 0 5", limits));
  EXPECT_EQ(limits, (std::vector<double>{-10, 10, 0, 5}));
}

TEST(BoardReply, HeadOfARecord) {
  BoardRecordHead head;
  EXPECT_TRUE(ParseRecordHead("1024 4 a", head));
  EXPECT_EQ(head.samples, 1024);
  EXPECT_EQ(head.channels, 4);
  EXPECT_EQ(head.overload, 10u);
  EXPECT_TRUE(ParseRecordHead("1099511627776 4 0", head)) << "compared with what was asked, not believed";
  for (const char* text : {"", "1024 4", "1024 4 0 0", "1024  4 0", "-1 4 0", "1024 4 g", "1024 4 0x1",
                           "99999999999999999999 4 0", "1024 4 11111111111111111"})
    EXPECT_FALSE(ParseRecordHead(text, head)) << text;
}

}  // namespace
}  // namespace sondera
