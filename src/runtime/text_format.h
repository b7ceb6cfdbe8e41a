// text_format.h - numbers to text and back, in the C locale, independent of the process's locale.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>

namespace sondera {

/// Leading number of a text: white space, sign, decimal or hexadecimal number, "inf" or "nan"; 0 without one,
/// infinity beyond the range. Text after the number does not matter.
/// @param[out] used  bytes up to the number's end; 0 when there is no number. May be null
double ParseReal(std::string_view text, std::size_t* used = nullptr);

/// The same, where an exponent may also have D or d ("1.25D-03"), as in Fortran.
double ParseRealD(std::string_view text, std::size_t* used = nullptr);

/// Leading decimal integer of a text: white space, sign, digits; 0 without one. Beyond 32 bits: the nearest
/// limit.
int ParseInt(std::string_view text, std::size_t* used = nullptr);

/// printf into a string, in the C locale.
std::string FormatText(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string FormatTextV(const char* format, std::va_list arguments) __attribute__((format(printf, 1, 0)));

/// While it exists, numbers of this thread are written and read with a decimal point. If that is already the
/// case it only checks the locale.
class CNumberScope {
 public:
  CNumberScope();
  ~CNumberScope();
  CNumberScope(const CNumberScope&) = delete;
  CNumberScope& operator=(const CNumberScope&) = delete;

 private:
  void* own_ = nullptr;       // locale_t made for the scope; null when none was needed
  void* previous_ = nullptr;  // locale_t to restore
};

}  // namespace sondera
