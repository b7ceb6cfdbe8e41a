#include "signal/window_tuning.h"

#include "records/session.h"
#include "support/odd_numbers.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;

class WindowTuning : public SessionTest {
 protected:
  static StrongestGroup Group(std::vector<double> overTime) {
    StrongestGroup group;
    group.overTime = std::move(overTime);
    for (std::size_t t = 1; t < group.overTime.size(); ++t)
      if (group.overTime[t] > group.overTime[static_cast<std::size_t>(group.column)])
        group.column = static_cast<int>(t);
    group.height = group.overTime[static_cast<std::size_t>(group.column)];
    return group;
  }
  /// Windows of a pair 7.77 m apart, columns 0.01 s apart.
  static PMeasInfo Tuned(const StrongestGroup& group, bool found = true) {
    PMeasInfo pair;
    TuneWindows(group, 7.77, 0.01, found, pair);
    return pair;
  }
};

// ---- TakeStrongestGroup

TEST_F(WindowTuning, StrongestIsTheHighestPeakThatWasNotRejected) {
  WaveGroups groups;
  groups.Z = {1, 2, 3, 4, 5, 6, 7, 80, 9, 10, 11, 12};  // three rows of four columns, transposed
  ExtremeTable& e = groups.extremes;
  e.count = 3;
  e.loc = {0, 0, 1, 2};
  e.amp = {0, 99, 95, 97};
  e.vel = {0, -100, 100, -0.0};
  const StrongestGroup group = TakeStrongestGroup(groups, 3, 4);
  EXPECT_EQ(e.amp[1], -99) << "rejected";
  EXPECT_EQ(e.amp[2], 95);
  EXPECT_EQ(e.amp[3], 97) << "a velocity of zero has no sign";
  EXPECT_THAT(group.overTime, ElementsAre(3, 6, 9, 12));
  EXPECT_EQ(group.column, 3);
  EXPECT_EQ(group.height, 12.0);
}

TEST_F(WindowTuning, AllRejectedTakesTheLeastNegativeOfAll) {
  WaveGroups groups;
  groups.Z = {1, 2, 3, 4};
  groups.extremes.count = 2;
  groups.extremes.loc = {0, 0, 1};
  groups.extremes.amp = {0, 99, -80};
  groups.extremes.vel = {0, -100, 1e-5};
  EXPECT_THAT(TakeStrongestGroup(groups, 2, 2).overTime, ElementsAre(2, 4));
}

TEST_F(WindowTuning, WithoutExtremesRowZeroCounts) {
  WaveGroups groups;
  groups.Z = {1, 2, 3, 4};
  EXPECT_THAT(TakeStrongestGroup(groups, 2, 2).overTime, ElementsAre(1, 3));
  EXPECT_TRUE(TakeStrongestGroup(groups, 50, 50).overTime.empty()) << "a map of another size";
}

// ---- TuneWindows

TEST_F(WindowTuning, TimesComeFromTheVelocitiesToSevenFiguresWithoutALengthUnit) {
  session.lengthUnit = 0.3048;
  const PMeasInfo pair = Tuned(Group({80, 92, 80}));  // not above 92
  EXPECT_EQ(pair.bbT[1], 0.00777);
  EXPECT_EQ(pair.bbT[2], 0.008178947);
  EXPECT_EQ(pair.bbT[3], 0.07063636);
  EXPECT_EQ(pair.bbT[4], 0.0777);
  EXPECT_EQ(pair.enT[1], 0.003108);
  EXPECT_EQ(pair.enT[2], 0.0032375);
  EXPECT_EQ(pair.enT[3], 0.222);
  EXPECT_EQ(pair.enT[4], 0.259);
}

TEST_F(WindowTuning, WindowsFollowTheStrongestGroup) {
  const PMeasInfo pair = Tuned(Group({75, 91, 92, 92.5, 93, 99, 100, 96, 93.5, 93, 92.5, 92, 80, 75}));
  EXPECT_DOUBLE_EQ(pair.bbT[1], 0.02);
  EXPECT_DOUBLE_EQ(pair.bbT[2], 0.04);
  EXPECT_DOUBLE_EQ(pair.bbT[3], 0.09);
  EXPECT_DOUBLE_EQ(pair.bbT[4], 0.11);
  EXPECT_EQ(pair.enT[1], 0.0);
  EXPECT_DOUBLE_EQ(pair.enT[2], 0.02);
  EXPECT_DOUBLE_EQ(pair.enT[3], 0.11);
  EXPECT_DOUBLE_EQ(pair.enT[4], 0.22) << "twice the end of the backbone, which is earlier than 7.77 / 30";
}

TEST_F(WindowTuning, SearchThatFindsNothingLeavesTheTimeOfTheVelocity) {
  const PMeasInfo pair = Tuned(Group({94, 99, 100, 96, 94}));
  EXPECT_EQ(pair.bbT[1], 0.00777);
  EXPECT_EQ(pair.bbT[4], 0.0777);
  EXPECT_EQ(pair.enT[2], 0.00777);
  EXPECT_EQ(pair.enT[3], 0.0777);
  EXPECT_EQ(pair.enT[4], 0.1554);
}

TEST_F(WindowTuning, WithoutAnyExtremeOnlyTheVelocitiesCount) {
  const PMeasInfo pair = Tuned(Group({75, 100, 75}), false);
  EXPECT_EQ(pair.bbT[1], 0.00777);
  EXPECT_EQ(pair.enT[4], 0.259);
}

// ---- BetterFinalTime

TEST_F(WindowTuning, GroupThatIsOverEarlyWantsAShorterRange) {
  std::vector<double> line(50, 75.0);
  line[3] = 100.0;
  // 4 columns of 0.01 s, under a quarter of 0.49 s.
  EXPECT_DOUBLE_EQ(BetterFinalTime(Group(line), 75.0, 0.01, 0.49, 2.0), 0.12);
}

TEST_F(WindowTuning, GroupThatFillsMoreThanHalfWantsALongerRange) {
  std::vector<double> line(50, 75.0);
  for (std::size_t t = 3; t < 30; ++t) line[t] = 90.0;
  line[4] = 100.0;
  EXPECT_DOUBLE_EQ(BetterFinalTime(Group(line), 75.0, 0.01, 0.49, 2.0), 0.6);
  for (std::size_t t = 3; t < 50; ++t) line[t] = 99.0;
  EXPECT_DOUBLE_EQ(BetterFinalTime(Group(line), 75.0, 0.01, 0.49, 2.0), 1.0) << "never over: all columns";
}

TEST_F(WindowTuning, GroupBetweenAQuarterAndAHalfSuitsTheRange) {
  std::vector<double> line(50, 75.0);
  for (std::size_t t = 0; t < 15; ++t) line[t] = 90.0;
  EXPECT_EQ(BetterFinalTime(Group(line), 75.0, 0.01, 0.49, 2.0), 0.0);
}

TEST_F(WindowTuning, RangeStaysWhereTheRecordIsTooShort) {
  std::vector<double> early(50, 75.0), late(50, 99.0);
  early[3] = 100.0;
  EXPECT_EQ(BetterFinalTime(Group(early), 75.0, 0.01, 0.49, 0.98), 0.0) << "the map covers half of it";
  EXPECT_EQ(BetterFinalTime(Group(late), 75.0, 0.01, 0.49, 0.999), 0.0) << "twice the group is longer";
  EXPECT_EQ(BetterFinalTime(Group(late), 75.0, 0.01, 0.49, 1.0), 1.0);
}

TEST_F(WindowTuning, FlatLineAndBadNumbersWantNothing) {
  EXPECT_EQ(BetterFinalTime(Group(std::vector<double>(50, 75.0)), 75.0, 0.01, 0.49, 2.0), 0.0);
  EXPECT_EQ(BetterFinalTime(StrongestGroup{}, 75.0, 0.01, 0.49, 2.0), 0.0);
  for (double bad : {kNaN, -1.0, 0.0})
    EXPECT_EQ(BetterFinalTime(Group({75, 99, 99}), 75.0, bad, 0.49, 2.0), 0.0);
  EXPECT_EQ(BetterFinalTime(Group({75, 99, 99}), 75.0, 0.01, 0.02, kNaN), 0.0);
}

}  // namespace
}  // namespace sondera::testing
