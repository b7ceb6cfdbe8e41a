// names.cpp - see names.h.
#include "plot_ps/names.h"

#include "runtime/text_format.h"

namespace sondera {

std::string PlainText(std::string_view text, std::size_t most) {
  constexpr char kFirstPrintable = ' ', kLastPrintable = '~';
  std::string plain;
  for (const char c : text) {
    if (c >= kFirstPrintable && c <= kLastPrintable)
      plain += c;
    else
      plain += FormatText("\\%03o", static_cast<unsigned>(static_cast<unsigned char>(c)));
  }
  return plain.size() <= most ? plain : "..." + plain.substr(plain.size() - most + 3);
}

std::string NameInComment(std::string_view name) {
  constexpr std::size_t kLongestName = 200;
  return PlainText(name, kLongestName);
}

}  // namespace sondera
