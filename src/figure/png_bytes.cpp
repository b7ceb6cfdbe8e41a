// png_bytes.cpp - see png_bytes.h. The format is that of RFC 2083, its data stored as in RFC 1950 and 1951.
#include "figure/png_bytes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace sondera {
namespace {

void PutByte(std::string& bytes, std::uint32_t value) {
  bytes += static_cast<char>(static_cast<unsigned char>(value & 0xFFu));
}

/// The highest byte first.
void PutWord(std::string& bytes, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) PutByte(bytes, value >> shift);
}

std::uint32_t Crc(std::string_view bytes) {
  static constexpr auto kTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
      std::uint32_t c = i;
      for (int bit = 0; bit < 8; ++bit) c = (c & 1u) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      table[i] = c;
    }
    return table;
  }();
  std::uint32_t crc = 0xFFFFFFFFu;
  for (const char c : bytes) crc = kTable[(crc ^ static_cast<unsigned char>(c)) & 0xFFu] ^ (crc >> 8);
  return ~crc;
}

std::uint32_t Adler(std::string_view bytes) {
  constexpr std::uint32_t kPrime = 65521;
  std::uint32_t a = 1, b = 0;
  for (const char c : bytes) {
    a = (a + static_cast<unsigned char>(c)) % kPrime;
    b = (b + a) % kPrime;
  }
  return (b << 16) | a;
}

void PutChunk(std::string& bytes, std::string_view name, std::string_view data) {
  PutWord(bytes, static_cast<std::uint32_t>(data.size()));
  const std::string body = std::string(name) + std::string(data);
  bytes += body;
  PutWord(bytes, Crc(body));
}

/// Blocks of stored data in a zlib stream.
std::string Stored(const std::string& data) {
  constexpr std::size_t kMost = 65535;
  std::string stream = "\x78\x01";
  for (std::size_t at = 0; at < data.size(); at += kMost) {
    const std::size_t size = std::min(kMost, data.size() - at);
    const auto length = static_cast<std::uint32_t>(size);
    PutByte(stream, at + size == data.size() ? 1 : 0);
    for (const std::uint32_t word : {length, ~length}) {
      PutByte(stream, word);
      PutByte(stream, word >> 8);
    }
    stream += data.substr(at, size);
  }
  PutWord(stream, Adler(data));
  return stream;
}

}  // namespace

std::string PngBytes(const MapPixels& image) {
  if (image.width < 1 || image.height < 1) return {};
  const auto width = static_cast<std::size_t>(image.width);
  if (image.pixels.size() < width * static_cast<std::size_t>(image.height)) return {};
  std::string data;
  for (std::size_t row = 0; row < static_cast<std::size_t>(image.height); ++row) {
    PutByte(data, 0);  // this row is not filtered
    for (std::size_t column = 0; column < width; ++column) {
      const std::uint32_t pixel = image.pixels[row * width + column];
      for (const int shift : {16, 8, 0, 24}) PutByte(data, pixel >> shift);
    }
  }
  std::string header;
  PutWord(header, static_cast<std::uint32_t>(image.width));
  PutWord(header, static_cast<std::uint32_t>(image.height));
  header += std::string("\x08\x06\x00\x00\x00", 5);  // 8 bits, RGB with transparency
  std::string bytes = "\x89PNG\r\n\x1a\n";
  PutChunk(bytes, "IHDR", header);
  PutChunk(bytes, "IDAT", Stored(data));
  PutChunk(bytes, "IEND", {});
  return bytes;
}

std::string Base64(const std::string& bytes) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t word = 0;
    for (std::size_t k = 0; k < 3; ++k)
      word = (word << 8) | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0u);
    for (std::size_t k = 0; k < 4; ++k)
      text += i + k > bytes.size() ? '=' : kDigits[(word >> (18 - 6 * k)) & 0x3Fu];
  }
  return text;
}

}  // namespace sondera
