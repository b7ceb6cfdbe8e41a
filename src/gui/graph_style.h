// graph_style.h - appearance and description of graphs, without Qt: sizes, dashes, limits that can be drawn,
// the spoken line. Ticks, symbols and colours are those of figure/. No state.
#pragma once

#include <string>
#include <string_view>

#include "runtime/graphs.h"

namespace sondera {

/// Sizes in pixels at scale 1.
inline constexpr double kLineWidth = 1.5;     ///< of a curve of width 1
inline constexpr double kMarkerSize = 7.0;    ///< symbols of curves
inline constexpr double kEdgeWidth = 0.8;     ///< on each side of a pale curve
inline constexpr double kMaskOpacity = 0.35;  ///< fill of a mask
inline constexpr double kDarkMaskOpacity = 0.18;
inline constexpr double kBandOpacity = 0.16;  ///< area between two curves

bool HasLine(const PlotLook& look);

/// Limits that can be drawn: within 1e200 of 0 and above 1e-200 on a logarithmic axis. Limits that differ
/// only by rounding count as one value: 1 on each side, or half and twice it.
AxisLimits SafeLimits(const AxisLimits& limits, bool logarithmic);

/// Part of an axis after a zoom: the point at `share` (0 to 1) of the axis keeps its place, the range changes
/// by factor. The result stays within `whole`.
AxisLimits Zoomed(const AxisLimits& shown, const AxisLimits& whole, bool logarithmic, double share,
                  double factor);

/// The graph in one line, for a screen reader: "Phase Velocity 0 to 400 over Wavelength 1 to 90, logarithmic;
/// 2 curves: H21[1:2], H31[1:3]; 1 mask 20 to 30 Hz; markers at 20, 30". A title comes last. Limits are those
/// that are drawn.
std::string SpokenLine(const GraphModel& graph, const GraphLimits& shown);

}  // namespace sondera
