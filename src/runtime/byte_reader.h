// byte_reader.h - bounded reading of little-endian binary files from untrusted sources.
//
// Callers: the project file's readers, imports of earlier formats, their fuzz targets (which read from
// memory). After the end of a file every read gives zeros, and ComesShort() reports it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "runtime/byte_source.h"

namespace sondera {

/// 32-bit integers, 64-bit reals and text fields from a file or a block of memory, in order.
///
/// The first read with too few bytes sets ComesShort(); it and all later ones give zeros. An array keeps the
/// complete elements and has zeros after them; an incomplete single number is 0. The file is never held in
/// memory: one buffer of some 100 kB, and long arrays are read directly to their destination.
class ByteReader {
 public:
  ByteReader() = default;

  /// Opens a regular file; false with the reason in *reason (if given).
  bool Open(const std::string& path, std::string* reason = nullptr);
  /// Reads a block of memory, which must outlive the reading.
  void OpenMemory(const void* bytes, std::size_t count);
  void Close();
  bool IsOpen() const { return source_.IsOpen(); }

  int Int32();
  double Real();
  /// Field of `fieldBytes` bytes: its text up to the first zero byte; all of it without one.
  std::string Text(std::size_t fieldBytes = 256);
  void Int32s(int* destination, std::size_t count);
  void Reals(double* destination, std::size_t count);
  void Bytes(void* destination, std::size_t count);
  /// Skips bytes; more than there are sets ComesShort().
  void Skip(std::int64_t count);

  /// Bytes that are left in the file; 0 once it came short.
  std::int64_t Remaining() const;
  std::int64_t Position() const { return source_.Position(); }
  bool ComesShort() const { return short_; }
  /// True when a read error of the system was the cause, not the file's end.
  bool ReadFailed() const { return source_.Failed(); }

  /// Whether `count` items of `bytesEach` bytes can still be in the file: check every count from a file in
  /// this way before anything is allocated for it. False for a negative count, true for 0.
  bool CanHold(std::int64_t count, std::int64_t bytesEach) const;

 private:
  std::size_t Fetch(void* destination, std::size_t count, std::size_t unit);

  ByteSource source_;
  bool short_ = false;
};

}  // namespace sondera
