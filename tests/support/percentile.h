// percentile.h - the value below which a share of some values lies.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace sondera::testing {

/// Linear between the two nearest of the values, which must not be empty; share is 0 to 1.
inline double Percentile(std::vector<double> values, double share) {
  std::sort(values.begin(), values.end());
  const double at = share * static_cast<double>(values.size() - 1);
  const auto low = static_cast<std::size_t>(at);
  const std::size_t high = std::min(low + 1, values.size() - 1);
  return values[low] + (at - static_cast<double>(low)) * (values[high] - values[low]);
}

}  // namespace sondera::testing
