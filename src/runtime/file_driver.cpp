// file_driver.cpp - see file_driver.h. Owns the one pointer to the installed driver.
#include "runtime/file_driver.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace sondera {
namespace {

int PosixOpen(const char* path, int flags, mode_t mode) {
  return ::open(path, flags, mode);
}

int PosixLock(int fd) {
  return ::flock(fd, LOCK_EX | LOCK_NB);
}

const FileDriver* fileDriver = &posixFileDriver;

/// The result of the call, which is repeated as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

const FileDriver posixFileDriver = {.name = "posix",
                                    .open = PosixOpen,
                                    .read = ::read,
                                    .write = ::write,
                                    .flush = ::fsync,
                                    .close = ::close,
                                    .rename = std::rename,
                                    .remove = ::unlink,
                                    .lock = PosixLock};

const FileDriver* InstallFileDriver(const FileDriver* next) {
  const FileDriver* previous = fileDriver;
  fileDriver = next ? next : &posixFileDriver;
  return previous;
}

const FileDriver& CurrentFileDriver() {
  return *fileDriver;
}

int OpenFile(const std::string& path, int flags, mode_t mode) {
  return Uninterrupted([&] { return fileDriver->open(path.c_str(), flags, mode); });
}

ssize_t ReadFile(int fd, void* bytes, std::size_t count) {
  return Uninterrupted([&] { return fileDriver->read(fd, bytes, count); });
}

bool WriteFile(int fd, const void* bytes, std::size_t count) {
  const char* from = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t n = Uninterrupted([&] { return fileDriver->write(fd, from, count); });
    if (n == 0) errno = EIO;  // nothing written and no reason given
    if (n <= 0) return false;
    from += n;
    count -= static_cast<std::size_t>(n);
  }
  return true;
}

int FlushFile(int fd) {
  return Uninterrupted([&] { return fileDriver->flush(fd); });
}

int CloseFile(int fd) {
  // Not repeated: after EINTR the descriptor is closed, and may already belong to another file.
  const int result = fileDriver->close(fd);
  return result != 0 && errno == EINTR ? 0 : result;
}

int RenameFile(const std::string& from, const std::string& to) {
  return Uninterrupted([&] { return fileDriver->rename(from.c_str(), to.c_str()); });
}

int RemoveFile(const std::string& path) {
  return Uninterrupted([&] { return fileDriver->remove(path.c_str()); });
}

}  // namespace sondera
