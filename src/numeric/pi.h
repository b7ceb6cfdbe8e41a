// pi.h - the number pi under the names that formulas of this tree use.
#pragma once

#include <numbers>

namespace sondera {

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kTwoPi = 2.0 * kPi;

}  // namespace sondera
