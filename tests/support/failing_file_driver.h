// failing_file_driver.h - a file driver that works like the system's until a chosen call fails.
#pragma once

#include <cerrno>

#include "runtime/file_driver.h"

namespace sondera::test {

/// Which calls fail while the driver is installed. Counts start at 1; 0 never fails. From the failing call
/// on, all further calls of the kind fail too when `everAfter` is set.
struct FilePlan {
  int failWrite = 0;
  int failFlush = 0;
  int failRename = 0;
  int failOpen = 0;
  int failClose = 0;
  int failRead = 0;
  int failRemove = 0;
  int failLock = 0;
  bool everAfter = false;
  int error = EIO;
  bool halfWrite = false;        // the failing write puts half of its bytes down first
  std::size_t longestWrite = 0;  // 0: no limit; else writes are cut into pieces, as a full pipe would
};

/// Counts of the calls made since installation.
struct FileCalls {
  int open = 0, read = 0, write = 0, flush = 0, close = 0, rename = 0, remove = 0, lock = 0;
};

/// Installs the failing driver for its own lifetime. Only one at a time.
class FailingFileDriver {
 public:
  explicit FailingFileDriver(const FilePlan& plan = {});
  ~FailingFileDriver();
  FailingFileDriver(const FailingFileDriver&) = delete;
  FailingFileDriver& operator=(const FailingFileDriver&) = delete;

  const FileCalls& Calls() const;

 private:
  const FileDriver* previous_;
};

}  // namespace sondera::test
