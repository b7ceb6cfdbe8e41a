// Boards compared with real time: the share of one core that the simulated site needs for records of four
// channels at 102400 Hz, and the decimation of a sound card for four channels at 48 kHz; and the ratio of a
// plain convolution, tap by tap, to the decimation filter. Aim: each below a tenth of real time, since
// averaging the records comes in addition.
#include <cstdio>
#include <vector>

#include "acquisition/fir_decimator.h"
#include "acquisition/simulated_blows.h"
#include "best_time.h"
#include "numeric/random_numbers.h"

namespace {

using namespace sondera;

constexpr double kTime = 6e5;  // microseconds for one measurement

void SimulatedSite(int samples) {
  constexpr double kRate = 102400.0;
  std::string fault;
  const BlowWave wave = MakeBlowWave(kRate, {6.0, 12.0, 18.0, 24.0}, fault);
  BlowRecording recording{.samples = samples, .trigger = 0, .level = 0.2, .preTrigger = samples / 10};
  for (int c = 0; c < 4; ++c) recording.inputs.push_back({c, 10.0});
  int blow = 0;
  double sum = 0.0;
  const double time = bench::BestMicroseconds(
      [&] {
        BlowRecord record({}, wave, recording, ++blow);
        record.Make(samples);
        if (record.Triggered()) sum += record.Samples()[0];
      },
      kTime);
  const double real = samples / kRate * 1e6;
  std::printf("simulated site, 4 channels, %7d samples: %8.1f us, %.4f of real time\n", samples, time,
              time / real + 0.0 * sum);
}

/// Every output as the sum over all taps, for one channel.
void PlainDecimation(const std::vector<double>& in, const std::vector<double>& taps, int factor,
                     std::vector<double>& out) {
  out.clear();
  for (std::size_t at = 0; at + taps.size() <= in.size(); at += static_cast<std::size_t>(factor)) {
    double sum = 0.0;
    for (std::size_t j = 0; j < taps.size(); ++j) sum += taps[j] * in[at + j];
    out.push_back(sum);
  }
}

void Decimation(int factor) {
  constexpr int kRate = 48000, kChannels = 4;
  constexpr std::size_t kBlock = 256;
  RandomNumbers random(1);
  const std::vector<double> taps = DecimationTaps(factor);
  std::vector<double> frames(kRate * kChannels), one(kRate + taps.size()), out;
  for (double& x : frames) x = random.Normal();
  for (double& x : one) x = random.Normal();
  FirDecimator decimator(kChannels, factor);
  const double time = bench::BestMicroseconds(
      [&] {
        out.clear();
        for (std::size_t at = 0; at + kBlock <= kRate; at += kBlock)
          decimator.Feed(frames.data() + at * kChannels, kBlock, out);
      },
      kTime);
  const double plain =
      kChannels * bench::BestMicroseconds([&] { PlainDecimation(one, taps, factor, out); }, kTime);
  std::printf(
      "decimation by %3d, 4 channels of 48 kHz: %8.1f us a second, %.4f of real time; plain %.2f of it\n",
      factor, time, time / 1e6, plain / time);
}

}  // namespace

int main() {
  SimulatedSite(1024);
  SimulatedSite(1 << 20);
  for (const int factor : {4, 24, 480}) Decimation(factor);
}
