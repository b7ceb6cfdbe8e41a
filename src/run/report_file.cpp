// report_file.cpp - see report_file.h.
#include "run/report_file.h"

#include <cstdarg>

#include "run/run_files.h"
#include "runtime/text_format.h"

namespace sondera {

void ReportFile::Printf(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ += FormatTextV(format, arguments);
  va_end(arguments);
}

void ReportFile::Append(Listener& listener) const {
  AddToRunFile(baseName_, extension_, text_, listener);
}

std::string IterationHead(const Course& course, const Switches& switches, int iteration, double rmsVel,
                          double rmsAmp) {
  const long i = iteration;
  const char* title = course.runTitle.c_str();
  if (switches.iUseAmplitude != 1)
    return FormatText("Iteration no. : %2ld (%s) ... RMS error (Vel=%lg)\n", i, title, rmsVel);
  return FormatText("Iteration no. : %2ld (%s) ... RMS error (Vel=%lg, Amp=%lg)\n", i, title, rmsVel, rmsAmp);
}

}  // namespace sondera
