// exdthd_graphs.cpp - see exdthd_graphs.h.
#include "panels/exdthd_graphs.h"

#include <string>

#include "inversion/site_figures.h"
#include "panels/panels_state.h"
#include "plot/profile_plot.h"
#include "plot/results_plot.h"
#include "project/export_tables.h"
#include "records/selection.h"
#include "records/session.h"
#include "report/fit_curves.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/inversion.h"

namespace sondera {
namespace {

std::string UnitText() {
  return LengthUnitText(session.lengthUnit);
}

double DepthSeen() {
  return kSeenShare * LongestWavelength();
}

}  // namespace

void DrawResultCurves() {
  TheoreticalLooks& looks = panelsState.theoretical;
  GiveLooks(looks.curves, TheoreticalCount(TheoDispInfo), looks.nextMarker);
  const ResultsChoice choice = {GetCtrlVal(exdthd::EXDTYPE), GetCtrlVal(exdthd::THDTYPE),
                                GetCtrlVal(exdthd::ARRAYDISPID)};
  PlotResults(exdthd::CURVES, TheoDispInfo, choice, looks.curves, session.exdAxis);
  PlotResiduals(exdthd::RESIDUALS, exdthd::CURVES, TheoDispInfo, choice, looks.curves, MeasuredCurves(),
                session.exdAxis);
}

void DrawProfileGraph(int index) {
  PlotProfile(exdthd::PROFILE, index, UnitText(), DepthSeen());
}
void DrawResolutionGraph(int index) {
  PlotResolution(exdthd::PROFILE, index, UnitText(), DepthSeen());
}
void DrawRMSErrorGraph(int index) {
  PlotRMSError(exdthd::PROFILE, index, GetCtrlVal(inversion::NITER), GetCtrlVal(inversion::ALPHA_POINT),
               UnitText());
}

void SetEXDTHDmarkercolor() {
  TheoreticalLooks& looks = panelsState.theoretical;
  looks.curves.clear();
  GiveLooks(looks.curves, TheoreticalCount(TheoDispInfo), looks.nextMarker);
}

}  // namespace sondera
