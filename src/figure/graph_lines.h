// graph_lines.h - positions of curves and maps on the screen or on paper: pixels of values, and the few
// points that draw a curve of any length with the same result. No state.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/graphs.h"

namespace sondera {

/// An axis on the screen: values between min and max lie between the pixels from and to. min below max, above
/// 0 when logarithmic; from and to in any order.
struct PixelAxis {
  double min = 0.0, max = 1.0;
  bool logarithmic = false;
  double from = 0.0, to = 1.0;

  double PixelOf(double value) const;  ///< not finite for a value outside the axis's domain
  double ValueAt(double pixel) const;
};

struct PixelPoint {
  double x = 0.0, y = 0.0;
};
struct PixelArea {
  double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
};
using PixelLine = std::vector<PixelPoint>;

/// Lines of a curve within an area, cut at its edges. A point that is not finite, or not on the axis, makes a
/// gap. Points in the same column of pixels are reduced to first, lowest, highest and last, so a curve has a
/// few points for each column, however long it is. PlotStyle::Steps: first horizontal, then vertical.
/// @param margin  pixels around the area that lines still reach (half their width)
std::vector<PixelLine> LinesOf(const PlotModel& plot, const PixelAxis& x, const PixelAxis& y,
                               const PixelArea& area, double margin);

/// Points of a curve within an area. Of more than kAllPoints points, those within two pixels of each other
/// are drawn once.
std::vector<PixelPoint> PointsOf(const PlotModel& plot, const PixelAxis& x, const PixelAxis& y,
                                 const PixelArea& area);
inline constexpr std::size_t kAllPoints = 5000;

/// Outline of the area between two curves: along the first, back along the second. Empty without two points on each.
PixelLine BandOutline(const PlotModel& plot, const PlotModel& other, const PixelAxis& x, const PixelAxis& y,
                      const PixelArea& area);

/// A map as pixels 0xAARRGGBB, row after row from the top, of the area in whole pixels. A cell is centred on
/// its point, the first and the last point are at the ends of the map's ranges; with interpolate, values
/// change linearly between points. Pixels are transparent outside the ranges, and where the nearest point is
/// NaN.
struct MapPixels {
  int width = 0, height = 0;
  std::vector<std::uint32_t> pixels;
};
MapPixels PixelsOf(const IntensityModel& map, const PixelAxis& x, const PixelAxis& y, const PixelArea& area);

}  // namespace sondera
