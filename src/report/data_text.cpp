// data_text.cpp - see data_text.h.
#include "report/data_text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "runtime/text_format.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

constexpr std::size_t kMostBytes = 199;  // of a text of the library
constexpr char kDots[] = "...";
constexpr std::uint32_t kLastLatin1 = 0xFF, kFirstUpper = 0xA0;

/// Letters outside Latin-1 with a plain replacement.
struct Relative {
  std::uint32_t first, last;
  const char* text;
};
constexpr Relative kRelatives[] = {
    {0x2000, 0x200A, " "},    {0x2010, 0x2015, "-"},   {0x2018, 0x201B, "'"},  {0x201C, 0x201F, "\""},
    {0x2026, 0x2026, "..."},  {0x202F, 0x202F, " "},   {0x2032, 0x2032, "'"},  {0x2033, 0x2033, "\""},
    {0x2039, 0x2039, "<"},    {0x203A, 0x203A, ">"},   {0x2212, 0x2212, "-"},  {0x2264, 0x2264, "<="},
    {0x2265, 0x2265, ">="},   {0x0152, 0x0152, "OE"},  {0x0153, 0x0153, "oe"}, {0x0160, 0x0160, "S"},
    {0x0161, 0x0161, "s"},    {0x017D, 0x017D, "Z"},   {0x017E, 0x017E, "z"},  {0x0178, 0x0178, "Y"},
    {0x03BC, 0x03BC, "\xB5"}, {0x2126, 0x2126, "Ohm"}, {0x1E9E, 0x1E9E, "SS"}, {0x20AC, 0x20AC, "EUR"}};

std::string Byte(std::uint32_t letter) {
  constexpr std::uint32_t kFirstPrintable = 0x20, kLastPrintable = 0x7E;
  if ((letter >= kFirstPrintable && letter <= kLastPrintable) ||
      (letter >= kFirstUpper && letter <= kLastLatin1))
    return std::string(1, static_cast<char>(letter));
  for (const Relative& relative : kRelatives)
    if (letter >= relative.first && letter <= relative.last) return relative.text;
  return "?";
}

std::string Escaped(std::string_view latin1) {
  std::string text;
  for (const char c : latin1) {
    if (c == '\\' || c == '(' || c == ')') text += '\\';
    if (static_cast<unsigned char>(c) >= kFirstUpper)
      text += FormatText("\\%03o", static_cast<unsigned>(static_cast<unsigned char>(c)));
    else
      text += c;
  }
  return text;
}

}  // namespace

std::string Latin1(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) text += Byte(NextLetter(utf8));
  return text;
}

bool NeedsLatin1(std::string_view utf8) {
  const std::string text = Latin1(utf8);
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) >= kFirstUpper; });
}

std::string PageText(std::string_view utf8, std::size_t mostLetters, CutAt cut) {
  const std::string whole = Latin1(utf8);
  std::string text = Escaped(whole);
  std::size_t room = std::min(mostLetters, kMostBytes);
  if (whole.size() <= room && text.size() <= kMostBytes) return text;
  constexpr std::size_t dots = std::size(kDots) - 1;
  room = std::min(room, whole.size());
  for (std::size_t kept = room > dots ? room - dots : 0;; --kept) {
    text = cut == CutAt::end ? Escaped(whole.substr(0, kept)) + kDots
                             : kDots + Escaped(whole.substr(whole.size() - kept));
    if (kept == 0 || text.size() <= kMostBytes) return text;
  }
}

std::size_t LetterCount(std::string_view pageText) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < pageText.size(); ++i, ++count) {
    if (pageText[i] != '\\' || i + 1 >= pageText.size()) continue;
    i += pageText[i + 1] >= '0' && pageText[i + 1] <= '7' ? 3 : 1;
  }
  return count;
}

std::string_view Latin1FontCode() {
  return "/Latin1Letters ISOLatin1Encoding 256 array copy dup 45 /hyphen put def\n"
         "/UseLatin1 { dup findfont dup length dict begin\n"
         "{ 1 index /FID ne { def } { pop pop } ifelse } forall\n"
         "/Encoding Latin1Letters def currentdict end definefont pop } bind def\n"
         "/Courier UseLatin1 /Helvetica UseLatin1\n";
}

}  // namespace sondera
