// section_plot.h - the section of a line of stations on a graph: an image of the grid with its contour lines, or the
// stack of curves. Distance to the right, wavelength (or a pseudo-depth) downward, station names on top.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "records/session.h"
#include "runtime/graphs.h"
#include "signal/section.h"

namespace sondera {

struct SectionLook {
  std::vector<ColorLevel> colors;  ///< SectionColorLevels
  int depthDivisor = 1;  ///< 1: the axis shows the wavelength, else a pseudo-depth = wavelength / divisor
  bool contours = true;
  std::string unit;  ///< of length
};

/// The four levels of a scale, MakeTMGColorMap as a colour map.
std::vector<ColorLevel> SectionColorLevels(double low, double high, const ColorScale& colors);

/// The grid as an image: a column for each distance, a row for each wavelength, the true ranges. Nodes without a value
/// are NaN, which is drawn as the background. Above the highest level stands kAboveSectionColor. A range of one value is
/// widened by 1 on either side, as its axis is.
IntensityModel SectionImage(const SectionGrid& grid, const SectionLook& look);

/// Levels of the contour lines of an image.
std::vector<double> SectionContourLevels(const SectionGrid& grid);

/// Draws the image, its contour lines, a mark for each point that counts, and the names of the included stations.
/// @param[in] note  line beneath the figure
void PlotSectionImage(const GraphControl& graph, const SectionGrid& grid,
                      std::span<const SectionStation> stations, const SectionLook& look,
                      const std::string& note);

/// Draws the stack: beside each curve first its grey line of four points.
void PlotSectionStack(const GraphControl& graph, const StackedSection& stack,
                      std::span<const SectionStation> stations, const SectionLook& look,
                      const std::string& note);

}  // namespace sondera
