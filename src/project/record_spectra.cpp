// record_spectra.cpp - see record_spectra.h.
#include "project/record_spectra.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

#include "numeric/analysis.h"

namespace sondera {

ChannelSpectrum SpectrumOf(std::vector<double> samples, int length) {
  const std::size_t n = static_cast<std::size_t>(length);
  ChannelSpectrum s;
  s.time = std::move(samples);
  s.time.resize(n, s.time.back());
  s.re.resize(n);
  s.im.resize(n);
  RealFFT(s.time.data(), s.re.data(), s.im.data(), length);
  return s;
}

void DelaySpectrum(ChannelSpectrum& spectrum, double samples) {
  const std::size_t n = spectrum.re.size();
  for (std::size_t k = 1; k <= n / 2; ++k) {
    const double angle = -2.0 * std::numbers::pi * static_cast<double>(k) * samples / static_cast<double>(n);
    CxMul(spectrum.re[k], spectrum.im[k], std::cos(angle), std::sin(angle), &spectrum.re[k], &spectrum.im[k]);
    if (2 * k == n) spectrum.im[k] = 0.0;  // the middle line of real data is real
    spectrum.re[n - k] = spectrum.re[k];
    spectrum.im[n - k] = -spectrum.im[k];
  }
  if (n % 2 == 0) spectrum.im[n / 2] = 0.0;
}

void AddRecord(const std::vector<const ChannelSpectrum*>& channels, int length, RawData& sums) {
  const std::size_t n = static_cast<std::size_t>(length), half = n / 2;
  // The length is a power of two: its reciprocal and square are exact.
  const double linear = std::numbers::sqrt2, share = 1.0 / length, power = 2.0;
  for (auto block : kRawBlocks) (sums.*block).resize(n * channels.size(), 0.0);
  const ChannelSpectrum& first = *channels.front();
  for (std::size_t c = 0; c < channels.size(); ++c) {
    const ChannelSpectrum& x = *channels[c];
    const std::size_t at = n * c;
    std::copy(x.time.begin(), x.time.end(), sums.timeHist.begin() + static_cast<std::ptrdiff_t>(at));
    double *linRe = &sums.linSpecRe[at], *linIm = &sums.linSpecIm[at], *autoPower = &sums.powerSpec[at],
           *crossRe = &sums.crossSpecRe[at], *crossIm = &sums.crossSpecIm[at];
    for (std::size_t i = 0; i <= half; ++i) {
      linRe[i] += x.re[i] * share * linear;
      linIm[i] += x.im[i] * share * linear;
      autoPower[i] += (x.re[i] * x.re[i] + x.im[i] * x.im[i]) * share * share * power;
      crossRe[i] += (x.re[i] * first.re[i] + x.im[i] * first.im[i]) * share * share * power;
      crossIm[i] += (x.im[i] * first.re[i] - x.re[i] * first.im[i]) * share * share * power;
    }
    // Real samples: the other half is the conjugate of this one.
    for (double* even : {linRe, autoPower, crossRe})
      std::reverse_copy(even + 1, even + half, even + half + 1);
    for (double* odd : {linIm, crossIm})
      for (std::size_t i = 1; i < half; ++i) odd[n - i] = -odd[i];
  }
}

void DivideSums(RawData& sums, int records) {
  if (records == 1) return;
  for (auto block : kRawBlocks)
    if (block != &RawData::timeHist)
      for (double& v : sums.*block) v /= records;
}

}  // namespace sondera
