// memory_file_driver.h - a file driver that keeps what is written in memory, so that a fuzz target can save
// and read back without a disk. One file at a time.
#pragma once

#include <fcntl.h>

#include <string>

#include "runtime/file_driver.h"

namespace sondera::fuzz {

inline std::string writtenBytes;  ///< of the file created last

inline const FileDriver memoryFileDriver = {
    .name = "memory",
    .open =
        [](const char*, int flags, mode_t) {
          if (flags & O_CREAT) writtenBytes.clear();  // not for a folder, which is opened to be flushed
          return 1 << 20;                             // no descriptor of the process
        },
    .read = [](int, void*, std::size_t) -> ssize_t { return 0; },
    .write =
        [](int, const void* bytes, std::size_t count) {
          writtenBytes.append(static_cast<const char*>(bytes), count);
          return static_cast<ssize_t>(count);
        },
    .flush = [](int) { return 0; },
    .close = [](int) { return 0; },
    .rename = [](const char*, const char*) { return 0; },
    .remove = [](const char*) { return 0; },
    .lock = nullptr};

}  // namespace sondera::fuzz
