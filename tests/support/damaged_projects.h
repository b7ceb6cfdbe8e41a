// damaged_projects.h - splits a valid project file and makes damaged ones of it: wrong numbers in every
// field, cuts at every border, parts twice or in the wrong order.
//
// The layout is defined here a second time, separately from the program's reader and writer.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace sondera::testing {

/// A number in a project file. An array counts with its first value only.
struct ProjectField {
  std::size_t position = 0;
  bool real = false;  ///< a double, else a 32-bit integer
  std::string name;
};

/// Where the fields are, and the borders of parts (masks, pair records, ...) and records, ascending; the
/// first border is 0, the last the end of the file.
struct ProjectLayout {
  std::vector<ProjectField> fields;
  std::vector<std::size_t> parts, records;
};

/// Layout of a valid project; the last border is not the end of the file when it is invalid.
ProjectLayout LayoutOf(const std::string& project);

struct Damage {
  std::string name;                                              ///< "pair 1 nDispPoints = -1"
  std::function<std::string(const std::string& project)> apply;  ///< the damaged file
};

/// All damages of a project, always in the same order: each field set to 0, -1, 1, 2^31 - 1, -2^31, 65536,
/// and reals to NaN, infinity, 1e300 and 5e-324 too; a cut at every border and a byte beside it;
/// each part twice, and each two parts swapped.
std::vector<Damage> DamagesOf(const std::string& project);

}  // namespace sondera::testing
