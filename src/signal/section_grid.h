// section_grid.h - velocities on a regular grid over distance and wavelength, from the points of all curves
// of a line.
//
// Ordinary kriging estimates every node from the points around it: those in a box of 0.15 of the extents,
// which grows while it is empty. Nodes with two points or fewer around them have no value. The section image
// (section.h) calls it; numbers only. Distances and wavelengths are in one unit of length.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

/// Ranges of the grid, and of the points that count.
struct SectionLimits {
  double tmgDMin = 0.0, tmgDMax = 0.0;    ///< distance
  double tmgWlMin = 0.0, tmgWlMax = 0.0;  ///< wavelength
  bool operator==(const SectionLimits&) const = default;
};

/// Points of all curves, in ascending order of x; the vectors are of one length.
struct SectionSamples {
  std::vector<double> x, y, z;  ///< distance, wavelength, velocity
  bool operator==(const SectionSamples&) const = default;
};

/// Settings of a grid. A grid is out of date when these or the samples differ from those that it was made
/// from.
struct GridSettings {
  SectionLimits limits;
  int tmgNx = 20, tmgNy = 10;  ///< intervals along distance and wavelength, 1 to kMostIntervals
  /// The box grows until it holds 6 points at 2 distances, instead of until it holds any.
  bool fill = false;
  bool operator==(const GridSettings&) const = default;
};
inline constexpr int kMostIntervals = 500;

/// The grid; without a result all is empty.
struct SectionGrid {
  std::vector<double> gridX, gridY;             ///< nx + 1 distances, ny + 1 wavelengths, ascending
  std::vector<double> value;                    ///< node (i, j) at j * (nx + 1) + i; NaN: no value
  int nEmpty = 0;                               ///< nodes without a value
  std::vector<std::array<int, 2>> sameSamples;  ///< pairs of samples at one place, each pair once

  int Nx() const { return static_cast<int>(gridX.size()) - 1; }
  int Ny() const { return static_cast<int>(gridY.size()) - 1; }
  bool Empty() const { return value.empty(); }
  double At(int i, int j) const {
    return value[static_cast<std::size_t>(j) * gridX.size() + static_cast<std::size_t>(i)];
  }
};

/// Samples around a place.
struct Neighbourhood {
  std::vector<int> sample;  ///< positions in the samples, ascending
  /// Samples by quadrant: right and above, left and above, left and below, right and below. A sample at the
  /// same distance as the place counts to the left, one at the same wavelength to the lower quadrants.
  std::array<int, 4> inQuadrant{};
};

/// The four settings in the order xMin, xMax, yMin, yMax.
std::array<double, 4> get_range(const SectionLimits& limits);

/// Samples around (x0, y0), which is inside the limits. Returns 0; -1, with `found` unchanged, when the box
/// covers all limits and holds no sample.
int GetSamples(const SectionSamples& samples, const GridSettings& settings, double x0, double y0,
               Neighbourhood& found);

/// Fills `grid`. Refuses, with `grid` unchanged, limits that are no range, a line without points, and too
/// many points around a node; without a reason after a halt.
Refusal DoKriging(const SectionSamples& samples, const GridSettings& settings, Listener& listener,
                  SectionGrid& grid);

/// Velocity at a place from the four nodes around it, each weighted by its nearness. NaN outside the grid, or
/// where a node with weight has no value. At a node: that node's value.
double GridVelocity(const SectionGrid& grid, double distance, double wavelength);

}  // namespace sondera
