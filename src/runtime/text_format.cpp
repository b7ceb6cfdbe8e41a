// text_format.cpp - see text_format.h.
#include "runtime/text_format.h"

#include <locale.h>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace sondera {
namespace {

bool IsWhite(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Bytes of leading white space, and the sign after it.
std::size_t SkipWhiteAndSign(std::string_view text, bool& negative) {
  std::size_t at = 0;
  while (at < text.size() && IsWhite(text[at])) ++at;
  negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  return at;
}

/// strtod for cases that from_chars does not handle: hexadecimal numbers, and values beyond the range.
double SlowReal(std::string_view text, std::size_t* length) {
  const CNumberScope scope;
  const std::string copy(text);
  char* end = nullptr;
  const double value = std::strtod(copy.c_str(), &end);
  *length = static_cast<std::size_t>(end - copy.c_str());
  return value;
}

}  // namespace

double ParseReal(std::string_view text, std::size_t* used) {
  if (used) *used = 0;
  bool negative = false;
  const std::size_t at = SkipWhiteAndSign(text, negative);
  const std::string_view digits = text.substr(at);
  if (digits.empty() || digits[0] == '-' || digits[0] == '+') return 0.0;
  double value = 0.0;
  std::size_t length = 0;
  if (digits.size() > 1 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
    value = SlowReal(digits, &length);
  } else {
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::invalid_argument) return 0.0;
    length = static_cast<std::size_t>(end - digits.data());
    if (error == std::errc::result_out_of_range) value = SlowReal(digits.substr(0, length), &length);
  }
  if (used) *used = at + length;
  return negative ? -value : value;
}

double ParseRealD(std::string_view text, std::size_t* used) {
  bool negative = false;
  std::size_t at = SkipWhiteAndSign(text, negative);
  const std::size_t mantissa = at;
  while (at < text.size() && (IsDigit(text[at]) || text[at] == '.')) ++at;
  if (at == mantissa || at >= text.size() || (text[at] != 'D' && text[at] != 'd'))
    return ParseReal(text, used);
  std::size_t end = at + 1;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  while (end < text.size() && IsDigit(text[end])) ++end;
  std::string plain(text.substr(0, end));
  plain[at] = 'e';
  return ParseReal(plain, used);
}

int ParseInt(std::string_view text, std::size_t* used) {
  if (used) *used = 0;
  bool negative = false;
  std::size_t at = SkipWhiteAndSign(text, negative);
  if (at >= text.size() || !IsDigit(text[at])) return 0;
  constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<int>::max()} + 1;
  std::int64_t value = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at)
    if (value < kLimit) value = std::min(kLimit, value * 10 + (text[at] - '0'));
  if (used) *used = at;
  if (negative) return static_cast<int>(-value);
  return static_cast<int>(std::min(value, kLimit - 1));
}

std::string FormatText(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::string text = FormatTextV(format, arguments);
  va_end(arguments);
  return text;
}

std::string FormatTextV(const char* format, std::va_list arguments) {
  const CNumberScope scope;
  char small[512];
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(small, sizeof small, format, arguments);
  std::string text;
  if (length > 0 && static_cast<std::size_t>(length) < sizeof small) {
    text.assign(small, static_cast<std::size_t>(length));
  } else if (length > 0) {
    text.resize(static_cast<std::size_t>(length));
    std::vsnprintf(text.data(), text.size() + 1, format, again);
  }
  va_end(again);
  return text;
}

CNumberScope::CNumberScope() {
  if (std::strcmp(std::localeconv()->decimal_point, ".") == 0) return;
  locale_t own = ::newlocale(LC_ALL_MASK, "C", nullptr);
  if (!own) return;
  own_ = own;
  previous_ = ::uselocale(own);
}

CNumberScope::~CNumberScope() {
  if (!own_) return;
  ::uselocale(static_cast<locale_t>(previous_));
  ::freelocale(static_cast<locale_t>(own_));
}

}  // namespace sondera
