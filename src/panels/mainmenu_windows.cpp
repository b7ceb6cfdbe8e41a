// mainmenu_windows.cpp - see mainmenu_windows.h.
#include "panels/mainmenu_windows.h"

#include <string>
#include <utility>
#include <vector>

#include "records/session.h"
#include "runtime/catalogue/aboutpnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/version.h"

namespace sondera {
namespace {

/// The caption of the menu item is the title of the print.
int Print(ControlId item, Event event, Panel panel, std::vector<ControlId> graphs) {
  if (event != Event::Commit) return 0;
  return PrintGraphs({std::string(item ? item->label : ""), panel, std::move(graphs)});
}

}  // namespace

int PrintMeasDispABCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::MEASPANEL, {&measpanel::DISPLAY_A, &measpanel::DISPLAY_B});
}
int PrintDCPanelCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::DISPCURV, {&dispcurv::DISPGRAPH});
}
int PrintDCPRFPanelCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::EXDTHD, {&exdthd::CURVES, &exdthd::PROFILE});
}
int PrintDispCurveCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::DISPCURV, {&dispcurv::DISPGRAPH});
}
int PrintFmInvCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::EXDTHD, {&exdthd::CURVES});
}
int PrintProfWinCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::EXDTHD, {&exdthd::PROFILE});
}

int HelpCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? ShowManual() : 0;
}

int AboutBoxCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  SetCtrlVal(
      aboutpnl::ABOUTTEXT,
      std::string(kAppTitle) + "\nFree software under the GNU General Public License, version 3 or later.");
  DisplayPanel(Panel::ABOUTPNL);
  return 0;
}

int AboutOKCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::Close) HidePanel(Panel::ABOUTPNL);
  return 0;
}

}  // namespace sondera
