// small_disk.h - a folder in which the system refuses to continue writing, in the middle of a file.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstddef>
#include <string>

#include "support/temp_folder.h"

namespace sondera::test {

/// Where the process may mount one (root), a file system of that size: "No space left on device". Elsewhere a folder, and
/// this process and its children may write no file beyond that size: "File too large".
class SmallDisk {
 public:
  explicit SmallDisk(std::size_t bytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  std::string File(std::string_view name) const { return folder_.File(name); }
  std::vector<std::string> Names() const { return folder_.Names(); }
  /// Part of the reason that the system gives.
  const char* Reason() const { return mounted_ ? "No space left" : "File too large"; }

 private:
  TempFolder folder_;
  bool mounted_ = false;
  rlimit former_ = {};
  void (*formerHandler_)(int) = SIG_DFL;
};

}  // namespace sondera::test
