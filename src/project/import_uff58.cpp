// import_uff58.cpp - see import_uff58.h. Owns no state.
#include "project/import_uff58.h"

#include <algorithm>
#include <cmath>

#include "project/import_spectra.h"
#include "project/session.h"

namespace sondera {
namespace {

std::string_view TextFor(Uff58Status status) {
  switch (status) {
    case Uff58Status::NotUff58:
      return import_text::kNotUff58;
    case Uff58Status::NoMatch:
      return import_text::kWrongType;
    default:
      return import_text::kCannotRead;
  }
}

double LastAbscissa(const Uff58Set& set, int points) {
  return set.abscissaMin + (points - 1) * set.abscissaStep;
}

/// Whether two sets have their points at the same frequencies, to half a step, as far as both go.
bool SameAbscissa(const Uff58Set& first, const Uff58Set& later) {
  const int both = std::min(first.points, later.points);
  const double half = 0.5 * std::fabs(first.abscissaStep);
  return std::fabs(later.abscissaMin - first.abscissaMin) <= half &&
         std::fabs(LastAbscissa(later, both) - LastAbscissa(first, both)) <= half;
}

/// What is common to a run: the types it takes, its first file and the lines of the record.
struct Run {
  std::vector<int> types;
  int firstRow = 0;
  Uff58Set first;
  SpectrumLayout layout;
};

/// Empty text: read.
std::string_view ReadFirstFile(const ImportRequest& request, Run& run) {
  TextReader text;
  if (!OpenRow(request, run.firstRow, text)) return import_text::kCannotRead;
  const Uff58Status status = ReadUff58(text, run.types, Uff58Scan::FirstSetOnly, run.first);
  if (status != Uff58Status::Ok) return TextFor(status);
  const Uff58Set& set = run.first;
  return LayOutSpectrum(set.abscissaMin, LastAbscissa(set, set.points), set.abscissaStep, set.points,
                        request.nChannels, run.layout)
             ? std::string_view{}
             : import_text::kCannotRead;
}

/// Reads the file of a row into a channel. Empty text: read.
std::string_view ReadChannel(const ImportRequest& request, const Run& run, int row, RawData& raw,
                             int channel) {
  Uff58Set later;
  if (row != run.firstRow) {
    TextReader text;
    if (!OpenRow(request, row, text)) return import_text::kCannotOpen;
    const Uff58Status status = ReadUff58(text, run.types, Uff58Scan::UntilMatch, later);
    if (status != Uff58Status::Ok) return TextFor(status);
    if (!SameAbscissa(run.first, later)) return import_text::kCannotRead;
  }
  const Uff58Set& set = row == run.firstRow ? run.first : later;
  const SpectrumRow lines = RowOf(raw.crossSpecRe, raw.crossSpecIm, channel, run.layout.nLines);
  for (std::size_t k = 0; k < set.re.size() && run.layout.firstLine + static_cast<int>(k) < lines.nLines; ++k)
    lines.Store(run.layout.firstLine + static_cast<int>(k), set.re[k], set.im[k]);
  return {};
}

/// The import itself: channels from firstChannel on, the first of them from the row given.
int ReadAll(const ImportRequest& request, Run& run, int firstChannel, int rowOfFirstChannel,
            bool firstRowMayBeEmpty) {
  const std::string_view refusal = ReadFirstFile(request, run);
  if (!refusal.empty()) return Refuse(refusal);
  ImportRecords records;
  if (!BeginImport(request, IfPresent::Ask, records)) return -1;
  MakeSpectrumRecords(request, run.layout, records);

  RawData& raw = *records.raw;
  for (int c = firstChannel; c < request.nChannels; ++c) {
    const int row = rowOfFirstChannel + c - firstChannel;
    if (row == 0 && firstRowMayBeEmpty && FileInRow(request, row).empty()) continue;
    const std::string_view text = ReadChannel(request, run, row, raw, c);
    if (!text.empty()) return AbandonImport(request, text);
  }
  if (request.sourceInstrumented)
    DivideByFirstChannel(raw.crossSpecRe, raw.crossSpecIm, request.nChannels, run.layout.nLines);
  else
    SetUnity(RowOf(raw.crossSpecRe, raw.crossSpecIm, 0, run.layout.nLines));
  return FinishImport(request, records);
}

}  // namespace

int LoadHyx58Data(const ImportRequest& request, int functionType) {
  Run run;
  run.types = {functionType, uff58_function::kCrossSpectrum};
  return ReadAll(request, run, request.sourceInstrumented ? 0 : 1, 0, false);
}

int LoadGyx58Data(const ImportRequest& request, int functionType) {
  Run run;
  run.types = {functionType};
  run.firstRow = FirstRowOfCrossSpectra(request);
  return ReadAll(request, run, 0, request.sourceInstrumented ? kSourceRows : 0, true);
}

}  // namespace sondera
