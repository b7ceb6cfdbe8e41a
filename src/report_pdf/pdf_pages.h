// pdf_pages.h - the kinds of pages of the PDF report. Each gives the pages that it fills, in their order; none where it has
// no contents. For the files of this folder.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "figure/canvas.h"
#include "report_pdf/report_contents.h"
#include "report_pdf/sheet_writer.h"

namespace sondera {

struct PlannedPage {
  std::string name;  ///< in the table of contents; "" for a page that goes on
  std::function<void(Canvas& canvas, const Sheet& sheet)> draw;
};
using PlannedPages = std::vector<PlannedPage>;

/// @param missing  kinds of pages that the report does not have
PlannedPages SummaryPages(const PdfReport& report, const std::vector<std::string>& missing);
PlannedPages SetupPages(const PdfReport& report);
PlannedPages PhasePages(const PdfReport& report);
PlannedPages DispersionPages(const PdfReport& report);
PlannedPages FitPages(const PdfReport& report);
PlannedPages ProfilePages(const PdfReport& report);
PlannedPages MakingPages(const PdfReport& report);

// ---- graphs that more than one page has -------------------------------------------------------------------------------

enum class ProfileQuantity { Vs, Vp, Density, Resolution };
/// Stairs of a profile over depth, downward; Vs with its band of two standard deviations, dashed. Depths below half the
/// longest wavelength are shaded.
GraphModel ProfileGraph(const PdfReport& report, ProfileQuantity quantity);

/// Which curve of a graph it is, told by colour, marker and dash alike.
PlotLook LookOfCurve(int number, PlotStyle style);

/// Fixed decimals; "-" for what is no number.
std::string NumberText(double value, int decimals);

}  // namespace sondera
