// file_driver.cpp - see file_driver.h. Owns the one pointer to the installed driver.
#include "runtime/file_driver.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace sondera {
namespace {

int PosixOpen(const char* path, int flags, mode_t mode) {
  return ::open(path, flags, mode);
}

const FileDriver* fileDriver = &posixFileDriver;

}  // namespace

const FileDriver posixFileDriver = {.name = "posix",
                                    .open = PosixOpen,
                                    .read = ::read,
                                    .write = ::write,
                                    .flush = ::fsync,
                                    .close = ::close,
                                    .rename = std::rename,
                                    .remove = ::unlink};

const FileDriver* InstallFileDriver(const FileDriver* next) {
  const FileDriver* previous = fileDriver;
  fileDriver = next ? next : &posixFileDriver;
  return previous;
}

const FileDriver& CurrentFileDriver() {
  return *fileDriver;
}

}  // namespace sondera
