// section_io.h - reading and writing the sections of a project file: the bounded reader, which remembers
// problems, and the array helpers of both directions.
//
// Callers: the section files beside this one, and the readers and writers of the single-section files (".ia",
// ".sms", ".srd"). A project file has no header, no version and no padding, so nothing after a wrong count
// can be found again: the first problem determines the final message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/atomic_writer.h"
#include "runtime/byte_reader.h"

namespace sondera {

/// Reads little-endian values in order. Past the end of the file, and after GiveUp, every value is zero and
/// every text empty. It throws nothing and shows nothing; Trouble() has the one sentence for the person.
class SectionReader {
 public:
  /// Opens a file; false with the reason in *reason (if given).
  bool Open(const std::string& path, std::string* reason = nullptr);
  /// Reads a block of memory, which must outlive the reading.
  void OpenMemory(const void* bytes, std::size_t count);
  void Close();
  bool IsOpen() const { return in_.IsOpen(); }

  /// Names the next section, for Trouble(). A file may end directly before an optional section.
  void BeginSection(const char* name, bool optional = false);
  /// Records that the file ended within the section.
  void EndSection();

  int Int32() { return in_.Int32(); }
  double Real() {
    const double value = in_.Real();
    Watch(&value, 1);
    return value;
  }
  std::string Text(std::size_t fieldBytes = 256) { return in_.Text(fieldBytes); }
  void Int32s(int* destination, std::size_t count) { in_.Int32s(destination, count); }
  void Reals(double* destination, std::size_t count) {
    in_.Reals(destination, count);
    Watch(destination, count);
  }
  void Skip(std::int64_t bytes) { in_.Skip(bytes); }

  /// True once nothing more can be read: the file ended early, or reading was given up.
  bool Ended() const { return in_.ComesShort() || givenUp_; }
  /// True after GiveUp and Abandon.
  bool GivenUp() const { return givenUp_; }
  std::int64_t Remaining() const { return in_.Remaining(); }

  /// Whether rows times columns items of `bytesEach` can still be in the file. False for negative sizes, true
  /// for empty ones.
  bool CanHold(std::int64_t rows, std::int64_t columns, std::int64_t bytesEach) const;
  /// Requests memory for contents of the file: true while the sum of all requests stays within four times the
  /// file's size plus a fixed amount for tables that a small file may need. A granted request is added to the
  /// sum.
  bool Afford(std::int64_t rows, std::int64_t columns, std::int64_t bytesEach);

  /// Reads a number of items: 0 past the end; below 0 or above `most` is damage, and 0.
  /// @param[in] items  name of the items, for the sentence ("measurements")
  int Count(const char* items, int most);

  /// Damage after which no position can be trusted: `what` is stored, all further reads give zeros.
  void GiveUp(const std::string& what);
  /// The same for another reason than damage: the sentence is used without change.
  void Abandon(const std::string& sentence);
  /// Damage that does not stop the reading.
  void Note(const std::string& what);
  /// The first trouble as a full sentence, "" when there was none.
  const std::string& Trouble() const { return trouble_; }
  /// Sentence on the reals that are infinite or NaN, "" when there was none. They are returned without
  /// change.
  std::string NotFinite() const;

 private:
  void Watch(const double* values, std::size_t count);

  ByteReader in_;
  std::int64_t size_ = 0;
  std::int64_t afforded_ = 0;
  bool givenUp_ = false;
  bool mayEndHere_ = false;
  const char* section_ = "first";
  std::string trouble_;
  std::int64_t notFinite_ = 0;
  const char* notFiniteSection_ = "";  ///< of the first
};

/// The message for a file whose reading had problems.
std::string NotReadWhole(const std::string& path, const SectionReader& file);

/// One binary block of n values; n at or below 0: nothing.
void StoreIArray(const int* a, int n, AtomicWriter& file);
void StoreDArray(const double* a, int n, AtomicWriter& file);
void LoadIArray(int* a, int n, SectionReader& file);
void LoadDArray(double* a, int n, SectionReader& file);

/// Gives `a` `length` values: the next n of the file, then zeros. n is at most length. Works piece by piece,
/// so that setting the vector to zero first does not cost a second pass through memory.
void LoadVector(std::vector<double>& a, std::size_t n, std::size_t length, SectionReader& file);

/// Exactly n values from the front of a vector that may be shorter: missing values are zeros.
void StorePadded(const std::vector<int>& a, std::int64_t n, AtomicWriter& file);
void StorePadded(const double* a, std::size_t have, std::int64_t n, AtomicWriter& file);
inline void StorePadded(const std::vector<double>& a, std::int64_t n, AtomicWriter& file) {
  StorePadded(a.data(), a.size(), n, file);
}

}  // namespace sondera
