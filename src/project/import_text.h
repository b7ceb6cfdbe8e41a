// import_text.h - columns of numbers in plain text: what .tim, .Hyx and .Gyx files have in common.
//
// A line holds an axis value (time or frequency) and one or two numbers, separated by blanks, commas or tabs.
// A line with more fields is damage: a decimal comma makes two numbers of one. Nothing here knows of records
// or controls: bytes in, columns out, so that the readers, their tests and the fuzz targets share one entry.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text_reader.h"

namespace sondera {

/// What one file gave, line by line from 0. A text that is not a finite number stands as a NaN, so
/// that whoever uses it can refuse it; what nobody uses (a line dropped later) does no harm.
struct TextColumns {
  std::vector<double> axis;  ///< s or Hz; NaN also on a line without any token
  std::vector<double> a;     ///< value, or real part; 0 where the token is missing
  std::vector<double> b;     ///< imaginary part, 0 where missing; empty for one value per line
  double lastValue = 0.0;    ///< last value of column a that was there
  bool damaged = false;      ///< not a file of this kind: fault tells why
  TextFault fault;

  // What a person should know of a file that is taken all the same.
  int mostFields = 0;           ///< of any line
  int shortLines = 0;           ///< lines that lack a value, which counts as 0
  std::int64_t firstShort = 0;  ///< the first of them, from 1
  int linesBehind = 0;          ///< lines with a number behind the last one that was read
  bool endsInLine = false;      ///< the last line that was read has no line end

  // Digits of the axis values as they are written, for their rounding.
  int axisDecimals = 0;     ///< most places behind the point, exponent counted
  int axisSignificant = 0;  ///< most digits from the first that is not 0

  int count() const { return static_cast<int>(a.size()); }
};

/// How a file is read.
struct ColumnRule {
  int values = 1;        ///< numbers behind the axis value: 1 (.tim) or 2 (.Hyx, .Gyx)
  int tokensNeeded = 2;  ///< a line with fewer ends the data: 2 for .tim, 1 for .Hyx and .Gyx
  int keepGoing = 0;     ///< lines below this index never end the data; a later file is read so
  int maxLines = 0;      ///< no line from this index on is read; 0: up to kMostTextLines, more are damage
};

/// More lines than any record of two channels can hold.
inline constexpr int kMostTextLines = (1 << 24) + 2;
/// A longer line is not of these formats: it is damage, not a reason to guess where it goes on.
inline constexpr int kLongestTextLine = 256;

/// Reads a text from its present position. Blank lines at the end of a text that is read with keepGoing do
/// not count. Damage: a line of more than kLongestTextLine bytes or with more fields than the rule has, an
/// axis value that is no number, a last line that breaks off, too many lines, a read error.
TextColumns ReadColumns(TextReader& text, const ColumnRule& rule);

/// Marks columns as damaged and returns false.
bool Damage(TextColumns& columns, std::int64_t line, std::string cause);

/// Holds the axis against an even grid: values ascend, and each stands within a thousandth of a step of its
/// place, or within the rounding of the digits that were written (at most a tenth of a step). False, with
/// the columns damaged, otherwise. Lines without a token are passed over.
/// @param[in] values  what the axis holds, for the message: "times", "frequencies"
bool HasEvenAxis(TextColumns& columns, std::string_view values);

/// Whether two files are sampled alike: no axis value of the second is more than half a step away from that
/// of the first, as far as both go. Lines without a token have nothing to compare.
/// @param[out] row  the first row that differs, from 0; may be null
bool SameAxis(const TextColumns& first, const TextColumns& later, double step, std::size_t* row = nullptr);

}  // namespace sondera
