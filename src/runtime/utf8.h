// utf8.h - characters of UTF-8 texts, and conversion of the project's texts to valid UTF-8. No state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace sondera {

/// Bytes of the character at the start of a non-empty text; 0 when it is not a complete UTF-8 character. code
/// gets the character, or the byte.
std::size_t CharacterAt(std::string_view text, std::uint32_t& code);

/// Removes and returns the next letter of a non-empty text. A byte that is not UTF-8 counts as Latin-1, which
/// older files contain.
std::uint32_t NextLetter(std::string_view& text);

/// Appends a letter.
void PutLetter(std::string& text, std::uint32_t letter);

/// The text as valid UTF-8 in one line: invalid bytes as Latin-1, control characters as spaces.
std::string ValidText(std::string_view text);

/// The longest beginning of at most that many bytes that cuts no character. Bytes that are no UTF-8 are cut anywhere.
std::string_view BeginningOf(std::string_view text, std::size_t bytes);

/// Letters of a text.
std::size_t LettersOf(std::string_view text);

}  // namespace sondera
