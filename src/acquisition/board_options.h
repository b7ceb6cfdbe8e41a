// board_options.h - the options after the name of a board driver: "seed=1,channels=4".
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace sondera {

/// A numeric option of a driver, and the destination of its value.
struct BoardOption {
  const char* name;
  double low, high;  ///< accepted values, both ends included
  bool whole;        ///< no fraction
  double* value;     ///< keeps its default when the option is not given
};

/// Writes a list of name=value, separated by commas, to the values of the table. Numbers as in C.
/// @param driver  name of the driver, for the sentence
/// @return "", or one sentence about the first option that is unknown, given twice or out of its range.
/// Values may have changed then.
std::string ParseBoardOptions(std::string_view driver, std::string_view text,
                              std::span<const BoardOption> table);

}  // namespace sondera
