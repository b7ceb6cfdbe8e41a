// Angles of many lines at once against one at a time.
#include "numeric/phase_angle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "support/odd_numbers.h"

namespace sondera {
namespace {

const double kNaN = std::nan("");

bool SameBytes(const std::vector<double>& a, const std::vector<double>& b) {
  return a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

TEST(PhaseAngle, RealPartZeroHasNoAngleWhateverTheImaginaryPart) {
  EXPECT_EQ(PhaseAngle(0.0, 2.385), 0.0);
  EXPECT_EQ(PhaseAngle(-0.0, -2.385), 0.0);
  EXPECT_EQ(PhaseAngle(0.0, 0.0), 0.0);
}

TEST(PhaseAngle, IsTheArcTangentInDegrees) {
  EXPECT_EQ(PhaseAngle(3.0, 3.0), 45.0);
  EXPECT_EQ(PhaseAngle(-3.0, -0.0), -180.0);
  EXPECT_DOUBLE_EQ(PhaseAngle(std::sqrt(3.0), 1.0), 30.0);
}

TEST(PhaseAngles, StayWithinTheLastBitsOfThePlainAngle) {
  std::mt19937 random(7);
  std::normal_distribution<double> normal;
  for (int n : {1, 2, 3, 4, 5, 6, 7, 1000}) {
    std::vector<double> re(n), im(n), angle(n, 1e9);
    for (int round = 0; round < 50; ++round) {
      for (int i = 0; i < n; ++i) {
        re[i] = normal(random) * std::exp(8.0 * normal(random));
        im[i] = normal(random) * std::exp(8.0 * normal(random));
      }
      PhaseAngles(re.data(), im.data(), n, angle.data());
      for (int i = 0; i < n; ++i)
        ASSERT_NEAR(angle[i], PhaseAngle(re[i], im[i]), 1e-13) << re[i] << " " << im[i];
    }
  }
}

TEST(PhaseAngles, AreExactOnAxesAndDiagonals) {
  const double a = 2.385;
  const std::vector<double> re = {a, a, -a, -a, a, a, -a, -a, 0.0, -0.0, 0.0, 5e-324};
  const std::vector<double> im = {a, -a, a, -a, 0.0, -0.0, 0.0, -0.0, a, -a, 0.0, 5e-324};
  const std::vector<double> expected = {45, -45, 135, -135, 0, 0, 180, -180, 0, 0, 0, 45};
  std::vector<double> angle(re.size());
  PhaseAngles(re.data(), im.data(), static_cast<int>(re.size()), angle.data());
  EXPECT_EQ(angle, expected);
}

TEST(PhaseAngles, UnusualPartsTakeThePlainRoute) {
  const std::vector<double> re = {1.0, kInf, -kInf, 2.0, kNaN, 1.5e308, 1e-320, -3.0};
  const std::vector<double> im = {1.0, kInf, 4.0, kNaN, 1.0, 1.1e308, 7e-321, 0.4};
  const int n = static_cast<int>(re.size());
  std::vector<double> angle(re.size());
  PhaseAngles(re.data(), im.data(), n, angle.data());
  for (int i = 0; i < n; ++i) {
    const double plain = PhaseAngle(re[i], im[i]);
    EXPECT_EQ(std::isnan(angle[i]), std::isnan(plain)) << i;
    if (!std::isnan(plain)) {
      EXPECT_EQ(angle[i], plain) << i;
    }
  }
}

TEST(PhaseAngles, GiveTheSameBytesByTwoAndByFourLanes) {
  std::mt19937 random(3);
  std::normal_distribution<double> normal;
  for (int n : {0, 1, 2, 3, 5, 64, 1023}) {
    std::vector<double> re(n), im(n), two(n), four(n), usual(n);
    for (int i = 0; i < n; ++i) re[i] = normal(random), im[i] = normal(random);
    ASSERT_TRUE(PhaseAnglesByLanes(2, re.data(), im.data(), n, two.data()));
    PhaseAngles(re.data(), im.data(), n, usual.data());
    EXPECT_TRUE(SameBytes(two, usual)) << n;
    if (!PhaseAnglesByLanes(4, re.data(), im.data(), n, four.data())) continue;
    EXPECT_TRUE(SameBytes(two, four)) << n;
  }
  EXPECT_FALSE(PhaseAnglesByLanes(3, nullptr, nullptr, 0, nullptr));
}

}  // namespace
}  // namespace sondera
