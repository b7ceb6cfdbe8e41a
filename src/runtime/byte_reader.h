// byte_reader.h - bounded reading of little-endian binary files, for bytes that nobody vouches for.
//
// Callers: the project file's readers, imports of earlier formats, their fuzz targets (which read from
// memory). A file that ends early gives zeros from there on and says so once, by ComesShort().
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "runtime/byte_source.h"

namespace sondera {

/// 32-bit integers, 64-bit reals and text fields from a file or a block of memory, in order.
///
/// The first read that finds too few bytes sets ComesShort(); it and all later ones give zeros. An array
/// keeps the whole elements that were still there and has zeros behind them; a single number that is cut is
/// 0. The file is never held in memory: one buffer of some 100 kB, long arrays go straight to their
/// destination.
class ByteReader {
 public:
  ByteReader() = default;

  /// Opens a regular file; false with the reason in *reason (if given).
  bool Open(const std::string& path, std::string* reason = nullptr);
  /// Reads a block of memory, which has to outlive the reading.
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
  /// Passes over bytes; more than there are sets ComesShort().
  void Skip(std::int64_t count);

  /// Bytes that the file can still give; 0 once it came short.
  std::int64_t Remaining() const;
  std::int64_t Position() const { return source_.Position(); }
  bool ComesShort() const { return short_; }
  /// True when the shortness came from a read error of the system, not from the file's end.
  bool ReadFailed() const { return source_.Failed(); }

  /// Whether `count` items of `bytesEach` bytes can still be in the file: to be asked of every count that was
  /// read, before anything is allocated for it. A negative count says no; a count of 0 says yes.
  bool CanHold(std::int64_t count, std::int64_t bytesEach) const;

 private:
  std::size_t Fetch(void* destination, std::size_t count, std::size_t unit);

  ByteSource source_;
  bool short_ = false;
};

}  // namespace sondera
