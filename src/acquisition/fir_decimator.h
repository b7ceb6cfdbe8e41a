// fir_decimator.h - reduces a high sampling rate by an integer factor, without aliasing.
//
// One linear-phase low-pass filter (sinc times Kaiser window), the same for every channel: flat up to 0.45 of
// the new rate, 100 dB down from 0.55 on. Its delay is removed: output sample k belongs to the time of input
// sample k * factor, before which the input counts as 0. Source: Kaiser, 1974.
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
  /// @param factor  1 to kMostDecimation; 1 passes every sample on without change
  FirDecimator(int channels, int factor);

  /// Filters frames and appends the completed output frames.
  /// @param[in]  frames  nFrames frames, one value of each channel after the other
  /// @param[out] out     the same layout at the lower rate; new frames are appended
  void Feed(const double* frames, std::size_t nFrames, std::vector<double>& out);
  /// Clears the history: the next frame is number 0.
  void Reset();

  /// Input frames needed after a time before its output can be computed.
  int Delay() const { return static_cast<int>(taps_.size() / 2); }

 private:
  std::size_t channels_, factor_;
  std::vector<double> taps_;
  std::vector<std::vector<double>> past_;  // [channel] input that is still needed
  std::size_t until_ = 0;                  // input frames needed before the next output frame
};

}  // namespace sondera
