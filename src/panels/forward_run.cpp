// forward_run.cpp - a forward run from the panel; see run.h.
#include "run/forward_run.h"
#include "panels/analresult.h"
#include "panels/fmodeling_records.h"
#include "panels/run_boxes.h"
#include "records/model_records.h"
#include "run/system_model.h"
#include "run/theo_disp_info.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/events.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kGlobalCurve = 1;
constexpr int kGlobalR = 4, kArrayR = 5;  // items of EXDTYPE

void ShowResult(int iProfile) {
  SetCtrlIndex(exdthd::THDTYPE, 1);
  SetCtrlIndex(exdthd::EXDTYPE, FModelParam.dispCurvType == kGlobalCurve ? kGlobalR : kArrayR);
  SetCtrlIndex(exdthd::ARRAYDISPID, 0);
  DisplayPanel(Panel::EXDTHD);
  ExdThdCurvPlot();
  DrawSideGraph(iProfile);
}

int RunFromPanel() {
  SetCtrlVal(exdthd::STATUSMSG, "");
  SetCtrlVal(exdthd::PROCESSMSG, "");
  SetWaitCursor(true);
  SetCtrlVal(exdthd::PROCESSMSG, FModelParam.dispCurvType == kGlobalCurve ? "F. Modeling Analysis: Global D."
                                                                          : "F. Modeling Analysis: Array D.");
  const int result = RunFModel(0, 0);
  PutTextResultsInBox();
  SetWaitCursor(false);
  return result;
}

}  // namespace

int RunFModel(int prePrfType, int iProfile) {
  SetCtrlVal(exdthd::STATUSMSG, "");
  if (GetFModelParam_AS() < 0 || GetFModelParam_RD() < 0) return -1;
  if (ResetTheoDispInfo() < 0 || FS_AllocMemoryBlocks() < 0) return -1;
  RunBoxes boxes;
  if (FS_fModel(prePrfType, iProfile, GetCtrlVal(hmsetup::PROJID), boxes) < 0) return -1;
  ShowResult(iProfile);
  return 0;
}

int RunFModelCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? RunFromPanel() : 0;
}

int RunFModelingMenuCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  SetCtrlIndex(exdthd::ITERNO, 0);
  return RunFromPanel();
}

}  // namespace sondera
