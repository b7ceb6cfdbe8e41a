// mainmenu_plot.h - menu File, Plot to PostScript File: the reports, with their dialogs.
//
// Callers: the menu, the command line's --report and the script's `report`. Owns no state.
#pragma once

#include <string>

#include "panels/mainmenu_pdf.h"
#include "report/report_document.h"
#include "runtime/controls.h"

namespace sondera {

/// Whether a name selects the PDF report.
bool IsPdfName(const std::string& path);

/// Writes a report of the project; for the whole report a name that ends with .pdf gives the PDF report
/// (mainmenu_pdf.h). Before the file is begun, a message box names each kind of pages that the whole report
/// will not have.
/// @param name  file. Empty: a dialog asks for it, and a name without extension gets ".ps"
/// @return 0; -1 after a cancel, or after a message when there is nothing to show or the file was not written
/// @param wishes  of the PDF report
int PrintReport(ReportKind kind, const std::string& name, const PdfWishes& wishes = {});

// Menu items, with the dialog.
int PrintReportCallback(Panel panel, ControlId control, Event event, long data);
int PrintPsPhaseCallback(Panel panel, ControlId control, Event event, long data);
/// The same under its other name.
int PlotPsPhaseCallback2(Panel panel, ControlId control, Event event, long data);
int PrintPsDispCurvCallback(Panel panel, ControlId control, Event event, long data);
int PrintPsSwavePrfCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
