// import_time.cpp - see import_time.h. Owns no state.
#include "project/import_time.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "project/import_text.h"
#include "project/session.h"
#include "runtime/analysis.h"

namespace sondera {
namespace {

using import_text::kCannotRead;

constexpr int kTokensOfSample = 2;

bool AllFinite(const std::vector<double>& values) {
  return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

bool ReadFirstFile(const ImportRequest& request, TextColumns& columns) {
  TextReader text;
  if (!OpenRow(request, 0, text)) return false;
  columns = ReadColumns(text, {.values = 1, .tokensNeeded = kTokensOfSample});
  return !columns.damaged && columns.count() >= 2 && AllFinite(columns.a);
}

bool ReadLaterFile(const ImportRequest& request, int row, const TextColumns& first, double step,
                   TextColumns& columns) {
  TextReader text;
  if (!OpenRow(request, row, text)) return false;
  const int count = first.count();
  columns = ReadColumns(
      text, {.values = 1, .tokensNeeded = kTokensOfSample, .keepGoing = count, .maxLines = count});
  return !columns.damaged && columns.count() >= 2 && SameAxis(first, columns, step) && AllFinite(columns.a);
}

/// Samples of one channel, padded with the last value that was read.
void StoreSamples(const TextColumns& columns, double* samples, int length) {
  std::copy(columns.a.begin(), columns.a.end(), samples);
  std::fill(samples + columns.count(), samples + length, columns.lastValue);
}

/// One-record averages of all channels, scaled to rms: a sine of amplitude A that falls on a line has the
/// power A * A / 2 there. False when a sum leaves the range of a double.
bool ComputeSpectra(RawData& raw, int channels, int length) {
  const std::size_t n = static_cast<std::size_t>(length);
  const double samples = length;
  std::vector<double> refRe(raw.timeHist.begin(), raw.timeHist.begin() + length), refIm(n, 0.0);
  FFT(refRe.data(), refIm.data(), length);
  std::vector<double> re(n), im(n);
  for (int c = 0; c < channels; ++c) {
    const std::size_t at = n * static_cast<std::size_t>(c);
    std::copy_n(raw.timeHist.begin() + static_cast<std::ptrdiff_t>(at), n, re.begin());
    std::fill(im.begin(), im.end(), 0.0);
    FFT(re.data(), im.data(), length);
    for (std::size_t i = 0; i < n; ++i) {
      raw.linSpecRe[at + i] = re[i] / samples * std::sqrt(2.0);
      raw.linSpecIm[at + i] = im[i] / samples * std::sqrt(2.0);
      raw.powerSpec[at + i] = (re[i] * re[i] + im[i] * im[i]) / samples / samples * 2.0;
      double crossRe = 0.0, crossIm = 0.0;
      CxMul(re[i], im[i], refRe[i], -refIm[i], &crossRe, &crossIm);
      raw.crossSpecRe[at + i] = crossRe / samples / samples * 2.0;
      raw.crossSpecIm[at + i] = crossIm / samples / samples * 2.0;
      if (!std::isfinite(raw.powerSpec[at + i])) return false;
    }
  }
  return true;
}

}  // namespace

int LoadTimeData(const ImportRequest& request) {
  TextColumns first;
  TimeLayout layout;
  if (!ReadFirstFile(request, first) ||
      !LayOutTimeRecord(first.axis.front(), first.axis.back(), first.count(), request.nChannels, layout))
    return Refuse(kCannotRead);
  ImportRecords records;
  if (!BeginImport(request, IfPresent::Ask, records)) return -1;
  MakeTimeRecords(request, layout, records);

  const int length = layout.samples;
  for (int c = 0; c < request.nChannels; ++c) {
    TextColumns later;
    if (c > 0 && !ReadLaterFile(request, c, first, layout.deltaT, later))
      return AbandonImport(request, kCannotRead);
    double* samples =
        records.raw->timeHist.data() + static_cast<std::size_t>(length) * static_cast<std::size_t>(c);
    StoreSamples(c == 0 ? first : later, samples, length);
  }
  if (!ComputeSpectra(*records.raw, request.nChannels, length)) return AbandonImport(request, kCannotRead);
  return FinishImport(request, records);
}

}  // namespace sondera
