// not_a_number.h - the value that stands for no number, as double.
#pragma once

#include <limits>

namespace sondera {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace sondera
