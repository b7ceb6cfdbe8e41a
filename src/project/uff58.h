// uff58.h - reads functions from universal files: text files of data sets between "    -1" lines; only set 58
// ("function at nodal degree of freedom") is used here.
//
// Layout of a set 58, one physical line each, of any length and line end:
//
//     "    58"                               label; "    58b" is the binary variety, which is not read
//     ID lines 1 to 5                        free text, often "NONE"
//     record 6   I5,I10,I5,I10,...           function type, number, version, load case, entities and nodes
//     record 7   3I10,3E13.5                 ordinate type, points, spacing (1 even), abscissa minimum,
//                                            increment, z
//     records 8 to 11                        axes data
//     6E13.5 or 4E20.12                      values by the point; two per point when complex
//     "    -1"
//
// Bytes in, numbers out; used by the imports of both kinds, their tests and the fuzz target.
#pragma once

#include <string_view>
#include <vector>

#include "runtime/text_reader.h"

namespace sondera {

/// Function types of record 6 that matter here.
namespace uff58_function {
inline constexpr int kCrossSpectrum = 3;
inline constexpr int kFrequencyResponse = 4;
}  // namespace uff58_function

/// A function of the set.
struct Uff58Set {
  int functionType = 0;
  int ordinateType = 0;  ///< 2 real, 4 real double, 5 complex, 6 complex double; others hold no values for us
  int points = 0;
  double abscissaMin = 0.0, abscissaStep = 0.0;
  std::vector<double> re, im;  ///< a value per point; both empty for other ordinate types
  TextFault fault;             ///< of a damaged set
};

enum class Uff58Status {
  Ok,
  NotUff58,  ///< not a universal file, or without a set 58 in text form
  NoMatch,   ///< sets 58, but the first (all, when all are looked at) of another function type or unevenly
             ///< spaced
  Damaged,  ///< a header or data that end early, a value that is not a finite number, no or negative points, a
            ///< read error; the set's fault tells which
};

enum class Uff58Scan { FirstSetOnly, UntilMatch };

/// Finds and reads a set of one of the accepted function types. Nothing is allocated for points that the file
/// does not contain. out is complete for Ok only, and has its fault for Damaged.
Uff58Status ReadUff58(TextReader& text, const std::vector<int>& acceptedTypes, Uff58Scan scan, Uff58Set& out);

/// Removes the next number from the front of a line of values: fields may touch, exponents may be marked by
/// E, D, or only by their sign ("1.5-103"). False at the end of the line, and for text that is not a number
/// (bad is set).
bool NextUff58Number(std::string_view& line, double& value, bool& bad);

}  // namespace sondera
