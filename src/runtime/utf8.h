// utf8.h - characters of UTF-8 texts, and texts of the project made sound. No state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace sondera {

/// Bytes of the character at the start of a text that is not empty; 0 when it is no whole UTF-8 character. code gets the
/// character, or the byte.
std::size_t CharacterAt(std::string_view text, std::uint32_t& code);

/// Next letter of a text that is not empty, which gets shorter. A byte that is no UTF-8 counts as Latin-1, which older
/// files hold.
std::uint32_t NextLetter(std::string_view& text);

/// Appends a letter.
void PutLetter(std::string& text, std::uint32_t letter);

/// The text as sound UTF-8 in one line: bytes that are none as Latin-1, control characters as spaces.
std::string SoundText(std::string_view text);

/// Letters of a text.
std::size_t LettersOf(std::string_view text);

}  // namespace sondera
