// plot_graf.h - linear graphs: lines, and the grey boxes of masks. Size, range and texts come from graph_state.h.
#pragma once

#include <vector>

namespace sondera {

inline constexpr int kNormalGraph = 0;
inline constexpr int kDepthDown = 4;  ///< the range of y swapped, the texts of x above the frame

/// A graph of one line through n points (index from 0), with the present grey, width and dash. An axis
/// without keep gets its range from the data. With equal limits of an axis nothing is drawn or moved. A point
/// that is not finite makes a gap. The show flag of an axis turns on its numbers.
void PlotGraf(const double* x, const double* y, int n, bool keepX, bool keepY, bool showX, bool showY,
              bool showTitle, int mode);

/// Another line on the axes of the last PlotGraf.
void AddLine(const double* x, const double* y, int n, bool keepX, bool keepY, int mode);

/// A grey box from bottom (-180) to top (180) for each mask, with its number above the frame. Call it before
/// PlotGraf with the same points, which give the ranges.
/// @param from, to  limits in the data of x; a mask ends at the end of the axis, one that begins beyond it is
///                  left out
void PlotMaskingBox(const double* x, const double* y, int n, const std::vector<double>& from,
                    const std::vector<double>& to, const std::vector<int>& markers, bool keepX, bool keepY);

}  // namespace sondera
