// report_document.cpp - see report_document.h.
#include "report/report_document.h"

#include "plot_ps/plot_ps.h"
#include "records/measdb.h"
#include "report/data_text.h"
#include "report/dispersion_pages.h"
#include "report/graph_state.h"
#include "report/phase_pages.h"
#include "report/results_pages.h"

namespace sondera {
namespace {

/// Whether a text of the pages needs letters that the fonts do not have without an encoding.
bool HasLatin1Texts(const ReportInput& input) {
  if (NeedsLatin1(input.projectFile)) return true;
  for (const IDInfo& id : MeasDB.idList)
    if (NeedsLatin1(id.ProjID) || NeedsLatin1(id.MeasID)) return true;
  for (const DispInfo& curve : MeasDB.gDispList)
    if (NeedsLatin1(curve.label)) return true;
  return false;
}

void DrawPages(ReportKind kind, const ReportInput& input) {
  const bool whole = kind == ReportKind::whole;
  if (whole || kind == ReportKind::phases) PrintPsPhase(input);
  if (whole) ps_newpage();
  if (whole || kind == ReportKind::dispersion) PrintPsDispCurv(input);
  if (whole) ps_newpage();
  if (whole || kind == ReportKind::results) PrintPsSwavePrf(input);
}

}  // namespace

bool HavePhases() {
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (MeasDB.idList.findKey(pair.key) > 0 && MeasDB.hwSetupList.findKey(pair.key) > 0) return true;
  return false;
}

std::string NothingToShow(ReportKind kind, const ReportInput& input) {
  if (kind == ReportKind::dispersion) return HaveDispersionCurves() ? "" : kNoDispersionCurves;
  if (kind == ReportKind::results) return HaveResults(input) ? "" : kNoResults;
  return HavePhases() ? "" : kNoPhases;
}

Refusal WriteReport(const std::string& path, ReportKind kind, const ReportInput& input) {
  ResetGraphState();
  if (!ps_try_iniplot(path)) return ps_reason() + ".";
  if (HasLatin1Texts(input)) ps_code(Latin1FontCode());
  DrawPages(kind, input);
  if (!ps_endplot(path, 'f')) return ps_reason() + ".";
  return {};
}

}  // namespace sondera
