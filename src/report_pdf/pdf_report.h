// pdf_report.h - the report that an office hands in: summary, set-up, phases, curves, fit, profile and how it was made, as
// one PDF. No state.
#pragma once

#include <string>

#include "figure/canvas.h"
#include "report_pdf/report_contents.h"
#include "report_pdf/sheet_writer.h"
#include "runtime/refusal.h"

namespace sondera {

/// Writes the report. Pages without contents are left out and named on the first one. The file is put in place whole;
/// after a refusal a former one is as it was.
Refusal WritePdfReport(const std::string& path, const PdfReport& report, Paper paper);

/// The same on a canvas of that paper: SVG keeps one page only, so that this is for PDF and for tests.
void DrawPdfReport(FileCanvas& canvas, const PdfReport& report, Paper paper);

}  // namespace sondera
