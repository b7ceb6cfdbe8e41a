// Feeds any bytes to the command script. The session starts afresh each time, in a folder of its own that
// holds one small record; a file driver keeps the script from writing anywhere else.
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "app/commands.h"
#include "app/startup.h"
#include "project/session.h"
#include "runtime/files.h"

namespace {

std::string folder;

/// Writing is for names directly in the folder only.
int OpenInFolder(const char* path, int flags, mode_t mode) {
  const std::string_view name(path);
  const bool inside =
      name.find('/') == std::string_view::npos ||
      (name.starts_with(folder + "/") && name.find('/', folder.size() + 1) == std::string_view::npos);
  if (!inside && (flags & O_ACCMODE) != O_RDONLY) {
    errno = EACCES;
    return -1;
  }
  return sondera::posixFileDriver.open(path, flags, mode);
}

void EnterFolder() {
  char name[] = "/tmp/script_fuzz_XXXXXX";
  if (!mkdtemp(name) || chdir(name) != 0) abort();
  folder = name;
  std::FILE* record = std::fopen("H31.hyx", "w");
  if (!record) abort();
  for (int i = 0; i < 17; ++i) std::fprintf(record, "%d %g %g\n", i, 1.0 / (1 + i), 0.3 * (i % 5) - 0.6);
  std::fclose(record);
  static sondera::FileDriver driver = sondera::posixFileDriver;
  driver.name = "one folder";
  driver.open = OpenInFolder;
  sondera::InstallFileDriver(&driver);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (folder.empty()) EnterFolder();
  sondera::StartSession();
  sondera::session.projectFileName = "fuzzed.da";
  sondera::ProcessScriptText({reinterpret_cast<const char*>(data), size});
  return 0;
}
