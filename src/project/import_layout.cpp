// import_layout.cpp - see import_layout.h. Owns no state.
#include "project/import_layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "numeric/analysis.h"
#include "numeric/scale_arithmetic.h"
#include "records/measdb.h"

namespace sondera {
namespace {

constexpr double kMostLineIndex = 1 << 30;

/// Half up, then truncated.
int RoundIndex(double x) {
  return TruncToInt(x + 0.5);
}

bool Positive(double x) {
  return std::isfinite(x) && x > 0.0;
}

/// a / b where |b| squared would overflow or underflow: both are scaled near 1 first, by a power of two.
void DivideScaled(double& re, double& im, double divisorRe, double divisorIm) {
  constexpr int kSafeExponent = 300;
  const int exponent = std::ilogb(std::max(std::fabs(divisorRe), std::fabs(divisorIm)));
  if (std::abs(exponent) > kSafeExponent)
    for (double* part : {&re, &im, &divisorRe, &divisorIm}) *part = std::scalbn(*part, -exponent);
  CxDiv(re, im, divisorRe, divisorIm, &re, &im);
}

}  // namespace

bool LayOutSpectrum(double f0, double f1, double df, int count, int channels, SpectrumLayout& out) {
  if (count < 2 || channels < 1 || !std::isfinite(f0) || !Positive(f1) || !Positive(df)) return false;
  SpectrumLayout s;
  s.deltaF = df;
  s.stopFreq = f1;
  s.startFreq = std::max(f0, 0.0);
  if (s.startFreq != 0.0) {
    if (!(f1 / df < kMostLineIndex) || !(s.startFreq / df < kMostLineIndex)) return false;
    s.spanKind = 1;
    s.nLines = FullTimeLines(RoundIndex(f1 / df));
    s.firstLine = RoundIndex(s.startFreq / df);
  } else {
    s.nLines = FullTimeLines(count);
  }
  // A file of 2^k + 1 lines has one line more than a record of 2^k lines. Kept: the rule also holds for a
  // band that does not start at zero, though it then loses upper lines.
  if (s.nLines == 2 * (std::int64_t{count} - 1)) {
    s.nLines = count - 1;
    s.stopFreq = (count - 2) * df;
  }
  if (s.nLines < 2 || s.firstLine >= s.nLines) return false;
  if (s.nLines > std::max<std::int64_t>(kFreeSpectrumLines, 2 * std::int64_t{FullTimeLines(count)}))
    return false;
  if (2 * std::int64_t{s.nLines} * channels > kMostBlockValues) return false;
  const double span = (s.nLines - 1) * df;
  s.freqSpan = -span;
  s.deltaT = 0.5 / span;
  s.timeLength = (2.0 * s.nLines - 1.0) * s.deltaT;
  if (!Positive(span) || !Positive(s.deltaT) || !Positive(s.timeLength)) return false;
  out = s;
  return true;
}

bool LayOutTimeRecord(double t0, double t1, int count, int channels, TimeLayout& out) {
  if (count < 2 || channels < 1 || !std::isfinite(t0) || !Positive(t1 - t0)) return false;
  TimeLayout t;
  t.samples = FullTimeLines(count);
  if (std::int64_t{t.samples} * channels > kMostBlockValues) return false;
  t.deltaT = (t1 - t0) / (count - 1);
  t.timeLength = (t.samples - 1) * t.deltaT;
  t.freqSpan = 0.5 / t.deltaT;
  const int lines = t.samples / 2;
  t.deltaF = t.freqSpan / lines;
  t.triggerDelay = -t0 / (t1 - t0) * 100.0;
  if (t.triggerDelay == 0.0) t.triggerDelay = 0.0;  // no minus sign on a zero
  if (!Positive(t.timeLength) || !Positive(t.freqSpan) || !Positive(t.deltaF) ||
      !std::isfinite(t.triggerDelay))
    return false;
  out = t;
  return true;
}

void SpectrumRow::Store(int line, double real, double imag) const {
  if (line < 0 || line >= nLines) return;
  re[line] = real;
  im[line] = imag;
  if (line == 0) return;
  re[2 * nLines - line] = real;
  im[2 * nLines - line] = -imag;
}

SpectrumRow RowOf(std::vector<double>& re, std::vector<double>& im, int channel, int nLines) {
  const std::size_t at = 2 * static_cast<std::size_t>(nLines) * static_cast<std::size_t>(channel);
  return {re.data() + at, im.data() + at, nLines};
}

void SetUnity(const SpectrumRow& row) {
  for (int i = 0; i < row.nLines; ++i) row.Store(i, 1.0, 0.0);
}

void DivideByFirstChannel(std::vector<double>& re, std::vector<double>& im, int channels, int nLines) {
  const SpectrumRow divisor = RowOf(re, im, 0, nLines);
  for (int c = channels - 1; c >= 0; --c) {
    const SpectrumRow row = RowOf(re, im, c, nLines);
    for (int i = 0; i < nLines; ++i) {
      double real = row.re[i], imag = row.im[i];
      const bool zero = divisor.re[i] == 0.0 && divisor.im[i] == 0.0;
      if (!zero) DivideScaled(real, imag, divisor.re[i], divisor.im[i]);
      const bool usable = !zero && std::isfinite(real) && std::isfinite(imag);
      row.Store(i, usable ? real : 0.0, usable ? imag : 0.0);
    }
  }
}

}  // namespace sondera
