// import_time.cpp - see import_time.h. Owns no state.
#include "project/import_time.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "numeric/analysis.h"
#include "project/import_findings.h"
#include "project/import_text.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kTokensOfSample = 2;

constexpr int kFewestSamples = 2;

/// Columns of the file in a row, checked; an empty text, or the message that refuses them.
std::string ReadRow(const ImportRequest& request, int row, const ColumnRule& rule, TextColumns& columns) {
  TextReader text;
  std::string reason;
  if (!OpenRow(request, row, text, reason)) return import_text::CannotRead(reason);
  columns = ReadColumns(text, rule);
  const auto bad =
      std::find_if(columns.a.begin(), columns.a.end(), [](double v) { return !std::isfinite(v); });
  if (!columns.damaged && columns.count() < kFewestSamples)
    Damage(columns, columns.count() + 1, "the data end here, before two lines of a time and a value");
  if (!columns.damaged && bad != columns.a.end())
    Damage(columns, bad - columns.a.begin() + 1, "the value is not a finite number");
  if (!columns.damaged) HasEvenAxis(columns, "times");
  return columns.damaged ? import_text::CannotRead(FileInRow(request, row), columns.fault) : std::string();
}

std::string ReadFirstFile(const ImportRequest& request, TextColumns& columns, TimeLayout& layout) {
  std::string refusal = ReadRow(request, 0, {.values = 1, .tokensNeeded = kTokensOfSample}, columns);
  if (!refusal.empty()) return refusal;
  const double t0 = columns.axis.front(), t1 = columns.axis.back();
  if (LayOutTimeRecord(t0, t1, columns.count(), request.nChannels, layout)) return {};
  return import_text::CannotRead(
      FileInRow(request, 0),
      {0, FormatText("no record can be made of %d samples from %g to %g s", columns.count(), t0, t1)});
}

std::string ReadLaterFile(const ImportRequest& request, int row, const TextColumns& first, double step,
                          TextColumns& columns) {
  const int count = first.count();
  std::string refusal =
      ReadRow(request, row,
              {.values = 1, .tokensNeeded = kTokensOfSample, .keepGoing = count, .maxLines = count}, columns);
  if (!refusal.empty()) return refusal;
  std::size_t at = 0;
  if (SameAxis(first, columns, step, &at)) return {};
  return import_text::CannotRead(FileInRow(request, row),
                                 {static_cast<std::int64_t>(at) + 1, "another time than in the first file"});
}

/// Remarks on the file of a channel; a later file is compared with the first.
void TellOf(const ImportRequest& request, int channel, const TextColumns& first, const TextColumns& columns,
            ImportFindings& findings) {
  const std::string& path = FileInRow(request, channel);
  findings.TellOfZeros(path, channel, columns.a, {});
  findings.TellOfText(path, columns, channel == 0);
  if (channel == 0) return;
  findings.TellOfLengths(FileInRow(request, 0), first.count(), path, columns.count() + columns.linesBehind,
                         "the rest of its channel repeats the last value");
}

/// Samples of one channel, padded with the last value that was read.
void StoreSamples(const TextColumns& columns, double* samples, int length) {
  std::copy(columns.a.begin(), columns.a.end(), samples);
  std::fill(samples + columns.count(), samples + length, columns.lastValue);
}

/// One-record averages of all channels, scaled to rms: a sine of amplitude A at the frequency of a line has
/// the power A * A / 2 there. False when a sum overflows.
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

ImportResult ImportTimeHistories(const ImportRequest& request) {
  TextColumns first;
  TimeLayout layout;
  if (const std::string refusal = ReadFirstFile(request, first, layout); !refusal.empty())
    return ImportResult::Refused(refusal);
  ImportRecords records;
  if (!BeginImport(request, IfPresent::Ask, records)) return ImportResult::Refused(Refusal::WithoutReason());
  MakeTimeRecords(request, layout, records);

  ImportFindings findings;
  const int length = layout.samples;
  for (int c = 0; c < request.nChannels; ++c) {
    TextColumns later;
    if (c > 0)
      if (const std::string refusal = ReadLaterFile(request, c, first, layout.deltaT, later);
          !refusal.empty())
        return ImportResult::Abandoned(refusal);
    const TextColumns& columns = c == 0 ? first : later;
    double* samples =
        records.raw->timeHist.data() + static_cast<std::size_t>(length) * static_cast<std::size_t>(c);
    StoreSamples(columns, samples, length);
    TellOf(request, c, first, columns, findings);
  }
  if (!ComputeSpectra(*records.raw, request.nChannels, length))
    return ImportResult::Abandoned(
        import_text::CannotRead("The power of these samples leaves the range of numbers."));
  findings.Report();
  CompletePairs(request, records);
  return ImportResult::Done();
}

}  // namespace sondera
