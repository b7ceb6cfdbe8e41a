// Tests of the records of a known ground: their waves compared with the plane-wave solver, their noise with
// the settings.
#include "forward/synthetic_site.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "forward/plane_wave.h"
#include "forward/site_files.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

SyntheticSite Quiet() {
  SyntheticSite site;
  site.noise = site.lowNoise = site.hum = 0.0;
  return site;
}

SiteRecording LongRecording() {
  SiteRecording recording;
  recording.receivers = {10.0, 22.0, 34.0, -18.0};
  recording.nSamples = 4096;
  recording.firstTime = -1.0;  // all of the wave, with the forerunner of the damping
  return recording;
}

/// The solver's velocity at a wavelength, for the standard ground.
double SolverVelocity(double wavelength) {
  const int layers = 4, one = 1;
  const double h[] = {0, 2, 4, 8, 0}, Vs[] = {0, 150, 220, 300, 400}, rho[] = {0, 1.8, 1.8, 1.8, 1.8},
               nu[] = {0, 1.0 / 3, 1.0 / 3, 1.0 / 3, 1.0 / 3}, L[] = {0, wavelength};
  double c[] = {0, 0};
  FS_SASW2D(&layers, h, Vs, nullptr, nullptr, rho, nullptr, nu, &one, L, c);
  return c[1];
}

double Rms(const std::vector<double>& a, const std::vector<double>& b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += (a[i] - b[i]) * (a[i] - b[i]);
  return std::sqrt(sum / static_cast<double>(a.size()));
}

TEST(SyntheticSite, PhaseVelocityIsThatOfThePlaneWaveSolver) {
  const SiteSimulator site((SyntheticSite()));
  ASSERT_EQ(site.Fault(), "");
  for (double f = 0.5; f < 450.0; f *= 1.0471) {
    const double c = site.PhaseVelocity(f);
    EXPECT_NEAR(SolverVelocity(c / f) / c, 1.0, 1e-4) << f;
  }
}

TEST(SyntheticSite, PhaseOfAPairGivesThePhaseVelocity) {
  const SiteSimulator site(Quiet());
  const SiteRecording recording = LongRecording();
  const SiteSpectra spectra = MeanSpectra(site, recording, 1);
  for (std::size_t c = 1; c < 4; ++c) {
    const auto h = spectra.Transfer(c);
    const double d = std::fabs(recording.receivers[c]) - recording.receivers[0];
    for (std::size_t k = 1; static_cast<double>(k) * spectra.deltaF < 130.0; ++k) {
      const double f = static_cast<double>(k) * spectra.deltaF;
      if (f < 3.0) continue;
      const double expected = kTwoPi * d * f / SolverVelocity(site.PhaseVelocity(f) / f);
      const double phase = -std::arg(h[k]);
      const double whole = phase + kTwoPi * std::round((expected - phase) / kTwoPi);
      ASSERT_NEAR(expected / whole, 1.0, 1e-3) << "receiver " << c << " at " << f << " Hz";
    }
  }
}

TEST(SyntheticSite, AmplitudeFallsWithTheDistanceAndByDamping) {
  const SiteSimulator site(Quiet());
  const SiteRecording recording = LongRecording();
  const SiteSpectra spectra = MeanSpectra(site, recording, 1);
  for (double f : {5.0, 10.0, 20.0, 40.0, 80.0}) {
    const auto k = static_cast<std::size_t>(std::lround(f / spectra.deltaF));
    const double at = static_cast<double>(k) * spectra.deltaF;
    const double expected =
        std::sqrt(10.0 / 34.0) * std::exp(-0.02 * kTwoPi * at / site.PhaseVelocity(at) * 24.0);
    EXPECT_NEAR(std::abs(spectra.Transfer(2)[k]) / expected, 1.0, 5e-3) << f;
  }
}

TEST(SyntheticSite, PeakTenMetresFromTheSourceIsOneAndVariesFromBlowToBlow) {
  SyntheticSite site = Quiet();
  SiteRecording recording;
  recording.receivers = {10.0};
  recording.deltaT = 1e-4;
  recording.nSamples = 8192;
  const auto peak = [&](int blow) {
    const SiteRecord record = SiteSimulator(site).Record(recording, blow);
    double most = 0.0;
    for (double x : record[0]) most = std::max(most, std::fabs(x));
    return most;
  };
  double sum = 0.0, squares = 0.0;
  for (int blow = 1; blow <= 100; ++blow) {
    const double p = peak(blow);
    EXPECT_TRUE(p > 0.4 && p < 1.6) << p;
    sum += p / 100;
    squares += p * p / 100;
  }
  EXPECT_NEAR(sum, 1.0, 0.08);
  EXPECT_NEAR(std::sqrt(squares - sum * sum), 0.2, 0.05);
  site.blowSpread = 0.0;
  EXPECT_NEAR(peak(3), 1.0, 0.01);
}

TEST(SyntheticSite, EqualSeedsGiveEqualRecords) {
  SyntheticSite site;
  site.lowNoise = 0.1;
  SiteRecording recording;
  recording.receivers = {10.0, 20.0};
  const SiteRecord record = SiteSimulator(site).Record(recording, 3);
  EXPECT_EQ(SiteSimulator(site).Record(recording, 3), record);
  EXPECT_NE(SiteSimulator(site).Record(recording, 4), record) << "another blow";
  site.seed = 2;
  EXPECT_NE(SiteSimulator(site).Record(recording, 3), record) << "another seed";
}

TEST(SyntheticSite, NoiseAndHumAreAsStrongAsAskedFor) {
  SiteRecording recording;
  recording.receivers = {10.0, 20.0};
  recording.nSamples = 1 << 15;
  const SiteRecord clean = SiteSimulator(Quiet()).Record(recording, 1);
  SyntheticSite site = Quiet();
  site.noise = 0.05;
  const SiteRecord even = SiteSimulator(site).Record(recording, 1);
  for (std::size_t c : {0u, 1u}) EXPECT_NEAR(Rms(even[c], clean[c]), 0.05, 0.002);
  double product = 0.0;
  for (std::size_t i = 0; i < even[0].size(); ++i)
    product += (even[0][i] - clean[0][i]) * (even[1][i] - clean[1][i]) / static_cast<double>(even[0].size());
  EXPECT_NEAR(product, 0.0, 0.05 * 0.05 * 0.05) << "receivers have noise of their own";

  site = Quiet();
  site.lowNoise = 0.05;
  const SiteRecord low = SiteSimulator(site).Record(recording, 1);
  EXPECT_NEAR(Rms(low[0], clean[0]), 0.05, 0.01);
  std::vector<double> slow, fast;  // noise below 6 Hz hardly changes within 2 ms
  for (std::size_t i = 2; i < low[0].size(); ++i) {
    slow.push_back(low[0][i] - clean[0][i]);
    fast.push_back(low[0][i - 2] - clean[0][i - 2]);
  }
  EXPECT_LT(Rms(slow, fast), 0.05 * kTwoPi * 6.0 * 0.002);

  site = Quiet();
  site.hum = 0.04;
  const SiteRecord hum = SiteSimulator(site).Record(recording, 1);
  for (std::size_t c : {0u, 1u}) {
    const double rms = Rms(hum[c], clean[c]) / (0.04 * std::sqrt(0.5 * (1.0 + 1.0 / 9.0)));
    EXPECT_TRUE(rms > 0.49 && rms < 1.51) << rms << ": cables pick up more or less of it";
  }
}

TEST(SyntheticSite, NoiseTakesTheCoherenceDownAndTheLowBandMost) {
  const SiteSimulator site(ExampleSite());
  const SiteSpectra spectra = MeanSpectra(site, ExampleRecording(), 5);
  const std::vector<double> coherence = spectra.Coherence(2);
  const auto mean = [&](double from, double to) {
    double sum = 0.0;
    int n = 0;
    for (std::size_t k = 0; k < coherence.size(); ++k) {
      const double f = static_cast<double>(k) * spectra.deltaF;
      EXPECT_LT(coherence[k], 1.0 + 1e-12);
      if (f < from || f > to) continue;
      sum += coherence[k];
      ++n;
    }
    return sum / n;
  };
  EXPECT_LT(mean(1.0, 5.0), 0.7);
  EXPECT_GT(mean(8.0, 40.0), 0.97);
  EXPECT_LT(mean(8.0, 40.0), 0.9999);
  for (double one : MeanSpectra(site, ExampleRecording(), 1).Coherence(2)) ASSERT_NEAR(one, 1.0, 1e-9);
}

TEST(SyntheticSite, AWaveThatEndsBehindAShortRecordDoesNotComeBackIntoIt) {
  SiteRecording recording;
  recording.receivers = {60.0};
  recording.nSamples = 128;  // the wave takes 0.2 to 0.5 s
  const SiteRecord record = SiteSimulator(Quiet()).Record(recording, 1);
  for (int i = 0; i < 100; ++i) ASSERT_LT(std::fabs(record[0][static_cast<std::size_t>(i)]), 2e-3) << i;
}

TEST(SyntheticSite, GroundAndRecordingsThatMakeNoSenseAreRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto fault = [](auto change) {
    SyntheticSite site;
    change(site);
    const SiteSimulator simulator(site);
    EXPECT_EQ(simulator.Fault() == "", simulator.PhaseVelocity(10.0) > 0.0);
    EXPECT_EQ(simulator.Fault() == "", !simulator.Record({.receivers = {10.0}}, 1).empty());
    return simulator.Fault();
  };
  EXPECT_EQ(fault([](SyntheticSite&) {}), "");
  EXPECT_EQ(fault([](SyntheticSite& s) { s.layers.resize(1); }), "") << "a half-space";
  EXPECT_EQ(fault([](SyntheticSite& s) { s.layers.clear(); }), "The site has no layers.");
  EXPECT_EQ(fault([](SyntheticSite& s) { s.layers[1].thickness = 0.0; }),
            "A layer of the site has no thickness.");
  EXPECT_EQ(fault([&](SyntheticSite& s) { s.layers[3].Vs = nan; }),
            "A layer of the site has no shear-wave velocity.");
  EXPECT_EQ(fault([](SyntheticSite& s) { s.layers[0].nu = 0.5; }),
            "Poisson's ratio of a layer of the site is not below 0.5.");
  EXPECT_EQ(fault([](SyntheticSite& s) { s.noise = -0.1; }), "A share of noise or spread is below 0.");

  const SiteSimulator site((SyntheticSite()));
  EXPECT_EQ(site.Fault({.receivers = {10.0, 0.0}}), "A receiver of the record is at the source.");
  EXPECT_EQ(site.Fault({.receivers = {10.0}, .deltaT = 0.0}),
            "The sampling interval of the record is not above 0.");
  EXPECT_EQ(site.Fault({.receivers = {10.0}, .nSamples = 1 << 30}),
            "The record does not have 2 to 16777216 samples.");
  EXPECT_TRUE(site.Record({.receivers = {nan}}, 1).empty());
  EXPECT_TRUE(MeanSpectra(site, {.receivers = {10.0}}, 0).cross.empty());
}

}  // namespace
}  // namespace sondera
