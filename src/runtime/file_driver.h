// file_driver.h - the few operating system calls behind all file access, as a table that a test can replace.
//
// The readers and writers of runtime/ go through CurrentFileDriver(); nobody asks which one is installed. A
// test driver that fails the n-th call is in tests/support/failing_file_driver.h.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace sondera {

/// Each call has the arguments and results of the POSIX function of the same name: -1 (with errno) for a
/// failure.
struct FileDriver {
  const char* name;                                                // for messages, never null
  int (*open)(const char* path, int flags, mode_t mode);           // descriptor, or -1
  ssize_t (*read)(int fd, void* bytes, std::size_t count);         // bytes read, 0 at the end
  ssize_t (*write)(int fd, const void* bytes, std::size_t count);  // bytes written, may be fewer
  int (*flush)(int fd);                                            // to the disk
  int (*close)(int fd);
  int (*rename)(const char* from, const char* to);
  int (*remove)(const char* path);
};

/// The operating system's own calls; installed at start.
extern const FileDriver posixFileDriver;

/// Installs a driver (null: posixFileDriver) and returns the previous one, never null.
const FileDriver* InstallFileDriver(const FileDriver* next);

const FileDriver& CurrentFileDriver();

}  // namespace sondera
