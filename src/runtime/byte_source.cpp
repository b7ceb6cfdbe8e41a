// byte_source.cpp - see byte_source.h.
#include "runtime/byte_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "runtime/file_driver.h"
#include "runtime/session_watch.h"

namespace sondera {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 17;

bool RefuseFile(std::string* reason, const std::string& path, const std::string& why) {
  if (reason) *reason = "Cannot read " + path + ": " + why;
  return false;
}

}  // namespace

ByteSource::ByteSource(ByteSource&& other) noexcept {
  *this = std::move(other);
}

ByteSource& ByteSource::operator=(ByteSource&& other) noexcept {
  if (this == &other) return *this;
  Close();
  open_ = std::exchange(other.open_, false);
  failed_ = std::exchange(other.failed_, false);
  fd_ = std::exchange(other.fd_, -1);
  size_ = std::exchange(other.size_, 0);
  position_ = std::exchange(other.position_, 0);
  buffer_ = std::move(other.buffer_);  // a moved vector keeps its storage, so the window stays valid
  window_ = std::exchange(other.window_, {});
  memory_ = std::exchange(other.memory_, {});
  return *this;
}

bool ByteSource::Open(const std::string& path, std::string* reason) {
  Close();
  // Without O_NONBLOCK, opening a pipe would wait for its other end.
  const int fd = OpenFile(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return RefuseFile(reason, path, std::generic_category().message(errno));
  struct stat info {};
  const bool known = fstat(fd, &info) == 0;
  if (!known || !S_ISREG(info.st_mode)) {
    CloseFile(fd);
    return RefuseFile(reason, path,
                      known && S_ISDIR(info.st_mode) ? "it is a folder" : "it is not a plain file");
  }
  if (TheSessionWatcher().readsFile) TheSessionWatcher().readsFile(path);
  fd_ = fd;
  size_ = info.st_size;
  open_ = true;
  return true;
}

void ByteSource::OpenMemory(const void* bytes, std::size_t count) {
  Close();
  memory_ = window_ = std::string_view(static_cast<const char*>(bytes), count);
  size_ = static_cast<std::int64_t>(count);
  open_ = true;
}

void ByteSource::Close() {
  if (fd_ >= 0) CloseFile(fd_);
  open_ = failed_ = false;
  fd_ = -1;
  size_ = position_ = 0;
  buffer_.clear();
  window_ = memory_ = {};
}

std::size_t ByteSource::Fill(void* destination, std::size_t count) {
  std::size_t got = 0;
  while (fd_ >= 0 && !failed_ && got < count) {
    const ssize_t n = ReadFile(fd_, static_cast<char*>(destination) + got, count - got);
    if (n > 0) got += static_cast<std::size_t>(n);
    if (n == 0) break;
    if (n < 0) failed_ = true;
  }
  return got;
}

std::string_view ByteSource::Window() {
  if (!window_.empty() || fd_ < 0) return window_;
  buffer_.resize(kBufferBytes);
  window_ = std::string_view(buffer_.data(), Fill(buffer_.data(), buffer_.size()));
  return window_;
}

void ByteSource::Consume(std::size_t count) {
  count = std::min(count, window_.size());
  window_.remove_prefix(count);
  position_ += static_cast<std::int64_t>(count);
}

std::size_t ByteSource::Read(void* destination, std::size_t count) {
  char* to = static_cast<char*>(destination);
  std::size_t got = 0;
  while (got < count) {
    if (window_.empty() && fd_ >= 0 && count - got >= kBufferBytes) {
      const std::size_t direct = Fill(to + got, count - got);
      position_ += static_cast<std::int64_t>(direct);
      return got + direct;
    }
    const std::string_view window = Window();
    if (window.empty()) break;
    const std::size_t n = std::min(window.size(), count - got);
    std::memcpy(to + got, window.data(), n);
    Consume(n);
    got += n;
  }
  return got;
}

bool ByteSource::Rewind() {
  if (!open_) return false;
  window_ = memory_;
  position_ = 0;
  failed_ = false;
  if (fd_ >= 0 && lseek(fd_, 0, SEEK_SET) != 0) failed_ = true;
  return !failed_;
}

}  // namespace sondera
