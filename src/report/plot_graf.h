// plot_graf.h - linear graphs: lines, and the grey boxes of masks. Size, range and texts come from graph_state.h.
#pragma once

#include <vector>

namespace sondera {

inline constexpr int kNormalGraph = 0;
inline constexpr int kDepthDown = 4;  ///< the range of y swapped, the texts of x above the frame

/// A graph of one line through n points (index from 0), in the grey, width and dash of the moment.
/// An axis without keep takes its range from the data. An axis whose limits are equal: nothing is drawn, and
/// nothing moves. A point that is no number is a gap. Axis numbers come with the show flag of their axis.
void PlotGraf(const double* x, const double* y, int n, bool keepX, bool keepY, bool showX, bool showY,
              bool showTitle, int mode);

/// A further line on the axes that PlotGraf has drawn last.
void AddLine(const double* x, const double* y, int n, bool keepX, bool keepY, int mode);

/// A grey box from bottom (-180) to top (180) for each mask, with its number above the frame. To be called before
/// PlotGraf with the same points, from which the ranges come.
/// @param from, to  limits in the data of x; a mask ends with the axis, one that begins behind it is left out
void PlotMaskingBox(const double* x, const double* y, int n, const std::vector<double>& from,
                    const std::vector<double>& to, const std::vector<int>& markers, bool keepX, bool keepY);

}  // namespace sondera
