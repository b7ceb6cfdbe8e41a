// Tests of computed records against exact ones: integration over wavenumbers for layered ground with damping,
// Lamb's closed form for a half-space without.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <sstream>

#include "forward/exact_records.h"
#include "forward/lamb_half_space.h"
#include "forward/plane_wave_table.h"
#include "forward/point_load_site.h"
#include "forward/waveform_text.h"
#include "forward/wavenumber_integral.h"
#include "numeric/analysis.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;
using test::ExactLines;
using test::Generated;
using test::WorstPercent;

WaveformSetup Ricker(std::vector<WaveformLayer> layers, std::vector<double> receivers, double fc, double T,
                     int points) {
  WaveformSetup s;
  s.pulse.centerFreq = fc;
  s.pulse.nPoints = points;
  s.pulse.freqSpan = 0.5 * points / T;
  s.pulse.Derive();
  s.site.layers = std::move(layers);
  s.site.receivers = std::move(receivers);
  return s;
}

WaveformSetup HalfSpace() {
  return Ricker({{0.0, 200.0, 1.8, 0.25, 0.02}}, {2.0, 4.0, 8.0, 16.0, 32.0}, 40.0, 0.512, 1024);
}

void ExpectWithin(const WaveformSetup& setup, const std::vector<double>& percent) {
  const WaveformResult result = Generated(setup);
  EXPECT_TRUE(result.lines.withoutModes.empty());
  const WaveformRecord exact = RecordOfLines(setup, ExactLines(setup, 1e-6), result.force);
  const std::vector<double> worst = WorstPercent(result.record, exact);
  ASSERT_EQ(worst.size(), percent.size());
  for (std::size_t r = 0; r < worst.size(); ++r) {
    EXPECT_LT(worst[r], percent[r]) << "at " << setup.site.receivers[r];
  }
}

TEST(WaveformPhysics, HalfSpaceIsTheExactIntegral) {
  ExpectWithin(HalfSpace(), {0.05, 0.1, 0.1, 0.2, 0.7});
}

TEST(WaveformPhysics, TwoLayersAreTheExactIntegral) {
  ExpectWithin(Ricker({{2.0, 150.0, 1.8, 0.25, 0.02}, {0.0, 300.0, 1.8, 0.25, 0.02}}, {2.0, 4.0, 8.0, 16.0},
                      60.0, 0.512, 1024),
               {0.3, 0.3, 0.5, 1.0});
}

TEST(WaveformPhysics, FourLayersAreTheExactIntegral) {
  ExpectWithin(Ricker({{2.0, 150.0, 1.8, 0.25, 0.02},
                       {3.0, 200.0, 1.8, 0.3, 0.02},
                       {5.0, 260.0, 1.9, 0.3, 0.02},
                       {0.0, 340.0, 2.0, 0.25, 0.02}},
                      {1.0, 8.0, 32.0}, 26.0, 0.512, 256),
               {0.1, 0.2, 1.0});
}

TEST(WaveformPhysics, StiffCrustIsTheExactIntegral) {
  ExpectWithin(Ricker({{0.5, 600.0, 2.0, 0.25, 0.02}, {0.0, 200.0, 1.8, 0.25, 0.02}}, {2.0, 4.0, 8.0, 16.0},
                      40.0, 0.512, 1024),
               {0.6, 0.6, 0.6, 0.6});
}

TEST(WaveformPhysics, StrongContrastIsNearTheExactIntegral) {
  ExpectWithin(Ricker({{3.0, 150.0, 1.8, 0.3, 0.02}, {0.0, 750.0, 2.1, 0.25, 0.02}}, {4.0, 8.0, 16.0, 32.0},
                      25.0, 0.768, 256),
               {0.3, 0.4, 0.7, 2.0});
}

// --- pair curves ---

/// Velocities of a pair of receivers at the lines of a record, from the phases of its two traces as they stand
/// in files.
std::vector<double> PairVelocities(const WaveformSetup& setup, const WaveformRecord& record, std::size_t r) {
  std::vector<std::vector<Complex>> X;
  for (std::size_t k : {r, r + 1}) {
    std::istringstream text(TimText(record, k));
    std::vector<double> re, im(record.trace[k].size());
    for (double t, v; text >> t >> v;) re.push_back(v);
    FFT(re.data(), im.data(), static_cast<int>(re.size()));
    X.emplace_back();
    for (std::size_t i = 0; i < re.size() / 2; ++i) X.back().emplace_back(re[i], im[i]);
  }
  std::vector<double> velocities(X[0].size());
  double lag = 0.0;
  for (std::size_t k = 1; k < X[0].size(); ++k) {
    const double wrapped = -std::arg(X[1][k] / X[0][k]);
    lag = wrapped +
          2.0 * kPi * std::round((lag - wrapped) / (2.0 * kPi));  // lines are a small part of a turn apart
    const double f = static_cast<double>(k) / setup.pulse.timeLength;
    velocities[k] = 2.0 * kPi * f * (setup.site.receivers[r + 1] - setup.site.receivers[r]) / lag;
  }
  return velocities;
}

TEST(WaveformPhysics, SavedRecordsGiveTheVelocitiesOfTheSolversPairs) {
  const double fc = 60.0;
  const WaveformSetup setup = Ricker({{2.0, 150.0, 1.8, 0.25, 0.02}, {0.0, 300.0, 1.8, 0.25, 0.02}},
                                     {2.0, 4.0, 8.0, 16.0}, fc, 0.512, 1024);
  const WaveformRecord record = Generated(setup).record;
  for (std::size_t r = 0; r + 1 < 4; ++r) {
    test::Site site({{2.0, 150.0, 1.8, 0.25, 0.02}, {1000.0, 300.0, 1.8, 0.25, 0.02}});
    site.Type(4, 4.0);
    site.Pair(setup.site.receivers[r], setup.site.receivers[r + 1]);
    const std::vector<double> velocities = PairVelocities(setup, record, r);
    PointLoadWork work;
    int compared = 0;
    for (std::size_t k = 5; k < 77; k += 3) {  // 0.16 to 2.5 times the centre frequency
      const double f = static_cast<double>(k) / setup.pulse.timeLength;
      const double freq[2] = {0.0, f}, L[2] = {0.0, velocities[k] / f};
      double vel[2] = {}, amp[2] = {}, recAmp[3] = {};
      FS_SASW3D(site.in, work, freq, vel, amp, L, -1, 1, nullptr, recAmp);
      if (work.status != PointLoadStatus::kResult) continue;
      ++compared;
      EXPECT_NEAR(velocities[k] / vel[1], 1.0, 1e-3) << r << " at " << f;
    }
    EXPECT_GT(compared, 15) << r;
  }
}

// --- Lamb ---

TEST(LambStep, IsTheIntegralOverWavenumbersAndSettles) {
  const double mu = 1.8 * 200.0 * 200.0;
  EXPECT_NEAR(truth::LambStep(mu, 200.0, 4.0, 1.0) * 2.0 * kPi * mu * 4.0, 0.75, 1e-12);
  EXPECT_EQ(truth::LambStep(mu, 200.0, 4.0, 0.0115), 0.0);
  // Harmonic displacement with a little damping: step response at complex frequency, times i omega.
  const std::vector<truth::Layer> ground = {{0.0, 200.0, 1.8, 0.25, 0.002}};
  const double omega = 2.0 * kPi * 40.0, r = 4.0;
  const Complex exact = truth::DiskLoad(ground, omega, r, 1e-4);
  const Complex shift(omega * 0.002, omega);  // exp(-i (omega - i eta) t), eta = D omega
  Complex sum = 0.0;
  const double gamma = 0.5 * std::sqrt(3.0 + std::sqrt(3.0));
  const double ends[] = {r / 200.0 / std::sqrt(3.0), r / 200.0, gamma * r / 200.0};
  for (int piece = 0; piece < 2; ++piece) {
    for (int i = 0; i < 20000; ++i) {
      const double w = (i + 0.5) / 20000.0, span = ends[piece + 1] - ends[piece];
      const double t = ends[piece + 1] - span * w * w;
      sum += shift * truth::LambStep(mu, 200.0, r, t) * std::exp(-shift * t) * (2.0 * span * w / 20000.0);
    }
  }
  sum += truth::LambStep(mu, 200.0, r, 1.0) * std::exp(-shift * ends[2]);
  EXPECT_LT(std::abs(sum - exact), 0.01 * std::abs(exact));
}

/// Displacement without damping: frequencies omega - i eta, and exp(eta t) afterwards. A complex frequency is
/// a real one with moduli times z = (omega / (omega - i eta))^2, and the displacement times z.
WaveformRecord ShiftedRecord(const WaveformSetup& setup) {
  PulseRecord p = setup.pulse;
  p.Derive();
  const double T = p.timeLength, eta = 4.6 / T, fc = p.centerFreq;
  const auto n = static_cast<std::size_t>(p.nPoints);
  const PlaneWaveTable table({{0.0, setup.site.layers[0].Vs, setup.site.layers[0].density, 0.25}});
  std::vector<std::vector<Complex>> lines(setup.site.receivers.size(), std::vector<Complex>(n / 2));
  std::vector<Complex> u;
  for (std::size_t k = 1; k < n / 2; ++k) {
    const double f = static_cast<double>(k) / T, omega = 2.0 * kPi * f;
    if (f > 5.0 * fc) break;
    const Complex shifted(omega, -eta), ratio = omega / shifted, z = ratio * ratio;
    WaveformSite site = setup.site;
    site.layers[0].Vs *= std::sqrt(z.real());
    site.layers[0].damping = 0.5 * z.imag() / z.real();
    LineSolver solver(site);
    EXPECT_TRUE(solver.Displacement(f, table.Velocity(f) / f, u)) << k;
    const Complex q = shifted / (2.0 * kPi * fc);
    const Complex force = 2.0 / std::sqrt(kPi) * q * q * std::exp(-q * q) / fc *
                          std::exp(Complex(0.0, -1.0) * shifted * 1.5 / fc);
    for (std::size_t r = 0; r < lines.size(); ++r) lines[r][k] = z * u[r] * force;
  }
  WaveformRecord record;
  for (const auto& line : lines) {
    std::vector<double> trace(n);
    for (std::size_t i = 0; i < n; ++i) {
      const double t = static_cast<double>(i) * p.deltaT;
      Complex sum = 0.0;
      for (std::size_t k = 1; k < n / 2; ++k)
        sum += line[k] * std::polar(1.0, 2.0 * kPi * static_cast<double>(k * i % n) / static_cast<double>(n));
      trace[i] = 2.0 * sum.real() / T * std::exp(eta * t);
    }
    record.trace.push_back(trace);
  }
  return record;
}

TEST(WaveformPhysics, HalfSpaceWithoutDampingIsLambsClosedForm) {
  WaveformSetup setup = HalfSpace();
  setup.site.layers[0].damping = 0.0;
  setup.site.receivers = {2.0, 4.0, 8.0};
  const WaveformRecord record = ShiftedRecord(setup);
  const double fc = 40.0, mu = 1.8 * 200.0 * 200.0;
  const auto rate = [&](double t) {
    if (t < 0.0) return 0.0;
    const double s = kPi * (fc * t - 1.5);
    return -2.0 * kPi * fc * s * (3.0 - 2.0 * s * s) * std::exp(-s * s);
  };
  for (std::size_t r = 0; r < 3; ++r) {
    double peak = 0.0, worst = 0.0;
    for (std::size_t i = 0; i < record.trace[r].size(); i += 4) {
      const double t = static_cast<double>(i) * setup.pulse.deltaT;
      if (t > 0.4 * setup.pulse.timeLength) break;
      const double exact = truth::LambResponse(mu, 200.0, setup.site.receivers[r], t, rate);
      peak = std::max(peak, std::fabs(exact));
      worst = std::max(worst, std::fabs(record.trace[r][i] - exact));
    }
    EXPECT_LT(worst, 1e-3 * peak) << setup.site.receivers[r];
  }
}

/// Time and height of the largest positive value, by a parabola.
double PeakTime(const std::vector<double>& trace, double deltaT) {
  const auto i = std::max_element(trace.begin() + 1, trace.end() - 1) - trace.begin();
  const auto at = [&](std::ptrdiff_t k) { return trace[static_cast<std::size_t>(k)]; };
  const double shift = 0.5 * (at(i - 1) - at(i + 1)) / (at(i - 1) - 2.0 * at(i) + at(i + 1));
  return (static_cast<double>(i) + shift) * deltaT;
}

TEST(WaveformPhysics, TheRayleighWaveArrivesAtItsVelocity) {
  WaveformSetup setup = HalfSpace();
  setup.motion = WaveformMotion::kDisplacement;
  setup.site.receivers = {16.0, 32.0};
  const WaveformRecord record = Generated(setup).record;
  const double velocity =
      16.0 / (PeakTime(record.trace[1], record.deltaT) - PeakTime(record.trace[0], record.deltaT));
  EXPECT_NEAR(velocity / 200.0, 0.9194, 0.003 * 0.9194);
}

TEST(WaveformPhysics, NothingMovesBeforeTheFirstWaveButTheForerunnerOfTheDamping) {
  WaveformSetup setup = HalfSpace();
  const WaveformRecord record = Generated(setup).record;
  for (std::size_t r = 2; r < 5; ++r) {
    const double arrival = setup.site.receivers[r] / (200.0 * std::sqrt(3.0));
    double peak = 0.0, before = 0.0;
    for (std::size_t i = 0; i < record.trace[r].size(); ++i) {
      const double v = std::fabs(record.trace[r][i]);
      peak = std::max(peak, v);
      if (static_cast<double>(i) * record.deltaT < arrival) before = std::max(before, v);
    }
    EXPECT_LT(before, 0.01 * peak);
  }
}

TEST(WaveformPhysics, LengthsAndTimesScaleTogether) {
  WaveformSetup small = Ricker({{2.0, 150.0, 1.8, 0.25, 0.02}, {0.0, 300.0, 1.8, 0.25, 0.02}},
                               {2.0, 4.0, 8.0}, 60.0, 0.256, 512);
  WaveformSetup large = small;
  for (WaveformLayer& l : large.site.layers) l.thickness *= 3.0;
  for (double& x : large.site.receivers) x *= 3.0;
  large.pulse.centerFreq /= 3.0;
  large.pulse.freqSpan /= 3.0;
  small.motion = large.motion = WaveformMotion::kDisplacement;
  WaveformRecord a = Generated(small).record;
  const WaveformRecord b = Generated(large).record;
  for (auto& trace : a.trace)
    for (double& v : trace) v /= 3.0;  // displacement under one force falls with the length
  for (double percent : WorstPercent(a, b)) EXPECT_LT(percent, 1e-4);
}

}  // namespace
}  // namespace sondera
