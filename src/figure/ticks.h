// ticks.h - ticks of an axis, their numbers, and the text beside the axis: one rule for windows, figures and
// reports, so that screen and paper agree. No state.
#pragma once

#include <string>
#include <vector>

#include "runtime/graphs.h"

namespace sondera {

struct Tick {
  double at = 0.0;   ///< in the units of the axis, not divided by its factor
  std::string text;  ///< UTF-8, decimal point in every locale
};

struct AxisTicks {
  std::vector<Tick> numbers;    ///< ticks with a number, upward
  std::vector<double> between;  ///< small ticks without one, upward
};

/// Ticks between the limits, numbers divided by the axis's factor.
///
/// Linear: steps of 1, 2 or 5 times a power of ten; for degrees also 15, 30, 45 and multiples of 90. The
/// divisions of the axis are used if they fit and give numbers of two figures at most. Where such steps leave
/// a single number, equal parts of the axis serve if they give short numbers. Logarithmic: powers of
/// ten, with 2 and 5 times them if they fit; every n-th power if not. A range too narrow for that has the
/// ticks of a linear axis. Numbers from a million on and below a thousandth are written with a power of ten.
/// @param limits  of LimitsInForce: finite, min below max, above 0 on a logarithmic axis. Others give no
///                ticks.
/// @param atMost  number of numbers that fit, at least 2
AxisTicks TicksOf(const AxisModel& axis, const AxisLimits& limits, int atMost);

/// "Frequency, kHz": name and unit with its prefix. Either may be missing. A square is written as one: "V²".
std::string AxisTitle(const AxisModel& axis);

/// Shortest text that gives a number to that many figures: "12.21", "400", "2e+07". For read-outs and screen
/// readers.
std::string ShortNumber(double value, int figures = 4);

}  // namespace sondera
