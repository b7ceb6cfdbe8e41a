// inversion_start.cpp - see inversion_start.h.
#include "panels/inversion_start.h"

#include <cstddef>
#include <string>

#include "inversion/starting_model.h"
#include "panels/entry_lists.h"
#include "panels/exdthd.h"
#include "panels/fmodeling.h"
#include "panels/forward_run.h"
#include "panels/run_boxes.h"
#include "records/inv_records.h"
#include "records/kinds.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "run/preliminary_profile.h"
#include "run/run_state.h"
#include "run/sweep_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

// ---- table of layers --------------------------------------------------------------------------------

/// Layers from the table without change.
int TakeTable(Layering& layers) {
  if (Commit(fmodeling::NLAYERS) < 0) return -1;
  const int n = GetCtrlVal(fmodeling::NLAYERS);
  if (n < 1) return Refuse("The layer table is empty.");
  for (int row = 1; row <= n; ++row) {
    layers.thickness.push_back(GetTableCellVal(fmodeling::SOILPROFILE, row, 1));
    if (row < n) layers.depth += layers.thickness.back();
  }
  return 0;
}

int WriteTable(const Layering& layers, const LayerDefaults& unit) {
  using namespace fmodeling;
  const int n = static_cast<int>(layers.thickness.size());
  SetCtrlVal(TOTALDEPTH, layers.depth);
  SetCtrlVal(NLAYERS, n);
  if (Commit(NLAYERS) < 0) return -1;
  for (int row = 1; row <= n; ++row) {
    const double cells[] = {layers.thickness[static_cast<std::size_t>(row - 1)],
                            0.0,  // so that the P-wave velocity follows from Poisson's ratio
                            unit.Vs,
                            unit.density,
                            kDefaultPoisson,
                            kDefaultDamping};
    for (int k = 0; k < 6; ++k) SetTableCellVal(SOILPROFILE, row, k + 1, cells[k]);
  }
  SetCtrlVal(GLOBAL_ARRAY, kArrayCurves);
  Presses press;
  press(LOADDISPCURV);
  press(GLOBAL_ARRAY);
  press(UPDATE);
  press(CLOSE);
  return press.result();
}

int SetUpLayers(bool depthOfCurves, bool limitFirst, bool halfSpace) {
  const LayerDefaults& unit = DefaultsOfUnit(GetCtrlIndex(meassetup::LENGTHUNIT));
  double depth = depthOfCurves ? DepthOfCurves(MeasDB.aDispList) : 0.0;
  if (depthOfCurves && !(depth > 0.0)) return Refuse("No dispersion curves available in memory.");
  DisplayPanel(Panel::FMODELING);
  const double t = limitFirst ? FirstThickness(unit.thickness, depth) : unit.thickness;
  if (depthOfCurves) {
    SetCtrlVal(fmodeling::MAXDEPTH, depth);
  } else {
    depth = GetCtrlVal(fmodeling::MAXDEPTH);
  }
  Layering layers;
  if (GetCtrlVal(fmodeling::AUTOLAYERTYPE) != 0) {
    if (TakeTable(layers) < 0) return -1;
  } else {
    layers = LayersForDepth(t, depth, halfSpace);
  }
  return WriteTable(layers, unit);
}

// ---- evaluation -------------------------------------------------------------------------------------

void ListSlot(int k) {
  const std::string label = FormatText("SMP %d", k);
  InsertListItem(exdthd::ITERNO, -1, label, -k);
  InsertListItem(inversion::INV_SMP, -1, label, -k);
  InsertListItem(fmodeling::COPYPRF, -1, label, -k);
  SetCtrlVal(exdthd::ITERNO, -k);
}

EvaluationEnd Evaluate() {
  const RatioSettings ratios{GetCtrlVal(inversion::ALPHA_POINT), GetCtrlVal(inversion::ALPHA_FROM),
                             GetCtrlVal(inversion::ALPHA_TO)};
  EvaluationSteps steps;
  steps.begun = ClearEntryLists;
  steps.run = [](int k, double ratio) {
    run.switches.alphaDepth = ratio;
    return RunFModel(kAnalyticProfile, -k);
  };
  steps.done = [](int k) {
    ListSlot(k);
    DrawSideGraph(-k);
    return sweepState.refusal.empty();  // shown once, not for every ratio
  };
  RunBoxes boxes;
  EvaluationEnd end = EvaluateRatios(ratios, FModelParam, SMPParam, steps, boxes);
  ShowRefusal(end.refusal);
  return end;
}

/// Both callbacks: evaluates under the wait cursor, unless there is nothing to do.
EvaluationEnd EvaluateFromButton() {
  if (GetCtrlVal(inversion::ALPHA_POINT) == 0) {
    Refuse("Please enter the number of Depth-to-WaveL Ratios.");
    return {};
  }
  ForgetHalt();  // a press begins
  SetWaitCursor(true);
  EvaluationEnd done = Evaluate();
  SetWaitCursor(false);
  return done;
}

}  // namespace

int AutoSetupStartingModelParameters(int useData) {
  return SetUpLayers(useData == 1, true, true);
}

int SetupStartingModelParameters() {
  return SetUpLayers(true, false, false);
}

int EvalSMParam() {
  return Evaluate().whole ? 0 : -1;
}

int BestStartingProfile() {
  return BestProfile(SMPParam, GetCtrlVal(inversion::ALPHA_POINT));
}

int RunAutoPreInversion() {
  const int best = BestStartingProfile();
  if (best == 0) return -1;
  SetCtrlIndex(fmodeling::COPYPRF, best - 1);
  Presses press;
  press(fmodeling::NLAYERS);
  press(fmodeling::COPYFROMPRF);
  press(fmodeling::UPDATE_PROFILE2);
  press(fmodeling::UPDATE);
  press(fmodeling::CLOSE);
  press(measpanel::F6);
  return press.result();
}

int AutoSetupSMPCallback(Panel, ControlId, Event event, long data) {
  if (event != Event::Commit) return 0;
  return AutoSetupStartingModelParameters(data == kDepthOfPanel ? 0 : 1);
}

int EvalSMParamCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const EvaluationEnd done = EvaluateFromButton();
  if (!done.started || PressHalted()) return -1;
  if (done.whole && BestStartingProfile() == 0)
    return Refuse("None of the starting profiles has a theoretical curve.");
  const int taken = RunAutoPreInversion();
  return done.whole ? taken : -1;
}

int DetermineSMPCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  return EvaluateFromButton().whole ? 0 : -1;
}

}  // namespace sondera
