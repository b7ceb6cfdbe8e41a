// simulated_blows.cpp - records of hammer blows from one computed wave. Owns no state.
#include "acquisition/simulated_blows.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "forward/synthetic_site.h"
#include "numeric/pi.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kUnplaced = 0.1;         // m; a receiver nearer than this counts as not placed yet
constexpr double kPlaceOfUnplaced = 1.0;  // m
constexpr double kRinging = 1.0;          // s; after that a geophone is at rest again
constexpr double kSlowestWave = 100.0;    // m/s; below any of the standard ground
constexpr double kLongestWave = 1 << 22;  // samples
constexpr double kStrongestBlow = 2.5;    // deviations, so that no blow changes its sign
constexpr double kSteps = 8388608.0;      // 24 bits with sign
constexpr double kFreeRunShare = 0.1;     // of the record, before the blow

/// Streams of random numbers for a blow.
enum Stream : std::uint64_t { kStrength = 1, kHum = 2, kFirstInput = 16 };

RandomNumbers StreamOf(std::uint64_t seed, int blow, std::uint64_t stream) {
  return RandomNumbers(seed, (static_cast<std::uint64_t>(static_cast<std::uint32_t>(blow)) << 16) + stream);
}

}  // namespace

BlowWave MakeBlowWave(double rate, std::vector<double> distances, std::string& fault) {
  fault.clear();
  for (double& r : distances) {
    if (!(r <= kFarthestReceiver)) {
      fault = FormatText("The simulated site has no wave for receivers farther than %.10g m from the source.",
                         kFarthestReceiver);
      return {};
    }
    if (r < kUnplaced) r = kPlaceOfUnplaced;
  }
  const double farthest = distances.empty() ? 0.0 : *std::max_element(distances.begin(), distances.end());
  const double length = (2.0 * farthest / kSlowestWave + kRinging) * rate + BlowWave::kLead;
  // Noise and hum change from record to record: the wave contains only the ground and the blow.
  SyntheticSite quiet;
  quiet.blowSpread = quiet.noise = quiet.lowNoise = quiet.hum = 0.0;
  SiteRecording recording{.receivers = distances,
                          .deltaT = 1.0 / rate,
                          .nSamples = static_cast<int>(std::min(length, kLongestWave)),
                          .firstTime = -BlowWave::kLead / rate};
  const SiteSimulator site(quiet);
  fault = site.Fault(recording);
  if (!fault.empty()) return {};
  return {.rate = rate, .distances = std::move(distances), .volts = site.Record(recording, 1)};
}

BlowRecord::BlowRecord(const SimulatedBlow& settings, const BlowWave& wave, BlowRecording recording, int blow)
    : settings_(settings), wave_(wave), recording_(std::move(recording)), blow_(blow) {
  RandomNumbers strength = StreamOf(settings_.seed, blow_, kStrength);
  const double deviations = std::clamp(strength.Normal(), -kStrongestBlow, kStrongestBlow);
  strength_ = recording_.force * (1.0 + settings_.spread * deviations);
  RandomNumbers hum = StreamOf(settings_.seed, blow_, kHum);
  phase1_ = kTwoPi * hum.Uniform();
  phase3_ = kTwoPi * hum.Uniform();

  if (recording_.trigger < 0)
    first_ = -static_cast<int>(recording_.samples * kFreeRunShare);
  else
    FindTrigger();
  if (!first_) return;
  for (std::size_t c = 0; c < recording_.inputs.size(); ++c) {
    noise_.push_back(NoiseOf(c));
    for (int k = 0; k < *first_; ++k) noise_[c].after.Normal();  // what came before the record
  }
  samples_.resize(recording_.inputs.size() * static_cast<std::size_t>(recording_.samples));
}

BlowRecord::Noise BlowRecord::NoiseOf(std::size_t input) const {
  const std::uint64_t first = kFirstInput + 3 * static_cast<std::uint64_t>(input);
  RandomNumbers cable = StreamOf(settings_.seed, blow_, first + 2);
  return {StreamOf(settings_.seed, blow_, first), StreamOf(settings_.seed, blow_, first + 1),
          settings_.hum * (0.5 + cable.Uniform())};
}

double BlowRecord::HumAt(int sample) const {
  const double turn = kTwoPi * settings_.humHz * (sample / wave_.rate);
  return std::sin(turn + phase1_) + std::sin(3.0 * turn + phase3_) / 3.0;
}

/// Output of the converter for the input at a sample from the blow.
double BlowRecord::Volts(std::size_t input, int sample, double random, double pickup) const {
  const BlowInput& in = recording_.inputs[input];
  const std::vector<double>& wave = wave_.volts[static_cast<std::size_t>(in.receiver)];
  const int at = sample + BlowWave::kLead;
  double volts = settings_.noise * random + pickup;
  if (at >= 0 && at < static_cast<int>(wave.size())) volts += strength_ * wave[static_cast<std::size_t>(at)];
  const double step = in.range / kSteps;
  return step * std::clamp(std::nearbyint(volts / step), -kSteps, kSteps - 1.0);
}

void BlowRecord::FindTrigger() {
  const auto input = static_cast<std::size_t>(recording_.trigger);
  const auto receiver = static_cast<std::size_t>(recording_.inputs[input].receiver);
  const int end = static_cast<int>(wave_.volts[receiver].size()) - BlowWave::kLead;
  Noise noise = NoiseOf(input);
  bool below = false;
  for (int k = 0; k < end; ++k) {
    const double volts = Volts(input, k, noise.after.Normal(), noise.pickup * HumAt(k));
    if (below && volts >= recording_.level) {
      first_ = k - recording_.preTrigger;
      return;
    }
    below = volts < recording_.level;
  }
}

bool BlowRecord::Make(int count) {
  if (!first_) return false;
  const int end = std::min(recording_.samples, made_ + std::min(count, recording_.samples));
  for (; made_ < end; ++made_) {
    const int k = *first_ + made_;
    const double hum = HumAt(k);
    for (std::size_t c = 0; c < noise_.size(); ++c) {
      const double random = k < 0 ? noise_[c].before.Normal() : noise_[c].after.Normal();
      const double volts = Volts(c, k, random, noise_[c].pickup * hum);
      const double range = recording_.inputs[c].range, step = range / kSteps;
      if (std::fabs(volts) >= range - step) overload_ |= std::uint64_t{1} << c;
      samples_[c * static_cast<std::size_t>(recording_.samples) + static_cast<std::size_t>(made_)] = volts;
    }
  }
  return !Whole();
}

}  // namespace sondera
