// byte_reader_test.cpp - reading of binary files that may end anywhere.
#include "runtime/byte_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "support/failing_file_driver.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::ReadWhole;
using test::TempFolder;
using test::WriteWhole;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

template <class T>
void Append(std::string& bytes, T value) {
  char raw[sizeof value];
  std::memcpy(raw, &value, sizeof value);
  bytes.append(raw, sizeof value);
}

TEST(ByteReader, ReadsLittleEndianNumbers) {
  const unsigned char bytes[] = {0x2a, 0, 0, 0, 0xfe, 0xff, 0xff, 0xff, 0, 0, 0, 0, 0, 0, 0x04, 0xc0};
  ByteReader reader;
  reader.OpenMemory(bytes, sizeof bytes);
  EXPECT_EQ(reader.Int32(), 42);
  EXPECT_EQ(reader.Int32(), -2);
  EXPECT_EQ(reader.Real(), -2.5);
  EXPECT_EQ(reader.Remaining(), 0);
  EXPECT_FALSE(reader.ComesShort());
}

TEST(ByteReader, TextStopsAtItsTerminatorAndTakesTheWholeField) {
  std::string bytes = "Oys\xe6nd";
  bytes.resize(256, '\0');
  bytes[100] = 'x';  // garbage after the terminator
  bytes += std::string(8, 'z');
  Append(bytes, 5);
  ByteReader reader;
  reader.OpenMemory(bytes.data(), bytes.size());
  EXPECT_EQ(reader.Text(), "Oys\xe6nd");
  EXPECT_EQ(reader.Position(), 256);
  EXPECT_EQ(reader.Text(8), "zzzzzzzz");  // no terminator at all
  EXPECT_EQ(reader.Int32(), 5);
}

/// A small file of all kinds, and its reading by fields.
struct Fields {
  int number = -1;
  double real = -1.0;
  std::string text = "unset";
  std::vector<int> ints = std::vector<int>(5, -1);
  std::vector<double> reals = std::vector<double>(3, -1.0);
  int last = -1;
};

std::string FieldBytes() {
  std::string bytes;
  Append(bytes, 1234567);
  Append(bytes, 2.385);
  std::string text = "measID";
  text.resize(16, '\0');
  bytes += text;
  for (int i = 1; i <= 5; ++i) Append(bytes, 100 * i);
  for (int i = 1; i <= 3; ++i) Append(bytes, 0.5 + i);
  Append(bytes, 77);
  return bytes;
}

Fields ReadFields(ByteReader& reader) {
  Fields f;
  f.number = reader.Int32();
  f.real = reader.Real();
  f.text = reader.Text(16);
  reader.Int32s(f.ints.data(), f.ints.size());
  reader.Reals(f.reals.data(), f.reals.size());
  f.last = reader.Int32();
  return f;
}

void ExpectCutAt(std::size_t length, const Fields& f, const ByteReader& reader) {
  const std::string whole = FieldBytes();
  SCOPED_TRACE("cut at " + std::to_string(length));
  EXPECT_EQ(reader.ComesShort(), length < whole.size());
  EXPECT_EQ(f.number, length >= 4 ? 1234567 : 0);
  EXPECT_EQ(f.real, length >= 12 ? 2.385 : 0.0);
  EXPECT_EQ(f.text, std::string("measID").substr(0, length < 12 ? 0 : length - 12));
  for (std::size_t i = 0; i < 5; ++i)
    EXPECT_EQ(f.ints[i], length >= 28 + 4 * (i + 1) ? static_cast<int>(100 * (i + 1)) : 0);
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_EQ(f.reals[i], length >= 48 + 8 * (i + 1) ? 1.5 + static_cast<double>(i) : 0.0);
  EXPECT_EQ(f.last, length == whole.size() ? 77 : 0);
  EXPECT_EQ(reader.Remaining(), 0);
}

TEST(ByteReader, EveryCutLeavesWhatWasWholeAndZerosBehind) {
  const std::string whole = FieldBytes();
  const TempFolder folder;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    ByteReader memory;
    const std::vector<char> exact(whole.begin(),
                                  whole.begin() + static_cast<long>(length));  // for the sanitizer
    memory.OpenMemory(exact.data(), exact.size());
    ExpectCutAt(length, ReadFields(memory), memory);

    WriteWhole(folder.File("cut"), whole.substr(0, length));
    ByteReader file;
    ASSERT_TRUE(file.Open(folder.File("cut")));
    ExpectCutAt(length, ReadFields(file), file);
  }
}

TEST(ByteReader, AfterComingShortAllIsZeroAndNothingRemains) {
  const std::string bytes = "\x01\x02\x03\x04\x05\x06";
  ByteReader reader;
  reader.OpenMemory(bytes.data(), bytes.size());
  EXPECT_EQ(reader.Real(), 0.0);  // six bytes of eight: no half numbers
  EXPECT_TRUE(reader.ComesShort());
  EXPECT_EQ(reader.Remaining(), 0);
  EXPECT_EQ(reader.Int32(), 0);
  EXPECT_EQ(reader.Text(), "");
  double reals[2] = {7.0, 7.0};
  reader.Reals(reals, 2);
  EXPECT_THAT(reals, ElementsAre(0.0, 0.0));
  EXPECT_FALSE(reader.CanHold(1, 1));
  EXPECT_FALSE(reader.ReadFailed());
}

TEST(ByteReader, ReaderThatWasNeverOpenedGivesZeros) {
  ByteReader reader;
  EXPECT_FALSE(reader.IsOpen());
  EXPECT_EQ(reader.Int32(), 0);
  EXPECT_TRUE(reader.ComesShort());
}

TEST(ByteReader, OpensAnewAfterComingShort) {
  const std::string bytes = FieldBytes();
  ByteReader reader;
  reader.OpenMemory(bytes.data(), 2);
  reader.Int32();
  reader.OpenMemory(bytes.data(), bytes.size());
  EXPECT_FALSE(reader.ComesShort());
  EXPECT_EQ(reader.Int32(), 1234567);
}

TEST(CanHold, HoldsACountAgainstTheBytesLeft) {
  const std::string bytes(24, '\0');
  ByteReader reader;
  reader.OpenMemory(bytes.data(), bytes.size());
  EXPECT_TRUE(reader.CanHold(0, 8));
  EXPECT_TRUE(reader.CanHold(3, 8));
  EXPECT_FALSE(reader.CanHold(4, 8));
  EXPECT_TRUE(reader.CanHold(24, 1));
  EXPECT_FALSE(reader.CanHold(25, 1));
  reader.Int32();
  EXPECT_TRUE(reader.CanHold(2, 8));
  EXPECT_FALSE(reader.CanHold(3, 8));
}

TEST(CanHold, RefusesNegativeAndImpossibleCounts) {
  const std::string bytes(24, '\0');
  ByteReader reader;
  reader.OpenMemory(bytes.data(), bytes.size());
  constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
  EXPECT_FALSE(reader.CanHold(-1, 8));
  EXPECT_FALSE(reader.CanHold(2000000000, 8));
  EXPECT_FALSE(reader.CanHold(kHuge, kHuge));  // no overflow into a small product
  EXPECT_FALSE(reader.CanHold(kHuge / 4, 8));
  EXPECT_FALSE(reader.CanHold(std::numeric_limits<std::int64_t>::min(), 1));
  EXPECT_FALSE(reader.CanHold(3, -8));
  EXPECT_FALSE(reader.CanHold(3, 0));
}

TEST(ByteReader, SkipsForwardOnly) {
  const std::string bytes = FieldBytes();
  ByteReader reader;
  reader.OpenMemory(bytes.data(), bytes.size());
  reader.Skip(28);
  reader.Skip(0);
  reader.Skip(-4);
  EXPECT_EQ(reader.Int32(), 100);
  reader.Skip(static_cast<std::int64_t>(bytes.size()) - 32);
  EXPECT_FALSE(reader.ComesShort());
  reader.Skip(1);
  EXPECT_TRUE(reader.ComesShort());
}

TEST(ByteReader, SkipBeyondTheEndEndsAtOnce) {
  const std::string bytes(10, 'x');
  ByteReader reader;
  reader.OpenMemory(bytes.data(), bytes.size());
  reader.Skip(std::numeric_limits<std::int64_t>::max());
  EXPECT_TRUE(reader.ComesShort());
}

/// A file of n reals 0.5, 1.5, ... after `lead` bytes.
void WriteReals(const std::string& path, std::size_t lead, std::size_t n) {
  std::string bytes(lead, '*');
  for (std::size_t i = 0; i < n; ++i) Append(bytes, 0.5 + static_cast<double>(i));
  WriteWhole(path, bytes);
}

TEST(ByteReader, LongArraysAcrossTheBufferAreWhole) {
  const TempFolder folder;
  const std::size_t n = 100000;  // several buffers
  for (std::size_t lead : {0u, 3u, 131071u, 131072u}) {
    WriteReals(folder.File("long"), lead, n);
    ByteReader reader;
    ASSERT_TRUE(reader.Open(folder.File("long")));
    reader.Skip(static_cast<std::int64_t>(lead));
    std::vector<double> values(n);
    reader.Reals(values.data(), 10);
    reader.Reals(values.data() + 10, n - 10);
    for (std::size_t i = 0; i < n; ++i) ASSERT_EQ(values[i], 0.5 + static_cast<double>(i)) << lead;
    EXPECT_FALSE(reader.ComesShort());
    EXPECT_EQ(reader.Remaining(), 0);
  }
}

TEST(ByteReader, ValueByValueAcrossTheBufferIsTheSame) {
  const TempFolder folder;
  const std::size_t n = 50000;
  WriteReals(folder.File("long"), 5, n);
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("long")));
  reader.Skip(5);
  for (std::size_t i = 0; i < n; ++i) ASSERT_EQ(reader.Real(), 0.5 + static_cast<double>(i));
  EXPECT_FALSE(reader.ComesShort());
}

TEST(ByteReader, LongArrayCutInItsMiddleKeepsItsWholeElements) {
  const TempFolder folder;
  const std::size_t n = 60000, there = 50000;
  WriteReals(folder.File("cut"), 0, n);
  std::filesystem::resize_file(folder.File("cut"), 8 * there + 3);
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("cut")));
  std::vector<double> values(n, -1.0);
  reader.Reals(values.data(), n);
  EXPECT_TRUE(reader.ComesShort());
  for (std::size_t i = 0; i < n; ++i) ASSERT_EQ(values[i], i < there ? 0.5 + static_cast<double>(i) : 0.0);
}

TEST(ByteReader, FileThatShrinksWhileReadComesShort) {
  const TempFolder folder;
  WriteReals(folder.File("shrinks"), 0, 50000);
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("shrinks")));
  EXPECT_EQ(reader.Real(), 0.5);
  std::filesystem::resize_file(folder.File("shrinks"), 8);
  std::vector<double> values(49999, -1.0);
  reader.Reals(values.data(), values.size());
  EXPECT_TRUE(reader.ComesShort());
  EXPECT_EQ(values.back(), 0.0);
}

TEST(ByteReader, LongArraysGoStraightToTheirDestination) {
  const TempFolder folder;
  WriteWhole(folder.File("big"), "");
  const std::size_t n = std::size_t{4} << 20;  // 32 MB
  std::filesystem::resize_file(folder.File("big"), 8 * n + 4);
  std::vector<double> values(n, 1.0);
  const test::FailingFileDriver driver;
  const std::size_t before = ::mallinfo2().uordblks;
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("big")));
  reader.Int32();
  reader.Reals(values.data(), n);
  EXPECT_FALSE(reader.ComesShort());
  EXPECT_LT(::mallinfo2().uordblks - before, std::size_t{1} << 20);  // far from the file's size
  EXPECT_LE(driver.Calls().read, 4);
}

TEST(ByteReader, MissingFileIsRefusedWithAReason) {
  ByteReader reader;
  std::string reason;
  EXPECT_FALSE(reader.Open("/no/such/file.da", &reason));
  EXPECT_THAT(reason, HasSubstr("/no/such/file.da"));
  EXPECT_THAT(reason, HasSubstr("No such file"));
  EXPECT_FALSE(reader.Open("/no/such/file.da"));
  EXPECT_FALSE(reader.Open(""));
  EXPECT_FALSE(reader.IsOpen());
}

TEST(ByteReader, FoldersAndPipesAreRefusedWithoutWaiting) {
  const TempFolder folder;
  ByteReader reader;
  std::string reason;
  EXPECT_FALSE(reader.Open(folder.Path(), &reason));
  EXPECT_THAT(reason, HasSubstr("folder"));
  ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(reader.Open(folder.File("pipe"), &reason));  // nobody writes to it
  EXPECT_THAT(reason, HasSubstr("plain file"));
  EXPECT_FALSE(reader.Open("/dev/zero", &reason));
}

TEST(ByteReader, ReadErrorCountsAsAnEarlyEnd) {
  const TempFolder folder;
  WriteReals(folder.File("bad"), 0, 40000);
  const test::FailingFileDriver driver({.failRead = 2});
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("bad")));
  std::vector<double> values(40000, -1.0);
  reader.Reals(values.data(), 100);
  EXPECT_FALSE(reader.ComesShort());
  reader.Reals(values.data() + 100, 39900);
  EXPECT_TRUE(reader.ComesShort());
  EXPECT_TRUE(reader.ReadFailed());
  EXPECT_EQ(reader.Remaining(), 0);
  EXPECT_EQ(values[99], 99.5);
  EXPECT_EQ(values.back(), 0.0);
}

TEST(ByteReader, InterruptedReadGoesOn) {
  const TempFolder folder;
  WriteReals(folder.File("file"), 0, 10);
  const test::FailingFileDriver driver({.failRead = 1, .error = EINTR});
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("file")));
  EXPECT_EQ(reader.Real(), 0.5);
  EXPECT_FALSE(reader.ComesShort());
}

TEST(ByteReader, MovesWithItsPlaceInTheFile) {
  const TempFolder folder;
  WriteReals(folder.File("file"), 0, 10);
  ByteReader first;
  ASSERT_TRUE(first.Open(folder.File("file")));
  EXPECT_EQ(first.Real(), 0.5);
  ByteReader second = std::move(first);
  EXPECT_EQ(second.Real(), 1.5);
  EXPECT_EQ(second.Position(), 16);
}

TEST(ByteReader, GivesItsDescriptorBack) {
  const TempFolder folder;
  WriteReals(folder.File("file"), 0, 10);
  const test::FailingFileDriver driver;
  for (int i = 0; i < 3; ++i) {
    ByteReader reader;
    ASSERT_TRUE(reader.Open(folder.File("file")));
    ASSERT_TRUE(reader.Open(folder.File("file")));
    ASSERT_FALSE(reader.Open(folder.Path()));
  }
  EXPECT_EQ(driver.Calls().open, 9);
  EXPECT_EQ(driver.Calls().close, 9);
}

}  // namespace
}  // namespace sondera
