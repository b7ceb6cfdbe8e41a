// import_findings.h - remarks about files that were imported in spite of a defect: channels without a signal,
// files of different lengths, lines that were left out, a band that does not begin at 0 Hz.
//
// The readers collect them; only an import that is completed reports them (AddNote, AddDoubt).
#pragma once

#include <string>
#include <vector>

#include "project/import_layout.h"
#include "project/import_text.h"
#include "runtime/findings.h"

namespace sondera {

class ImportFindings {
 public:
  /// For a text file: lines after its data (of the first file; in a later file they count for its length),
  /// lines without a value, a last line without line end.
  void TellOfText(const std::string& path, const TextColumns& columns, bool isFirst);
  /// For a channel whose file holds only zeros. im may be empty.
  void TellOfZeros(const std::string& path, int channel, const std::vector<double>& re,
                   const std::vector<double>& im);
  /// For two files of different lengths, in samples or lines. `padding` says how the channel continues.
  void TellOfLengths(const std::string& firstPath, int firstCount, const std::string& path, int count,
                     const std::string& padding);
  /// For lines that do not fit in the record, and for lines below its first that cannot be counted.
  /// @param[in] count  lines of the first file; f1 its last frequency, Hz
  void TellOfLayout(const std::string& measID, const SpectrumLayout& layout, int count, double f1);

  /// Reports everything, once.
  void Report();

 private:
  void Add(FindingKind kind, std::string text) { gathered_.push_back({kind, std::move(text)}); }

  std::vector<Finding> gathered_;
};

}  // namespace sondera
