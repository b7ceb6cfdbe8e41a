// pdf_report.h - the report for a client: summary, set-up, phases, curves, fit, profile and how it was made,
// as one PDF. No state.
#pragma once

#include <string>

#include "figure/canvas.h"
#include "report_pdf/report_contents.h"
#include "report_pdf/sheet_writer.h"
#include "runtime/refusal.h"

namespace sondera {

/// Writes the report. Pages without contents are left out and named on the first one. A new file replaces the
/// old one only when it is complete; after a refusal the old one is unchanged.
Refusal WritePdfReport(const std::string& path, const PdfReport& report, Paper paper);

/// The same on a canvas of that paper: SVG has one page only, so this is for PDF and for tests.
void DrawPdfReport(FileCanvas& canvas, const PdfReport& report, Paper paper);

}  // namespace sondera
