// atomic_writer.cpp - see atomic_writer.h.
#include "runtime/atomic_writer.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <climits>
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
constexpr std::size_t kLongestStem = 200;  // bytes of the file's own name in the name of its temporary file
constexpr mode_t kPermissionBits = 07777;
constexpr std::string_view kTemporaryMark = ".saving-";

std::string StemOf(const std::string& target) {
  return FileNameOf(target).substr(0, kLongestStem);
}

/// Process number in the name of a temporary file of this stem ("site.da.saving-12-0"); 0 for other names.
long OwnerOfTemporary(std::string_view name, std::string_view stem) {
  if (!name.starts_with(stem) || !name.substr(stem.size()).starts_with(kTemporaryMark)) return 0;
  const std::string_view rest = name.substr(stem.size() + kTemporaryMark.size());
  const std::size_t dash = rest.find('-');
  if (dash == 0 || dash == std::string_view::npos || dash + 1 == rest.size() ||
      rest.find_first_not_of("0123456789-") != std::string_view::npos || rest.rfind('-') != dash)
    return 0;
  return static_cast<long>(ParseInt(rest.substr(0, dash)));
}

bool IsAlive(long process) {
  return ::kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
}

bool NotAfter(const timespec& a, const timespec& b) {
  return a.tv_sec != b.tv_sec ? a.tv_sec < b.tv_sec : a.tv_nsec <= b.tv_nsec;
}

/// Calls act(path, process) for each temporary file of a target.
template <class Act>
void ForEachTemporary(const std::string& target, Act act) {
  const std::string folder = DirectoryOf(target), stem = StemOf(target);
  // Not std::filesystem::directory_iterator: it ends the process when memory is exhausted.
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.empty() ? "." : folder.c_str()),
                                                 ::closedir);
  while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
    const long process = OwnerOfTemporary(entry->d_name, stem);
    if (process > 0) act(folder + entry->d_name, process);
  }
}

/// Adds bytes to a digest, eight at a time.
std::uint64_t MixIn(std::uint64_t digest, const char* bytes, std::size_t count) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15u;  // of the golden ratio: spreads each bit
  for (std::size_t i = 0; i < count; i += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes + i, std::min(sizeof word, count - i));
    digest = (std::rotl(digest, 23) ^ word) * kOdd;
    digest ^= digest >> 29;
  }
  return digest * kOdd + count;
}

}  // namespace

AtomicWriter::AtomicWriter(const std::string& path) : path_(path) {
  try {
    OpenTemporary();
  } catch (...) {  // out of memory: without the object nothing else removes the temporary file
    Discard();
    throw;
  }
}

AtomicWriter::AtomicWriter(DigestOnly) : digestOnly_(true) {
  buffer_.resize(kBufferBytes);
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
  const std::string stem = DirectoryOf(target_) + StemOf(target_) + std::string(kTemporaryMark);
  const mode_t mode = targetExists_ ? (old.st_mode & 0777) : 0666;
  for (int k = 0; k < kMostAttempts && fd_ < 0; ++k) {
    temporary_ = stem + FormatText("%ld-%d", static_cast<long>(::getpid()), k);
    fd_ = OpenFile(temporary_, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (fd_ < 0 && errno != EEXIST) break;
  }
  if (fd_ < 0) {
    const int error = errno;
    temporary_.clear();
    return Fail("write", path_, error);
  }
  struct stat fresh {};
  if (::fstat(fd_, &fresh) == 0) begun_ = fresh.st_mtim;
  if (targetExists_) SetOwnerAndMode(old);
  buffer_.resize(kBufferBytes);
}

/// Owner and group only where the system allows it; a changed owner may clear mode bits, so the mode comes
/// last.
void AtomicWriter::SetOwnerAndMode(const struct stat& other) {
  if (::fchown(fd_, other.st_uid, other.st_gid) != 0) errno = 0;
  if (::fchmod(fd_, other.st_mode & kPermissionBits) != 0) Fail("set the permissions of", temporary_, errno);
}

void AtomicWriter::TakeAttributes(const struct stat& other) {
  if (!Ok() || fd_ < 0) return;
  SetOwnerAndMode(other);
  times_[0] = other.st_atim;
  times_[1] = other.st_mtim;
  timesTaken_ = true;
}

bool AtomicWriter::SameAsTarget() {
  Drain();
  return Ok() && targetExists_ && SameContent(temporary_, target_);
}

void AtomicWriter::WriteThrough(const char* bytes, std::size_t count) {
  if (digestOnly_) {
    digest_ = MixIn(digest_, bytes, count);
    return;
  }
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

std::uint64_t AtomicWriter::Digest() {
  Drain();
  return digest_;
}

void AtomicWriter::WriteOut() {
  if (Ok() && !finished_) Drain();
}

bool AtomicWriter::Finish(bool flushToDisk) {
  if (finished_ || !Ok()) return Ok();
  Drain();
  if (Ok() && flushToDisk && FlushFile(fd_) != 0) Fail("flush", path_, errno);
  if (Ok() && timesTaken_ && ::futimens(fd_, times_) != 0) Fail("set the times of", temporary_, errno);
  const int fd = fd_;
  fd_ = -1;
  if (CloseFile(fd) != 0 && Ok()) Fail("close", path_, errno);
  finished_ = Ok();
  if (!finished_) Discard();
  return finished_;
}

bool AtomicWriter::Commit(bool flushToDisk) {
  if (digestOnly_) return false;
  if (committed_ || !Finish(flushToDisk)) return Ok();
  committed_ = Place();
  if (committed_) {
    if (flushToDisk) FlushFolder();
    RemoveLeftovers();
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

/// Makes the rename itself durable. Some file systems have no flush for folders (EINVAL); that is not a
/// failure.
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

/// Removes the temporary files of this target that ended processes left before this one began. One that
/// cannot be removed stays until the next time.
void AtomicWriter::RemoveLeftovers() {
  ForEachTemporary(target_, [&](const std::string& path, long process) {
    struct stat info {};
    if (process > INT_MAX || IsAlive(process) || ::lstat(path.c_str(), &info) != 0) return;
    if (S_ISREG(info.st_mode) && NotAfter(info.st_mtim, begun_)) RemoveFile(path);
  });
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
  ForEachTemporary(target, [](const std::string& temporary, long) { RemoveFile(temporary); });
}

bool CopyFileAtomic(const std::string& from, const std::string& to, std::string& reason, bool flushToDisk) {
  ByteSource source;
  if (!source.Open(from, &reason)) return false;
  AtomicWriter writer(to);
  struct stat info {};
  if (::stat(from.c_str(), &info) == 0) writer.TakeAttributes(info);
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

bool SameContent(const std::string& one, const std::string& other) {
  ByteSource a, b;
  if (!a.Open(one) || !b.Open(other)) return false;
  for (;;) {
    const std::string_view left = a.Window(), right = b.Window();
    const std::size_t n = std::min(left.size(), right.size());
    if (n == 0) return left.empty() && right.empty() && !a.Failed() && !b.Failed();
    if (left.substr(0, n) != right.substr(0, n)) return false;
    a.Consume(n);
    b.Consume(n);
  }
}

}  // namespace sondera
