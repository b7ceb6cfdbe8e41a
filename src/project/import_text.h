// import_text.h - columns of numbers in plain text: the common part of .tim, .Hyx and .Gyx files.
//
// A line holds an axis value (time or frequency) and one or two numbers, separated by blanks, commas or tabs.
// A line with more fields is damaged: a decimal comma makes two numbers of one. Nothing here depends on
// records or controls: bytes in, columns out, so the readers, their tests and the fuzz targets use the same
// function.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text_reader.h"

namespace sondera {

/// Contents of one file, line by line from 0. A text that is not a finite number becomes NaN, so that code
/// that uses the value can refuse it; in lines that are dropped later it does not matter.
struct TextColumns {
  std::vector<double> axis;  ///< s or Hz; NaN also on a line without any token
  std::vector<double> a;     ///< value, or real part; 0 where the token is missing
  std::vector<double> b;     ///< imaginary part, 0 where missing; empty for one value per line
  double lastValue = 0.0;    ///< last value of column a that was present
  bool damaged = false;      ///< not a file of this kind: fault tells why
  TextFault fault;

  // Remarks on a file that is accepted.
  int mostFields = 0;           ///< of any line
  int shortLines = 0;           ///< lines that lack a value, which counts as 0
  std::int64_t firstShort = 0;  ///< the first of them, from 1
  int linesBehind = 0;          ///< lines with a number after the last one that was read
  bool endsInLine = false;      ///< the last line that was read has no line end

  // Digits of the axis values in the text, for their rounding.
  int axisDecimals = 0;     ///< largest number of decimal places, exponent counted
  int axisSignificant = 0;  ///< most digits from the first that is not 0

  int count() const { return static_cast<int>(a.size()); }
};

/// Rules for reading a file.
struct ColumnRule {
  int values = 1;        ///< numbers after the axis value: 1 (.tim) or 2 (.Hyx, .Gyx)
  int tokensNeeded = 2;  ///< a line with fewer ends the data: 2 for .tim, 1 for .Hyx and .Gyx
  int keepGoing = 0;     ///< lines below this index never end the data; for a later file
  int maxLines = 0;      ///< no line from this index on is read; 0: up to kMostTextLines, more are damage
};

/// More lines than any record of two channels can hold.
inline constexpr int kMostTextLines = (1 << 24) + 2;
/// A longer line is not of these formats: it counts as damage, because its continuation would be a guess.
inline constexpr int kLongestTextLine = 256;

/// Reads a text from its present position. Blank lines at the end of a text that is read with keepGoing do
/// not count. Damage: a line of more than kLongestTextLine bytes or with more fields than the rule allows, an
/// axis value that is no number, an incomplete last line, too many lines, a read error.
TextColumns ReadColumns(TextReader& text, const ColumnRule& rule);

/// Marks columns as damaged and returns false.
bool Damage(TextColumns& columns, std::int64_t line, std::string cause);

/// Compares the axis with an even grid: values ascend, and each is within a thousandth of a step of its
/// place, or within the rounding of the digits in the text (at most a tenth of a step). False, with the
/// columns damaged, otherwise. Lines without a token are skipped.
/// @param[in] values  name of the axis values for the message: "times", "frequencies"
bool HasEvenAxis(TextColumns& columns, std::string_view values);

/// Whether two files have the same sampling: no axis value of the second differs by more than half a step
/// from that of the first, up to the shorter length. Lines without a token are not compared.
/// @param[out] row  the first row that differs, from 0; may be null
bool SameAxis(const TextColumns& first, const TextColumns& later, double step, std::size_t* row = nullptr);

}  // namespace sondera
