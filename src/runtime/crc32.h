// crc32.h - the usual check sum of files (polynomial EDB88320, as of zip and PNG), to tell whether a file has
// changed. No state.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sondera {

/// @param former  sum of the bytes before, for a text in several pieces
std::uint32_t Crc32(std::string_view bytes, std::uint32_t former = 0);

struct FileSum {
  std::int64_t bytes = 0;
  std::uint32_t crc = 0;
};
/// No value for a file that cannot be read to its end.
std::optional<FileSum> SumOfFile(const std::string& path);

/// "bytes 1024 crc32 0a1b2c3d".
std::string SumText(const FileSum& sum);

}  // namespace sondera
