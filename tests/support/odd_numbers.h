// odd_numbers.h - the numbers that most routines meet only by mistake, as double.
#pragma once

#include <limits>

namespace sondera {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr double kEps = std::numeric_limits<double>::epsilon();

}  // namespace sondera
