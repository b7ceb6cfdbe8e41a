// import_uff58.cpp - see import_uff58.h. Owns no state.
#include "project/import_uff58.h"

#include <algorithm>
#include <cmath>

#include "project/import_findings.h"
#include "project/import_spectra.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

std::string TextFor(Uff58Status status, const std::string& path, const Uff58Set& set) {
  switch (status) {
    case Uff58Status::NotUff58:
      return std::string(import_text::kNotUff58);
    case Uff58Status::NoMatch:
      return std::string(import_text::kWrongType);
    default:
      return import_text::CannotRead(path, set.fault);
  }
}

double LastAbscissa(const Uff58Set& set, int points) {
  return set.abscissaMin + (points - 1) * set.abscissaStep;
}

/// Whether two sets have their points at the same frequencies, to half a step, up to the shorter length.
bool SameAbscissa(const Uff58Set& first, const Uff58Set& later) {
  const int both = std::min(first.points, later.points);
  const double half = 0.5 * std::fabs(first.abscissaStep);
  return std::fabs(later.abscissaMin - first.abscissaMin) <= half &&
         std::fabs(LastAbscissa(later, both) - LastAbscissa(first, both)) <= half;
}

/// Common data of an import: the accepted types, its first file and the lines of the record.
struct Uff58Files {
  std::vector<int> types;
  int firstRow = 0;
  Uff58Set first;
  SpectrumLayout layout;
  ImportFindings findings;
};

/// Empty text: read.
std::string ReadFirstFile(const ImportRequest& request, Uff58Files& run) {
  TextReader text;
  std::string reason;
  if (!OpenRow(request, run.firstRow, text, reason)) return import_text::CannotRead(reason);
  const std::string& path = FileInRow(request, run.firstRow);
  const Uff58Status status = ReadUff58(text, run.types, Uff58Scan::FirstSetOnly, run.first);
  if (status != Uff58Status::Ok) return TextFor(status, path, run.first);
  const Uff58Set& set = run.first;
  const double last = LastAbscissa(set, set.points);
  if (!LayOutSpectrum(set.abscissaMin, last, set.abscissaStep, set.points, request.nChannels, run.layout))
    return import_text::CannotRead(path, {0, FormatText("no record can be made of %d points from %g to %g Hz",
                                                        set.points, set.abscissaMin, last)});
  run.findings.TellOfLayout(request.measID, run.layout, set.points, last);
  return {};
}

/// Reads the file of a row into a channel. Empty text: read.
std::string ReadChannel(const ImportRequest& request, Uff58Files& run, int row, RawData& raw, int channel) {
  Uff58Set later;
  const std::string& path = FileInRow(request, row);
  if (row != run.firstRow) {
    TextReader text;
    std::string reason;
    if (!OpenRow(request, row, text, reason)) return std::string(import_text::kCannotOpen);
    const Uff58Status status = ReadUff58(text, run.types, Uff58Scan::UntilMatch, later);
    if (status != Uff58Status::Ok) return TextFor(status, path, later);
    if (!SameAbscissa(run.first, later))
      return import_text::CannotRead(path, {0, "other frequencies than in the first file"});
  }
  const Uff58Set& set = row == run.firstRow ? run.first : later;
  const SpectrumRow lines = RowOf(raw.crossSpecRe, raw.crossSpecIm, channel, run.layout.nLines);
  for (std::size_t k = 0; k < set.re.size() && run.layout.firstLine + static_cast<int>(k) < lines.nLines; ++k)
    lines.Store(run.layout.firstLine + static_cast<int>(k), set.re[k], set.im[k]);
  run.findings.TellOfZeros(path, channel, set.re, set.im);
  run.findings.TellOfLengths(FileInRow(request, run.firstRow), run.first.points, path, set.points,
                             "the rest of its channel is 0");
  return {};
}

/// The import itself: channels from firstChannel on, the first of them from the given row.
ImportResult ReadAll(const ImportRequest& request, Uff58Files& run, int firstChannel, int rowOfFirstChannel,
                     bool firstRowMayBeEmpty) {
  const std::string refusal = ReadFirstFile(request, run);
  if (!refusal.empty()) return ImportResult::Refused(refusal);
  ImportRecords records;
  if (!BeginImport(request, IfPresent::Ask, records)) return ImportResult::Refused(Refusal::WithoutReason());
  MakeSpectrumRecords(request, run.layout, records);

  RawData& raw = *records.raw;
  for (int c = firstChannel; c < request.nChannels; ++c) {
    const int row = rowOfFirstChannel + c - firstChannel;
    if (row == 0 && firstRowMayBeEmpty && FileInRow(request, row).empty()) continue;
    const std::string text = ReadChannel(request, run, row, raw, c);
    if (!text.empty()) return ImportResult::Abandoned(text);
  }
  if (request.sourceInstrumented)
    DivideByFirstChannel(raw.crossSpecRe, raw.crossSpecIm, request.nChannels, run.layout.nLines);
  else
    SetUnity(RowOf(raw.crossSpecRe, raw.crossSpecIm, 0, run.layout.nLines));
  run.findings.Report();
  CompletePairs(request, records);
  return ImportResult::Done();
}

}  // namespace

ImportResult ImportTransferFunctions58(const ImportRequest& request, int functionType) {
  Uff58Files run;
  run.types = {functionType, uff58_function::kCrossSpectrum};
  return ReadAll(request, run, request.sourceInstrumented ? 0 : 1, 0, false);
}

ImportResult ImportCrossSpectra58(const ImportRequest& request, int functionType) {
  Uff58Files run;
  run.types = {functionType};
  run.firstRow = FirstRowOfCrossSpectra(request);
  return ReadAll(request, run, 0, request.sourceInstrumented ? kSourceRows : 0, true);
}

}  // namespace sondera
