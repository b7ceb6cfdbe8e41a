// one_folder.h - for targets that run scripts: a separate current folder with one small record, and a file
// driver that prevents writing anywhere else.
#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>

#include "runtime/files.h"

namespace sondera::fuzz {

inline std::string folder;  ///< empty before EnterFolder()

/// Writing is for names directly in the folder only.
inline int OpenInFolder(const char* path, int flags, mode_t mode) {
  const std::string_view name(path);
  const bool inside =
      name.find('/') == std::string_view::npos ||
      (name.starts_with(folder + "/") && name.find('/', folder.size() + 1) == std::string_view::npos);
  if (!inside && (flags & O_ACCMODE) != O_RDONLY) {
    errno = EACCES;
    return -1;
  }
  return posixFileDriver.open(path, flags, mode);
}

inline void EnterFolder() {
  char name[] = "/tmp/script_fuzz_XXXXXX";
  if (!mkdtemp(name) || chdir(name) != 0) abort();
  folder = name;
  std::FILE* record = std::fopen("H31.hyx", "w");
  if (!record) abort();
  for (int i = 0; i < 17; ++i) std::fprintf(record, "%d %g %g\n", i, 1.0 / (1 + i), 0.3 * (i % 5) - 0.6);
  std::fclose(record);
  static FileDriver driver = posixFileDriver;
  driver.name = "one folder";
  driver.open = OpenInFolder;
  driver.flush = [](int) { return 0; };  // these files need not survive a loss of power
  InstallFileDriver(&driver);
}

}  // namespace sondera::fuzz
