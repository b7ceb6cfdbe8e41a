// canvas.cpp - the common part of all kinds of canvas. See canvas.h.
#include "figure/canvas.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <system_error>
#include <vector>

#include "runtime/text_format.h"
#include "runtime/utf8.h"

namespace sondera {

std::string DocumentTime() {
  std::time_t now = std::time(nullptr);
  const char* set = std::getenv("SOURCE_DATE_EPOCH");
  if (set && *set) {
    std::time_t epoch = 0;
    const char* end = set + std::strlen(set);
    const auto read = std::from_chars(set, end, epoch);
    constexpr std::time_t kYear9999 = 253402300799;
    if (read.ec == std::errc() && read.ptr == end && epoch >= 0 && epoch <= kYear9999) now = epoch;
  }
  std::tm parts{};
  gmtime_r(&now, &parts);
  return FormatText("%04d-%02d-%02dT%02d:%02d:%02dZ", parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                    parts.tm_hour, parts.tm_min, parts.tm_sec);
}

std::string Fitted(Canvas& canvas, std::string_view text, const TextLook& look, double width) {
  std::string whole = ValidText(text);
  if (canvas.TextWidth(whole, look) <= width) return whole;
  std::vector<std::uint32_t> letters;
  for (std::string_view rest = whole; !rest.empty();) letters.push_back(NextLetter(rest));
  const auto cut = [&](std::size_t kept) {
    std::string shorter;
    for (std::size_t i = 0; i < (kept + 1) / 2; ++i) PutLetter(shorter, letters[i]);
    shorter += "…";
    for (std::size_t i = letters.size() - kept / 2; i < letters.size(); ++i) PutLetter(shorter, letters[i]);
    return shorter;
  };
  std::size_t fits = 0, tooMany = letters.size();
  while (fits + 1 < tooMany) {
    const std::size_t middle = (fits + tooMany) / 2;
    (canvas.TextWidth(cut(middle), look) <= width ? fits : tooMany) = middle;
  }
  return cut(fits);
}

}  // namespace sondera
