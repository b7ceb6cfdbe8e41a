// pdf_pages.h - the kinds of pages of the PDF report. Each function returns its pages in order, and none
// where it has no contents. For the files of this folder.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "figure/canvas.h"
#include "report_pdf/report_contents.h"
#include "report_pdf/sheet_writer.h"

namespace sondera {

struct PlannedPage {
  std::string name;  ///< in the table of contents; "" for a continued page
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

// ---- graphs of several kinds of pages
// -----------------------------------------------------------------------------------

enum class ProfileQuantity { Vs, Vp, Density, Resolution };
/// Profile over depth as steps, downward; Vs with its band of two standard deviations, dashed. Depths below
/// half the longest wavelength are shaded.
GraphModel ProfileGraph(const PdfReport& report, ProfileQuantity quantity);
/// Meaning of dashes and shade of these graphs.
std::string ProfileNote(const PdfReport& report);

/// Distinguishes the curves of a graph by colour, marker and dash.
PlotLook LookOfCurve(int number, PlotStyle style);

/// False if it is 1 or NaN at every line, as for a single record or a transfer function.
bool CoherenceIsKnown(const SpectrumTable& spectrum);

/// Fixed decimals; "-" for NaN and infinities.
std::string NumberText(double value, int decimals);

}  // namespace sondera
