// curve_ranges.h - dispersion curves for the pages, and their common axes.
#pragma once

#include <string>
#include <vector>

namespace sondera {

/// Points of a curve, index from 0; three columns of one length.
struct ReportCurve {
  std::string label;                    ///< UTF-8
  std::vector<double> vel, freq, wlen;  ///< length/s, Hz, length
};

/// Limits of the three quantities: those of the data, and on round numbers for the axes. A quantity without
/// two different values keeps equal limits, and its graphs are not drawn.
struct CurveRanges {
  struct Limits {
    double min = 0.0, max = 0.0;
  };
  Limits vel, freq, wlen;    ///< for the axes
  bool legendRight = false;  ///< the last point of the last curve lies on the left side
};

/// Only values above 0 count.
CurveRanges RangesOfCurves(const std::vector<ReportCurve>& curves);

/// Curves of the pairs that are included and belong to a measurement of the project.
std::vector<ReportCurve> IncludedCurves();

/// The two graphs of a page.
enum class CurveGraph { upper, lower };
/// The quantity of its x axis.
enum class CurveDomain { wavelength, frequency };

/// Sets the graph of a page for curves: size, place, range, divisions, labels.
/// @param title  in the library's escaped form
void SetUpCurveGraph(CurveGraph place, CurveDomain domain, const std::string& title,
                     const CurveRanges& ranges, double unitFactor);

/// The column of a curve that belongs to a domain.
const std::vector<double>& AbscissaOf(const ReportCurve& curve, CurveDomain domain);

}  // namespace sondera
