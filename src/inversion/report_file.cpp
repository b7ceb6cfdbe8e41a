// report_file.cpp - see report_file.h.
#include "inversion/report_file.h"

#include <fcntl.h>

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "forward/system_state.h"
#include "project/session.h"
#include "runtime/dialogs.h"
#include "runtime/file_driver.h"
#include "runtime/text_format.h"
#include "runtime/written_files.h"

namespace sondera {

ReportFile::ReportFile(const char* extension) : path_(run.baseName + extension) {}

void ReportFile::Printf(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ += FormatTextV(format, arguments);
  va_end(arguments);
}

bool ReportFile::Append() const {
  const FileDriver& driver = CurrentFileDriver();
  const int fd = driver.open(path_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  bool written = true;
  for (std::size_t at = 0; written && at < text_.size();) {
    const ssize_t n = driver.write(fd, text_.data() + at, text_.size() - at);
    written = n > 0;
    if (written) at += static_cast<std::size_t>(n);
  }
  if (driver.close(fd) != 0 || !written) return false;
  NoteWrittenFile(path_);
  return true;
}

std::string ReportFile::Complaint() const {
  return FormatText("Error in opening file %s\n", path_.c_str());
}

void ReportFile::AppendOrTell() const {
  if (!Append()) MessagePopup(session.appTitle, Complaint());
}

void ReportFile::AppendOrPrint() const {
  if (!Append()) std::fputs(Complaint().c_str(), stderr);
}

void ReportFile::AppendOrExit() const {
  if (Append()) return;
  std::fputs(Complaint().c_str(), stderr);
  std::exit(1);
}

std::string IterationHead(int iteration, double rmsVel, double rmsAmp) {
  const long i = iteration;
  const char* title = run.runTitle.c_str();
  if (run.iUseAmplitude != 1)
    return FormatText("Iteration no. : %2ld (%s) ... RMS error (Vel=%lg)\n", i, title, rmsVel);
  return FormatText("Iteration no. : %2ld (%s) ... RMS error (Vel=%lg, Amp=%lg)\n", i, title, rmsVel, rmsAmp);
}

}  // namespace sondera
