// mainmenu_windows.cpp - see mainmenu_windows.h.
#include "panels/mainmenu_windows.h"

#include <string>
#include <utility>
#include <vector>

#include "figure/figure_file.h"
#include "records/session.h"
#include "runtime/catalogue/aboutpnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/changes.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"
#include "runtime/paths.h"

#include "runtime/version.h"

namespace sondera {
namespace {

std::string NameForPicture(const std::string& title) {
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(),
                       "*.pdf",
                       title,
                       true,
                       {{"*.pdf", "PDF document"}, {"*.svg", "SVG drawing"}, {"*.png", "PNG picture"}}});
  if (choice.answer == FileAnswer::Cancelled || choice.path.empty()) return {};
  return FileNameOf(choice.path).find('.') == std::string::npos ? choice.path + ".pdf" : choice.path;
}

/// The graphs in one picture, of the kind that the chosen name ends with.
int SavePicture(const std::string& title, const std::vector<ControlId>& graphs, FigureLayout layout) {
  const std::string path = NameForPicture(title);
  if (path.empty()) return -1;
  FlushChanges();
  std::vector<const GraphModel*> models;
  for (const ControlId graph : graphs)
    if (const GraphModel* model = FindGraph(*graph)) models.push_back(model);
  return ShowRefusal(WriteFigures(models, path, layout));
}

/// The caption of the menu item is the title of the print. A front end without printing saves a picture.
int Print(ControlId item, Event event, Panel panel, std::vector<ControlId> graphs,
          FigureLayout layout = FigureLayout::Stacked) {
  if (event != Event::Commit) return 0;
  const std::string title(item ? item->label : "");
  if (!CurrentFrontEnd().print) return SavePicture(title, graphs, layout);
  return PrintGraphs({title, panel, std::move(graphs)});
}

}  // namespace

int PrintMeasDispABCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::MEASPANEL, {&measpanel::DISPLAY_A, &measpanel::DISPLAY_B});
}
int PrintDCPanelCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::DISPCURV, {&dispcurv::DISPGRAPH});
}
int PrintDCPRFPanelCallback(Panel, ControlId control, Event event, long) {
  return Print(control, event, Panel::EXDTHD, {&exdthd::CURVES, &exdthd::PROFILE}, FigureLayout::SideBySide);
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
