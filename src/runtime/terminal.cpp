// terminal.cpp - see terminal.h.
#include "runtime/terminal.h"

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Bytes of the character at the start of a text, 0 when it is no whole UTF-8 character.
std::size_t CharacterAt(std::string_view text, std::uint32_t& code) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  code = first;
  if (first < 0x80) return 1;
  const std::size_t bytes = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < bytes) return 0;
  code = first & (0x7Fu >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byte(i) & 0xC0u) != 0x80u) return 0;
    code = (code << 6) | (byte(i) & 0x3Fu);
  }
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code < kLeast[bytes] || code > 0x10FFFF || surrogate ? 0 : bytes;
}

bool IsControl(std::uint32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

std::string WithoutControls(std::string_view text, bool lineEnds) {
  std::string shown;
  while (!text.empty()) {
    std::uint32_t code = 0;
    std::size_t bytes = CharacterAt(text, code);
    const bool plain = bytes > 0 && (!IsControl(code) || (lineEnds && code == '\n'));
    if (bytes == 0) bytes = 1;
    for (const char c : text.substr(0, bytes)) {
      if (plain)
        shown += c;
      else
        shown += FormatText("\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
    text.remove_prefix(bytes);
  }
  return shown;
}

}  // namespace

std::string TerminalText(std::string_view text) {
  return WithoutControls(text, true);
}

std::string VisibleText(std::string_view text) {
  return WithoutControls(text, false);
}

void PrintError(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string text = TerminalText(FormatTextV(format, arguments));
  va_end(arguments);
  std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace sondera
