// report_file.h - a block of text at the end of a result file. Callers: the writers of results. Owned state:
// none.
#pragma once

#include <string>

namespace sondera {

/// Text that is added to run.baseName + extension as one piece: opened for appending, closed at once.
class ReportFile {
 public:
  explicit ReportFile(const char* extension);
  void Put(const std::string& text) { text_ += text; }
  void Printf(const char* format, ...) __attribute__((format(printf, 2, 3)));

  /// Adds the text to the file. False when the file cannot be opened or written.
  bool Append() const;
  /// Appends; when that fails shows Complaint() in a box and goes on.
  void AppendOrTell() const;
  /// Appends; when that fails prints Complaint() and goes on.
  void AppendOrPrint() const;
  /// Appends; when that fails prints Complaint() and ends the process with status 1.
  void AppendOrExit() const;

  /// "Error in opening file %s\n"
  std::string Complaint() const;

 private:
  std::string path_, text_;
};

/// Head line of an iteration in ".fdp", ".fmp", ".pfl" and ".fsp", with the title of the run; the amplitude's
/// misfit only where amplitudes are in use.
std::string IterationHead(int iteration, double rmsVel, double rmsAmp);

}  // namespace sondera
