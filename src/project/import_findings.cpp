// import_findings.cpp - see import_findings.h.
#include "project/import_findings.h"

#include <algorithm>
#include <utility>

#include "runtime/text_format.h"

namespace sondera {

void ImportFindings::TellOfText(const std::string& path, const TextColumns& columns, bool isFirst) {
  if (isFirst && columns.linesBehind > 0)
    Add(FindingKind::Doubt,
        path + FormatText(": the data end after line %d, and %d more lines with numbers are not read",
                          columns.count(), columns.linesBehind));
  if (columns.shortLines > 0 && columns.shortLines < columns.count())
    Add(FindingKind::Doubt,
        path + FormatText(": %d lines lack a value, which counts as 0; the first is line %lld",
                          columns.shortLines, static_cast<long long>(columns.firstShort)));
  if (columns.endsInLine)
    Add(FindingKind::Note,
        path + ": the last line has no line end; if the file was cut off there, its last number is wrong");
}

void ImportFindings::TellOfZeros(const std::string& path, int channel, const std::vector<double>& re,
                                 const std::vector<double>& im) {
  const auto allZero = [](const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(), [](double v) { return v == 0.0; });
  };
  if (allZero(re) && allZero(im))
    Add(FindingKind::Doubt, path + FormatText(": channel %d holds only zeros", channel + 1));
}

void ImportFindings::TellOfLengths(const std::string& firstPath, int firstCount, const std::string& path,
                                   int count, const std::string& padding) {
  if (count > firstCount)
    Add(FindingKind::Doubt,
        firstPath +
            FormatText(" is the first file and has %d lines, fewer than the %d of ", firstCount, count) +
            path + "; the first file sets the length of all");
  if (count < firstCount)
    Add(FindingKind::Doubt, path + FormatText(" has %d lines, fewer than the %d of ", count, firstCount) +
                                firstPath + "; " + padding);
}

void ImportFindings::TellOfLayout(const std::string& measID, const SpectrumLayout& layout, int count,
                                  double f1) {
  const int dropped = count - (layout.nLines - layout.firstLine);
  if (dropped > 0)
    Add(dropped > 1 ? FindingKind::Doubt : FindingKind::Note,
        measID + FormatText(": a record of %d lines cannot hold the last %d of the files, up to %g Hz",
                            layout.nLines, dropped, f1));
  if (layout.startFreq > 0.0)
    Add(FindingKind::Note,
        measID +
            FormatText(" begins at %g Hz: cycles below %g Hz cannot be counted; keep the lines from 0 Hz on "
                       "in the files, or mask with the number of cycles",
                       layout.startFreq, layout.startFreq));
}

void ImportFindings::Report() {
  for (const Finding& f : std::exchange(gathered_, {})) {
    if (f.kind == FindingKind::Note)
      AddNote(f.text);
    else
      AddDoubt(f.text);
  }
}

}  // namespace sondera
