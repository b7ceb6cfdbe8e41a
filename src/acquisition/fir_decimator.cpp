// fir_decimator.cpp - decimation by one linear-phase filter. Owns no state.
#include "acquisition/fir_decimator.h"

#include <algorithm>
#include <cmath>

#include "numeric/pi.h"

namespace sondera {
namespace {

constexpr double kStopDecibels = 100.0;
constexpr double kPassEnd = 0.45, kStopBegin = 0.55;  // of the new rate

/// Modified Bessel function of order 0, by its series.
double BesselI0(double x) {
  double sum = 1.0, term = 1.0;
  for (int k = 1; term > 1e-18 * sum; ++k) {
    const double part = x / (2.0 * k);
    term *= part * part;
    sum += term;
  }
  return sum;
}

}  // namespace

std::vector<double> DecimationTaps(int factor) {
  if (factor <= 1) return {1.0};
  constexpr double kBeta = 0.1102 * (kStopDecibels - 8.7);
  const double transition = 2.0 * kPi * (kStopBegin - kPassEnd) / factor;  // rad per sample
  const int half = static_cast<int>(std::ceil((kStopDecibels - 7.95) / (2.285 * transition) / 2.0));
  const double cut = (kPassEnd + kStopBegin) / factor;  // twice the cut-off frequency, per sample
  std::vector<double> taps(static_cast<std::size_t>(2 * half + 1));
  double sum = 0.0;
  for (int i = -half; i <= half; ++i) {
    const double x = kPi * cut * i, share = static_cast<double>(i) / half;
    const double window = BesselI0(kBeta * std::sqrt(1.0 - share * share)) / BesselI0(kBeta);
    const double tap = (i == 0 ? 1.0 : std::sin(x) / x) * window;
    taps[static_cast<std::size_t>(i + half)] = tap;
    sum += tap;
  }
  for (double& tap : taps) tap /= sum;
  return taps;
}

FirDecimator::FirDecimator(int channels, int factor)
    : channels_(static_cast<std::size_t>(std::max(channels, 1))),
      factor_(static_cast<std::size_t>(std::clamp(factor, 1, kMostDecimation))),
      taps_(DecimationTaps(static_cast<int>(factor_))) {
  Reset();
}

void FirDecimator::Reset() {
  // Half a filter of zeros, so that the first output belongs to the first input.
  past_.assign(channels_, std::vector<double>(taps_.size() / 2, 0.0));
  until_ = taps_.size() / 2 + 1;
}

void FirDecimator::Feed(const double* frames, std::size_t nFrames, std::vector<double>& out) {
  if (factor_ == 1) {
    out.insert(out.end(), frames, frames + nFrames * channels_);
    return;
  }
  for (std::size_t c = 0; c < channels_; ++c) {
    std::vector<double>& past = past_[c];
    past.reserve(past.size() + nFrames);
    for (std::size_t i = 0; i < nFrames; ++i) past.push_back(frames[i * channels_ + c]);
  }
  if (nFrames < until_) {
    until_ -= nFrames;
    return;
  }
  const std::size_t made = 1 + (nFrames - until_) / factor_, n = taps_.size(), first = out.size();
  out.resize(first + made * channels_);
  for (std::size_t c = 0; c < channels_; ++c) {
    const std::vector<double>& past = past_[c];
    // The first output needs the n frames that end with the required input frame.
    const std::size_t begin = past.size() - nFrames + until_ - n;
    for (std::size_t k = 0; k < made; ++k) {
      const double* const x = past.data() + begin + k * factor_;
      // Pairs of taps are equal: half the products.
      double sum = taps_[n / 2] * x[n / 2];
      for (std::size_t j = 0; j < n / 2; ++j) sum += taps_[j] * (x[j] + x[n - 1 - j]);
      out[first + k * channels_ + c] = sum;
    }
  }
  until_ = until_ + made * factor_ - nFrames;
  // The next output needs the last n - 1 frames. They move only when as many are used up, so the cost is one
  // move per frame.
  for (std::vector<double>& past : past_)
    if (past.size() >= 2 * n) past.erase(past.begin(), past.end() - static_cast<std::ptrdiff_t>(n - 1));
}

}  // namespace sondera
