// Tests of the receiver lines of the array curves: distances from the source, the numbers of each pair's
// receivers in them, and pairs that allow no line.
#include <gtest/gtest.h>

#include <string>

#include "signal/rep_curves.h"
#include "support/rep_curve_fixture.h"

namespace sondera {
namespace {

using testing::TestMeasurement;

class ReceiverLines : public testing::RepCurveTest {
 protected:
  static void ExpectLines(const std::string& distances, const std::string& pairs) {
    std::string line1, line2;
    GetReceiverArrays(line1, line2);
    EXPECT_EQ(line1, distances);
    EXPECT_EQ(line2, pairs);
  }
};

TEST_F(ReceiverLines, ReceiverLinesListDistancesAndTheNumbersOfEachPair) {
  const TestMeasurement m = Measurement("m1", {10, 20, 40});
  Pair(m, 1, 2, {10}, {200});
  Pair(m, 0, 1, {10}, {200});
  ExpectLines("3\t10.000000\t20.000000\t40.000000\t", "2\t2  3\t1  2\t");
}

TEST_F(ReceiverLines, DistancesOfTwoMeasurementsShareOneList) {
  const TestMeasurement a = Measurement("a", {10, 20}), b = Measurement("b", {15, 25});
  b.setup->srcLoc = 5;
  Pair(a, 0, 1, {10}, {200});
  Pair(b, 0, 1, {10}, {200});
  ExpectLines("2\t10.000000\t20.000000\t", "2\t1  2\t1  2\t");
}

TEST_F(ReceiverLines, ADistanceOfZeroStandsOutsideTheList) {
  const TestMeasurement m = Measurement("m1", {0, 5, 8});
  Pair(m, 1, 2, {10}, {200});
  Pair(m, 0, 2, {10}, {200});
  // Table 0, 0, 5, 8: the list begins at 3.
  ExpectLines("2\t5.000000\t8.000000\t", "2\t1  2\t-1  2\t");
}

TEST_F(ReceiverLines, ALineShotFromItsOtherEndHasTheSameDistances) {
  const TestMeasurement m = Measurement("m1", {-10, -20, -40});
  Pair(m, 1, 2, {10}, {200});
  Pair(m, 0, 1, {10}, {200});
  ExpectLines("3\t10.000000\t20.000000\t40.000000\t", "2\t2  3\t1  2\t");
  EXPECT_EQ(ReceiverLinesFault(), "");
}

TEST_F(ReceiverLines, AForwardAndAReverseShotShareOneList) {
  const TestMeasurement a = Measurement("a", {10, 20}), b = Measurement("b", {20, 10});
  b.setup->srcLoc = 30;
  Pair(a, 0, 1, {10}, {200});
  Pair(b, 0, 1, {10}, {200});
  ExpectLines("2\t10.000000\t20.000000\t", "2\t1  2\t1  2\t");
}

TEST_F(ReceiverLines, ASourceBetweenTheReceiversOfAPairIsAFault) {
  const TestMeasurement m = Measurement("m1", {0, -5, 8});
  Pair(m, 0, 2, {10}, {200});
  EXPECT_EQ(ReceiverLinesFault(), "") << "a receiver at the source is not a source between receivers";
  PMeasInfo& across = Pair(m, 1, 2, {10}, {200});
  EXPECT_EQ(ReceiverLinesFault(),
            "The source of m1[2:3] is between its receivers, so the wave does not travel from one to the "
            "other: leave "
            "this pair out.");
  across.included = 0;
  EXPECT_EQ(ReceiverLinesFault(), "");
}

TEST_F(ReceiverLines, ReceiverLinesWithoutPairsHoldCountsOfZero) {
  ExpectLines("0\t", "0\t");
}

TEST_F(ReceiverLines, TheTableTakesEachDistanceOnceAndNoZero) {
  OffsetVector<double> table(1, 3);
  InsertRecLocInArray(table, 4);
  InsertRecLocInArray(table, 0);
  InsertRecLocInArray(table, 4);
  InsertRecLocInArray(table, 4.0000001);
  EXPECT_EQ(table[1], 4);
  EXPECT_EQ(table[2], 4.0000001);
  EXPECT_EQ(table[3], 0);
  EXPECT_EQ(ChannelNOofRecLoc(table, 4.0000001), 2);
  EXPECT_EQ(ChannelNOofRecLoc(table, 77), 1);
}

}  // namespace
}  // namespace sondera
