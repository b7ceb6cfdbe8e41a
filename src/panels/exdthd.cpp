// exdthd.cpp - see exdthd.h. Owns no state.
#include "panels/exdthd.h"

#include <cstddef>
#include <vector>

#include "panels/exdthd_graphs.h"
#include "panels/mainmenu.h"
#include "panels/panels_state.h"
#include "plot/results_plot.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kModelling = 1;

/// Markers and colours that the rings refer to: of the curve in THDTYPE, or of all. Empty when none is
/// displayed.
std::vector<CurveLook*> ChosenLooks() {
  std::vector<CurveLook>& looks = panelsState.theoretical.curves;
  const int choice = GetCtrlVal(exdthd::THDTYPE);
  std::vector<CurveLook*> chosen;
  for (std::size_t k = 0; k < looks.size(); ++k)
    if (choice == theoretical::kAll || choice == static_cast<int>(k)) chosen.push_back(&looks[k]);
  return chosen;
}

int StoreRingIndex(const RingControl& ring, int CurveLook::*field) {
  const std::vector<CurveLook*> looks = ChosenLooks();
  if (looks.empty() || GetCtrlIndex(ring) < 0) return -1;
  for (CurveLook* look : looks) look->*field = GetCtrlIndex(ring);
  return 0;
}

}  // namespace

int ChooseAnalysisCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) UpdateWindowFace(GetCtrlVal(exdthd::FMDORINV));
  return 0;
}

void UpdateWindowFace(int mode) {
  using namespace exdthd;
  ShowPage(Panel::EXDTHD, PageTitle("F. Modeling and Inversion Analysis"));
  const bool modelling = mode == 1;
  SetDimmed(RUN_FMODEL, !modelling);
  SetDimmed(RUN_INVERSION, modelling);
  SetVisible(ITERNO, !modelling);
  SetVisible(PLOT_INV, !modelling);
  SetCtrlVal(STATUSMSG, "");
  SetCtrlVal(PROCESSMSG, "");
  ExdThdCurvPlot();
}

void DrawSideGraph(int entry) {
  void (*const kDraw[])(int) = {DrawProfile, DrawResolution, DrawRMSerror};
  const int choice = GetCtrlVal(exdthd::PLOT_INV);
  if (choice >= 0 && choice < 3) kDraw[choice](entry);
}

int OpenFModelingWinCallback(Panel, ControlId, Event, long) {
  SetCtrlVal(exdthd::FMDORINV, kModelling);
  UpdateWindowFace(kModelling);
  return 0;
}

int OpenEXDTHDcallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) UpdateWindowFace(GetCtrlVal(exdthd::FMDORINV));
  return 0;
}

int EXDTHDCloseCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Commit(mainmenu::DISPERSION_MODE) : 0;
}

int SetEXDCurveTypeCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) ExdThdCurvPlot();
  return 0;
}

int SetTHDCurveTypeCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ExdThdCurvPlot();
  const std::vector<CurveLook*> looks = ChosenLooks();
  if (looks.empty()) return 0;
  SetCtrlIndex(exdthd::COLOR, looks.front()->color);
  SetCtrlIndex(exdthd::MARKER, looks.front()->marker);
  return 0;
}

int EXDTHDColorCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? StoreRingIndex(exdthd::COLOR, &CurveLook::color) : 0;
}

int EXDTHDMarkerCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? StoreRingIndex(exdthd::MARKER, &CurveLook::marker) : 0;
}

int SetEXDTHDmarkercolorCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  SetEXDTHDmarkercolor();
  ExdThdCurvPlot();
  return 0;
}

int RedrawEXDTHDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ExdThdCurvPlot();
  DrawSideGraph(GetCtrlVal(exdthd::ITERNO));
  return 0;
}

}  // namespace sondera
