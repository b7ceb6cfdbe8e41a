// Tests of the random numbers against their published sequence and the moments of the normal distribution.
#include "numeric/random_numbers.h"

#include <gtest/gtest.h>

#include <set>

namespace sondera {
namespace {

TEST(RandomNumbers, AreTheSequenceOfSplitMix64) {
  RandomNumbers random(1234567);  // the sequence that the authors' own program prints for this seed
  for (std::uint64_t expected : {6457827717110365317u, 3203168211198807973u, 9817491932198370423u,
                                 4593380528125082431u, 16408922859458223821u})
    EXPECT_EQ(random.Next(), expected);
}

TEST(RandomNumbers, StreamsOfASeedAreDifferent) {
  std::set<std::uint64_t> first;
  for (std::uint64_t seed : {0u, 1u, 2u})
    for (std::uint64_t stream = 0; stream < 100; ++stream) first.insert(RandomNumbers(seed, stream).Next());
  EXPECT_EQ(first.size(), 300u);
}

TEST(RandomNumbers, UniformOnesLieWithinTheirEnds) {
  RandomNumbers random(7);
  double sum = 0.0;
  for (int i = 0; i < 100000; ++i) {
    const double x = random.Uniform();
    ASSERT_GT(x, 0.0);
    ASSERT_LT(x, 1.0);
    sum += x;
  }
  EXPECT_NEAR(sum / 100000, 0.5, 0.005);
}

TEST(RandomNumbers, NormalOnesHaveTheMomentsOfTheDistribution) {
  RandomNumbers random(3);
  constexpr int kCount = 200000;
  double power[5] = {}, beyondTwo = 0.0, product = 0.0, before = 0.0;
  for (int i = 0; i < kCount; ++i) {
    const double x = random.Normal();
    for (int k = 1; k <= 4; ++k) power[k] += std::pow(x, k) / kCount;
    beyondTwo += (std::fabs(x) > 2.0) / static_cast<double>(kCount);
    product += x * before / kCount;
    before = x;
  }
  EXPECT_NEAR(power[1], 0.0, 0.01);
  EXPECT_NEAR(power[2], 1.0, 0.015);
  EXPECT_NEAR(power[3], 0.0, 0.04);
  EXPECT_NEAR(power[4], 3.0, 0.1);
  EXPECT_NEAR(beyondTwo, 0.0455, 0.003);
  EXPECT_NEAR(product, 0.0, 0.01) << "the two of a pair are independent";
}

}  // namespace
}  // namespace sondera
