// report_file.h - a block of text at the end of a result file. Callers: the writers of results. Owned state:
// none.
#pragma once

#include <string>

#include "run/system_state.h"
#include "runtime/listener.h"

namespace sondera {

/// Text that is added to the file of this extension in one piece, see AddToRunFile.
class ReportFile {
 public:
  ReportFile(const Switches& switches, const char* extension)
      : baseName_(switches.baseName), extension_(extension) {}
  void Put(const std::string& text) { text_ += text; }
  void Printf(const char* format, ...) __attribute__((format(printf, 2, 3)));

  void Append(Listener& listener) const;

 private:
  std::string baseName_;
  const char* extension_;
  std::string text_;
};

/// Head line of an iteration in ".fdp", ".fmp", ".pfl" and ".fsp", with the title of the run; the amplitude's
/// misfit only where amplitudes are in use.
std::string IterationHead(const Course& course, const Switches& switches, int iteration, double rmsVel,
                          double rmsAmp);

}  // namespace sondera
