// mainmenu.cpp - see mainmenu.h. Owns no state.
#include "panels/mainmenu.h"

#include "records/session.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr Panel kPages[] = {Panel::MEASPANEL, Panel::SASW, Panel::MEASSETUP, Panel::DISPCURV, Panel::EXDTHD};

}  // namespace

void ShowPage(Panel page, const std::string& title) {
  for (Panel p : kPages)
    if (p != page) HidePanel(p);
  DisplayPanel(page);
  SetPanelTitle(page, title);
}

std::optional<Panel> HidePages() {
  std::optional<Panel> shown;
  for (Panel p : kPages) {
    if (IsPanelShown(p)) shown = p;
    HidePanel(p);
  }
  return shown;
}

std::string PageTitle(const char* what) {
  return session.appTitle + " - " + session.projectFileName + " [" + what + "]";
}

int MeasModeCallback(Panel, ControlId, Event, long) {
  ShowPage(Panel::SASW, session.appTitle + " - " + session.projectFileName);
  return 0;
}

int PerformTestCallback(Panel, ControlId, Event, long) {
  ShowPage(Panel::MEASPANEL, PageTitle("Testing"));
  return 0;
}

int DispersionModeCallback(Panel, ControlId, Event, long) {
  ShowPage(Panel::DISPCURV, session.appTitle + " - " + session.curProjID + " [Dispersion Curve]");
  DispCurvPlot(1);
  return 0;
}

int SetupModeCallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::HWSETUP);
  return 0;
}

int SetupHDWareCallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::HWSETUP);
  HidePanel(Panel::MEASSETUP);
  return 0;
}

int SetupMeasSetupCallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::MEASSETUP);
  HidePanel(Panel::HWSETUP);
  return 0;
}

}  // namespace sondera
