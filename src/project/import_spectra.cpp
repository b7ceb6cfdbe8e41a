// import_spectra.cpp - see import_spectra.h. Owns no state.
#include "project/import_spectra.h"

#include <algorithm>
#include <cmath>

#include "project/import_text.h"
#include "project/session.h"

namespace sondera {
namespace {

using import_text::kCannotRead;

constexpr std::string_view kFirstMeasID = "measID";

/// What stands on the line at 0 Hz of a cross spectrum: its imaginary part is 0 by nature, whatever the file
/// says.
enum class ZeroLine { AsRead, Real };

/// Value of one line; a missing one is 0.
struct LineValue {
  double re = 0.0, im = 0.0;
};
LineValue ValueAt(const TextColumns& columns, int row, int line, ZeroLine zeroLine) {
  const std::size_t k = static_cast<std::size_t>(row);
  return {columns.a[k], line == 0 && zeroLine == ZeroLine::Real ? 0.0 : columns.b[k]};
}

/// Lines of a file that the record takes.
int UsedRows(const TextColumns& columns, const SpectrumLayout& layout) {
  return std::min(columns.count(), layout.nLines - layout.firstLine);
}

bool AllUsedAreNumbers(const TextColumns& columns, const SpectrumLayout& layout, ZeroLine zeroLine) {
  for (int k = 0; k < UsedRows(columns, layout); ++k) {
    const LineValue v = ValueAt(columns, k, layout.firstLine + k, zeroLine);
    if (!std::isfinite(v.re) || !std::isfinite(v.im)) return false;
  }
  return true;
}

/// A first file and what follows from it.
struct FirstFile {
  int row = 0;
  TextColumns columns;
  SpectrumLayout layout;
};

bool ReadFirstFile(const ImportRequest& request, int row, ZeroLine zeroLine, FirstFile& first) {
  TextReader text;
  if (!OpenRow(request, row, text)) return false;
  first.row = row;
  first.columns = ReadColumns(text, {.values = 2, .tokensNeeded = 1});
  const int count = first.columns.count();
  if (first.columns.damaged || count < 2) return false;
  const double f0 = first.columns.axis.front(), f1 = first.columns.axis.back();
  return LayOutSpectrum(f0, f1, (f1 - f0) / (count - 1), count, request.nChannels, first.layout) &&
         AllUsedAreNumbers(first.columns, first.layout, zeroLine);
}

bool ReadLaterFile(const ImportRequest& request, int row, ZeroLine zeroLine, const FirstFile& first,
                   TextColumns& columns) {
  TextReader text;
  if (!OpenRow(request, row, text)) return false;
  const int room = first.layout.nLines - first.layout.firstLine;
  columns = ReadColumns(
      text,
      {.values = 2, .tokensNeeded = 1, .keepGoing = std::min(first.columns.count(), room), .maxLines = room});
  return !columns.damaged && columns.count() >= 2 && SameAxis(first.columns, columns, first.layout.deltaF) &&
         AllUsedAreNumbers(columns, first.layout, zeroLine);
}

/// Reads the file of a row into a channel.
bool ReadChannel(const ImportRequest& request, int row, ZeroLine zeroLine, const FirstFile& first,
                 RawData& raw, int channel) {
  TextColumns later;
  const bool isFirst = row == first.row;
  if (!isFirst && !ReadLaterFile(request, row, zeroLine, first, later)) return false;
  const TextColumns& columns = isFirst ? first.columns : later;
  const SpectrumRow lines = RowOf(raw.crossSpecRe, raw.crossSpecIm, channel, first.layout.nLines);
  for (int k = 0; k < UsedRows(columns, first.layout); ++k) {
    const int line = first.layout.firstLine + k;
    const LineValue v = ValueAt(columns, k, line, zeroLine);
    lines.Store(line, v.re, v.im);
  }
  return true;
}

/// Cross spectra with an uninstrumented source: row r is channel r.
bool ReadCrossSpectra(const ImportRequest& request, const FirstFile& first, RawData& raw) {
  for (int c = 0; c < request.nChannels; ++c) {
    if (c > 0 || !FileInRow(request, 0).empty()) {
      if (!ReadChannel(request, c, ZeroLine::Real, first, raw, c)) return false;
      continue;
    }
    const std::size_t length = 2 * static_cast<std::size_t>(first.layout.nLines);
    std::fill_n(raw.crossSpecRe.begin(), length, 1.0);  // all 2P entries, the one between the halves too
  }
  return true;
}

}  // namespace

int FirstRowOfCrossSpectra(const ImportRequest& request) {
  for (int row = 0; row < static_cast<int>(request.files.size()); ++row)
    if (!FileInRow(request, row).empty()) return row;
  return 0;
}

int LoadHyxData(const ImportRequest& request) {
  FirstFile first;
  if (!ReadFirstFile(request, 0, ZeroLine::AsRead, first)) return Refuse(kCannotRead);
  ImportRecords records;
  const IfPresent ifPresent = request.measID == kFirstMeasID ? IfPresent::Overwrite : IfPresent::Ask;
  if (!BeginImport(request, ifPresent, records)) return -1;
  MakeSpectrumRecords(request, first.layout, records);

  RawData& raw = *records.raw;
  const int firstChannel = request.sourceInstrumented ? 0 : 1;
  for (int c = firstChannel; c < request.nChannels; ++c)
    if (!ReadChannel(request, c - firstChannel, ZeroLine::AsRead, first, raw, c))
      return AbandonImport(request, kCannotRead);
  if (request.sourceInstrumented)
    DivideByFirstChannel(raw.crossSpecRe, raw.crossSpecIm, request.nChannels, first.layout.nLines);
  else
    SetUnity(RowOf(raw.crossSpecRe, raw.crossSpecIm, 0, first.layout.nLines));
  return FinishImport(request, records);
}

int LoadGyxData(const ImportRequest& request) {
  FirstFile first;
  if (!ReadFirstFile(request, FirstRowOfCrossSpectra(request), ZeroLine::Real, first))
    return Refuse(kCannotRead);
  ImportRecords records;
  if (!BeginImport(request, IfPresent::Ask, records)) return -1;
  MakeSpectrumRecords(request, first.layout, records);

  RawData& raw = *records.raw;
  if (!request.sourceInstrumented) {
    if (!ReadCrossSpectra(request, first, raw)) return AbandonImport(request, kCannotRead);
    return FinishImport(request, records);
  }
  for (int c = 0; c < request.nChannels; ++c)
    if (!ReadChannel(request, kSourceRows + c, ZeroLine::Real, first, raw, c))
      return AbandonImport(request, kCannotRead);
  DivideByFirstChannel(raw.crossSpecRe, raw.crossSpecIm, request.nChannels, first.layout.nLines);
  return FinishImport(request, records);
}

}  // namespace sondera
