// exdthd.cpp - see exdthd.h. Owns no state.
#include "panels/exdthd.h"

#include "panels/mainmenu.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/redraw.h"

namespace sondera {

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

}  // namespace sondera
