// import_text.h - columns of numbers in plain text: what .tim, .Hyx and .Gyx files have in common.
//
// A line holds an axis value (time or frequency) and one or two numbers, separated by blanks, commas or tabs.
// Further columns are passed over. Nothing here knows of records or controls: bytes in, columns out, so that
// the readers, their tests and the fuzz targets share one entry.
#pragma once

#include <vector>

#include "runtime/text_reader.h"

namespace sondera {

/// What one file gave, line by line from 0. A text that is not a finite number stands as a not-a-number, so
/// that whoever uses it can refuse it; what nobody uses (a line dropped later) does no harm.
struct TextColumns {
  std::vector<double> axis;  ///< s or Hz; not-a-number also on a line without any token
  std::vector<double> a;     ///< value, or real part; 0 where the token is missing
  std::vector<double> b;     ///< imaginary part, 0 where missing; empty for one value per line
  double lastValue = 0.0;    ///< last value of column a that was there
  bool damaged = false;      ///< a line is too long, an axis value is no number, or there are too many lines

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
/// not count.
TextColumns ReadColumns(TextReader& text, const ColumnRule& rule);

/// Whether two files are sampled alike: no axis value of the second is more than half a step away from that
/// of the first, as far as both go. Lines without a token have nothing to compare.
bool SameAxis(const TextColumns& first, const TextColumns& later, double step);

}  // namespace sondera
