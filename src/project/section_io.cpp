// section_io.cpp - see section_io.h.
#include "project/section_io.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "runtime/text_format.h"

namespace sondera {

namespace {

constexpr std::int64_t kImpliedBytes = std::int64_t{16} << 20;  // limit for every file, however small
constexpr std::int64_t kBytesPerFileByte =
    4;  // powers of two double a raw block, and a pair has other arrays beside its data

constexpr std::size_t kPiece = 32768;  // values; 256 kB stay in the cache until they are read again

}  // namespace

bool SectionReader::Open(const std::string& path, std::string* reason) {
  *this = SectionReader{};
  if (!in_.Open(path, reason)) return false;
  size_ = in_.Remaining();
  return true;
}

void SectionReader::OpenMemory(const void* bytes, std::size_t count) {
  *this = SectionReader{};
  in_.OpenMemory(bytes, count);
  size_ = static_cast<std::int64_t>(count);
}

void SectionReader::Close() {
  in_.Close();
}

void SectionReader::BeginSection(const char* name, bool optional) {
  section_ = name;
  mayEndHere_ = mayEndHere_ || (optional && !Ended() && in_.Remaining() == 0);
}

void SectionReader::EndSection() {
  if (!in_.ComesShort() || mayEndHere_ || givenUp_) return;
  Note(in_.ReadFailed()
           ? std::string("It could not be read to its end: reading stopped in the ") + section_ + " section."
           : std::string("It ends early, in the ") + section_ + " section.");
}

bool SectionReader::CanHold(std::int64_t rows, std::int64_t columns, std::int64_t bytesEach) const {
  if (rows < 0 || columns < 0) return false;
  if (rows == 0 || columns == 0) return true;
  const std::int64_t most = in_.Remaining() / bytesEach;
  return rows <= most / columns;
}

bool SectionReader::Afford(std::int64_t rows, std::int64_t columns, std::int64_t bytesEach) {
  if (rows < 0 || columns < 0) return false;
  if (rows == 0 || columns == 0) return true;
  const std::int64_t left = kImpliedBytes + kBytesPerFileByte * size_ - afforded_;
  if (left < 0 || rows > left / bytesEach / columns) return false;
  afforded_ += rows * columns * bytesEach;
  return true;
}

int SectionReader::Count(const char* items, int most) {
  const int n = Int32();
  if (n >= 0 && n <= most) return n;
  GiveUp(FormatText("it claims %d %s.", n, items));
  return 0;
}

void SectionReader::GiveUp(const std::string& what) {
  if (Ended()) return;  // zeros past the end are not a separate damage
  Abandon("It is damaged in the " + std::string(section_) + " section: " + what +
          " Nothing behind that point could be read.");
}

void SectionReader::Abandon(const std::string& sentence) {
  Note(sentence);
  givenUp_ = true;
  in_.OpenMemory("", 0);
}

void SectionReader::Note(const std::string& what) {
  if (trouble_.empty()) trouble_ = what;
}

void SectionReader::Watch(const double* values, std::size_t count) {
  std::int64_t found = 0;
  for (std::size_t i = 0; i < count; ++i) found += std::isfinite(values[i]) ? 0 : 1;
  if (found > 0 && notFinite_ == 0) notFiniteSection_ = section_;
  notFinite_ += found;
}

std::string SectionReader::NotFinite() const {
  if (notFinite_ == 0) return {};
  return FormatText("%lld %s infinite or NaN, the first in the %s section.",
                    static_cast<long long>(notFinite_), notFinite_ == 1 ? "value is" : "values are",
                    notFiniteSection_);
}

std::string NotReadWhole(const std::string& path, const SectionReader& file) {
  return "The file " + path + " was not read whole. " + file.Trouble() +
         " Save under another name to keep that file as it is.";
}

void StoreIArray(const int* a, int n, AtomicWriter& file) {
  if (n > 0) file.Int32s(a, static_cast<std::size_t>(n));
}
void StoreDArray(const double* a, int n, AtomicWriter& file) {
  if (n > 0) file.Reals(a, static_cast<std::size_t>(n));
}
void LoadIArray(int* a, int n, SectionReader& file) {
  if (n > 0) file.Int32s(a, static_cast<std::size_t>(n));
}
void LoadDArray(double* a, int n, SectionReader& file) {
  if (n > 0) file.Reals(a, static_cast<std::size_t>(n));
}

void LoadVector(std::vector<double>& a, std::size_t n, std::size_t length, SectionReader& file) {
  a = {};
  a.reserve(length);
  while (a.size() < n) {
    const std::size_t done = a.size(), piece = std::min(n - done, kPiece);
    a.resize(done + piece);
    file.Reals(a.data() + done, piece);
  }
  a.resize(length);
}

void StorePadded(const std::vector<int>& a, std::int64_t n, AtomicWriter& file) {
  const std::int64_t have = std::clamp<std::int64_t>(n, 0, static_cast<std::int64_t>(a.size()));
  file.Int32s(a.data(), static_cast<std::size_t>(have));
  for (std::int64_t i = have; i < n && file.Ok(); ++i) file.Int32(0);
}

void StorePadded(const double* a, std::size_t have, std::int64_t n, AtomicWriter& file) {
  static constexpr std::array<double, 512> kZeros{};
  const std::int64_t some = std::clamp<std::int64_t>(n, 0, static_cast<std::int64_t>(have));
  file.Reals(a, static_cast<std::size_t>(some));
  for (std::int64_t i = some; i < n && file.Ok();) {
    const std::int64_t step = std::min<std::int64_t>(n - i, static_cast<std::int64_t>(kZeros.size()));
    file.Reals(kZeros.data(), static_cast<std::size_t>(step));
    i += step;
  }
}

}  // namespace sondera
