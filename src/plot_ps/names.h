// names.h - texts of the prolog, and file names within a PostScript file. For the files of this folder only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sondera {

inline constexpr const char* kCreator = "MS/DOS";
// Kept: the text, not the time. Two files of the same project are equal, byte for byte.
inline constexpr const char* kCreationDate = "now...";

/// Plain text: bytes above 126 and control bytes as \ooo, and "..." and the end of a text with more than
/// `most` letters.
std::string PlainText(std::string_view text, std::size_t most);

/// A file name for a comment line of at most 255 bytes.
std::string NameInComment(std::string_view name);

}  // namespace sondera
