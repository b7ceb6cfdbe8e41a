// failing_file_driver.cpp - see failing_file_driver.h.
#include "support/failing_file_driver.h"

#include <algorithm>

namespace sondera::test {
namespace {

struct {
  FilePlan plan;
  FileCalls calls;
} state;

bool Fails(int& calls, int failAt) {
  ++calls;
  const bool fails = failAt > 0 && (calls == failAt || (state.plan.everAfter && calls > failAt));
  if (fails) errno = state.plan.error;
  return fails;
}

int Open(const char* path, int flags, mode_t mode) {
  if (Fails(state.calls.open, state.plan.failOpen)) return -1;
  return posixFileDriver.open(path, flags, mode);
}

ssize_t Read(int fd, void* bytes, std::size_t count) {
  if (Fails(state.calls.read, state.plan.failRead)) return -1;
  return posixFileDriver.read(fd, bytes, count);
}

ssize_t Write(int fd, const void* bytes, std::size_t count) {
  if (Fails(state.calls.write, state.plan.failWrite)) {
    if (state.plan.halfWrite) (void)posixFileDriver.write(fd, bytes, count / 2);
    errno = state.plan.error;
    return -1;
  }
  if (state.plan.longestWrite > 0) count = std::min(count, state.plan.longestWrite);
  return posixFileDriver.write(fd, bytes, count);
}

int Flush(int fd) {
  if (Fails(state.calls.flush, state.plan.failFlush)) return -1;
  return posixFileDriver.flush(fd);
}

int Close(int fd) {
  const bool fails = Fails(state.calls.close, state.plan.failClose);
  const int result = posixFileDriver.close(fd);  // a failed close still releases the descriptor
  if (fails) errno = state.plan.error;
  return fails ? -1 : result;
}

int Rename(const char* from, const char* to) {
  if (Fails(state.calls.rename, state.plan.failRename)) return -1;
  return posixFileDriver.rename(from, to);
}

int Remove(const char* path) {
  if (Fails(state.calls.remove, state.plan.failRemove)) return -1;
  return posixFileDriver.remove(path);
}

int Lock(int fd) {
  if (Fails(state.calls.lock, state.plan.failLock)) return -1;
  return posixFileDriver.lock(fd);
}

const FileDriver failingDriver = {.name = "failing",
                                  .open = Open,
                                  .read = Read,
                                  .write = Write,
                                  .flush = Flush,
                                  .close = Close,
                                  .rename = Rename,
                                  .remove = Remove,
                                  .lock = Lock};

}  // namespace

FailingFileDriver::FailingFileDriver(const FilePlan& plan) {
  state.plan = plan;
  state.calls = {};
  previous_ = InstallFileDriver(&failingDriver);
}

FailingFileDriver::~FailingFileDriver() {
  InstallFileDriver(previous_);
}

const FileCalls& FailingFileDriver::Calls() const {
  return state.calls;
}

}  // namespace sondera::test
