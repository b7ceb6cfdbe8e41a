// Tests of the decimation filter: level, stop band, delay, channels.
#include "acquisition/fir_decimator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>

#include "numeric/random_numbers.h"

namespace sondera {
namespace {

/// Steady output for a sine of this share of the new rate and phase (degrees) on each channel.
std::vector<double> SineThrough(int factor, double share, const std::vector<double>& degrees, int frames) {
  FirDecimator decimator(static_cast<int>(degrees.size()), factor);
  std::vector<double> in, out;
  for (int i = 0; i < frames; ++i)
    for (const double phase : degrees)
      in.push_back(std::sin(2.0 * M_PI * share * i / factor + phase * M_PI / 180.0));
  decimator.Feed(in.data(), static_cast<std::size_t>(frames), out);
  return out;
}

/// Complex amplitude of channel c at a share of the rate, by least squares over the middle of the output.
std::complex<double> AmplitudeOf(const std::vector<double>& out, std::size_t channels, std::size_t c,
                                 double share) {
  double ss = 0, sc = 0, cc = 0, ys = 0, yc = 0;
  const std::size_t n = out.size() / channels;
  for (std::size_t i = n / 4; i < n - n / 4; ++i) {
    const double angle = 2.0 * M_PI * share * static_cast<double>(i);
    const double s = std::sin(angle), k = std::cos(angle), y = out[i * channels + c];
    ss += s * s, sc += s * k, cc += k * k, ys += y * s, yc += y * k;
  }
  const double det = ss * cc - sc * sc;
  return {(ys * cc - yc * sc) / det, (yc * ss - ys * sc) / det};  // sine, cosine part
}
double PeakOf(const std::vector<double>& out) {
  double peak = 0.0;
  for (std::size_t i = out.size() / 4; i < out.size() - out.size() / 4; ++i)
    peak = std::max(peak, std::fabs(out[i]));
  return peak;
}
double Decibels(double ratio) {
  return 20.0 * std::log10(ratio);
}

TEST(FirDecimator, SineAtFourTenthsOfTheRateIsKeptWithinAHundredthOfADecibel) {
  for (const int factor : {2, 3, 24, 480}) {
    const auto out = SineThrough(factor, 0.4, {30.0}, 2000 * factor);
    EXPECT_NEAR(Decibels(std::abs(AmplitudeOf(out, 1, 0, 0.4))), 0.0, 0.01) << factor;
  }
}

TEST(FirDecimator, SineAtSixTenthsOfTheRateIsBelow95Decibels) {
  for (const int factor : {2, 3, 24, 480}) {
    const auto out = SineThrough(factor, 0.6, {30.0}, 2000 * factor);
    EXPECT_LT(Decibels(PeakOf(out)), -95.0) << factor;
  }
}

TEST(FirDecimator, WholeStopBandIsDown) {
  const std::vector<double> taps = DecimationTaps(10);
  double worst = 0.0, ripple = 0.0;
  for (int k = 0; k <= 5000; ++k) {  // response by its sum, in shares of the new rate
    const double share = k * 0.001;
    double sum = taps[taps.size() / 2];
    for (std::size_t j = 1; j <= taps.size() / 2; ++j)
      sum += 2.0 * taps[taps.size() / 2 + j] * std::cos(2.0 * M_PI * share * static_cast<double>(j) / 10.0);
    if (share >= 0.55) worst = std::max(worst, std::fabs(sum));
    if (share <= 0.45) ripple = std::max(ripple, std::fabs(sum - 1.0));
  }
  EXPECT_LT(Decibels(worst), -99.0);
  EXPECT_LT(ripple, 1e-4);
}

TEST(FirDecimator, PhaseBetweenTwoChannelsIsKeptWithin1e9thOfADegree) {
  const auto out = SineThrough(24, 0.31, {10.0, 47.5}, 2000 * 24);
  const double difference =
      std::arg(AmplitudeOf(out, 2, 1, 0.31) / AmplitudeOf(out, 2, 0, 0.31)) * 180.0 / M_PI;
  EXPECT_NEAR(difference, 37.5, 1e-9);
}

TEST(FirDecimator, OutputBelongsToEveryFactorthInputSample) {
  const auto out = SineThrough(24, 0.2, {25.0}, 2000 * 24);
  EXPECT_NEAR(std::arg(AmplitudeOf(out, 1, 0, 0.2)) * 180.0 / M_PI, 25.0, 0.01) << "no delay is left";
}

TEST(FirDecimator, ConstantStaysWhatItIs) {
  FirDecimator decimator(1, 7);
  const std::vector<double> in(10000, 0.735);
  std::vector<double> out;
  decimator.Feed(in.data(), in.size(), out);
  EXPECT_NEAR(out[out.size() / 2], 0.735, 1e-12);
}

TEST(FirDecimator, PiecesGiveTheSameNumbersAsTheWhole) {
  RandomNumbers random(5);
  std::vector<double> in(2 * 9000);
  for (double& x : in) x = random.Normal();
  for (const int factor : {1, 5, 24}) {
    std::vector<double> whole, pieces;
    FirDecimator(2, factor).Feed(in.data(), in.size() / 2, whole);
    FirDecimator decimator(2, factor);
    std::size_t piece = 0;
    for (std::size_t at = 0; at < in.size() / 2; at += piece) {
      piece = std::min<std::size_t>(1 + random.Next() % 700, in.size() / 2 - at);
      decimator.Feed(in.data() + 2 * at, piece, pieces);
    }
    EXPECT_EQ(whole, pieces) << factor;
  }
}

TEST(FirDecimator, PlainConvolutionGivesTheSame) {
  constexpr int kFactor = 6, kFrames = 3000;
  const std::vector<double> taps = DecimationTaps(kFactor);
  const int half = static_cast<int>(taps.size() / 2);
  RandomNumbers random(6);
  std::vector<double> in(kFrames), out;
  for (double& x : in) x = random.Normal();
  FirDecimator decimator(1, kFactor);
  decimator.Feed(in.data(), in.size(), out);
  ASSERT_EQ(static_cast<int>(out.size()), (kFrames - half - 1) / kFactor + 1);
  for (int k = 0; k < static_cast<int>(out.size()); ++k) {
    double sum = 0.0;
    for (int j = -half; j <= half; ++j) {
      const int at = k * kFactor + j;
      if (at >= 0) sum += taps[static_cast<std::size_t>(half + j)] * in[static_cast<std::size_t>(at)];
    }
    EXPECT_NEAR(out[static_cast<std::size_t>(k)], sum, 1e-12);
  }
}

TEST(FirDecimator, FactorOneHandsSamplesOnBitForBit) {
  const std::vector<double> in = {0.1, -0.2, 1e-300, 3.0};
  std::vector<double> out;
  FirDecimator decimator(2, 1);
  decimator.Feed(in.data(), 2, out);
  EXPECT_EQ(out, in);
  EXPECT_EQ(decimator.Delay(), 0);
}

TEST(FirDecimator, ResetForgetsThePast) {
  FirDecimator used(1, 4), fresh(1, 4);
  const std::vector<double> before(333, 9.0), in(500, 1.0);
  std::vector<double> dropped, a, b;
  used.Feed(before.data(), before.size(), dropped);
  used.Reset();
  used.Feed(in.data(), in.size(), a);
  fresh.Feed(in.data(), in.size(), b);
  EXPECT_EQ(a, b);
}

}  // namespace
}  // namespace sondera
