// curve_plot.h - the axes that all pictures of dispersion curves share.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "curve_report.h"
#include "svg_plot.h"

namespace sondera::example {

inline double RoundUp(double value, double step) {
  return step * std::ceil(value / step);
}

/// An empty plot of velocity over wavelength that has room for these points and, above them, for its legend.
inline SvgPlot CurvePlot(const std::string& title, const std::vector<CurvePoint>& points) {
  double shortest = 1e30, longest = 1.0, least = 1e30, most = 0.0;
  for (const CurvePoint& p : points) {
    shortest = std::min(shortest, p.wavelength);
    longest = std::max(longest, p.wavelength);
    least = std::min(least, p.velocity);
    most = std::max(most, p.velocity);
  }
  const double step = most < 300.0 ? 20.0 : 50.0;
  return {title,
          {"Wavelength, m", 0.9 * std::min(shortest, longest), 1.1 * longest, 0.0, true},
          {"Phase velocity, m/s", std::max(0.0, RoundUp(0.9 * std::min(least, most) - step, step)),
           RoundUp(1.15 * most, step), step}};
}

/// Line of a known curve, as far as the points of the plot go.
inline SvgSeries KnownCurve(const std::string& label, const std::vector<CurvePoint>& known,
                            const std::vector<CurvePoint>& points) {
  SvgSeries s{label, "black", {}, {}, true, false};
  const auto shorter = [](const CurvePoint& a, const CurvePoint& b) { return a.wavelength < b.wavelength; };
  const auto ends = std::minmax_element(points.begin(), points.end(), shorter);
  for (const CurvePoint& p : known) {
    if (points.empty() || shorter(p, *ends.first) || shorter(*ends.second, p)) continue;
    s.x.push_back(p.wavelength);
    s.y.push_back(p.velocity);
  }
  return s;
}

}  // namespace sondera::example
