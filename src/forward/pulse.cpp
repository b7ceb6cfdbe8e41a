// pulse.cpp - see pulse.h.
#include "forward/pulse.h"

#include <algorithm>
#include <cmath>

#include "numeric/analysis.h"
#include "numeric/pi.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

constexpr double kRickerPeak = 1.5;    // periods of fc from the beginning to the peak
constexpr double kPulsePeriods = 3.0;  // periods of fc that a shape takes, at most

/// The force of a cosine bell of length D: D/2 sinc(fD) / (1 - (fD)^2), finite at fD = 1.
double BellSpectrum(double f, double D) {
  const double x = f * D, rest = 1.0 - x * x;
  if (x == 0.0) return 0.5 * D;
  if (std::fabs(rest) < 1e-7) return 0.25 * D;
  return 0.5 * D * std::sin(kPi * x) / (kPi * x * rest);
}

}  // namespace

double PulseForce(int shape, double fc, double t) {
  if (shape == kPulseHammer) return t >= 0.0 && t * fc <= 2.0 ? 0.5 * (1.0 - std::cos(kPi * fc * t)) : 0.0;
  if (shape != kPulseRicker) return 0.0;
  const double s = kPi * (fc * t - kRickerPeak), a = s * s;
  return (1.0 - 2.0 * a) * std::exp(-a);
}

Complex PulseSpectrum(int shape, double fc, double f) {
  if (shape == kPulseHammer) {
    const double D = 2.0 / fc;
    return BellSpectrum(f, D) * std::polar(1.0, -kPi * f * D);
  }
  if (shape != kPulseRicker) return 0.0;
  const double q = f / fc;
  return 2.0 / std::sqrt(kPi) * q * q * std::exp(-q * q) / fc * std::polar(1.0, -2.0 * kPi * kRickerPeak * q);
}

Refusal CheckSource(const SourceSamples& source) {
  const std::size_t n = source.time.size();
  if (n < 2 || source.value.size() != n) return "The source function has less than two samples.";
  double largest = 0.0;
  for (std::size_t i = 0; i < n; ++i) {
    if (!std::isfinite(source.time[i]) || !std::isfinite(source.value[i]))
      return FormatText("Sample %zu of the source function is not a finite number.", i + 1);
    if (i > 0 && !(source.time[i] > source.time[i - 1]))
      return FormatText("The time of sample %zu of the source function is not above the one before.", i + 1);
    largest = std::max(largest, std::fabs(source.value[i]));
  }
  if (largest == 0.0) return "The source function is 0 throughout.";
  return {};
}

std::vector<double> ResampleSource(const SourceSamples& source, double deltaT, int n) {
  std::vector<double> force(static_cast<std::size_t>(std::max(n, 0)), 0.0);
  if (source.time.empty()) return force;
  const double first = std::min(source.time.front(), 0.0);
  std::size_t k = 0;
  for (std::size_t i = 0; i < force.size(); ++i) {
    const double t = static_cast<double>(i) * deltaT + first;
    if (t < source.time.front()) continue;
    while (k + 1 < source.time.size() && source.time[k + 1] <= t) ++k;
    if (k + 1 == source.time.size()) {
      if (t == source.time[k]) force[i] = source.value[k];
      break;
    }
    const double share = (t - source.time[k]) / (source.time[k + 1] - source.time[k]);
    force[i] = source.value[k] + share * (source.value[k + 1] - source.value[k]);
  }
  return force;
}

double PulseLength(const PulseRecord& pulse, const SourceSamples& source) {
  if (pulse.shape != kPulseFile) return kPulsePeriods / pulse.centerFreq;
  if (source.time.empty()) return 0.0;
  return source.time.back() - std::min(source.time.front(), 0.0);
}

std::vector<Complex> ForceSpectrum(const PulseRecord& pulse, const SourceSamples& source) {
  const int n = pulse.nPoints;
  std::vector<Complex> force(static_cast<std::size_t>(std::max(n / 2, 0)));
  if (pulse.shape != kPulseFile) {
    for (std::size_t k = 0; k < force.size(); ++k)
      force[k] = PulseSpectrum(pulse.shape, pulse.centerFreq, static_cast<double>(k) / pulse.timeLength);
    return force;
  }
  const std::vector<double> samples = ResampleSource(source, pulse.deltaT, n);
  std::vector<double> re(samples.size()), im(samples.size());
  RealFFT(samples.data(), re.data(), im.data(), n);
  for (std::size_t k = 0; k < force.size(); ++k) force[k] = pulse.deltaT * Complex(re[k], im[k]);
  return force;
}

}  // namespace sondera
