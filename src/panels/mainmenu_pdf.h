// mainmenu_pdf.h - the PDF report of the open project: collects its contents, asks once for its texts.
//
// Callers: menu File, Plot to PostScript File, Whole Report, for a name that ends with .pdf; the command line's --report;
// the script's `report`. Owns no state.
#pragma once

#include <optional>
#include <string>

#include "report_pdf/pdf_report.h"
#include "runtime/refusal.h"

namespace sondera {

struct PdfWishes {
  Paper paper = Paper::A4;
  std::optional<int> entry = {};  ///< iteration of the report; the last stored one by default
};

/// All contents of the report, with the doubts about the results.
Refusal CollectPdfReport(const PdfWishes& wishes, PdfReport& report);

/// Writes it. @return 0; -1 after a message
int PrintPdfReport(const std::string& path, const PdfWishes& wishes);

/// Asks for title, site, client, operator and date, and stores them beside the project; only if they were
/// never asked for and the project has a file. A cancel ends the questions; the answers given before it are
/// used.
void AskForSiteTexts();

}  // namespace sondera
