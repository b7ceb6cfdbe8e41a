// rep_curve_fit.h - condenses the scattered points of dispersion curves into one value and one deviation for
// each output abscissa.
//
// The value is that of a polynomial in log10(x), fitted by singular values to the points of a sliding window;
// the deviation is that of the points of a narrower cell. Callers: AverageDispG and AverageDisp, for
// velocities and for amplitudes. Pure numbers: no records, no controls, no state.
//
// Odd on purpose, since stored curves depend on all of it:
// - cells and windows are half-open, so the point at the upper end of the range is in no last cell;
// - a window that would extend beyond the range keeps its outer edge and grows on the inner side;
// - the logarithmic law divides the logarithm of the difference of the limits, so its cells do not end at the
//   upper limit: some lie beyond it (or end before it), and those without points are dropped;
// - the two functions treat an empty window and a window of one point differently.
#pragma once

namespace sondera {

/// How CompactDsp_f lays out its cells.
enum CompactMode : int {
  kCellsBySpacing = 1,  ///< by the spacing law
  kCellsByGrid = 2,     ///< around given centres
};

/// Spacing laws; any other value r is a geometric one, each cell r times as wide as the one before.
inline constexpr double kLinearSpacing = 1.0;
inline constexpr double kLogSpacing = -1.0;

/// Condenses points over frequency. All arrays count from 1.
/// @param[out]    xOut   centres of the cells, 1..nPts, unit of xIn
/// @param[in,out] vOut   fitted values, 1..nPts, unit of vIn. 0: no points of its own, or it would be an
///                       extrapolation. Untouched where the window is empty, so the caller zeroes it first
/// @param[in,out] sdOut  standard deviation of the values in the cell, at least 5 % of their mean; 0 for a
///                       window of one point; untouched where nothing was fitted
/// @param[in]     xMin, xMax  range of the output, unit of xIn
/// @param[in]     nPts   number of cells; nothing happens for nPts <= 0
/// @param[in]     nSpan  the window is the range divided by nSpan (the range of log10(x) in the logarithmic
///                       law)
/// @param[in]     polyOrder  terms of the polynomial; a window of fewer points takes as many terms as points.
///                       Below 1: no fit, value 0. Above 64 svdfit allocates in each fit
/// @param[in]     nIn    number of points
/// @param[in]     xIn, vIn  points, 1..nIn, in any order; those with vIn < 0 or NaN do not count
/// @param[in]     mode   kCellsBySpacing, kCellsByGrid
/// @param[in]     incRatio  spacing law; not used with kCellsByGrid
/// @param[in]     grid   centres, 1..nPts, ascending, for kCellsByGrid; else not used, may be null. The cell
///                       borders are midway between them, xMin and xMax at the two ends
/// @return the number of cells that were not dropped; a cell with an empty window counts as one of them
/// NaN and infinities affect only the cells whose window contains them. Allocates before the first cell and
/// not later; the time grows with nPts times the points of a window.
/// Source: moving least squares; the fit is svdfit with equal weights, Press et al., Numerical Recipes.
int CompactDsp_f(double* xOut, double* vOut, double* sdOut, double xMin, double xMax, int nPts, int nSpan,
                 int polyOrder, int nIn, const double* xIn, const double* vIn, int mode, double incRatio,
                 const double* grid);

/// Condenses points over wavelength, with cells by the spacing law for every mode. As CompactDsp_f, but an
/// empty window is not counted, and a window of one point is dropped like any other extrapolation: the return
/// value is the number of fits.
int CompactDsp_w(double* xOut, double* vOut, double* sdOut, double xMin, double xMax, int nPts, int nSpan,
                 int polyOrder, int nIn, const double* xIn, const double* vIn, int mode, double incRatio);

}  // namespace sondera
