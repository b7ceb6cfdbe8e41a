// file_driver.h - the few operating system calls for all file access, as a table that a test can replace.
//
// All code that reads or writes a file uses the functions at the end, which call the installed driver and
// repeat a call that a signal interrupts; no code checks which driver it is. A test driver that fails the
// n-th call is in tests/support/failing_file_driver.h.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>

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
  /// Locks the file for this process, without waiting: 0, or -1 (EWOULDBLOCK: another process has it).
  /// Closing the descriptor, or the end of the process, releases it. Null for a driver without locks.
  int (*lock)(int fd) = nullptr;
};

/// The operating system's own calls; installed at start.
extern const FileDriver posixFileDriver;

/// Installs a driver (null: posixFileDriver) and returns the previous one, never null.
const FileDriver* InstallFileDriver(const FileDriver* next);

const FileDriver& CurrentFileDriver();

// The calls through the installed driver. Each is repeated after EINTR, so that the user's halt (a signal)
// never counts as a failure; other failures are -1 or false, with errno.

int OpenFile(const std::string& path, int flags, mode_t mode = 0);
/// Some bytes, at most `count`; 0 at the end.
ssize_t ReadFile(int fd, void* bytes, std::size_t count);
/// All of the bytes; false when one of the required writes fails.
bool WriteFile(int fd, const void* bytes, std::size_t count);
int FlushFile(int fd);
/// Always closes, also after a failure; an interrupting signal is not a failure.
int CloseFile(int fd);
int RenameFile(const std::string& from, const std::string& to);
int RemoveFile(const std::string& path);

}  // namespace sondera
