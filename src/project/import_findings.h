// import_findings.h - what a person should know of files that were imported all the same: channels without a
// signal, files of different lengths, lines that were left out, a band that does not begin at 0 Hz.
//
// The readers gather while they read; only an import that comes to its end reports (AddNote, AddDoubt).
#pragma once

#include <string>
#include <vector>

#include "project/import_layout.h"
#include "project/import_text.h"
#include "runtime/findings.h"

namespace sondera {

class ImportFindings {
 public:
  /// Of a text file: lines behind its data (of the first file; those of a later one are part of its length),
  /// lines that lack a value, a last line without line end.
  void TellOfText(const std::string& path, const TextColumns& columns, bool isFirst);
  /// Of a channel whose file holds only zeros. im may be empty.
  void TellOfZeros(const std::string& path, int channel, const std::vector<double>& re,
                   const std::vector<double>& im);
  /// Of two files of different lengths, in samples or lines. The channel goes on as `padding` says.
  void TellOfLengths(const std::string& firstPath, int firstCount, const std::string& path, int count,
                     const std::string& padding);
  /// Of lines that the record has no place for, and of lines below its first that cannot be counted.
  /// @param[in] count  lines of the first file; f1 its last frequency, Hz
  void TellOfLayout(const std::string& measID, const SpectrumLayout& layout, int count, double f1);

  /// Passes everything on, once.
  void Report();

 private:
  void Add(FindingKind kind, std::string text) { gathered_.push_back({kind, std::move(text)}); }

  std::vector<Finding> gathered_;
};

}  // namespace sondera
