// inversion_run.cpp - an inversion from the panel to FS_RunIAnal; see inversion.h.
#include <string>
#include <vector>

#include "inversion/iterations.h"
#include "panels/entry_lists.h"
#include "panels/exdthd.h"
#include "panels/fmodeling_records.h"
#include "panels/forward_run.h"
#include "panels/inversion.h"
#include "panels/inversion_entries.h"
#include "panels/panels_state.h"
#include "panels/run_boxes.h"
#include "plot/results_plot.h"
#include "records/inv_records.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "records/result_capacity.h"
#include "records/session.h"
#include "records/settings_capacity.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/interrupt_hold.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

class WaitCursor {
 public:
  WaitCursor() { SetWaitCursor(true); }
  ~WaitCursor() { SetWaitCursor(false); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

/// The boxes of a run, and the lists and plots that each iteration updates.
class InversionBoxes : public RunBoxes {
 public:
  void Stored(int iteration) override {
    const std::string label = FormatText("INV %d", iteration);
    InsertListItem(exdthd::ITERNO, -1, label, iteration);
    InsertListItem(inversion::INV_SMP, -1, label, iteration);
    InsertListItem(fmodeling::COPYPRF, -1, label, iteration);
    SetCtrlIndex(exdthd::ITERNO, GetNumListItems(exdthd::ITERNO) - 1);
    DisplayPanel(Panel::EXDTHD);
    ExdThdCurvPlot();
    DrawSideGraph(iteration);
    hold_.StepIsDone();
  }

 private:
  InterruptHold hold_;
};

/// The choice of INV_SMP, and the checks of the forward-model panel on the layers of that model. Changes on
/// that panel that are not in the record are lost.
int CheckStartingModel() {
  InvParam.iSelected = GetCtrlVal(inversion::INV_SMP);
  if (InvParam.iSelected == 0) {
    SetFModelParam_AS();
    return GetFModelParam_AS() == 0 && GetFModelParam_RD() == 0 ? 0 : -1;
  }
  ModelRecord start;
  const int stored = TakeStartingModel(start);
  if (stored == 0) ReserveLayers(FModelParam, start.nLayers);  // its capacity is stored in the project file
  SetFModelParam_AS();
  if (stored < 0) return -1;
  GetAnalysisAndMesh();
  return CheckLayerTable(start) == 0 && GetFModelParam_RD() == 0 ? 0 : -1;
}

/// Space for the present counters. FS_UpdateINVarray alone would make the tables anew, and so lose an
/// iteration that is the start of this run.
int UpdateTables() {
  if (ReserveEntries(InvParam, InvParam.nEntries) < 0) return -1;
  return ShowRefusal(FS_UpdateINVarray());
}

/// NITER and MODELPARM. Without iterations the record stays: its contents can still be saved.
int TakeIterations() {
  const int wanted = GetCtrlVal(inversion::NITER);
  if (wanted <= 0) return Refuse("Please enter the number of iterations.");
  if (ReserveEntries(InvParam, wanted) < 0) return -1;
  InvParam.nEntries = wanted;
  InvParam.MODELPARM = GetCtrlVal(inversion::MODELPARM);
  return 0;
}

void TakeDataCovariance() {
  run.switches.ufVph = GetCtrlVal(inversion::UF_VPH);
  run.switches.cdMode = GetCtrlVal(inversion::CD_COV);
}

void TakeFactors(bool relative) {
  InvParam.ufH = GetCtrlVal(relative ? inversion::UF_H_REL : inversion::UF_H);
  InvParam.ufVs = GetCtrlVal(relative ? inversion::UF_VS_REL : inversion::UF_VS);
}

void TakeBounds() {
  InvParam.minH = GetCtrlVal(inversion::LB_H);
  InvParam.maxH = GetCtrlVal(inversion::UB_H);
  InvParam.minVs = GetCtrlVal(inversion::LB_VS);
  InvParam.maxVs = GetCtrlVal(inversion::UB_VS);
}

void SelectCurveDisplay() {
  SetCtrlIndex(exdthd::EXDTYPE,
               FModelParam.dispCurvType == kGlobalCurve ? experimental::kGlobal : experimental::kArray);
  SetCtrlIndex(exdthd::THDTYPE, 1);
  SetCtrlIndex(exdthd::ARRAYDISPID, 0);
}

/// Space in InvParam for all results of the run, so that no iteration fails because of it.
int ReserveResults(const ModelRecord& m) {
  const bool global = m.dispCurvType == kGlobalCurve;
  return ShowRefusal(ReserveEntry(InvParam, InvParam.nEntries, m.nLayers,
                                  global ? m.nDispPointsG : m.nDispPoints, global ? 1 : m.nDispCurves));
}

/// Records, display, lists and vectors.
int SetUpRun() {
  ModelRecord start;
  if (TakeStartingModel(start) < 0 || ReserveResults(start) < 0) return -1;
  if (UpdateTheoDispInfoForInvAnal() < 0 || ResetTheoDispInfo(start) < 0) return -1;
  CopyCurvesToTheoDispInfo();
  SelectCurveDisplay();
  ClearIterBox(1);
  return FS_AllocMemoryBlocks(start);
}

/// Contents of the entry lists, to be restored when a run ends before it has an entry of its own: then the
/// former run's results are all still there.
class EntryLists {
 public:
  EntryLists() {
    Keep(exdthd::ITERNO, iterations_);
    Keep(fmodeling::COPYPRF, profiles_);
    Keep(inversion::INV_SMP, starts_);
  }
  void PutBack() const {
    Fill(exdthd::ITERNO, iterations_);
    Fill(fmodeling::COPYPRF, profiles_);
    Fill(inversion::INV_SMP, starts_);
  }

 private:
  struct Item {
    std::string label;
    double value;
  };
  struct List {
    std::vector<Item> items;
    int index = -1;
  };

  template <class C>
  static void Keep(const C& list, List& to) {
    for (int i = 0; i < GetNumListItems(list); ++i)
      to.items.push_back({GetLabelFromIndex(list, i), static_cast<double>(GetValueFromIndex(list, i))});
    to.index = GetCtrlIndex(list);
  }
  template <class C>
  static void Fill(const C& list, const List& from) {
    ClearListCtrl(list);
    for (const Item& item : from.items) InsertListItem(list, -1, item.label, item.value);
    SetCtrlIndex(list, from.index);
  }

  List iterations_, profiles_, starts_;
};

/// The run; restores the lists if it made no entry.
int RunWithFormerLists(const EntryLists& former) {
  const int ready = SetUpRun();
  const int result = ready < 0 ? -1 : FS_RunIAnal();
  if (GetNumListItems(exdthd::ITERNO) == 0) {
    former.PutBack();
  } else {
    panelsState.lastStartHasEntries = true;
    InvParam.iSelected = 0;  // the lists are new, and so are the entries of their numbers
  }
  return result;
}

}  // namespace

void ClearIterBox(int) {
  ClearEntryLists();
}

int FS_RunIAnal() {
  const AnalysisLock lock;
  InversionBoxes boxes;
  return ShowRefusal(RunInversion(run, SettingsOfInversion(), boxes));
}

int RunInvAnal() {
  return RunWithFormerLists(EntryLists());
}

bool LastStartHasEntries() {
  return panelsState.lastStartHasEntries;
}

int PerformInvAnalCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  panelsState.lastStartHasEntries = false;
  const WaitCursor wait;
  if (CheckStartingModel() < 0 || UpdateTables() < 0) return -1;
  TakeDataCovariance();
  const bool relative = GetCtrlVal(inversion::CM_COV) != 0;
  SetDimmed(inversion::UF_VPH, relative);
  TakeFactors(relative);
  TakeBounds();
  return TakeIterations() < 0 ? -1 : RunInvAnal();
}

int Run_InvAnalCallback(Panel, ControlId, Event, long) {
  panelsState.lastStartHasEntries = false;
  const WaitCursor wait;
  if (CheckStartingModel() < 0 || UpdateTables() < 0 || TakeIterations() < 0) return -1;
  const EntryLists former;
  ClearIterBox(1);
  TakeFactors(false);
  TakeBounds();
  return RunWithFormerLists(former);
}

}  // namespace sondera
