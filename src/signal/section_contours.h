// section_contours.h - lines of equal velocity on the grid of a section.
//
// Marching squares on the nodes, joined to lines. Code that draws a section calls it. Numbers only.
#pragma once

#include <vector>

#include "signal/section_grid.h"

namespace sondera {

/// A line of one level. A closed one ends at its first point.
struct ContourLine {
  double level = 0.0;
  std::vector<double> x, y;  ///< distance and wavelength, at least two points
};

/// Round levels inside a range: multiples of 1, 2 or 5 times a power of ten, about `count` of them, none at
/// the ends. Empty where there is no range.
std::vector<double> RoundLevels(double low, double high, int count);

/// Lines of all levels. A cell with a node without a value has none, so a line ends at a hole. Where a cell
/// can be cut in two ways, the mean of its nodes decides. A node exactly at the level counts as above it.
std::vector<ContourLine> SectionContours(const SectionGrid& grid, const std::vector<double>& levels);

}  // namespace sondera
