// Tests of the force of a computed record: shapes, spectra, and what is read from a file.
#include "forward/pulse.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numeric/pi.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

TEST(PulseRecord, FirstValuesAndDerivedTimes) {
  PulseRecord p;
  p.Derive();
  EXPECT_EQ(p.shape, 2);
  EXPECT_EQ(p.centerFreq, 1280.0);
  EXPECT_EQ(p.freqSpan, 51200.0);
  EXPECT_EQ(p.nPoints, 6);
  EXPECT_EQ(p.deltaT, 9.765625e-06);
  EXPECT_EQ(p.timeLength, 6 * 9.765625e-06);
}

TEST(PulseForce, HammerIsABellAndRickerAWavelet) {
  EXPECT_EQ(PulseForce(kPulseHammer, 40.0, 0.0), 0.0);
  EXPECT_NEAR(PulseForce(kPulseHammer, 40.0, 0.025), 1.0, 1e-15);
  EXPECT_NEAR(PulseForce(kPulseHammer, 40.0, 0.0125), 0.5, 1e-15);
  EXPECT_EQ(PulseForce(kPulseHammer, 40.0, 0.0501), 0.0);
  EXPECT_EQ(PulseForce(kPulseHammer, 40.0, -0.001), 0.0);
  EXPECT_NEAR(PulseForce(kPulseRicker, 40.0, 1.5 / 40.0), 1.0, 1e-15);
  EXPECT_LT(std::fabs(PulseForce(kPulseRicker, 40.0, 0.0)), 1e-7);
  EXPECT_NEAR(PulseForce(kPulseRicker, 40.0, 1.5 / 40.0 + 1.0 / (40.0 * kPi * std::sqrt(2.0))), 0.0, 1e-14);
  EXPECT_EQ(PulseForce(7, 40.0, 0.02), 0.0);
}

TEST(PulseSpectrum, IsTheIntegralOfTheForce) {
  for (int shape : {kPulseHammer, kPulseRicker}) {
    for (double f : {0.0, 7.3, 20.0, 40.0, 61.7, 95.0}) {
      Complex sum = 0.0;
      const int steps = 40000;
      const double dt = 0.1 / steps;
      for (int i = 0; i < steps; ++i) {
        const double t = (i + 0.5) * dt;
        sum += PulseForce(shape, 40.0, t) * std::polar(dt, -2.0 * kPi * f * t);
      }
      EXPECT_LT(std::abs(PulseSpectrum(shape, 40.0, f) - sum), 1e-9) << shape << " " << f;
    }
  }
  EXPECT_NEAR(std::abs(PulseSpectrum(kPulseHammer, 40.0, 20.0 * (1.0 + 1e-9))), 0.25 * 2.0 / 40.0, 1e-12);
}

TEST(ResampleSource, IsLinearBetweenSamplesAndNothingOutside) {
  const SourceSamples s{{0.1, 0.2, 0.4}, {1.0, 3.0, -1.0}};
  const auto f = ResampleSource(s, 0.05, 10);
  const double expected[] = {0, 0, 1, 2, 3, 2, 1, 0, -1, 0};
  for (int i = 0; i < 10; ++i) EXPECT_NEAR(f[static_cast<std::size_t>(i)], expected[i], 1e-12) << i;
}

TEST(ResampleSource, ANegativeFirstTimeMovesToZero) {
  const auto f = ResampleSource({{-0.1, 0.0, 0.1}, {0.0, 5.0, 0.0}}, 0.05, 6);
  const double expected[] = {0, 2.5, 5, 2.5, 0, 0};
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(f[static_cast<std::size_t>(i)], expected[i], 1e-12) << i;
}

TEST(ForceSpectrum, OfARickerFileIsThatOfTheRicker) {
  PulseRecord p;
  p.centerFreq = 40.0;
  p.nPoints = 512;
  p.freqSpan = 500.0;
  p.Derive();
  SourceSamples s;
  for (int i = 0; i < 1000; ++i) {
    s.time.push_back(i * 1e-4);
    s.value.push_back(PulseForce(kPulseRicker, 40.0, s.time.back()));
  }
  const auto closed = ForceSpectrum(p, {});
  p.shape = kPulseFile;
  const auto read = ForceSpectrum(p, s);
  ASSERT_EQ(closed.size(), 256u);
  ASSERT_EQ(read.size(), 256u);
  for (std::size_t k = 0; k < 256; ++k)
    EXPECT_LT(std::abs(read[k] - closed[k]), 1e-3 * std::abs(closed[20])) << k;
  EXPECT_EQ(PulseLength(p, s), s.time.back());
  p.shape = kPulseHammer;
  EXPECT_EQ(PulseLength(p, s), 3.0 / 40.0);
}

TEST(CheckSource, NamesTheSampleThatIsNone) {
  const auto why = [](std::vector<double> t, std::vector<double> v) {
    return CheckSource({std::move(t), std::move(v)}).reason();
  };
  EXPECT_EQ(why({0.0, 1.0}, {0.0, 1.0}), "");
  EXPECT_EQ(why({0.0}, {1.0}), "The source function has less than two samples.");
  EXPECT_EQ(why({0.0, 1.0}, {1.0}), "The source function has less than two samples.");
  EXPECT_EQ(why({0.0, 1.0, NAN}, {1.0, 2.0, 3.0}), "Sample 3 of the source function is not a finite number.");
  EXPECT_EQ(why({0.0, 1.0, 1.0}, {1.0, 2.0, 3.0}),
            "The time of sample 3 of the source function is not above the one before.");
  EXPECT_EQ(why({0.0, 1.0}, {0.0, 0.0}), "The source function is 0 throughout.");
}

}  // namespace
}  // namespace sondera
