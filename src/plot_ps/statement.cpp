// statement.cpp - see statement.h.
#include "plot_ps/statement.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "plot_ps/state.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kLargest = 1e9;

double Held(double value) {
  return std::isnan(value) ? 0.0 : std::clamp(value, -kLargest, kLargest);
}

}  // namespace

void PutLine(std::string_view line) {
  if (plotPs.outFile) plotPs.outFile->Put(line);
}

void Complain(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::fputs(FormatTextV(format, arguments).c_str(), stderr);
  va_end(arguments);
}

Statement& Statement::Word(std::string_view word) {
  const std::size_t count = std::min(word.size(), kMostBytes - used_);
  std::memcpy(At(), word.data(), count);
  used_ += count;
  return *this;
}

/// Ten times a float is exact in a double, so rounding it to the even neighbour gives printf's digits.
Statement& Statement::Tenths(float value) {
  const double held = Held(static_cast<double>(value));
  if (std::signbit(held)) Word("-");
  const auto tenths = static_cast<long long>(std::nearbyint(std::fabs(held) * 10.0));
  Took(std::to_chars(At(), End(), tenths / 10).ptr);
  const char tail[] = {'.', static_cast<char>('0' + tenths % 10), ' '};
  return Word({tail, sizeof tail});
}

Statement& Statement::Number(double value, int decimals) {
  Took(std::to_chars(At(), End(), Held(value), std::chars_format::fixed, decimals).ptr);
  return Word(" ");
}

Statement& Statement::Whole(int value) {
  Took(std::to_chars(At(), End(), value).ptr);
  return Word(" ");
}

void Statement::Put(std::string_view end) {
  Word(end);
  PutLine({text_, used_});
}

float HeldToOne(float value) {
  return value > 0.0f ? std::min(value, 1.0f) : 0.0f;
}

float Length(float value) {
  constexpr float kLongest = 1e6f;
  return std::isfinite(value) && value > 0.0f ? std::min(value, kLongest) : 0.0f;
}

int WholeDegrees(float deg) {
  constexpr float kManyTurns = 36000.0f;
  if (!std::isfinite(deg)) return 0;
  return static_cast<int>(std::fabs(deg) < kManyTurns ? deg : std::fmod(deg, 360.0f));
}

}  // namespace sondera
