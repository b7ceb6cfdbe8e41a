// statement.h - one line of the PostScript file at a time, its numbers in the C locale.
//
// For the files of this folder only. Nothing is written while no document is open.
#pragma once

#include <cstddef>
#include <string_view>

namespace sondera {

/// Writes a line, or several, without change.
void PutLine(std::string_view line);

/// A line on the error stream, as printf. The caller must make control bytes visible.
void Complain(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Composes one line; Put() writes it.
///   Statement().Tenths(x).Tenths(y).Put("L\n")   ->   "12.5 -3.0 L\n"
class Statement {
 public:
  Statement& Word(std::string_view word);
  /// "%.1f ", as printf. NaN counts as 0; sizes above 1e9 are limited to it.
  Statement& Tenths(float value);
  /// "%.<decimals>f " of at most 6 decimals, with the same limits.
  Statement& Number(double value, int decimals);
  /// "%d "
  Statement& Whole(int value);
  void Put(std::string_view end);

 private:
  static constexpr std::size_t kMostBytes = 255;  // the longest line that readers must accept
  char* At() { return text_ + used_; }
  char* End() { return text_ + kMostBytes; }
  void Took(const char* end) { used_ = static_cast<std::size_t>(end - text_); }

  char text_[kMostBytes];
  std::size_t used_ = 0;
};

/// Limits a value to 0..1: NaN and values below 0 give 0, values above 1 give 1.
float HeldToOne(float value);
/// Lengths that a device accepts: NaN, infinities and values below 0 give 0; at most 1e6.
float Length(float value);
/// Degrees truncated to integers, as PostScript gets them; large angles without full turns. NaN and
/// infinities as 0.
int WholeDegrees(float deg);

}  // namespace sondera
