// byte_source.h - buffered forward reading from a file or from a block of memory; common base of ByteReader
// and TextReader, not used elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sondera {

/// Reads a regular file through one buffer, or a block of memory in place. Can be moved, not copied.
class ByteSource {
 public:
  ByteSource() = default;
  ~ByteSource() { Close(); }
  ByteSource(ByteSource&& other) noexcept;
  ByteSource& operator=(ByteSource&& other) noexcept;

  /// Opens a regular file. False, with the reason in *reason (if given), for anything else: a folder, a pipe
  /// and a device are refused without waiting on them.
  bool Open(const std::string& path, std::string* reason = nullptr);

  /// Reads from memory, which must stay unchanged until Close.
  void OpenMemory(const void* bytes, std::size_t count);

  void Close();
  bool IsOpen() const { return open_; }

  /// Size of the file when it was opened, in bytes.
  std::int64_t Size() const { return size_; }
  std::int64_t Position() const { return position_; }

  /// Available bytes without a further read; empty only at the end (or after a read error).
  std::string_view Window();
  /// Moves on by at most Window().size() bytes.
  void Consume(std::size_t count);

  /// Reads up to count bytes, fewer only at the end. Long runs are read directly to their destination.
  std::size_t Read(void* destination, std::size_t count);

  /// Back to the first byte.
  bool Rewind();

  /// True after the system reported a read error; the source then counts as ended.
  bool Failed() const { return failed_; }

 private:
  std::size_t Fill(void* destination, std::size_t count);

  bool open_ = false;
  bool failed_ = false;
  int fd_ = -1;  // -1: memory
  std::int64_t size_ = 0;
  std::int64_t position_ = 0;  // of the next byte to return
  std::vector<char> buffer_;   // files only
  std::string_view window_;    // rest of the buffer, or of the memory
  std::string_view memory_;    // the whole block, for Rewind
};

}  // namespace sondera
