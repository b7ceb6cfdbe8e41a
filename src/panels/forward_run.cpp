// forward_run.cpp - see forward_run.h.
#include "panels/forward_run.h"

#include <cstddef>

#include "panels/analresult.h"
#include "panels/exdthd.h"
#include "panels/fmodeling_records.h"
#include "panels/run_boxes.h"
#include "plot/results_plot.h"
#include "records/inv_records.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "run/forward_run.h"
#include "run/run_sizes.h"
#include "run/run_state.h"
#include "run/theo_disp_info.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

void ShowResult(int iProfile) {
  SetCtrlIndex(exdthd::THDTYPE, 1);
  SetCtrlIndex(exdthd::EXDTYPE,
               FModelParam.dispCurvType == kGlobalCurve ? experimental::kGlobal : experimental::kArray);
  SetCtrlIndex(exdthd::ARRAYDISPID, 0);
  DisplayPanel(Panel::EXDTHD);
  ExdThdCurvPlot();
  DrawSideGraph(iProfile);
}

/// Items of the curve lists: the fixed ones, then one for each pair of array curves, named by its receivers.
void FillCurveLists() {
  const ModelRecord& t = TheoDispInfo;
  ClearListCtrl(exdthd::THDTYPE);
  for (const ListItem& item : exdthd::kTheoretical)
    InsertListItem(exdthd::THDTYPE, -1, item.label, item.value);
  ClearListCtrl(exdthd::ARRAYDISPID);
  for (const ListItem& item : exdthd::kArrayCurves)
    InsertListItem(exdthd::ARRAYDISPID, -1, item.label, item.value);
  if (t.dispCurvType != kArrayCurves) return;
  for (int c = 0; c < t.nDispCurves && static_cast<std::size_t>(c) < t.pairRec1.size(); ++c) {
    const int first = t.pairRec1[static_cast<std::size_t>(c)],
              second = t.pairRec2[static_cast<std::size_t>(c)];
    InsertListItem(exdthd::THDTYPE, -1, FormatText("Theoretical [%d:%d]", first, second), c);
    InsertListItem(exdthd::ARRAYDISPID, -1, FormatText("Array R. [%d:%d]", first, second), c);
  }
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
  if (ResetTheoDispInfo() < 0 || FS_AllocMemoryBlocks() < 0 || FS_fModel(prePrfType, iProfile) < 0) return -1;
  ShowResult(iProfile);
  return 0;
}

int FS_fModel(int prePrfType, int iProfile) {
  const AnalysisLock lock;
  RunBoxes boxes;
  const ForwardRunEnd end =
      RunForward(run, FModelParam, GetCtrlVal(hmsetup::PROJID), prePrfType, iProfile, boxes);
  if (ShowRefusal(end.refusal) == 0) return 0;
  if (end.inSweep) boxes.Status("The analysis was halted; nothing of it is kept.");
  return -1;
}

int ResetTheoDispInfo(const ModelRecord& settings) {
  if (ShowRefusal(MakeTheoDispInfoReady(settings)) < 0) return -1;
  FillCurveLists();
  return 0;
}

int FS_AllocMemoryBlocks(const ModelRecord& settings) {
  return ShowRefusal(SizeRun(run, settings, InvParam.MODELPARM));
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
