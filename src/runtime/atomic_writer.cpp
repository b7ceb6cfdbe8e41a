// atomic_writer.cpp - see atomic_writer.h.
#include "runtime/atomic_writer.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <system_error>

#include "runtime/byte_source.h"
#include "runtime/file_driver.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"
#include "runtime/written_files.h"

namespace sondera {
namespace {

static_assert(std::endian::native == std::endian::little, "byte order conversion is not written");

constexpr std::size_t kBufferBytes = std::size_t{1} << 18;
constexpr int kMostAttempts = 1000;        // names tried for a temporary file
constexpr std::size_t kLongestStem = 200;  // bytes of the file's own name in that of its temporary file
constexpr mode_t kPermissionBits = 07777;

/// First part of the names of a file's temporary ones; "-<process>-<number>" follows.
std::string TemporaryStem(const std::string& name) {
  return name.substr(0, kLongestStem) + ".saving";
}

/// Whether a text is "-<process>-<number>".
bool IsTemporaryTail(std::string_view tail) {
  const std::size_t second = tail.empty() ? 0 : tail.find('-', 1);
  if (second == std::string_view::npos || tail.front() != '-') return false;
  const auto digits = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  return digits(tail.substr(1, second - 1)) && digits(tail.substr(second + 1));
}

}  // namespace

AtomicWriter::AtomicWriter(const std::string& path) : path_(path) {
  OpenTemporary();
}

AtomicWriter::~AtomicWriter() {
  Discard();
}

void AtomicWriter::Fail(const char* action, const std::string& path, int error) {
  if (reason_.empty())
    reason_ = std::string("Cannot ") + action + " " + path + ": " + std::generic_category().message(error);
}

void AtomicWriter::OpenTemporary() {
  if (!FollowLinks(path_, target_)) return Fail("write", path_, errno);
  struct stat old {};
  targetExists_ = ::stat(target_.c_str(), &old) == 0;
  if (targetExists_ && S_ISDIR(old.st_mode)) return Fail("write", path_, EISDIR);
  if (targetExists_ && !S_ISREG(old.st_mode)) {
    reason_ = "Cannot write " + path_ + ": it is not a plain file";
    return;
  }
  if (targetExists_ && ::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0)
    return Fail("write", path_, errno);
  const std::string name = FileNameOf(target_);
  if (name.empty()) return Fail("write", path_, targetExists_ ? EISDIR : ENOENT);
  const std::string stem = DirectoryOf(target_) + TemporaryStem(name);
  const mode_t mode = targetExists_ ? (old.st_mode & 0777) : 0666;
  for (int k = 0; k < kMostAttempts && fd_ < 0; ++k) {
    temporary_ = stem + FormatText("-%ld-%d", static_cast<long>(::getpid()), k);
    fd_ = OpenFile(temporary_, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (fd_ < 0 && errno != EEXIST) break;
  }
  if (fd_ < 0) {
    const int error = errno;
    temporary_.clear();
    return Fail("write", path_, error);
  }
  if (targetExists_) {
    // Owner and group only where the system allows it; a changed owner may clear mode bits, so the mode comes
    // last.
    if (::fchown(fd_, old.st_uid, old.st_gid) != 0) errno = 0;
    if (::fchmod(fd_, old.st_mode & kPermissionBits) != 0) Fail("set the permissions of", temporary_, errno);
  }
  buffer_.resize(kBufferBytes);
}

void AtomicWriter::SetNewFileMode(mode_t mode) {
  if (!Ok() || targetExists_ || fd_ < 0) return;
  if (::fchmod(fd_, mode & kPermissionBits) != 0) Fail("set the permissions of", temporary_, errno);
}

void AtomicWriter::WriteThrough(const char* bytes, std::size_t count) {
  if (Ok() && !WriteFile(fd_, bytes, count)) Fail("write", path_, errno);
}

void AtomicWriter::Drain() {
  WriteThrough(buffer_.data(), used_);
  used_ = 0;
}

void AtomicWriter::Bytes(const void* bytes, std::size_t count) {
  if (!Ok() || finished_ || count == 0) return;
  written_ += static_cast<std::int64_t>(count);
  if (count > buffer_.size() - used_) Drain();
  if (!Ok()) return;
  if (count >= buffer_.size()) return WriteThrough(static_cast<const char*>(bytes), count);
  std::memcpy(buffer_.data() + used_, bytes, count);
  used_ += count;
}

void AtomicWriter::Int32(int value) {
  Bytes(&value, sizeof value);
}
void AtomicWriter::Real(double value) {
  Bytes(&value, sizeof value);
}
void AtomicWriter::Int32s(const int* values, std::size_t count) {
  Bytes(values, count * sizeof *values);
}
void AtomicWriter::Reals(const double* values, std::size_t count) {
  Bytes(values, count * sizeof *values);
}

void AtomicWriter::Text(std::string_view text, std::size_t fieldBytes) {
  if (fieldBytes == 0) return;
  std::string field(text.substr(0, fieldBytes - 1));
  field.resize(fieldBytes, '\0');
  Bytes(field.data(), field.size());
}

void AtomicWriter::Printf(const char* format, ...) {
  if (!Ok()) return;
  std::va_list arguments;
  va_start(arguments, format);
  Put(FormatTextV(format, arguments));
  va_end(arguments);
}

void AtomicWriter::WriteOut() {
  if (Ok() && !finished_) Drain();
}

bool AtomicWriter::Finish(bool flushToDisk) {
  if (finished_ || !Ok()) return Ok();
  Drain();
  if (Ok() && flushToDisk && FlushFile(fd_) != 0) Fail("flush", path_, errno);
  const int fd = fd_;
  fd_ = -1;
  if (CloseFile(fd) != 0 && Ok()) Fail("close", path_, errno);
  finished_ = Ok();
  if (!finished_) Discard();
  return finished_;
}

bool AtomicWriter::Commit(bool flushToDisk) {
  if (committed_ || !Finish(flushToDisk)) return Ok();
  committed_ = Place();
  if (committed_) {
    if (flushToDisk) FlushFolder();
    NoteWrittenFile(path_);
  } else {
    Discard();
  }
  return Ok();
}

bool AtomicWriter::Place() {
  if (RenameFile(temporary_, target_) != 0) {
    Fail("replace", path_, errno);
    return false;
  }
  temporary_.clear();
  return true;
}

/// Makes the rename itself last. Some file systems have no flush for folders (EINVAL); that is no failure.
void AtomicWriter::FlushFolder() {
  const std::string folder = DirectoryOf(target_).empty() ? "." : DirectoryOf(target_);
  const int fd = OpenFile(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) {
    if (errno != EACCES) Fail("flush (the new file is in place)", folder, errno);
    return;  // a folder that may be written but not read cannot be flushed
  }
  if (FlushFile(fd) != 0 && errno != EINVAL) Fail("flush (the new file is in place)", folder, errno);
  CloseFile(fd);
}

void AtomicWriter::Discard() {
  if (fd_ >= 0) CloseFile(fd_);
  fd_ = -1;
  if (!temporary_.empty()) RemoveFile(temporary_);
  temporary_.clear();
}

void TextWriter::Printf(const char* format, ...) {
  if (!Ok()) return;
  std::va_list arguments;
  va_start(arguments, format);
  Put(FormatTextV(format, arguments));
  va_end(arguments);
}

void RemoveRemains(const std::string& path) {
  std::string target;
  if (!FollowLinks(path, target)) return;
  const std::string folder = DirectoryOf(target), stem = TemporaryStem(FileNameOf(target));
  // Not std::filesystem::directory_iterator: it ends the process where memory runs out.
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.empty() ? "." : folder.c_str()),
                                                 ::closedir);
  while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
    const std::string_view name = entry->d_name;
    if (name.starts_with(stem) && IsTemporaryTail(name.substr(stem.size())))
      RemoveFile(folder + std::string(name));
  }
}

bool CopyFileAtomic(const std::string& from, const std::string& to, std::string& reason, bool flushToDisk) {
  ByteSource source;
  if (!source.Open(from, &reason)) return false;
  AtomicWriter writer(to);
  struct stat info {};
  if (::stat(from.c_str(), &info) == 0) writer.SetNewFileMode(info.st_mode);
  for (std::string_view block = source.Window(); !block.empty() && writer.Ok(); block = source.Window()) {
    writer.Bytes(block.data(), block.size());
    source.Consume(block.size());
  }
  if (source.Failed()) {
    reason = "Cannot read " + from + " to its end";
    return false;
  }
  if (writer.Commit(flushToDisk)) return true;
  reason = writer.Reason();
  return false;
}

}  // namespace sondera
