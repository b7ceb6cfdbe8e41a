// crc32.cpp - see crc32.h.
#include "runtime/crc32.h"

#include <array>
#include <fstream>
#include <vector>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::array<std::uint32_t, 256> kTable = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    std::uint32_t sum = byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1u) ? (sum >> 1) ^ 0xEDB88320u : sum >> 1;
    table[byte] = sum;
  }
  return table;
}();
constexpr std::size_t kPiece = std::size_t{1} << 16;

}  // namespace

std::uint32_t Crc32(std::string_view bytes, std::uint32_t former) {
  std::uint32_t sum = ~former;
  for (const char c : bytes) sum = kTable[(sum ^ static_cast<unsigned char>(c)) & 0xFFu] ^ (sum >> 8);
  return ~sum;
}

std::optional<FileSum> SumOfFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  FileSum sum;
  std::vector<char> piece(kPiece);
  while (in.read(piece.data(), static_cast<std::streamsize>(piece.size())) || in.gcount() > 0) {
    sum.crc = Crc32({piece.data(), static_cast<std::size_t>(in.gcount())}, sum.crc);
    sum.bytes += in.gcount();
  }
  return in.bad() ? std::nullopt : std::optional(sum);
}

std::string SumText(const FileSum& sum) {
  return FormatText("bytes %lld crc32 %08x", static_cast<long long>(sum.bytes), sum.crc);
}

}  // namespace sondera
