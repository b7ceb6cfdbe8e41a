#include "forward/synthetic_site.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <utility>

#include "numeric/analysis.h"
#include "numeric/pi.h"
#include "numeric/random_numbers.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

constexpr double kReferenceDistance = 10.0;  // distance at which an average blow has peak 1
constexpr double kNearest = 0.1;             // the far-field amplitude is not valid at the source
constexpr double kGeophoneDamping = 0.6;
constexpr double kStrongestBlow = 2.5;  // deviations, so that no blow changes its sign
constexpr double kRinging = 1.0;        // s; after that a geophone is at rest again
constexpr int kMostSamples = 1 << 24;
constexpr int kLowNoiseOrder = 8;  // slope at the end of the low noise

/// Streams of random numbers for a record.
enum Stream : std::uint64_t { kStrength = 1, kHumPhase = 2, kFirstChannel = 16 };

RandomNumbers StreamOf(const SyntheticSite& site, int blow, std::uint64_t stream) {
  return RandomNumbers(site.seed,
                       (static_cast<std::uint64_t>(static_cast<std::uint32_t>(blow)) << 16) + stream);
}

bool Between(double x, double low, double high) {
  return x >= low && x <= high;  // false for NaN
}

std::string SiteFault(const SyntheticSite& site) {
  if (site.layers.empty()) return "The site has no layers.";
  for (std::size_t i = 0; i < site.layers.size(); ++i) {
    const SiteLayer& l = site.layers[i];
    if (i + 1 < site.layers.size() && !Between(l.thickness, 1e-3, 1e6))
      return "A layer of the site has no thickness.";
    if (!Between(l.Vs, 1e-3, 1e6)) return "A layer of the site has no shear-wave velocity.";
    if (!Between(l.density, 1e-6, 1e9)) return "A layer of the site has no density.";
    if (!Between(l.nu, 0.0, 0.499)) return "Poisson's ratio of a layer of the site is not below 0.5.";
  }
  if (!Between(site.damping, 0.0, 0.5)) return "The damping ratio of the site is not between 0 and 0.5.";
  if (!Between(site.blowTime, 1e-6, 1.0)) return "The blow is not between 1 microsecond and 1 s long.";
  const double shares[] = {site.blowSpread, site.noise, site.lowNoise, site.hum};
  for (double share : shares)
    if (!Between(share, 0.0, 1e6)) return "A share of noise or spread is below 0.";
  if (site.blowSpread * kStrongestBlow >= 1.0) return "The spread of the blows is not below 0.4.";
  if (!Between(site.geophone, 0.0, 1e6) || !Between(site.lowNoiseTo, 1e-6, 1e6) ||
      !Between(site.humFrequency, 1e-6, 1e6))
    return "A frequency of the site is not above 0.";
  return "";
}

/// Fourier transform of a half-sine of height 1 that begins at 0 and lasts T.
Complex HalfSine(double omega, double T) {
  const double a = kPi / T, x = omega * T / 2.0;
  const double difference = a * a - omega * omega;
  const double size = std::fabs(difference) < 1e-9 * a * a ? T / 2.0 : 2.0 * a * std::cos(x) / difference;
  return size * Complex(std::cos(x), -std::sin(x));
}

/// Response of a geophone to particle velocity.
Complex Geophone(double f, double natural) {
  if (natural == 0.0) return 1.0;
  const Complex s(0.0, f / natural);
  return s * s / (s * s + 2.0 * kGeophoneDamping * s + 1.0);
}

/// Length of the transforms. A wave that arrives after the end of the record must not wrap around to its
/// beginning: `latest` is the time at which the last wave has passed.
int TransformLength(const SiteRecording& r, double latest) {
  constexpr int kLongest = 1 << 22;  // limit for `latest`; nSamples may require more
  int n = 4;
  while (n < 2 * r.nSamples || (n < kLongest && n * r.deltaT < latest - r.firstTime)) n *= 2;
  return n;
}

/// rms of a sequence of n values whose lines 1..n/2-1 have normal real and imaginary parts of these
/// deviations.
double RmsOfLines(const std::vector<double>& deviation, int n) {
  double sum = 0.0;
  for (double d : deviation) sum += 4.0 * d * d;
  return std::sqrt(sum) / n;
}

/// Deviations of the noise lines: even noise and low noise add by their powers.
std::vector<double> NoiseLines(const SyntheticSite& site, double df, int n) {
  const auto half = static_cast<std::size_t>(n / 2);
  std::vector<double> even(half, 1.0), low(half, 0.0);
  even[0] = 0.0;
  for (std::size_t k = 1; k < half; ++k)
    low[k] = 1.0 / (1.0 + std::pow(static_cast<double>(k) * df / site.lowNoiseTo, kLowNoiseOrder));
  const double a = site.noise / RmsOfLines(even, n), lowRms = RmsOfLines(low, n);
  const double b = lowRms > 0.0 ? site.lowNoise / lowRms : 0.0;
  for (std::size_t k = 1; k < half; ++k) even[k] = std::hypot(a, b * low[k]);
  return even;
}

}  // namespace

std::vector<SiteLayer> StandardGround() {
  std::vector<SiteLayer> layers;
  for (const auto& [thickness, Vs] : {std::pair(2.0, 150.0), {4.0, 220.0}, {8.0, 300.0}, {0.0, 400.0}})
    layers.push_back({thickness, Vs});
  return layers;
}

SiteSimulator::SiteSimulator(SyntheticSite site) : site_(std::move(site)), fault_(SiteFault(site_)) {
  if (!fault_.empty()) return;
  MakeTable();
  if (!fault_.empty()) return;
  scale_ = 1.0 / NominalPeak();
}

void SiteSimulator::MakeTable() {
  std::vector<PlaneWaveLayer> layers;
  for (const SiteLayer& l : site_.layers) layers.push_back({l.thickness, l.Vs, l.density, l.nu});
  table_ = PlaneWaveTable(layers);
  if (table_.Whole()) return;
  // A phase velocity with jumps allows no record: a frequency would not have one wave.
  fault_ = "The ground of the site has no fundamental mode at all wavelengths.";
  table_ = {};
}

double SiteSimulator::PhaseVelocity(double frequency) const {
  return table_.Velocity(frequency);
}

std::string SiteSimulator::Fault(const SiteRecording& recording) const {
  if (!fault_.empty()) return fault_;
  if (!Between(recording.deltaT, 1e-9, 1e3)) return "The sampling interval of the record is not above 0.";
  if (recording.nSamples < 2 || recording.nSamples > kMostSamples)
    return "The record does not have 2 to 16777216 samples.";
  if (!Between(recording.source, -1e6, 1e6) || !Between(recording.firstTime, -1e6, 1e6))
    return "The source or the first time of the record is out of reach.";
  for (double x : recording.receivers)
    if (!Between(std::fabs(x - recording.source), kNearest, 1e6))
      return "A receiver of the record is at the source.";
  return "";
}

SiteRecord SiteSimulator::Record(const SiteRecording& recording, int blow) const {
  if (!Fault(recording).empty()) return {};
  double farthest = 0.0;
  for (double x : recording.receivers) farthest = std::max(farthest, std::fabs(x - recording.source));
  const int n = TransformLength(recording, 2.0 * farthest / table_.Slowest() + kRinging);
  const double df = 1.0 / (n * recording.deltaT);
  const auto half = static_cast<std::size_t>(n / 2);

  RandomNumbers strength = StreamOf(site_, blow, kStrength), humPhase = StreamOf(site_, blow, kHumPhase);
  const double deviations = std::clamp(strength.Normal(), -kStrongestBlow, kStrongestBlow);
  const double blowSize = scale_ * (1.0 + site_.blowSpread * deviations);
  const double phase1 = kTwoPi * humPhase.Uniform(), phase3 = kTwoPi * humPhase.Uniform();

  // The part that all receivers share: the blow through the geophone, and the wavenumber.
  std::vector<Complex> common(half);
  std::vector<double> wavenumber(half, 0.0);
  for (std::size_t k = 1; k < half; ++k) {
    const double f = static_cast<double>(k) * df, omega = kTwoPi * f;
    common[k] = blowSize / recording.deltaT * HalfSine(omega, site_.blowTime) * Geophone(f, site_.geophone) *
                std::polar(1.0, omega * recording.firstTime);
    wavenumber[k] = omega / PhaseVelocity(f);
  }
  const std::vector<double> noise = NoiseLines(site_, df, n);

  SiteRecord record;
  std::vector<double> re(static_cast<std::size_t>(n)), im(re.size());
  for (std::size_t c = 0; c < recording.receivers.size(); ++c) {
    const double r = std::fabs(recording.receivers[c] - recording.source);
    const double spreading = std::sqrt(kReferenceDistance / r);
    RandomNumbers random = StreamOf(site_, blow, kFirstChannel + c);
    std::fill(re.begin(), re.end(), 0.0);
    std::fill(im.begin(), im.end(), 0.0);
    for (std::size_t k = 1; k < half; ++k) {
      const double kr = wavenumber[k] * r;
      const Complex wave = common[k] * std::polar(spreading * std::exp(-site_.damping * kr), -kr);
      const double noiseRe = noise[k] * random.Normal(), noiseIm = noise[k] * random.Normal();
      re[k] = re[re.size() - k] = wave.real() + noiseRe;
      im[k] = wave.imag() + noiseIm;
      im[im.size() - k] = -im[k];
    }
    InvFFT(re.data(), im.data(), n);
    const double pickup = site_.hum * (0.5 + random.Uniform());  // cable lengths differ
    std::vector<double> samples(static_cast<std::size_t>(recording.nSamples));
    for (std::size_t i = 0; i < samples.size(); ++i) {
      const double turn =
          kTwoPi * site_.humFrequency * (recording.firstTime + static_cast<double>(i) * recording.deltaT);
      samples[i] = re[i] + pickup * (std::sin(turn + phase1) + std::sin(3.0 * turn + phase3) / 3.0);
    }
    record.push_back(std::move(samples));
  }
  return record;
}

double SiteSimulator::NominalPeak() const {
  SiteSimulator quiet = *this;
  quiet.site_.blowSpread = quiet.site_.noise = quiet.site_.lowNoise = quiet.site_.hum = 0.0;
  quiet.scale_ = 1.0;
  const SiteRecord record = quiet.Record(
      {.receivers = {kReferenceDistance}, .deltaT = site_.blowTime / 30.0, .nSamples = 16384}, 0);
  double peak = 0.0;
  for (double x : record[0]) peak = std::max(peak, std::fabs(x));
  return peak;
}

}  // namespace sondera
