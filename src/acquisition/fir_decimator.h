// fir_decimator.h - from a high sampling rate to a whole part of it, without what would fold.
//
// One linear-phase low-pass filter (sinc times Kaiser window), the same for every channel: up to 0.45 of the
// new rate it is level, from 0.55 on it is 100 dB down. Its delay is taken off: output sample k belongs to the
// moment of input sample k * factor, before which the input counts as 0. Source: Kaiser, 1974.
#pragma once

#include <cstddef>
#include <vector>

namespace sondera {

/// Largest factor of a decimation.
inline constexpr int kMostDecimation = 512;

/// Taps of the filter, an odd number, symmetric, sum 1; one tap of 1 for factor 1.
std::vector<double> DecimationTaps(int factor);

class FirDecimator {
 public:
  /// @param factor  1 to kMostDecimation; 1 hands every sample on as it is
  FirDecimator(int channels, int factor);

  /// Takes frames and appends those that are complete.
  /// @param[in]  frames  nFrames frames, one value of each channel behind the other
  /// @param[out] out     the same layout at the lower rate; new frames are appended
  void Feed(const double* frames, std::size_t nFrames, std::vector<double>& out);
  /// Forgets the past: the next frame is number 0.
  void Reset();

  /// Input frames that have to come behind a moment before its output can be made.
  int Delay() const { return static_cast<int>(taps_.size() / 2); }

 private:
  std::size_t channels_, factor_;
  std::vector<double> taps_;
  std::vector<std::vector<double>> past_;  // [channel] input that is still needed
  std::size_t until_ = 0;                  // input frames to come before the next output frame
};

}  // namespace sondera
