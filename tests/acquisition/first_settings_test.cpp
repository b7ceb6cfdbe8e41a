// Tests of the first settings of a measurement, and of the tables of lines and ranges.
#include "acquisition/first_settings.h"

#include <cmath>

#include "board_fixture.h"
#include "records/session.h"

namespace sondera {
namespace {

TEST(FreqLinesID, SmallestEntryAtOrAboveAndTheThirdForMoreThanTheTableHas) {
  EXPECT_EQ(FreqLinesID(1000000), 2) << "kept";
  EXPECT_EQ(FreqLinesID(524289), 2);
  EXPECT_EQ(FreqLinesID(524288), 10);
  EXPECT_EQ(FreqLinesID(513), 1);
  EXPECT_EQ(FreqLinesID(512), 0);
  EXPECT_EQ(FreqLinesID(-7), 0);
  for (int i = 0; i <= 10; ++i) EXPECT_EQ(FreqLinesFromID(i), 512 << i) << i;
  for (int i = 0; i <= 10; ++i) EXPECT_EQ(FreqLinesID(FreqLinesFromID(i)), i);
  EXPECT_EQ(FreqLinesFromID(-1), 0);
  EXPECT_EQ(FreqLinesFromID(11), 0);
}

TEST(VoltRangeID, EachLimitBelongsToItsStep) {
  EXPECT_EQ(VoltRangeID(10.0), 0);
  EXPECT_EQ(VoltRangeID(0.01), 6);
  const double limits[] = {0.01, 0.0316, 0.1, 0.316, 1.0, 3.16};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(VoltRangeID(limits[i]), 6 - i) << limits[i];
    EXPECT_EQ(VoltRangeID(std::nextafter(limits[i], 99.0)), 5 - i) << limits[i];
  }
  EXPECT_EQ(VoltRangeID(0.0), 6);
}

class FirstSettings : public testing::SessionTest {
 protected:
  /// A table of ranges as a driver gives it.
  static void Ranges(const std::vector<double>& limits) {
    session.device.aiVoltageRngs.fill(0.0);
    std::copy(limits.begin(), limits.end(), session.device.aiVoltageRngs.begin());
  }
};

TEST_F(FirstSettings, RangesAreScannedUpToTheFirstZeroAndFiftyPairs) {
  Ranges({-10, 10, -1, 1});
  EXPECT_EQ(ScanRanges().largest, 10.0);
  EXPECT_EQ(ScanRanges().pairs, 2);
  Ranges({0, 10, -1, 1});
  EXPECT_EQ(ScanRanges().pairs, 0) << "kept: a list that begins with a unipolar pair has none";
  session.device.aiVoltageRngs.fill(2.0);
  EXPECT_EQ(ScanRanges().pairs, 50);
}

TEST_F(FirstSettings, FollowTheKindOfTheBoard) {
  struct Case {
    int category;
    double span;
    int coupling, grounding;
  };
  for (const Case& c : {Case{daq_category::kDynamicSignal, 25600.0, 0, 1},
                        Case{daq_category::kESeries, 6400.0, 1, 0}, Case{0, 0.0, 0, 1}}) {
    SCOPED_TRACE(c.category);
    session.device.devCategory = c.category;
    session.device.aiMaxRate = 51200.0;
    Ranges({-5, 5});
    HWSetup hw;
    hw.nChannels = 4;
    hw.coupling.assign(4, -1);
    hw.grounding.assign(4, -1);
    hw.inputRange.assign(4, -1.0);
    FirstHWSetup(hw);
    EXPECT_EQ(hw.freqSpan, c.span);
    EXPECT_EQ(hw.coupling, std::vector<int>(4, c.coupling));
    EXPECT_EQ(hw.grounding, std::vector<int>(4, c.grounding));
    EXPECT_EQ(hw.inputRange, std::vector<double>(4, 5.0));
    EXPECT_EQ(hw.nLines, 512);
    EXPECT_EQ(hw.triggerChannel, -1);
    EXPECT_EQ(hw.triggerDelay, 10.0);
    EXPECT_EQ(hw.nAverage, 5);
  }
}

}  // namespace
}  // namespace sondera
