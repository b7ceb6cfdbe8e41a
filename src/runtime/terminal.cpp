// terminal.cpp - see terminal.h.
#include "runtime/terminal.h"

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "runtime/text_format.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

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
