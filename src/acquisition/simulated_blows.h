// simulated_blows.h - what a board would record of hammer blows on the standard ground, sample by sample.
//
// The wave is that of forward/synthetic_site.h and is computed once for a line of receivers; a blow is this
// wave with a strength, noise and hum of its own, so that a long record costs little more than its random
// numbers. Volts: a middling blow has its peak of 1 V 10 m from the source. Equal settings and blow numbers
// give equal samples. Owns no state.
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

/// The wave of a middling blow at every receiver.
struct BlowWave {
  double rate = 0.0;              ///< Hz
  std::vector<double> distances;  ///< m from the source
  /// [receiver][sample], V; the blow is at sample kLead. At rest before and after.
  std::vector<std::vector<double>> volts;
  static constexpr int kLead = 64;
};

/// Farthest receiver that has a wave, m.
inline constexpr double kFarthestReceiver = 1000.0;

/// Wave of the standard ground. Receivers that stand at the source, where nobody has given their places, are
/// taken as 1 m from it. `fault` is one sentence when there is none, and the wave is empty.
BlowWave MakeBlowWave(double rate, std::vector<double> distances, std::string& fault);

/// One input of the board.
struct BlowInput {
  int receiver = 0;     ///< position in the wave
  double range = 10.0;  ///< V; 24 bits from -range to +range
};

/// How a blow becomes a record.
struct BlowRecording {
  std::vector<BlowInput> inputs{};
  int samples = 1024;
  int trigger = -1;  ///< position in inputs; -1: the blow comes after a tenth of the record
  double level = 0.0;
  int preTrigger = 0;
  double force = 1.0;  ///< factor on the strength of this blow; 0: there is only noise
};

/// One record in the making.
class BlowRecord {
 public:
  /// Strikes blow number `blow`. The trigger looks for its rising crossing from the blow on, so that noise
  /// before it cannot set it off. The wave has to outlive the record.
  BlowRecord(const SimulatedBlow& settings, const BlowWave& wave, BlowRecording recording, int blow);

  /// False when the trigger channel never rose through the level: there will be no record of this blow.
  bool Triggered() const { return first_.has_value(); }
  /// Makes up to `count` more samples of every input; false when there are no more to make.
  bool Make(int count);
  bool Whole() const { return made_ == recording_.samples; }
  /// Inputs that reached an end of their range so far: bit 0 is the first.
  std::uint64_t Overload() const { return overload_; }
  /// Input after input, samples each; those that are not made yet are 0.
  const std::vector<double>& Samples() const { return samples_; }

 private:
  /// Random numbers of an input, apart before and from the blow on: where the record begins is not known
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
  std::optional<int> first_;  // sample of the record's begin, counted from the blow
  int made_ = 0;
  std::uint64_t overload_ = 0;
  std::vector<double> samples_;
  std::vector<Noise> noise_;
};

}  // namespace sondera
