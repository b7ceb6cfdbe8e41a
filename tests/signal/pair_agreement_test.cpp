// Tests of the agreement of pairs at shared wavelengths.
#include "signal/pair_agreement.h"

#include <cmath>
#include <limits>

#include "support/rep_curve_fixture.h"

namespace sondera {
namespace {

class PairAgreementTest : public testing::RepCurveTest {
 protected:
  /// A measurement with one pair whose curve is velocity(wavelength), wavelengths in steps of 3 %.
  template <class Velocity>
  PMeasInfo& Curve(const char* id, double from, double to, Velocity velocity, double unit = 1.0) {
    std::vector<double> freq, vel;
    for (double w = to; w >= from; w *= 0.97) {
      vel.push_back(velocity(w) / unit);
      freq.push_back(velocity(w) / w);
    }
    const testing::TestMeasurement m = Measurement(id, {10.0, 20.0});
    m.setup->lengthUnit = unit;
    return Pair(m, 0, 1, freq, vel);
  }
  static double Slow(double w) { return 150.0 + w; }
};

TEST_F(PairAgreementTest, TheWorstPlaceOfTheWorstCoupleIsTold) {
  Curve("a", 5.0, 40.0, Slow);
  Curve("b", 5.0, 40.0, [](double w) { return Slow(w) * (w > 30.0 ? 1.5 : 1.0); });
  Curve("c", 5.0, 40.0, [](double w) { return 1.05 * Slow(w); });
  const PairAgreement all = AgreementOfPairs();
  EXPECT_EQ(all.couples, 3);
  EXPECT_EQ(all.beyond, 2);
  EXPECT_EQ(all.worst.first, "a[1:2]");
  EXPECT_EQ(all.worst.second, "b[1:2]");
  EXPECT_NEAR(all.worst.share, 0.4, 0.02) << "half as much again, over the mean of both";
  EXPECT_GT(all.worst.wavelength, 29.0);
  EXPECT_NEAR(all.worst.velocity1, Slow(all.worst.wavelength), 0.5)
      << "a slope is followed, not averaged flat";
}

TEST_F(PairAgreementTest, OnePairOrNoneHasNothingToDisagreeWith) {
  EXPECT_EQ(AgreementOfPairs().couples, 0);
  Curve("a", 5.0, 40.0, Slow);
  Curve("b", 5.0, 40.0, [](double) { return 900.0; }).included = 0;
  Curve("c", 5.0, 40.0, [](double) { return 900.0; }).key = 99;
  EXPECT_EQ(AgreementOfPairs().couples, 0);
}

TEST_F(PairAgreementTest, UnitsOfLengthAreBroughtTogether) {
  Curve("metres", 5.0, 40.0, Slow);
  Curve("feet", 5.0, 40.0, Slow, 0.3048);
  const PairAgreement all = AgreementOfPairs();
  EXPECT_EQ(all.couples, 1);
  EXPECT_LT(all.worst.share, 1e-9);
}

TEST_F(PairAgreementTest, CurvesWithoutASharedWavelengthAreNotCompared) {
  Curve("a", 30.0, 40.0, Slow);
  Curve("b", 20.0, 28.0, [](double) { return 900.0; });
  EXPECT_EQ(AgreementOfPairs().couples, 0);
  // Both ends of this one reach over the others, but its points are more than 10 % away.
  Pair(Measurement("c", {10.0, 20.0}), 0, 1, {900.0 / 60.0, 900.0 / 10.0}, {900.0, 900.0});
  EXPECT_EQ(AgreementOfPairs().couples, 0);
}

TEST_F(PairAgreementTest, ValuesThatNoRecordHasDoNoHarm) {
  Curve("a", 5.0, 40.0, Slow);
  PMeasInfo& odd = Curve("b", 5.0, 40.0, Slow);
  odd.dispWlen[0] = std::numeric_limits<double>::infinity();
  odd.dispWlen[1] = std::numeric_limits<double>::quiet_NaN();
  odd.dispWlen[2] = std::numeric_limits<double>::denorm_min();
  odd.dispWlen[3] = std::numeric_limits<double>::max();
  odd.dispVel[4] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(AgreementOfPairs().couples, 1);
  MeasDB.measSetupList.at(2)->lengthUnit = std::numeric_limits<double>::infinity();
  EXPECT_EQ(AgreementOfPairs().couples, 0);
}

}  // namespace
}  // namespace sondera
