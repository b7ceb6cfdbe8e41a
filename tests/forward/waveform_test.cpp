// Tests of computed records: refusals and notes, linearity, motions, lengths, blows and texts.
#include "forward/waveform.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <sstream>

#include "forward/exact_records.h"
#include "forward/plane_wave_table.h"
#include "forward/waveform_text.h"
#include "numeric/analysis.h"
#include "numeric/pi.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;
using test::Generated;
using test::WorstPercent;

/// 2 m of 150 m/s on 300 m/s, receivers at 2 and 8 m, a quarter of a second.
WaveformSetup Small() {
  WaveformSetup s;
  s.pulse.centerFreq = 60.0;
  s.pulse.nPoints = 256;
  s.pulse.freqSpan = 500.0;
  s.pulse.Derive();
  s.site.layers = {{2.0, 150.0, 1.8, 0.25, 0.02}, {0.0, 300.0, 1.8, 0.25, 0.02}};
  s.site.receivers = {2.0, 8.0};
  return s;
}

std::string Why(const WaveformSetup& setup) {
  return CheckWaveform(setup).reason();
}

// --- lengths ---

TEST(Waveform, FirstValuesAreToldTheLengthNeededInOneSentence) {
  WaveformSetup s = Small();
  s.pulse = {};
  const std::string expected =
      "A record of 6 points and 5.859e-05 s can't hold the wave: the force and its way to the last receiver "
      "take "
      "0.06509 s, and 16 points at least (Fit to site sets this up).";
  EXPECT_EQ(Why(s), expected);
  WaveformResult result;
  result.notes = {"former"};
  Listener nobody;
  EXPECT_EQ(GenerateWaveform(s, nobody, result).reason(), expected);
  EXPECT_EQ(result.notes, std::vector<std::string>{"former"});
}

TEST(Waveform, TheTimeNeededIsForceAndTravel) {
  WaveformSetup s = Small();
  EXPECT_DOUBLE_EQ(TimeNeeded(s), 3.0 / 60.0 + 8.0 / (0.85 * 150.0));
  s.pulse.shape = kPulseFile;
  s.source = {{-0.5, 0.0, 0.5}, {0.0, 1.0, 0.0}};
  EXPECT_DOUBLE_EQ(TimeNeeded(s), 1.0 + 8.0 / (0.85 * 150.0));
}

TEST(FitToSite, GivesARecordThatHoldsTheWaveTwice) {
  WaveformSetup s = Small();
  s.pulse = {};
  s.site.receivers = {0.5, 1.0, 2.0, 4.0, 8.0, 16.0, 32.0, 64.0};
  ASSERT_FALSE(FitToSite(s, s.pulse));
  const double wavelength = std::sqrt(0.5 * 64.0);
  const double c =
      PlaneWaveTable({{2.0, 150.0, 1.8, 0.25}, {0.0, 300.0, 1.8, 0.25}}).VelocityAtWavelength(wavelength);
  EXPECT_DOUBLE_EQ(s.pulse.centerFreq, c / wavelength);
  EXPECT_DOUBLE_EQ(s.pulse.freqSpan, 8.0 * s.pulse.centerFreq);
  EXPECT_GE(s.pulse.timeLength, 2.0 * TimeNeeded(s));
  EXPECT_LT(s.pulse.timeLength, 4.0 * TimeNeeded(s));
  EXPECT_EQ(s.pulse.nPoints & (s.pulse.nPoints - 1), 0);
  EXPECT_EQ(Why(s), "");
}

TEST(FitToSite, ThePhaseBetweenNeighboursCanBeCountedLineByLine) {
  WaveformSetup s = Small();
  s.site.receivers = {2.0, 60.0};
  ASSERT_FALSE(FitToSite(s, s.pulse));
  const PlaneWaveTable table({{2.0, 150.0, 1.8, 0.25}, {0.0, 300.0, 1.8, 0.25}});
  double widest = 0.0;
  const double deltaF = 1.0 / s.pulse.timeLength;
  for (double f = deltaF; f < 4.0 * s.pulse.centerFreq; f += deltaF) {
    const double step = (f + deltaF) / table.Velocity(f + deltaF) - f / table.Velocity(f);
    widest = std::max(widest, 360.0 * step * 58.0);
  }
  EXPECT_LT(widest, 60.0);
}

TEST(FitToSite, ASiteThatNeedsTooManyPointsIsRefused) {
  WaveformSetup s = Small();
  s.site.receivers = {1e-4, 1000.0};
  const PulseRecord before = s.pulse;
  EXPECT_NE(FitToSite(s, s.pulse).reason().find("points; it has up to 32768."), std::string::npos);
  EXPECT_EQ(s.pulse.nPoints, before.nPoints);
}

// --- refusals and notes ---

TEST(Waveform, EachBadSettingHasOneSentence) {
  const auto with = [](auto change) {
    WaveformSetup s = Small();
    change(s);
    return Why(s);
  };
  EXPECT_EQ(with([](WaveformSetup&) {}), "");
  EXPECT_EQ(with([](WaveformSetup& s) { s.pulse.nPoints = 65536; }),
            "A record has 16 to 32768 points, not 65536.");
  EXPECT_EQ(with([](WaveformSetup& s) { s.pulse.nPoints = 0; }), "A record has 16 to 32768 points, not 0.");
  EXPECT_EQ(with([](WaveformSetup& s) { s.pulse.nPoints = 257; }),
            "The number of points, 257, is odd; it has to be even.");
  for (double span : {0.0, -1.0, 1e-9, 1e30, static_cast<double>(NAN)})
    EXPECT_NE(with([&](WaveformSetup& s) { s.pulse.freqSpan = span; }).find("The frequency span, "),
              std::string::npos);
  EXPECT_EQ(with([](WaveformSetup& s) { s.pulse.centerFreq = 0.0; }),
            "The centre frequency, 0 Hz, is not between 1e-6 and 1e9 Hz.");
  EXPECT_NE(with([](WaveformSetup& s) { s.pulse.shape = 3; }).find("3 is not a shape of a source"),
            std::string::npos);
  EXPECT_EQ(with([](WaveformSetup& s) { s.pulse.shape = 0; }),
            "The source function has less than two samples.");
  EXPECT_EQ(with([](WaveformSetup& s) { s.site.receivers.clear(); }), "There is no receiver.");
  EXPECT_EQ(with([](WaveformSetup& s) {
              s.site.receivers = {0.0, 2.0};
            }),
            "Receiver 1 is at 0; distances from the source have to be above 0 and ascending.");
  EXPECT_EQ(with([](WaveformSetup& s) {
              s.site.receivers = {-2.0, 2.0};
            }),
            "Receiver 1 is at -2; distances from the source have to be above 0 and ascending.");
  EXPECT_EQ(with([](WaveformSetup& s) {
              s.site.receivers = {2.0, 4.0, 4.0};
            }),
            "Receiver 3 is at 4; distances from the source have to be above 0 and ascending.");
  EXPECT_EQ(with([](WaveformSetup& s) { s.site.receivers.assign(1001, 1.0); }),
            "There are 1001 receivers; a record has up to 1000.");
  EXPECT_EQ(with([](WaveformSetup& s) { s.site.layers.clear(); }).find("There is no layer"), 0u);
  EXPECT_NE(with([](WaveformSetup& s) { s.site.layers[1].nu = 0.5; }).find("Poisson's ratio 0.5 of layer 2"),
            std::string::npos);
  EXPECT_EQ(with([](WaveformSetup& s) { s.site.layers[0].thickness = 0.0; }),
            "The thickness 0 of layer 1 is not above 0.");
  EXPECT_NE(with([](WaveformSetup& s) { s.site.layers[0].Vs = NAN; }).find("The S-wave velocity"),
            std::string::npos);
}

TEST(Waveform, NoDampingIsComputedWithALittleAndSaidSo) {
  WaveformSetup s = Small();
  s.site.layers[1].damping = 0.0;
  const WaveformResult result = Generated(s);
  ASSERT_EQ(result.notes.size(), 1u);
  EXPECT_EQ(result.notes[0],
            "The damping ratio of layer 2 is below 0.005: the record is computed with 0.005 there.");
  s.site.layers[1].damping = 0.005;
  const WaveformResult little = Generated(s);
  EXPECT_TRUE(little.notes.empty());
  EXPECT_EQ(little.record.trace, result.record.trace);
}

TEST(Waveform, AlmostIncompressibleLayersAreWarnedOf) {
  WaveformSetup s = Small();
  s.site.layers[0].nu = s.site.layers[1].nu = 0.49;
  const std::vector<std::string> notes = WaveformSiteNotes(s.site);
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_EQ(notes[0], "Poisson's ratio of layers 1 and 2 is above 0.45: the record may be off by 3 to 13 %.");
  EXPECT_EQ(Why(s), "");
}

TEST(Waveform, AForceBeyondTheSpanIsWarnedOf) {
  WaveformSetup s = Small();
  s.pulse.centerFreq = 300.0;
  s.pulse.freqSpan = 320.0;
  const WaveformResult result = Generated(s);
  ASSERT_EQ(result.notes.size(), 1u);
  EXPECT_EQ(result.notes[0],
            "The force extends beyond the span of 320 Hz: the record rings at its highest frequency.");
}

TEST(Waveform, AHaltKeepsTheFormerRecord) {
  struct : Listener {
    int asked = 0;
    std::vector<double> shares;
    bool Poll() override { return ++asked > 5; }
    void Done(double share) override { shares.push_back(share); }
  } listener;
  WaveformResult result;
  result.notes = {"former"};
  const Refusal refusal = GenerateWaveform(Small(), listener, result);
  EXPECT_TRUE(refusal);
  EXPECT_EQ(refusal.reason(), "");
  EXPECT_EQ(result.notes, std::vector<std::string>{"former"});
  EXPECT_TRUE(result.record.trace.empty());
  EXPECT_EQ(listener.shares.size(), 5u);
  EXPECT_TRUE(std::is_sorted(listener.shares.begin(), listener.shares.end()));
}

TEST(Waveform, LinesWithoutForceAreLeftOut) {
  WaveformSetup s = Small();  // lines 3.9 Hz apart
  const WaveformResult result = Generated(s);
  ASSERT_EQ(result.lines.u[0].size(), 128u);
  EXPECT_EQ(result.lines.u[0][0], Complex(0.0));
  for (std::size_t k = 1; k < 128; ++k) {
    const bool strong = std::abs(result.force[k]) >= 1e-7 * std::abs(PulseSpectrum(kPulseRicker, 60.0, 60.0));
    EXPECT_EQ(result.lines.u[0][k] != Complex(0.0), strong) << k;
  }
  EXPECT_EQ(result.lines.u[0][127], Complex(0.0));
}

// --- records ---

TEST(Waveform, IsTheSumOfItsLines) {
  const WaveformSetup s = Small();
  const WaveformResult result = Generated(s);
  for (std::size_t i : {0u, 40u, 77u, 255u}) {
    const double t = static_cast<double>(i) * s.pulse.deltaT;
    double sum = 0.0;
    for (std::size_t k = 1; k < 128; ++k) {
      const double omega = 2.0 * kPi * static_cast<double>(k) * result.lines.deltaF;
      sum +=
          2.0 / s.pulse.timeLength *
          (Complex(0.0, omega) * result.lines.u[1][k] * result.force[k] * std::polar(1.0, omega * t)).real();
    }
    double peak = 0.0;
    for (double v : result.record.trace[1]) peak = std::max(peak, std::fabs(v));
    EXPECT_NEAR(result.record.trace[1][i], sum, 1e-10 * peak) << i;
  }
}

TEST(Waveform, MotionsAreDerivativesOfEachOther) {
  WaveformSetup s = Small();
  const WaveformResult velocity = Generated(s);
  s.motion = WaveformMotion::kDisplacement;
  const WaveformRecord displacement = RecordOfLines(s, velocity.lines, velocity.force);
  s.motion = WaveformMotion::kAcceleration;
  const WaveformRecord acceleration = RecordOfLines(s, velocity.lines, velocity.force);
  const double dt = s.pulse.deltaT;
  double peakV = 0.0, peakA = 0.0, worstV = 0.0, worstA = 0.0;
  for (std::size_t i = 2; i + 2 < 256; ++i) {
    const auto slope = [&](const std::vector<double>& x) {
      return (8.0 * (x[i + 1] - x[i - 1]) - (x[i + 2] - x[i - 2])) / (12.0 * dt);
    };
    const double v = velocity.record.trace[0][i], a = acceleration.trace[0][i];
    peakV = std::max(peakV, std::fabs(v));
    peakA = std::max(peakA, std::fabs(a));
    worstV = std::max(worstV, std::fabs(slope(displacement.trace[0]) - v));
    worstA = std::max(worstA, std::fabs(slope(velocity.record.trace[0]) - a));
  }
  EXPECT_LT(worstV, 0.01 * peakV);
  EXPECT_LT(worstA, 0.02 * peakA);
}

TEST(Waveform, DisplacementUnderABlowBeginsAtRest) {
  WaveformSetup s = Small();
  s.pulse.shape = kPulseHammer;
  s.motion = WaveformMotion::kDisplacement;
  s.site.receivers = {8.0, 16.0};
  const WaveformRecord record = Generated(s).record;
  for (std::size_t r = 0; r < 2; ++r) {
    double peak = 0.0;
    for (double v : record.trace[r]) peak = std::max(peak, std::fabs(v));
    for (std::size_t i = 0; i < 12; ++i)
      EXPECT_LT(std::fabs(record.trace[r][i]), 0.05 * peak) << r << " " << i;
    // The ground moves down under a downward load, and returns.
    EXPECT_NEAR(record.trace[r].back(), 0.0, 0.1 * peak);
  }
}

TEST(Waveform, TwiceTheForceIsTwiceTheRecordAndARickerFileIsTheRicker) {
  WaveformSetup s = Small();
  const WaveformRecord ricker = Generated(s).record;
  s.pulse.shape = kPulseFile;
  for (int i = 0; i < 1200; ++i) {
    s.source.time.push_back(i * 5e-5);
    s.source.value.push_back(PulseForce(kPulseRicker, 60.0, s.source.time.back()));
  }
  const WaveformRecord once = Generated(s).record;
  for (double percent : WorstPercent(once, ricker)) EXPECT_LT(percent, 0.1);
  for (double& v : s.source.value) v *= 2.0;
  const WaveformRecord twice = Generated(s).record;
  for (std::size_t r = 0; r < 2; ++r)
    for (std::size_t i = 0; i < 256; ++i) EXPECT_EQ(twice.trace[r][i], 2.0 * once.trace[r][i]);
}

TEST(Waveform, OneReceiverMoreChangesNoOther) {
  WaveformSetup s = Small();
  const WaveformRecord two = Generated(s).record;
  s.site.receivers = {2.0, 5.0, 8.0};
  const WaveformRecord three = Generated(s).record;
  EXPECT_EQ(three.trace[0], two.trace[0]);
  EXPECT_EQ(three.trace[2], two.trace[1]);
}

TEST(Waveform, TheThicknessOfTheHalfSpaceDoesNotCount) {
  WaveformSetup s = Small();
  const WaveformRecord none = Generated(s).record;
  s.site.layers[1].thickness = 0.5;
  EXPECT_EQ(Generated(s).record.trace, none.trace);
}

// --- blows ---

/// A record for blows: any shape will do.
WaveformRecord Ringing() {
  WaveformRecord record;
  record.deltaT = 0.001;
  record.receivers = {2.0, 8.0};
  for (double x : record.receivers) {
    std::vector<double> trace;
    for (int i = 0; i < 256; ++i) trace.push_back(std::sin(0.31 * i / x + 0.2) * std::exp(-0.02 * i) / x);
    record.trace.push_back(trace);
  }
  return record;
}

TEST(MakeBlows, NoiseHasItsSizeAndEachBlowItsOwn) {
  const WaveformRecord record = Ringing();
  double peak = 0.0;
  for (double v : record.trace[0]) peak = std::max(peak, std::fabs(v));  // the middle one of two is the first
  std::vector<WaveformRecord> blows;
  ASSERT_FALSE(MakeBlows(record, {.blows = 40, .spread = 0.0, .noise = 0.02, .seed = 7}, blows));
  ASSERT_EQ(blows.size(), 40u);
  for (std::size_t r = 0; r < 2; ++r) {
    double sum = 0.0, cross = 0.0;
    for (std::size_t b = 0; b < 40; ++b) {
      for (std::size_t i = 0; i < 256; ++i) {
        const double n = blows[b].trace[r][i] - record.trace[r][i];
        sum += n * n;
        cross += n * (blows[(b + 1) % 40].trace[r][i] - record.trace[r][i]);
      }
    }
    EXPECT_NEAR(std::sqrt(sum / (40 * 256)) / peak, 0.02, 0.0006);
    EXPECT_LT(std::fabs(cross / sum), 0.05);
  }
  std::vector<WaveformRecord> again, other;
  ASSERT_FALSE(MakeBlows(record, {.blows = 40, .spread = 0.0, .noise = 0.02, .seed = 7}, again));
  ASSERT_FALSE(MakeBlows(record, {.blows = 40, .spread = 0.0, .noise = 0.02, .seed = 8}, other));
  EXPECT_EQ(again[3].trace, blows[3].trace);
  EXPECT_NE(other[3].trace, blows[3].trace);
}

TEST(MakeBlows, HumAndStrengthAreThoseOfTheBlow) {
  const WaveformRecord record = Ringing();
  double peak = 0.0;
  for (double v : record.trace[0]) peak = std::max(peak, std::fabs(v));
  std::vector<WaveformRecord> blows;
  ASSERT_FALSE(MakeBlows(record, {.blows = 30, .spread = 0.2}, blows));
  double mean = 0.0, square = 0.0;
  for (const WaveformRecord& blow : blows) {
    const double strength = blow.trace[0][40] / record.trace[0][40];
    EXPECT_NEAR(blow.trace[1][60] / record.trace[1][60], strength, 1e-9);
    EXPECT_GT(strength, 0.4);
    mean += strength / 30.0;
    square += strength * strength / 30.0;
  }
  EXPECT_NEAR(mean, 1.0, 0.12);
  EXPECT_NEAR(std::sqrt(square - mean * mean), 0.2, 0.08);

  ASSERT_FALSE(MakeBlows(record, {.blows = 1, .hum = 0.1, .humFrequency = 50.0}, blows));
  // Lines of 1 / 0.256 s: 50 Hz is 12.8 of them; fit sine and cosine instead.
  double s2 = 0.0, c2 = 0.0;
  std::vector<double> hum(256);
  for (std::size_t i = 0; i < 256; ++i) hum[i] = blows[0].trace[1][i] - record.trace[1][i];
  for (std::size_t i = 0; i < 240; ++i) {  // twelve periods of 20 samples
    s2 += hum[i] * std::sin(2.0 * kPi * static_cast<double>(i) / 20.0) / 120.0;
    c2 += hum[i] * std::cos(2.0 * kPi * static_cast<double>(i) / 20.0) / 120.0;
  }
  EXPECT_NEAR(std::hypot(s2, c2), 0.1 * peak, 1e-9 * peak);
}

TEST(MakeBlows, NumbersOutOfRangeAreRefused) {
  const WaveformRecord record = Ringing();
  std::vector<WaveformRecord> blows;
  EXPECT_EQ(MakeBlows(record, {.blows = 0}, blows).reason(), "There are 1 to 1000 blows, not 0.");
  EXPECT_EQ(MakeBlows(record, {.blows = 1001}, blows).reason(), "There are 1 to 1000 blows, not 1001.");
  EXPECT_EQ(MakeBlows(record, {.noise = -0.1}, blows).reason(),
            "Noise and hum are shares of the peak, from 0.");
  EXPECT_EQ(MakeBlows(record, {.hum = NAN}, blows).reason(), "Noise and hum are shares of the peak, from 0.");
  EXPECT_TRUE(MakeBlows(record, {.spread = 0.4}, blows));
  EXPECT_TRUE(MakeBlows(record, {.humFrequency = 0.0}, blows));
  EXPECT_EQ(MakeBlows({}, {}, blows).reason(), "There is no record.");
  EXPECT_TRUE(blows.empty());
}

// --- texts ---

TEST(WaveformText, TheTransformOfASavedRecordIsTheSolversLine) {
  const WaveformSetup s = Small();
  const WaveformResult result = Generated(s);
  std::istringstream text(TimText(result.record, 1));
  std::vector<double> re, im(256);
  double first = -1.0, last = 0.0;
  for (std::string line; std::getline(text, line);) {
    std::istringstream tokens(line);
    double t = 0.0, v = 0.0;
    std::string rest;
    ASSERT_TRUE(tokens >> t >> v) << line;
    EXPECT_FALSE(tokens >> rest) << line;
    if (re.empty()) first = t;
    last = t;
    re.push_back(v);
  }
  ASSERT_EQ(re.size(), 256u);
  EXPECT_EQ(first, 0.0);
  EXPECT_NEAR(last, 255 * s.pulse.deltaT, 1e-12);
  FFT(re.data(), im.data(), 256);
  std::vector<Complex> expected(128);
  double largest = 0.0;
  for (std::size_t k = 1; k < 128; ++k) {
    const double omega = 2.0 * kPi * static_cast<double>(k) / s.pulse.timeLength;
    expected[k] = result.lines.u[1][k] * result.force[k] * Complex(0.0, omega) / s.pulse.deltaT;
    largest = std::max(largest, std::abs(expected[k]));
  }
  for (std::size_t k = 0; k < 128; ++k)
    EXPECT_LT(std::abs(Complex(re[k], im[k]) - expected[k]), 1e-8 * largest) << k;
}

TEST(WaveformText, TablesHaveAHeadAndAColumnForEachReceiver) {
  const WaveformSetup s = Small();
  const WaveformResult result = Generated(s);
  const std::string head = WaveformHead(s, "m");
  EXPECT_EQ(
      head,
      "# Computed record: vertical velocity of the surface under a vertical blow at 0, positive downward\n"
      "# Units: m, s, Hz; motion in m/s for forces in density * velocity^2 * m^2\n"
      "# Force: Ricker wavelet, centre frequency 60 Hz\n"
      "# Layers: thickness, Vs, density, Poisson's ratio, damping ratio\n"
      "# 2 150 1.8 0.25 0.02\n"
      "# half-space 300 1.8 0.25 0.02\n");
  const auto rows = [&](const std::string& text, std::size_t columns) {
    EXPECT_EQ(text.rfind(head, 0), 0u);
    std::istringstream in(text);
    int count = 0;
    for (std::string line; std::getline(in, line);) {
      if (line[0] == '#') continue;
      ++count;
      std::istringstream tokens(line);
      std::size_t n = 0;
      for (double v; tokens >> v;) ++n;
      EXPECT_EQ(n, columns) << line;
    }
    return count;
  };
  const std::string pls = PlsText(s, result.record, "m"), spc = SpcText(s, result, "m");
  EXPECT_EQ(rows(pls, 3), 256);
  EXPECT_EQ(rows(spc, 7), 128);
  EXPECT_NE(pls.find("# Columns: time, receiver at 2, receiver at 8\n"), std::string::npos);
}

}  // namespace
}  // namespace sondera
