// histogram.h - histograms of class counts and their statistics.
#pragma once

namespace sondera {

/// Means and standard deviations of a histogram.
struct HistogramStatistics {
  double classMean = 0.0;  // of the class numbers 1..n, each weighted by its count
  double classDeviation = 0.0;
  double valueMean = 0.0;  // of the counts themselves
  double valueDeviation = 0.0;
};

/// Statistics of n counts data[0..n-1]; deviations are those of the whole set, divided by its number. Counts
/// below 0 are taken as 0. Without classes or with nothing counted: zeros.
HistogramStatistics stat_histo(const int* data, int n);

/// Outline of n classes of `width` cm each (0: w/n), the tallest h cm high, from the current point, which
/// does not change. Counts as in stat_histo().
/// @param[in]  stat  1 or 3: vertical lines of 6 cm at the class mean (grey 0.3, "Mean") and at 1.96
///                   deviations from it (grey 0.7). 2 or 3: the same as horizontal lines, w cm long, at the
///                   mean of the counts. The grey is 0 afterwards. Any other: only the outline
/// n at or below 0: a line on the error stream, nothing is drawn.
void ps_histo(const int* data, float w, float h, float width, int n, int stat);

}  // namespace sondera
