// waveform.cpp - see waveform.h.
#include "forward/waveform.h"

#include <algorithm>
#include <cmath>

#include "forward/plane_wave_table.h"
#include "numeric/analysis.h"
#include "numeric/pi.h"
#include "numeric/random_numbers.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

constexpr double kSilentForce = 1e-7;    // of the largest line
constexpr double kStrongForce = 1e-2;    // of the largest line: too much at the end of the span
constexpr double kSlowestOverVs = 0.85;  // slowest wave over the lowest Vs
constexpr double kSpanOverCenter = 8.0;
constexpr double kLengthsOfFit = 2.0;   // record over the time needed
constexpr double kStrongestBlow = 2.5;  // deviations, so that no blow changes its sign
constexpr double kTravelsOfFit = 8.0;   // record over the slowest way between neighbours
constexpr int kMostBlows = 1000;
constexpr std::size_t kMostBlowSamples = std::size_t{1} << 26;

double SlowestVs(const WaveformSite& site) {
  double slowest = HUGE_VAL;
  for (const WaveformLayer& l : site.layers) slowest = std::min(slowest, l.Vs);
  return slowest;
}

double FastestVp(const WaveformSite& site) {
  double fastest = 0.0;
  for (const WaveformLayer& l : site.layers)
    fastest = std::max(fastest, l.Vs * std::sqrt((2.0 - 2.0 * l.nu) / (1.0 - 2.0 * l.nu)));
  return fastest;
}

double WidestGap(const std::vector<double>& places) {
  double widest = 0.0;
  for (std::size_t i = 1; i < places.size(); ++i) widest = std::max(widest, places[i] - places[i - 1]);
  return widest;
}

double LargestOf(const std::vector<Complex>& values) {
  double largest = 0.0;
  for (const Complex& v : values) largest = std::max(largest, std::abs(v));
  return largest;
}

double PeakOf(const std::vector<double>& trace) {
  double peak = 0.0;
  for (double v : trace) peak = std::max(peak, std::fabs(v));
  return peak;
}

/// Power of i omega that converts displacement to the motion.
Complex MotionFactor(WaveformMotion motion, double omega) {
  if (motion == WaveformMotion::kVelocity) return {0.0, omega};
  if (motion == WaveformMotion::kAcceleration) return -omega * omega;
  return 1.0;
}

bool WithinRange(double x, double least, double most) {
  return x >= least && x <= most;  // false for NaN
}

}  // namespace

double TimeNeeded(const WaveformSetup& setup) {
  return PulseLength(setup.pulse, setup.source) +
         setup.site.receivers.back() / (kSlowestOverVs * SlowestVs(setup.site));
}

Refusal CheckWaveform(const WaveformSetup& setup) {
  if (Refusal refusal = CheckWaveformSite(setup.site)) return refusal;
  PulseRecord p = setup.pulse;
  if (p.shape == kPulseFile) {
    if (Refusal refusal = CheckSource(setup.source)) return refusal;
  } else if (p.shape != kPulseHammer && p.shape != kPulseRicker) {
    return FormatText("%d is not a shape of a source: 0 is a file, 1 a hammer blow, 2 a Ricker wavelet.",
                      p.shape);
  } else if (!WithinRange(p.centerFreq, 1e-6, 1e9)) {
    return FormatText("The centre frequency, %g Hz, is not between 1e-6 and 1e9 Hz.", p.centerFreq);
  }
  if (!WithinRange(p.freqSpan, 1e-6, 1e9))
    return FormatText("The frequency span, %g Hz, is not between 1e-6 and 1e9 Hz.", p.freqSpan);
  if (p.nPoints > kMostWaveformPoints || p.nPoints < 1)
    return FormatText("A record has %d to %d points, not %d.", kLeastWaveformPoints, kMostWaveformPoints,
                      p.nPoints);
  p.Derive();
  const double needed = TimeNeeded(setup);
  if (p.nPoints < kLeastWaveformPoints || !(p.timeLength >= needed)) {
    return FormatText(
        "A record of %d points and %.4g s can't hold the wave: the force and its way to the last receiver "
        "take "
        "%.4g s, and %d points at least (Fit to site sets this up).",
        p.nPoints, p.timeLength, needed, kLeastWaveformPoints);
  }
  if (p.nPoints % 2 != 0)
    return FormatText("The number of points, %d, is odd; it has to be even.", p.nPoints);
  return {};
}

Refusal FitToSite(const WaveformSetup& setup, PulseRecord& pulse) {
  if (Refusal refusal = CheckWaveformSite(setup.site)) return refusal;
  const WaveformSite& site = setup.site;
  std::vector<PlaneWaveLayer> plane;
  for (const WaveformLayer& l : site.layers) plane.push_back({l.thickness, l.Vs, l.density, l.nu});
  const double wavelength = std::sqrt(site.receivers.front() * site.receivers.back());
  double c = PlaneWaveTable(plane).VelocityAtWavelength(wavelength);
  if (!(c > 0.0)) c = SlowestVs(site);

  WaveformSetup fitted = setup;
  fitted.pulse.centerFreq = c / wavelength;
  fitted.pulse.freqSpan = kSpanOverCenter * fitted.pulse.centerFreq;
  const double slowest = kSlowestOverVs * SlowestVs(site);
  const double length =
      std::max(kLengthsOfFit * TimeNeeded(fitted), kTravelsOfFit * WidestGap(site.receivers) / slowest);
  const double points = 2.0 * fitted.pulse.freqSpan * length;
  if (!(points <= kMostWaveformPoints))
    return FormatText("A record of this site would need %.0f points; it has up to %d.", points,
                      kMostWaveformPoints);
  int n = kLeastWaveformPoints;
  while (n < points) n *= 2;
  fitted.pulse.nPoints = n;
  fitted.pulse.Derive();
  pulse = fitted.pulse;
  return {};
}

WaveformRecord RecordOfLines(const WaveformSetup& setup, const WaveformLines& lines,
                             const std::vector<Complex>& force) {
  PulseRecord p = setup.pulse;
  p.Derive();
  const auto n = static_cast<std::size_t>(p.nPoints);
  WaveformRecord record;
  record.deltaT = p.deltaT;
  record.receivers = setup.site.receivers;
  const bool level = setup.motion == WaveformMotion::kDisplacement && !force.empty() &&
                     std::abs(force[0]) > kSilentForce * LargestOf(force);
  std::vector<double> re(n), im(n);
  for (std::size_t r = 0; r < lines.u.size(); ++r) {
    std::fill(re.begin(), re.end(), 0.0);
    std::fill(im.begin(), im.end(), 0.0);
    const std::size_t count = std::min(lines.u[r].size(), force.size());
    for (std::size_t k = 1; k < count; ++k) {
      const double omega = kTwoPi * static_cast<double>(k) * lines.deltaF;
      const Complex line = lines.u[r][k] * force[k] * MotionFactor(setup.motion, omega) / p.deltaT;
      re[k] = re[n - k] = line.real();
      im[k] = line.imag();
      im[n - k] = -line.imag();
    }
    InvFFT(re.data(), im.data(), p.nPoints);
    if (level) {
      const double arrival = record.receivers[r] / FastestVp(setup.site);
      std::size_t quiet = 1;  // the force begins at 0, so the first sample is at rest
      while (quiet < n && static_cast<double>(quiet) * p.deltaT < arrival) ++quiet;
      double rest = 0.0;
      for (std::size_t i = 0; i < quiet; ++i) rest += re[i];
      rest /= static_cast<double>(quiet);
      for (double& v : re) v -= rest;
    }
    record.trace.push_back(re);
  }
  return record;
}

Refusal GenerateWaveform(const WaveformSetup& setup, Listener& listener, WaveformResult& result) {
  if (Refusal refusal = CheckWaveform(setup)) return refusal;
  PulseRecord p = setup.pulse;
  p.Derive();
  WaveformResult made;
  made.force = ForceSpectrum(p, setup.source);
  const double largest = LargestOf(made.force);
  if (!(largest > 0.0) || !std::isfinite(largest)) return "The force is 0 at all samples of the record.";
  std::vector<bool> wanted(made.force.size());
  for (std::size_t k = 1; k < wanted.size(); ++k)
    wanted[k] = std::abs(made.force[k]) >= kSilentForce * largest;
  if (Refusal refusal = ComputeWaveformLines(setup.site, 1.0 / p.timeLength, wanted, listener, made.lines))
    return refusal;
  made.record = RecordOfLines(setup, made.lines, made.force);

  made.notes = WaveformSiteNotes(setup.site);
  if (!made.lines.withoutModes.empty())
    made.notes.push_back(FormatText("%zu of %d lines have no result and are 0, the first at %.4g Hz.",
                                    made.lines.withoutModes.size(),
                                    static_cast<int>(std::count(wanted.begin(), wanted.end(), true)),
                                    made.lines.withoutModes.front() / p.timeLength));
  if (std::abs(made.force.back()) > kStrongForce * largest)
    made.notes.push_back(
        FormatText("The force extends beyond the span of %g Hz: the record rings at its highest frequency.",
                   p.freqSpan));
  result = std::move(made);
  return {};
}

Refusal MakeBlows(const WaveformRecord& record, const BlowSettings& settings,
                  std::vector<WaveformRecord>& blows) {
  if (record.trace.empty()) return "There is no record.";
  if (settings.blows < 1 || settings.blows > kMostBlows)
    return FormatText("There are 1 to %d blows, not %d.", kMostBlows, settings.blows);
  if (static_cast<std::size_t>(settings.blows) * record.trace.size() * record.trace[0].size() >
      kMostBlowSamples)
    return FormatText("%d blows of this record have too many samples.", settings.blows);
  if (!WithinRange(settings.noise, 0.0, 1e6) || !WithinRange(settings.hum, 0.0, 1e6))
    return "Noise and hum are shares of the peak, from 0.";
  if (!WithinRange(settings.spread, 0.0, 0.399)) return "The spread of the blows is not from 0 to below 0.4.";
  if (!WithinRange(settings.humFrequency, 1e-6, 1e9)) return "The frequency of the hum is not above 0.";

  const double unit = PeakOf(record.trace[(record.trace.size() - 1) / 2]);
  std::vector<WaveformRecord> made;
  for (int b = 0; b < settings.blows; ++b) {
    RandomNumbers common(settings.seed, static_cast<std::uint64_t>(b) << 32);
    const double deviations = std::clamp(common.Normal(), -kStrongestBlow, kStrongestBlow);
    const double strength = settings.blows > 1 ? 1.0 + settings.spread * deviations : 1.0;
    const double phase1 = kTwoPi * common.Uniform(), phase3 = kTwoPi * common.Uniform();
    WaveformRecord blow = record;
    for (std::size_t r = 0; r < blow.trace.size(); ++r) {
      RandomNumbers own(settings.seed, (static_cast<std::uint64_t>(b) << 32) + 1 + r);
      for (std::size_t i = 0; i < blow.trace[r].size(); ++i) {
        const double turn = kTwoPi * settings.humFrequency * static_cast<double>(i) * blow.deltaT;
        double& v = blow.trace[r][i];
        v = strength * v +
            unit * (settings.noise * own.Normal() +
                    settings.hum * (std::sin(turn + phase1) + std::sin(3.0 * turn + phase3) / 3.0));
      }
    }
    made.push_back(std::move(blow));
  }
  blows = std::move(made);
  return {};
}

}  // namespace sondera
