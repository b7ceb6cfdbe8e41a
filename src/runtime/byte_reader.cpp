// byte_reader.cpp - see byte_reader.h.
#include "runtime/byte_reader.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace sondera {

// The format is little-endian, and so is every machine that this builds for; values are copied directly.
static_assert(std::endian::native == std::endian::little, "byte order conversion is not written");
static_assert(sizeof(int) == 4 && sizeof(double) == 8);

bool ByteReader::Open(const std::string& path, std::string* reason) {
  short_ = false;
  return source_.Open(path, reason);
}

void ByteReader::OpenMemory(const void* bytes, std::size_t count) {
  short_ = false;
  source_.OpenMemory(bytes, count);
}

void ByteReader::Close() {
  source_.Close();
  short_ = false;
}

/// Reads `count` bytes of elements of `unit` bytes; missing bytes, and an incomplete element, become zero.
/// Returns the bytes of the complete elements.
std::size_t ByteReader::Fetch(void* destination, std::size_t count, std::size_t unit) {
  if (count == 0) return 0;
  std::size_t got = short_ ? 0 : source_.Read(destination, count);
  if (got < count) {
    short_ = true;
    got -= got % unit;
    std::memset(static_cast<char*>(destination) + got, 0, count - got);
  }
  return got;
}

int ByteReader::Int32() {
  int value;
  Fetch(&value, sizeof value, sizeof value);
  return value;
}

double ByteReader::Real() {
  double value;
  Fetch(&value, sizeof value, sizeof value);
  return value;
}

std::string ByteReader::Text(std::size_t fieldBytes) {
  std::string text(fieldBytes, '\0');
  Fetch(text.data(), fieldBytes, 1);
  text.resize(std::min(text.find('\0'), text.size()));
  return text;
}

void ByteReader::Int32s(int* destination, std::size_t count) {
  Fetch(destination, count * sizeof *destination, sizeof *destination);
}

void ByteReader::Reals(double* destination, std::size_t count) {
  Fetch(destination, count * sizeof *destination, sizeof *destination);
}

void ByteReader::Bytes(void* destination, std::size_t count) {
  Fetch(destination, count, 1);
}

void ByteReader::Skip(std::int64_t count) {
  while (count > 0 && !short_) {
    const std::size_t window = source_.Window().size();
    if (window == 0) {
      short_ = true;
      break;
    }
    const std::int64_t step = std::min(count, static_cast<std::int64_t>(window));
    source_.Consume(static_cast<std::size_t>(step));
    count -= step;
  }
}

std::int64_t ByteReader::Remaining() const {
  if (short_ || source_.Failed()) return 0;
  return std::max<std::int64_t>(0, source_.Size() - source_.Position());
}

bool ByteReader::CanHold(std::int64_t count, std::int64_t bytesEach) const {
  if (count < 0 || bytesEach < 0) return false;
  if (count == 0 || bytesEach == 0) return count == 0;
  return count <= Remaining() / bytesEach;
}

}  // namespace sondera
