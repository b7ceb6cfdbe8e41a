// run_files.cpp - see run_files.h.
#include "inversion/run_files.h"

#include <fcntl.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "forward/system_state.h"
#include "project/session.h"
#include "runtime/dialogs.h"
#include "runtime/file_driver.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

bool MakeEmpty(const std::string& path) {
  const FileDriver& driver = CurrentFileDriver();
  const int fd = driver.open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  return fd >= 0 && driver.close(fd) == 0;
}

std::string Complaint(const std::string& path) {
  return FormatText("Error in opening file %s\n", path.c_str());
}

/// Files without which a run is called off.
int OpenOrReturn(const char* extension) {
  const std::string path = run.baseName + extension;
  if (MakeEmpty(path)) return 0;
  MessagePopup(session.appTitle, Complaint(path));
  return -1;
}

/// Files without which the process ends.
void OpenOrExit(const char* extension) {
  const std::string path = run.baseName + extension;
  if (MakeEmpty(path)) return;
  std::fputs(Complaint(path).c_str(), stderr);
  std::exit(1);
}

}  // namespace

int FS_OpenFiles(int kind) {
  if (kind == 3 && (OpenOrReturn(".pls") < 0 || OpenOrReturn(".spc") < 0)) return -1;
  if (kind == 2 && OpenOrReturn(".fsp") < 0) return -1;
  for (const char* extension : {".fdp", ".fmp", ".pfl", ".pcm"}) OpenOrExit(extension);
  if (kind == 2) {
    for (const char* extension : {".n", ".r"}) OpenOrExit(extension);
  }
  for (std::size_t i = 0; i < kReportExtensions.size(); ++i) {
    if (run.reportSwitch[i]) OpenOrExit(kReportExtensions[i]);
  }
  return 0;
}

void FS_CloseFiles(int) {}

}  // namespace sondera
