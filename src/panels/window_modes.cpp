// window_modes.cpp - shows one page and hides the others. Owns no state.
#include "panels/window_modes.h"

#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr Panel kPages[] = {Panel::MEASPANEL, Panel::SASW, Panel::MEASSETUP, Panel::DISPCURV, Panel::EXDTHD};

/// Tab page of the main window that a panel stands on.
int TabOf(Panel page) {
  switch (page) {
    case Panel::MEASPANEL:
      return 0;
    case Panel::SASW:
      return 1;
    case Panel::DISPCURV:
      return 2;
    default:
      return 3;
  }
}

void ShowPage(Panel page, const std::string& title) {
  for (Panel p : kPages)
    if (p != page) HidePanel(p);
  DisplayPanel(page);
  SetActiveTabPage(Panel::PANEL, TabOf(page));
  SetPanelTitle(page, title);
}

std::string TitleWith(const char* what) {
  return session.appTitle + " - " + session.projectFileName + " [" + what + "]";
}

}  // namespace

int MeasModeCallback(Panel, ControlId, Event, long) {
  ShowPage(Panel::SASW, session.appTitle + " - " + session.projectFileName);
  return 0;
}

int PerformTestCallback(Panel, ControlId, Event, long) {
  ShowPage(Panel::MEASPANEL, TitleWith("Testing"));
  return 0;
}

int DispersionModeCallback(Panel, ControlId, Event, long) {
  ShowPage(Panel::DISPCURV, session.appTitle + " - " + session.curProjID + " [Dispersion Curve]");
  DispCurvPlot(1);
  return 0;
}

int SetupModeCallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::HMSETUP);
  DisplayPanel(Panel::HWSETUP);
  return 0;
}

int SetupHDWareCallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::HMSETUP);
  DisplayPanel(Panel::HWSETUP);
  HidePanel(Panel::MEASSETUP);
  SetActiveTabPage(Panel::HMSETUP, 0);
  return 0;
}

int SetupMeasSetupCallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::HMSETUP);
  DisplayPanel(Panel::MEASSETUP);
  HidePanel(Panel::HWSETUP);
  SetActiveTabPage(Panel::HMSETUP, 1);
  return 0;
}

int HWSetupOKCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::HMSETUP);
  return 0;
}

int ChooseAnalysisCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) UpdateWindowFace(GetCtrlVal(exdthd::FMDORINV));
  return 0;
}

void UpdateWindowFace(int mode) {
  using namespace exdthd;
  ShowPage(Panel::EXDTHD, TitleWith("F. Modeling and Inversion Analysis"));
  const bool modelling = mode == 1;
  SetDimmed(RUN_FMODEL, !modelling);
  SetDimmed(RUN_INVERSION, modelling);
  SetVisible(ITERNO, !modelling);
  SetVisible(PLOT_INV, !modelling);
  SetCtrlVal(STATUSMSG, "");
  SetCtrlVal(PROCESSMSG, "");
  ExdThdCurvPlot();
}

}  // namespace sondera
