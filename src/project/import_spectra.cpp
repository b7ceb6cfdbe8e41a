// import_spectra.cpp - see import_spectra.h. Owns no state.
#include "project/import_spectra.h"

#include <algorithm>
#include <cmath>

#include "project/import_findings.h"
#include "project/import_text.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kFirstMeasID = "measID";

/// Value of the line at 0 Hz of a cross spectrum: its imaginary part is 0 by definition, so the file's value
/// is ignored.
enum class ZeroLine { AsRead, Real };

/// Value of one line; a missing one is 0.
struct LineValue {
  double re = 0.0, im = 0.0;
};
LineValue ValueAt(const TextColumns& columns, int row, int line, ZeroLine zeroLine) {
  const std::size_t k = static_cast<std::size_t>(row);
  return {columns.a[k], line == 0 && zeroLine == ZeroLine::Real ? 0.0 : columns.b[k]};
}

/// Lines of a file that the record contains.
int UsedRows(const TextColumns& columns, const SpectrumLayout& layout) {
  return std::min(columns.count(), layout.nLines - layout.firstLine);
}

/// Whether the file of a row needs no imaginary parts: a power spectrum has none.
enum class Kind { Complex, Power };

/// Why the columns of a first or a later file are refused, beside the reader's message.
void CheckColumns(const SpectrumLayout& layout, ZeroLine zeroLine, Kind kind, TextColumns& columns) {
  constexpr int kFieldsOfComplex = 3;
  if (columns.damaged || !HasEvenAxis(columns, "frequencies")) return;
  if (kind == Kind::Complex && columns.mostFields < kFieldsOfComplex) {
    Damage(columns, 1, "two columns are not a complex spectrum: frequency, real and imaginary part");
    return;
  }
  for (int k = 0; k < UsedRows(columns, layout); ++k) {
    const LineValue v = ValueAt(columns, k, layout.firstLine + k, zeroLine);
    if (std::isfinite(v.re) && std::isfinite(v.im)) continue;
    Damage(columns, k + 1, "a value is not a finite number");
    return;
  }
}

bool HasTwoLines(TextColumns& columns) {
  return columns.count() >= 2 || Damage(columns, columns.count() + 1, "the data end here, before two lines");
}

/// A first file and the layout derived from it.
struct FirstFile {
  int row = 0;
  TextColumns columns;
  SpectrumLayout layout;
};

/// One import: the message of its failure, and the remarks for its end.
struct SpectraFiles {
  const ImportRequest& request;
  ZeroLine zeroLine;
  int powerRows = 0;  ///< rows before it that hold power spectra
  FirstFile first{};
  ImportFindings findings{};

  Kind kindOf(int row) const { return row < powerRows ? Kind::Power : Kind::Complex; }
  std::string refusal(int row, const TextColumns& columns) const {
    return columns.damaged ? import_text::CannotRead(FileInRow(request, row), columns.fault) : std::string();
  }
};

/// Empty, or the message that refuses the file.
std::string ReadFirstFile(SpectraFiles& run, int row) {
  TextReader text;
  std::string reason;
  if (!OpenRow(run.request, row, text, reason)) return import_text::CannotRead(reason);
  FirstFile& first = run.first;
  first.row = row;
  TextColumns& columns = first.columns;
  columns = ReadColumns(text, {.values = 2, .tokensNeeded = 1});
  if (columns.damaged || !HasTwoLines(columns)) return run.refusal(row, columns);
  const int count = columns.count();
  const double f0 = columns.axis.front(), f1 = columns.axis.back();
  const bool laidOut =
      LayOutSpectrum(f0, f1, (f1 - f0) / (count - 1), count, run.request.nChannels, first.layout);
  CheckColumns(first.layout, run.zeroLine, run.kindOf(row), columns);
  if (!laidOut && !columns.damaged)
    Damage(columns, 0, FormatText("no record can be made of %d lines from %g to %g Hz", count, f0, f1));
  if (!columns.damaged) run.findings.TellOfLayout(run.request.measID, first.layout, count, f1);
  return run.refusal(row, columns);
}

std::string ReadLaterFile(const SpectraFiles& run, int row, TextColumns& columns) {
  TextReader text;
  std::string reason;
  if (!OpenRow(run.request, row, text, reason)) return import_text::CannotRead(reason);
  const FirstFile& first = run.first;
  const int room = first.layout.nLines - first.layout.firstLine;
  columns = ReadColumns(
      text,
      {.values = 2, .tokensNeeded = 1, .keepGoing = std::min(first.columns.count(), room), .maxLines = room});
  if (!columns.damaged && HasTwoLines(columns))
    CheckColumns(first.layout, run.zeroLine, run.kindOf(row), columns);
  std::size_t at = 0;
  if (!columns.damaged && !SameAxis(first.columns, columns, first.layout.deltaF, &at))
    Damage(columns, static_cast<std::int64_t>(at) + 1, "another frequency than in the first file");
  return run.refusal(row, columns);
}

/// Remarks on a file; a later file is compared with the first.
void TellOf(SpectraFiles& run, int row, int channel, const TextColumns& columns) {
  const std::string& path = FileInRow(run.request, row);
  run.findings.TellOfZeros(path, channel, columns.a, columns.b);
  const bool isFirst = row == run.first.row;
  run.findings.TellOfText(path, columns, isFirst);
  if (isFirst) return;
  run.findings.TellOfLengths(FileInRow(run.request, run.first.row), run.first.columns.count(), path,
                             columns.count() + columns.linesBehind, "the rest of its channel is 0");
}

/// Reads the file of a row into a channel. Empty, or the message that refuses it.
std::string ReadChannel(SpectraFiles& run, int row, RawData& raw, int channel) {
  TextColumns later;
  const FirstFile& first = run.first;
  if (row != first.row)
    if (std::string refusal = ReadLaterFile(run, row, later); !refusal.empty()) return refusal;
  const TextColumns& columns = row == first.row ? first.columns : later;
  const SpectrumRow lines = RowOf(raw.crossSpecRe, raw.crossSpecIm, channel, first.layout.nLines);
  for (int k = 0; k < UsedRows(columns, first.layout); ++k) {
    const int line = first.layout.firstLine + k;
    const LineValue v = ValueAt(columns, k, line, run.zeroLine);
    lines.Store(line, v.re, v.im);
  }
  TellOf(run, row, channel, columns);
  return {};
}

/// Channels from firstChannel on, the first of them from the given row. Empty, or the message.
std::string ReadChannels(SpectraFiles& run, RawData& raw, int firstChannel, int row) {
  for (int c = firstChannel; c < run.request.nChannels; ++c)
    if (std::string refusal = ReadChannel(run, row + c - firstChannel, raw, c); !refusal.empty())
      return refusal;
  return {};
}

}  // namespace

int FirstRowOfCrossSpectra(const ImportRequest& request) {
  for (int row = 0; row < static_cast<int>(request.files.size()); ++row)
    if (!FileInRow(request, row).empty()) return row;
  return 0;
}

ImportResult ImportTransferFunctions(const ImportRequest& request) {
  SpectraFiles run{request, ZeroLine::AsRead};
  if (const std::string refusal = ReadFirstFile(run, 0); !refusal.empty())
    return ImportResult::Refused(refusal);
  ImportRecords records;
  const IfPresent ifPresent = request.measID == kFirstMeasID ? IfPresent::Overwrite : IfPresent::Ask;
  if (!BeginImport(request, ifPresent, records)) return ImportResult::Refused(Refusal::WithoutReason());
  MakeSpectrumRecords(request, run.first.layout, records);

  RawData& raw = *records.raw;
  const int nLines = run.first.layout.nLines;
  const std::string refusal = ReadChannels(run, raw, request.sourceInstrumented ? 0 : 1, 0);
  if (!refusal.empty()) return ImportResult::Abandoned(refusal);
  if (request.sourceInstrumented)
    DivideByFirstChannel(raw.crossSpecRe, raw.crossSpecIm, request.nChannels, nLines);
  else
    SetUnity(RowOf(raw.crossSpecRe, raw.crossSpecIm, 0, nLines));
  run.findings.Report();
  CompletePairs(request, records);
  return ImportResult::Done();
}

ImportResult ImportCrossSpectra(const ImportRequest& request) {
  SpectraFiles run{request, ZeroLine::Real, request.sourceInstrumented ? kSourceRows : 1};
  if (const std::string refusal = ReadFirstFile(run, FirstRowOfCrossSpectra(request)); !refusal.empty())
    return ImportResult::Refused(refusal);
  ImportRecords records;
  if (!BeginImport(request, IfPresent::Ask, records)) return ImportResult::Refused(Refusal::WithoutReason());
  MakeSpectrumRecords(request, run.first.layout, records);

  RawData& raw = *records.raw;
  const int nLines = run.first.layout.nLines;
  // Without a source row r is channel r, and the first may be left out: then it is 1.
  const bool firstIsUnity = !request.sourceInstrumented && FileInRow(request, 0).empty();
  if (firstIsUnity)  // all 2P entries, also the one between the halves
    std::fill_n(raw.crossSpecRe.begin(), 2 * static_cast<std::size_t>(nLines), 1.0);
  const int from = firstIsUnity ? 1 : 0;
  const std::string refusal = ReadChannels(run, raw, from, request.sourceInstrumented ? kSourceRows : from);
  if (!refusal.empty()) return ImportResult::Abandoned(refusal);
  if (request.sourceInstrumented)
    DivideByFirstChannel(raw.crossSpecRe, raw.crossSpecIm, request.nChannels, nLines);
  run.findings.Report();
  CompletePairs(request, records);
  return ImportResult::Done();
}

}  // namespace sondera
