// simulated_blows.h - records of hammer blows on the standard ground as from a board, sample by sample.
//
// The wave is that of forward/synthetic_site.h and is computed once for a line of receivers; a blow is this
// wave with its own strength, noise and hum, so a long record costs little more than its random numbers.
// Volts: an average blow has its peak of 1 V 10 m from the source. Equal settings and blow numbers give equal
// samples. Owns no state.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "numeric/random_numbers.h"

namespace sondera {

struct SimulatedBlow {
  std::uint64_t seed = 1;
  double noise = 0.01;  ///< rms, V
  double hum = 0.005;   ///< amplitude at humHz, V; a third of it at three times that
  double humHz = 50.0;
  double spread = 0.2;  ///< deviation of the strength of a blow, as a share of it; below 0.4
};

/// The wave of an average blow at every receiver.
struct BlowWave {
  double rate = 0.0;              ///< Hz
  std::vector<double> distances;  ///< m from the source
  /// [receiver][sample], V; the blow is at sample kLead. At rest before and after.
  std::vector<std::vector<double>> volts;
  static constexpr int kLead = 64;
};

/// Farthest receiver with a wave, m.
inline constexpr double kFarthestReceiver = 1000.0;

/// Wave of the standard ground. Receivers at the source, where nobody has set their places, count as 1 m from
/// it. `fault` is one sentence when there is no wave, and the wave is empty.
BlowWave MakeBlowWave(double rate, std::vector<double> distances, std::string& fault);

/// One input of the board.
struct BlowInput {
  int receiver = 0;     ///< position in the wave
  double range = 10.0;  ///< V; 24 bits from -range to +range
};

/// Settings for the record of a blow.
struct BlowRecording {
  std::vector<BlowInput> inputs{};
  int samples = 1024;
  int trigger = -1;  ///< position in inputs; -1: the blow comes after a tenth of the record
  double level = 0.0;
  int preTrigger = 0;
  double force = 1.0;  ///< factor on the strength of this blow; 0: noise only
};

/// One record in progress.
class BlowRecord {
 public:
  /// Strikes blow number `blow`. The search for the trigger's rising crossing starts at the blow, so noise
  /// before it cannot trigger. The wave must outlive the record.
  BlowRecord(const SimulatedBlow& settings, const BlowWave& wave, BlowRecording recording, int blow);

  /// False when the trigger channel never rose through the level: this blow gives no record.
  bool Triggered() const { return first_.has_value(); }
  /// Computes up to `count` more samples of every input; false when no more are left.
  bool Make(int count);
  bool Whole() const { return made_ == recording_.samples; }
  /// Inputs that reached a limit of their range so far: bit 0 is the first.
  std::uint64_t Overload() const { return overload_; }
  /// Input after input, samples each; samples not computed yet are 0.
  const std::vector<double>& Samples() const { return samples_; }

 private:
  /// Random numbers of an input, separate before and after the blow: the start of the record is not known
  /// until the trigger is found.
  struct Noise {
    RandomNumbers before, after;
    double pickup;  // hum of its cable, V
  };

  Noise NoiseOf(std::size_t input) const;
  double HumAt(int sample) const;
  double Volts(std::size_t input, int sample, double random, double hum) const;
  void FindTrigger();

  const SimulatedBlow settings_;
  const BlowWave& wave_;
  BlowRecording recording_;
  int blow_;
  double strength_ = 1.0, phase1_ = 0.0, phase3_ = 0.0;
  std::optional<int> first_;  // first sample of the record, counted from the blow
  int made_ = 0;
  std::uint64_t overload_ = 0;
  std::vector<double> samples_;
  std::vector<Noise> noise_;
};

}  // namespace sondera
