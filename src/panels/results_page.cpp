// results_page.cpp - actions of the results page on the stored entries, and the halt; see inversion.h.
#include "panels/analresult.h"
#include "panels/exdthd.h"
#include "panels/inversion.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "run/result_entries.h"
#include "run/run_state.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

double MisfitOf(int index) {
  const InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index);
  return entry <= r.rms.hi() ? r.rms[entry] : 0.0;
}

void ShowEntry() {
  const int index = GetCtrlVal(exdthd::ITERNO);
  FS_RecallDspCurve(index);
  FS_RecallModelPar(index);
  ExdThdCurvPlot();
  SetCtrlVal(exdthd::RMSERROR, MisfitOf(index));
  DrawSideGraph(index);
}

}  // namespace

int HaltProcessCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const bool pending = run.course.iHaltRequest == 1;
  if (ConfirmPopup(session.appTitle, "Do you want to halt the process ?")) {
    run.course.iHaltRequest = 1;
    NoteHalt();
  } else {
    run.course.iHaltRequest = 0;
    if (pending) ForgetHalt();  // cancelled before a run has noticed it; one that ended a run stays
  }
  return 0;
}

int InvAnalIterNoCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ShowEntry();
  PutTextResultsInBox();
  return 0;
}

int PlotInvResultCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) ShowEntry();
  return 0;
}

void EmptyResultsPage() {
  for (const GraphControl* graph : {&exdthd::CURVES, &exdthd::RESIDUALS, &exdthd::PROFILE})
    DeleteGraphPlot(*graph);
  SetCtrlVal(exdthd::STATUSMSG, "");
  SetCtrlVal(exdthd::PROCESSMSG, "");
  SetCtrlVal(exdthd::RMSERROR, 0.0);
}

void ShowStoredResults() {
  EmptyResultsPage();
  if (GetNumListItems(exdthd::ITERNO) > 0) {
    const int index = GetCtrlVal(exdthd::ITERNO);
    DrawSideGraph(index);
    SetCtrlVal(exdthd::RMSERROR, MisfitOf(index));
  }
}

int ResultBoxCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::ANALRESULT);
  SetCtrlIndex(analresult::SEL_RESULT, 0);
  PutTextResultsInBox();
  return 0;
}

int ResultModelParamCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) PutTextResultsInBox();
  return 0;
}

int ResultBoxCloseCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::ANALRESULT);
  return 0;
}

}  // namespace sondera
