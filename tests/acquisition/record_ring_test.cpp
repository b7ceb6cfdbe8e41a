// Tests of records from a stream: where they begin, no losses between them, and gaps.
#include "acquisition/record_ring.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

/// Frames `from` to `to` - 1 of two channels: a counter, and a blow of 1 V for three samples every `every`.
std::vector<double> Stream(int from, int to, int every) {
  std::vector<double> frames;
  for (int i = from; i < to; ++i) {
    frames.push_back(i);
    frames.push_back(every > 0 && i % every >= every - 3 ? 1.0 : 0.0);
  }
  return frames;
}
void FeedStream(RecordRing& ring, int from, int to, int every) {
  const std::vector<double> frames = Stream(from, to, every);
  ring.Feed(frames.data(), frames.size() / 2);
}
std::vector<double> Taken(RecordRing& ring, int samples) {
  std::vector<double> record(static_cast<std::size_t>(2 * samples));
  ring.Take(record.data());
  return record;
}

constexpr RecordRing::Plan kTriggered{
    .channels = 2, .samples = 20, .trigger = 1, .level = 0.5, .preTrigger = 5};

TEST(RecordRing, CrossingStandsAtThePreTriggerSample) {
  RecordRing ring(kTriggered);
  ring.Arm();
  FeedStream(ring, 0, 111, 100);
  EXPECT_FALSE(ring.Ready()) << "one sample is missing";
  FeedStream(ring, 111, 112, 100);
  ASSERT_TRUE(ring.Ready());
  const std::vector<double> record = Taken(ring, 20);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(record[static_cast<std::size_t>(i)], 92 + i);
  EXPECT_EQ(record[20 + 4], 0.0);
  EXPECT_EQ(record[20 + 5], 1.0);
}

TEST(RecordRing, EveryBlowIsRecordedWhateverThePieces) {
  for (const int piece : {1, 7, 64, 1000}) {
    RecordRing ring(kTriggered);
    int records = 0;
    ring.Arm();
    for (int at = 0; at < 10000; at += piece) {
      FeedStream(ring, at, at + piece, 100);
      while (ring.Ready()) {
        EXPECT_EQ(Taken(ring, 20)[0], 100 * records + 92);
        ++records;
        ring.Arm();
      }
    }
    EXPECT_GE(records, 99) << piece;
  }
}

/// The stream continues during work on the record: a blow at that time is the next record.
TEST(RecordRing, ABlowBetweenTwoRecordsIsNotLost) {
  RecordRing ring({.channels = 2, .samples = 200, .trigger = 1, .level = 0.5, .preTrigger = 5});
  ring.Arm();
  FeedStream(ring, 0, 300, 300);
  FeedStream(ring, 300, 500, 300);
  ASSERT_TRUE(ring.Ready());
  EXPECT_EQ(Taken(ring, 200)[0], 292);
  FeedStream(ring, 500, 610, 300);  // not armed
  ring.Arm();
  FeedStream(ring, 610, 800, 300);
  ASSERT_TRUE(ring.Ready());
  EXPECT_EQ(Taken(ring, 200)[0], 592);
}

TEST(RecordRing, FreeRecordsFollowEachOtherWithoutAGap) {
  RecordRing ring({.channels = 2, .samples = 30});
  int records = 0;
  ring.Arm();
  for (int at = 0; at < 3000; at += 11) {
    FeedStream(ring, at, at + 11, 0);
    while (ring.Ready()) {
      const std::vector<double> record = Taken(ring, 30);
      EXPECT_EQ(record[0], 30 * records);
      EXPECT_EQ(record[29], 30 * records + 29);
      ++records;
      ring.Arm();
    }
  }
  EXPECT_EQ(records, 100);
}

TEST(RecordRing, ACrossingWithoutItsSamplesBeforeItIsNoTrigger) {
  RecordRing ring({.channels = 1, .samples = 8, .trigger = 0, .level = 0.5, .preTrigger = 4});
  const std::vector<double> frames = {0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0};
  ring.Arm();
  ring.Feed(frames.data(), frames.size());
  ASSERT_TRUE(ring.Ready());
  EXPECT_EQ(ring.Begin(), 2) << "the blow at 2 has two samples before it, the one at 6 has four";
}

TEST(RecordRing, LevelsAboveAndBelowZeroNeedARise) {
  RecordRing ring({.channels = 1, .samples = 2, .trigger = 0, .level = -0.5, .preTrigger = 0});
  const std::vector<double> frames = {0.0, -0.6, -0.5, 3.0};
  ring.Arm();
  ring.Feed(frames.data(), 2);
  EXPECT_EQ(ring.Begin(), -1) << "at 0 the signal was above all the time";
  ring.Feed(frames.data() + 2, 2);
  EXPECT_EQ(ring.Begin(), 2) << "reaching the level is enough";
}

TEST(RecordRing, AGapBreaksTheRecordThatHasBegunAndNoOther) {
  RecordRing ring(kTriggered);
  ring.Arm();
  FeedStream(ring, 0, 90, 100);
  ring.Gap();
  EXPECT_FALSE(ring.Broken()) << "nothing had triggered yet";
  FeedStream(ring, 90, 100, 100);
  ring.Gap();
  EXPECT_TRUE(ring.Broken());
  EXPECT_FALSE(ring.Ready());
  ring.Arm();
  EXPECT_FALSE(ring.Broken());
  FeedStream(ring, 100, 300, 100);
  ASSERT_TRUE(ring.Ready());
  EXPECT_EQ(Taken(ring, 20)[0], 192);
}

TEST(RecordRing, RoomStaysBoundedWhileNothingTriggers) {
  RecordRing ring(kTriggered);
  const std::vector<double> quiet(2000, 0.0);
  ring.Arm();
  for (int i = 0; i < 100000; ++i) ring.Feed(quiet.data(), 1000);  // 1.6 GB if it were kept
  EXPECT_FALSE(ring.Ready());
}

}  // namespace
}  // namespace sondera
