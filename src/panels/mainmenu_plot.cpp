// mainmenu_plot.cpp - see mainmenu_plot.h.
#include "panels/mainmenu_plot.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "panels/entry_lists.h"
#include "records/session.h"
#include "report/report_document.h"
#include "report/unit_labels.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/paths.h"

namespace sondera {
namespace {

const char* DialogTitle(ReportKind kind) {
  switch (kind) {
    case ReportKind::phases:
      return "Print the phase spectra to PS file";
    case ReportKind::dispersion:
      return "Print the dispersion curves to PS file";
    case ReportKind::results:
      return "Print the results of the inv. analysis to PS file";
    case ReportKind::whole:
      break;
  }
  return "Print the report to PS file";
}

std::string WithExtension(const std::string& path) {
  const std::string name = FileNameOf(path);
  return name.find('.') == std::string::npos ? path + ".ps" : path;
}

/// Empty after a cancel. A name without extension gets one.
std::string AskForName(ReportKind kind) {
  std::vector<FileKind> kinds = {{"*.ps", "PostScript pages"}};
  if (kind == ReportKind::whole) kinds.push_back({"*.pdf", "PDF report to hand in"});
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*.ps", DialogTitle(kind), true, std::move(kinds)});
  return choice.answer == FileAnswer::Cancelled || choice.path.empty() ? std::string()
                                                                       : WithExtension(choice.path);
}

bool IsProjectFile(const std::string& path) {
  std::error_code error;
  return !session.projectFileName.empty() &&
         (path == session.projectFileName ||
          std::filesystem::equivalent(path, session.projectFileName, error));
}

/// One message for each kind of pages that a whole report will not have.
void TellWhatIsMissing(const ReportInput& input) {
  for (const ReportKind kind : {ReportKind::dispersion, ReportKind::results}) {
    const std::string nothing = NothingToShow(kind, input);
    if (!nothing.empty()) MessagePopup(session.appTitle, nothing);
  }
}

int Print(ReportKind kind, Event event) {
  return event == Event::Commit ? PrintReport(kind, {}) : 0;
}

}  // namespace

bool IsPdfName(const std::string& path) {
  const std::string name = FileNameOf(path);
  return name.size() > 4 && (name.ends_with(".pdf") || name.ends_with(".PDF"));
}

int PrintReport(ReportKind kind, const std::string& name, const PdfWishes& wishes) {
  constexpr const char* kOverProject = "The report would take the place of the project. Choose another name.";
  const bool whole = kind == ReportKind::whole;
  if (IsProjectFile(name)) return Refuse(kOverProject);
  if (whole && IsPdfName(name)) return PrintPdfReport(name, wishes);
  const ReportInput input = {session.projectFileName, ProjectUnit(), StoredEntries()};
  const std::string nothing = NothingToShow(kind, input);
  if (!nothing.empty()) return Refuse(nothing);
  const std::string path = name.empty() ? AskForName(kind) : name;
  if (path.empty()) return -1;
  if (IsProjectFile(path)) return Refuse(kOverProject);
  if (!whole && IsPdfName(path))
    return Refuse("This report is PostScript; name a file that ends with .ps. The whole report may be PDF.");
  if (whole && IsPdfName(path)) {
    AskForSiteTexts();
    return PrintPdfReport(path, wishes);
  }
  if (whole) TellWhatIsMissing(input);
  SetWaitCursor(true);
  const Refusal refusal = WriteReport(path, kind, input);
  SetWaitCursor(false);
  return ShowRefusal(refusal);
}

int PrintReportCallback(Panel, ControlId, Event event, long) {
  return Print(ReportKind::whole, event);
}
int PrintPsPhaseCallback(Panel, ControlId, Event event, long) {
  return Print(ReportKind::phases, event);
}
int PlotPsPhaseCallback2(Panel panel, ControlId control, Event event, long data) {
  return PrintPsPhaseCallback(panel, control, event, data);
}
int PrintPsDispCurvCallback(Panel, ControlId, Event event, long) {
  return Print(ReportKind::dispersion, event);
}
int PrintPsSwavePrfCallback(Panel, ControlId, Event event, long) {
  return Print(ReportKind::results, event);
}

}  // namespace sondera
