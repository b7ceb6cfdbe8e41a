// text_format.h - numbers to text and back, in the C locale whatever the process's locale is.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>

namespace sondera {

/// Leading number of a text: white space, sign, decimal or hexadecimal number, "inf" or "nan"; 0 without one,
/// an infinity beyond the range. What follows the number does not matter.
/// @param[out] used  bytes up to the number's end; 0 when there is no number. May be null
double ParseReal(std::string_view text, std::size_t* used = nullptr);

/// The same, where an exponent may also be marked by D or d ("1.25D-03"), as Fortran writes it.
double ParseRealD(std::string_view text, std::size_t* used = nullptr);

/// Leading decimal integer of a text: white space, sign, digits; 0 without one. Beyond 32 bits: the nearest
/// limit.
int ParseInt(std::string_view text, std::size_t* used = nullptr);

/// printf into a string, in the C locale.
std::string FormatText(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string FormatTextV(const char* format, std::va_list arguments) __attribute__((format(printf, 1, 0)));

/// While it lives, numbers of this thread are written and read with a decimal point. Costs a look at the
/// locale when that is so anyway.
class CNumberScope {
 public:
  CNumberScope();
  ~CNumberScope();
  CNumberScope(const CNumberScope&) = delete;
  CNumberScope& operator=(const CNumberScope&) = delete;

 private:
  void* own_ = nullptr;       // locale_t made for the scope; null when none was needed
  void* previous_ = nullptr;  // locale_t to go back to
};

}  // namespace sondera
