// atomic_writer.h - files that are written completely or not at all.
//
// Callers: all code that writes: project saves and backups, exports, result files. The new content goes to a
// temporary file in the same folder, which replaces the old one by a rename, only at Commit(). If anything
// fails before, the old file is unchanged. The next completed file also removes the temporary files of killed
// processes.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sondera {

/// Writer of one file, binary (little-endian, no padding) or text.
///
/// A failure is remembered: all later writes do nothing and Commit() returns false; Reason() is a sentence
/// with the problem and the file. A symbolic link is followed, its target replaced. The new file gets mode
/// and, where allowed, owner and group of the old one; a write-protected old file is refused, as opening it
/// would be.
class AtomicWriter {
 public:
  /// Opens a temporary file `<name>.saving-<process>-<number>` beside the target.
  explicit AtomicWriter(const std::string& path);
  /// Writes nothing: only Digest() and Written() describe the data.
  struct DigestOnly {};
  explicit AtomicWriter(DigestOnly);
  /// Without a successful Commit(): removes the temporary file.
  ~AtomicWriter();
  AtomicWriter(const AtomicWriter&) = delete;
  AtomicWriter& operator=(const AtomicWriter&) = delete;

  bool Ok() const { return reason_.empty(); }
  const std::string& Reason() const { return reason_; }

  void Int32(int value);
  void Real(double value);
  /// Field of `fieldBytes` bytes: the text (at most fieldBytes - 1 bytes of it), then zeros.
  void Text(std::string_view text, std::size_t fieldBytes = 256);
  void Int32s(const int* values, std::size_t count);
  void Reals(const double* values, std::size_t count);
  void Bytes(const void* bytes, std::size_t count);
  /// Plain text, without change.
  void Put(std::string_view text) { Bytes(text.data(), text.size()); }
  /// Formatted text, always in the C locale.
  void Printf(const char* format, ...) __attribute__((format(printf, 2, 3)));

  /// Bytes written so far, including those in the buffer.
  std::int64_t Written() const { return written_; }

  /// For a writer used only for the digest: a number for the bytes so far, equal for equal writes, and almost
  /// certainly different for others.
  std::uint64_t Digest();

  /// Gives the new file mode, owner and group (where the system allows it) and times of another one, instead
  /// of its own. Before Commit().
  void TakeAttributes(const struct stat& other);

  /// Whether the data written so far equal the contents of the old file. False without one, or when one of
  /// the two cannot be read.
  bool SameAsTarget();

  /// Passes the buffer to the system, so that the temporary file contains everything written so far.
  void WriteOut();
  /// All steps of Commit() except the replacement: then the new content is complete, and later writes do
  /// nothing. For callers that replace several files together.
  bool Finish(bool flushToDisk = true);

  /// Replaces the old file: rest of the buffer, flush to disk, rename, flush of the folder (both flushes only
  /// with flushToDisk). False with Reason() on failure; a second call gives the same result.
  bool Commit(bool flushToDisk = true);

 private:
  void OpenTemporary();
  void SetOwnerAndMode(const struct stat& other);
  void Fail(const char* action, const std::string& path, int error);
  void Drain();
  void WriteThrough(const char* bytes, std::size_t count);
  bool Place();
  void FlushFolder();
  void Discard();
  void RemoveLeftovers();

  std::string path_;       // as given, for messages
  std::string target_;     // after symbolic links are followed
  std::string temporary_;  // "" when there is none
  std::string reason_;
  std::vector<char> buffer_;
  std::size_t used_ = 0;
  std::int64_t written_ = 0;
  int fd_ = -1;
  struct timespec begun_ {};    // by the clock of the file system
  struct timespec times_[2]{};  // of access and change, once taken
  bool timesTaken_ = false;
  bool targetExists_ = false;
  bool finished_ = false;  // the temporary file is complete and closed
  bool committed_ = false;
  bool digestOnly_ = false;
  std::uint64_t digest_ = 0;
};

/// Text file on top of AtomicWriter, replacing a plain open for writing: nothing is flushed to disk, and a
/// file that is not closed is not written.
class TextWriter {
 public:
  explicit TextWriter(const std::string& path) : writer_(path) {}
  /// False when the file could not be opened, or a write failed since.
  bool Ok() const { return writer_.Ok(); }
  const std::string& Reason() const { return writer_.Reason(); }
  void Put(std::string_view text) { writer_.Put(text); }
  void Printf(const char* format, ...) __attribute__((format(printf, 2, 3)));
  /// Replaces the old file; false with Reason() on failure.
  bool Close() { return writer_.Commit(false); }

 private:
  AtomicWriter writer_;
};

/// Removes the temporary files that killed processes left beside a target. Only for the holder of the
/// target's lock: it would also remove those of a running process.
void RemoveRemains(const std::string& path);

/// Copies a regular file completely: afterwards `to` is unchanged, or a full copy with mode, time and, where
/// the system allows it, owner and group of the original. False with the reason; a missing `from` is a
/// failure too.
bool CopyFileAtomic(const std::string& from, const std::string& to, std::string& reason,
                    bool flushToDisk = true);

/// Whether two regular files hold the same bytes. False when one of them cannot be read.
bool SameContent(const std::string& one, const std::string& other);

}  // namespace sondera
