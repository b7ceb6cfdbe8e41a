// record_spectra.cpp - see record_spectra.h.
#include "project/record_spectra.h"

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
  const std::size_t n = static_cast<std::size_t>(length);
  const double samples = length;
  for (auto block : kRawBlocks) (sums.*block).resize(n * channels.size(), 0.0);
  const ChannelSpectrum& first = *channels.front();
  for (std::size_t c = 0; c < channels.size(); ++c) {
    const ChannelSpectrum& x = *channels[c];
    const std::size_t at = n * c;
    for (std::size_t i = 0; i < n; ++i) {
      sums.timeHist[at + i] = x.time[i];
      sums.linSpecRe[at + i] += x.re[i] / samples * std::numbers::sqrt2;
      sums.linSpecIm[at + i] += x.im[i] / samples * std::numbers::sqrt2;
      sums.powerSpec[at + i] += (x.re[i] * x.re[i] + x.im[i] * x.im[i]) / samples / samples * 2.0;
      double re = 0.0, im = 0.0;
      CxMul(x.re[i], x.im[i], first.re[i], -first.im[i], &re, &im);
      sums.crossSpecRe[at + i] += re / samples / samples * 2.0;
      sums.crossSpecIm[at + i] += im / samples / samples * 2.0;
    }
  }
}

void DivideSums(RawData& sums, int records) {
  for (auto block : kRawBlocks)
    if (block != &RawData::timeHist)
      for (double& v : sums.*block) v /= records;
}

}  // namespace sondera
