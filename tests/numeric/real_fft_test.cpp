// The transform of real sequences against the general one.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "numeric/analysis.h"

namespace sondera {
namespace {

std::vector<double> Noise(int n, unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> normal(0.3, 1.0);
  std::vector<double> x(n);
  for (double& v : x) v = normal(random);
  return x;
}

TEST(RealFFT, EqualsTheGeneralTransformForAnyLength) {
  for (int n : {1, 2, 3, 4, 5, 7, 16, 100, 251, 1024, 2050}) {
    const std::vector<double> x = Noise(n, n);
    std::vector<double> re = x, im(n, 0.0), realRe(n, 9.0), realIm(n, 9.0);
    FFT(re.data(), im.data(), n);
    RealFFT(x.data(), realRe.data(), realIm.data(), n);
    for (int k = 0; k < n; ++k) {
      EXPECT_NEAR(realRe[k], re[k], 1e-12 * n) << n << " at " << k;
      EXPECT_NEAR(realIm[k], im[k], 1e-12 * n) << n << " at " << k;
    }
  }
}

TEST(RealFFT, IsExactlySymmetric) {
  const int n = 64;
  const std::vector<double> x = Noise(n, 5);
  std::vector<double> re(n), im(n);
  RealFFT(x.data(), re.data(), im.data(), n);
  EXPECT_EQ(im[0], 0.0);
  EXPECT_EQ(im[n / 2], 0.0);
  for (int k = 1; k < n; ++k) {
    EXPECT_EQ(re[n - k], re[k]);
    EXPECT_EQ(im[n - k], -im[k]);
  }
}

TEST(RealFFT, LeavesItsInputAndMayReplaceIt) {
  const int n = 32;
  const std::vector<double> x = Noise(n, 8);
  std::vector<double> kept = x, re(n), im(n), over = x, overIm(n);
  RealFFT(kept.data(), re.data(), im.data(), n);
  EXPECT_EQ(kept, x);
  RealFFT(over.data(), over.data(), overIm.data(), n);
  EXPECT_EQ(over, re);
  EXPECT_EQ(overIm, im);
}

TEST(RealFFT, GivesTheSameBytesWhereverTheSequenceLies) {
  const int n = 128;
  const std::vector<double> x = Noise(n, 2);
  std::vector<double> shifted(n + 1), re(n), im(n), re2(n), im2(n);
  std::copy(x.begin(), x.end(), shifted.begin() + 1);
  RealFFT(x.data(), re.data(), im.data(), n);
  ReleaseFFTPlans();
  RealFFT(shifted.data() + 1, re2.data(), im2.data(), n);
  EXPECT_EQ(re, re2);
  EXPECT_EQ(im, im2);
}

TEST(RealFFT, NothingForNoPoints) {
  double re = 3.0, im = 4.0;
  const double x = 1.0;
  RealFFT(&x, &re, &im, 0);
  RealFFT(&x, &re, &im, -5);
  EXPECT_EQ(re, 3.0);
  EXPECT_EQ(im, 4.0);
}

}  // namespace
}  // namespace sondera
