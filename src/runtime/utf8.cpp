// utf8.cpp - see utf8.h.
#include "runtime/utf8.h"

namespace sondera {

std::size_t CharacterAt(std::string_view text, std::uint32_t& code) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  code = first;
  if (first < 0x80) return 1;
  const std::size_t bytes = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < bytes) return 0;
  std::uint32_t letter = first & (0x7Fu >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byte(i) & 0xC0u) != 0x80u) return 0;
    letter = (letter << 6) | (byte(i) & 0x3Fu);
  }
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = letter >= 0xD800 && letter <= 0xDFFF;
  if (letter < kLeast[bytes] || letter > 0x10FFFF || surrogate) return 0;
  code = letter;
  return bytes;
}

std::uint32_t NextLetter(std::string_view& text) {
  std::uint32_t letter = 0;
  const std::size_t bytes = CharacterAt(text, letter);
  text.remove_prefix(bytes == 0 ? 1 : bytes);
  return letter;
}

void PutLetter(std::string& text, std::uint32_t letter) {
  const auto put = [&](std::uint32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  const auto more = [&](unsigned shift) { put(0x80u | ((letter >> shift) & 0x3Fu)); };
  if (letter < 0x80) {
    put(letter);
  } else if (letter < 0x800) {
    put(0xC0u | (letter >> 6));
    more(0);
  } else if (letter < 0x10000) {
    put(0xE0u | (letter >> 12));
    more(6);
    more(0);
  } else {
    put(0xF0u | (letter >> 18));
    more(12);
    more(6);
    more(0);
  }
}

std::string ValidText(std::string_view text) {
  std::string sound;
  while (!text.empty()) {
    const std::uint32_t letter = NextLetter(text);
    const bool control = letter < 0x20 || (letter >= 0x7F && letter < 0xA0);
    // Neither of the two is a character, though each has a code.
    const bool none = (letter & 0xFFFEu) == 0xFFFEu;
    PutLetter(sound, control || none ? ' ' : letter);
  }
  return sound;
}

std::string_view BeginningOf(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  // The cut is good unless a character begins up to three bytes before it and reaches over it.
  for (std::size_t back = 1; back <= 3 && back <= bytes; ++back) {
    std::uint32_t letter = 0;
    const std::size_t length = CharacterAt(text.substr(bytes - back), letter);
    if (length > back) return text.substr(0, bytes - back);
  }
  return text.substr(0, bytes);
}

std::size_t LettersOf(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) NextLetter(text);
  return count;
}

}  // namespace sondera
