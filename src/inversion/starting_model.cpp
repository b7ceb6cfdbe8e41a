// starting_model.cpp - see starting_model.h.
#include "inversion/starting_model.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "numeric/scale_arithmetic.h"
#include "panels/entry_lists.h"
#include "panels/exdthd.h"
#include "panels/fmodeling.h"
#include "panels/forward_run.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/measurement_rules.h"
#include "records/model_records.h"
#include "records/result_room.h"
#include "records/session.h"
#include "run/preliminary_profile.h"
#include "run/sweep_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kGroups = 100, kLayersPerGroup = 4;
constexpr double kDepthOfWavelength = 0.5;  // of the longest one
constexpr double kFirstOfDepth = 0.3;       // the first layer is no thicker than that
constexpr double kHalfSpaceOfDepth = 1000.0;
constexpr int kArrayCurves = 2;     // GLOBAL_ARRAY
constexpr double kNoMisfit = -1.0;  // what a run without a velocity has, too
constexpr double kSearchFrom = 1e30;

/// First layer and properties by the index of LENGTHUNIT.
struct UnitDefaults {
  double thickness, Vs, density;
};
constexpr UnitDefaults kUnitDefaults[] = {
    {0.5, 150.0, 1800.0}, {50.0, 15000.0, 0.0018}, {2.0, 450.0, 112.5}, {24.0, 1143.0, 0.0651}};
constexpr double kPoisson = 0.3333, kDamping = 0.02;

// ---- table of layers --------------------------------------------------------------------------------

const UnitDefaults& DefaultsOfUnit() {
  return kUnitDefaults[std::clamp(GetCtrlIndex(meassetup::LENGTHUNIT), 0, 3)];
}

/// Half the longest wavelength of the array curves of included pairs; 0 when there is none.
double DepthOfCurves() {
  double longest = 0.0;
  for (const DispInfo& curve : MeasDB.aDispList) {
    PMeasInfo* pair = nullptr;
    if (CheckifIncluded(curve.key, curve.refChan, curve.dspChan, pair) != 1) continue;
    for (int i = 1; i <= std::min(curve.nPoints, curve.wlen.hi()); ++i)
      if (std::isfinite(curve.wlen[i])) longest = std::max(longest, curve.wlen[i]);
  }
  return kDepthOfWavelength * longest;
}

/// Thicknesses of the layers, and the depth of the half-space.
struct Layering {
  std::vector<double> thickness;
  double depth = 0.0;
};

/// Layers from the table as they are.
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

int WriteTable(const Layering& layers, const UnitDefaults& unit) {
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
                            kPoisson,
                            kDamping};
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
  const UnitDefaults& unit = DefaultsOfUnit();
  double depth = depthOfCurves ? DepthOfCurves() : 0.0;
  if (depthOfCurves && !(depth > 0.0)) return Refuse("No dispersion curves available in memory.");
  DisplayPanel(Panel::FMODELING);
  double t = unit.thickness;
  if (limitFirst && kFirstOfDepth * depth < t) t = NiceNumber(kFirstOfDepth * depth, 1);
  if (depthOfCurves) {
    SetCtrlVal(fmodeling::MAXDEPTH, depth);
  } else {
    depth = GetCtrlVal(fmodeling::MAXDEPTH);
  }
  Layering layers;
  if (GetCtrlVal(fmodeling::AUTOLAYERTYPE) != 0) {
    if (TakeTable(layers) < 0) return -1;
  } else {
    layers.thickness = DoublingThicknesses(t, depth, layers.depth);
    if (halfSpace) layers.thickness.push_back(kHalfSpaceOfDepth * layers.depth);
  }
  return WriteTable(layers, unit);
}

// ---- evaluation -------------------------------------------------------------------------------------

bool HasGlobalCurve() {
  const ModelRecord& m = FModelParam;
  const int n = std::clamp(m.nDispPointsG, 0, static_cast<int>(m.globalVel.size()));
  return std::any_of(m.globalVel.begin(), m.globalVel.begin() + n, [](double v) { return v > 0.0; });
}

/// Room for the slots, none of which has a misfit.
int PrepareSlots(int count) {
  const InvRecord& r = SMPParam;
  const int formerCount = r.nEntries;
  SMPParam.nEntries = count;
  if (ShowRefusal(FS_UpdateSMParray()) < 0) {
    SMPParam.nEntries = formerCount;
    return -1;
  }
  SMPParam.alphaFrom = GetCtrlVal(inversion::ALPHA_FROM);
  SMPParam.alphaTo = GetCtrlVal(inversion::ALPHA_TO);
  std::fill(SMPParam.rms.begin(), SMPParam.rms.end(), kNoMisfit);
  ClearEntryLists();
  return 0;
}

double RatioOf(int k, int count) {
  const double from = SMPParam.alphaFrom, to = SMPParam.alphaTo;
  return count == 1 ? from : from + (k - 1) * (to - from) / (count - 1);
}

void ListSlot(int k) {
  const std::string label = FormatText("SMP %d", k);
  InsertListItem(exdthd::ITERNO, -1, label, -k);
  InsertListItem(inversion::INV_SMP, -1, label, -k);
  InsertListItem(fmodeling::COPYPRF, -1, label, -k);
  SetCtrlVal(exdthd::ITERNO, -k);
}

struct Evaluation {
  int result = -1;       ///< 0: all ratios are done
  bool started = false;  ///< whether the slots are those of this evaluation
};

Evaluation Evaluate() {
  if (!HasGlobalCurve()) {
    Refuse("Please calculate the global rep. dispersion curve, first.");
    return {};
  }
  const int count = GetCtrlVal(inversion::ALPHA_POINT);
  if (count < 0 || count > kMostRatios) {
    Refuse(FormatText("The number of Depth-to-WaveL Ratios is %d. It must be from 1 to %d.", count,
                      kMostRatios));
    return {};
  }
  if (PrepareSlots(count) < 0) return {};
  for (int k = 1; k <= count; ++k) {
    run.switches.alphaDepth = RatioOf(k, count);
    SetCtrlVal(exdthd::STATUSMSG, FormatText("Starting Model P. %d : alpha=%lg", k, run.switches.alphaDepth));
    SetCtrlVal(exdthd::PROCESSMSG,
               FormatText("Calculating %dth profile (Depth/waveL = %lf)", k, run.switches.alphaDepth));
    if (RunFModel(kAnalyticProfile, -k) < 0) {
      if (k <= SMPParam.rms.hi()) SMPParam.rms[k] = kNoMisfit;
      return {-1, true};
    }
    ListSlot(k);
    DrawSideGraph(-k);
    if (!sweepState.refusal.empty()) return {-1, true};  // said once, not for every ratio
  }
  return {0, true};
}

/// Both callbacks: evaluates under the wait cursor, unless there is nothing to do.
Evaluation EvaluateFromButton() {
  if (GetCtrlVal(inversion::ALPHA_POINT) == 0) {
    Refuse("Please enter the number of Depth-to-WaveL Ratios.");
    return {};
  }
  ForgetHalt();  // a press begins
  SetWaitCursor(true);
  const Evaluation done = Evaluate();
  SetWaitCursor(false);
  return done;
}

}  // namespace

std::vector<double> DoublingThicknesses(double t, double depth, double& sum) {
  std::vector<double> layers;
  sum = 0.0;
  for (int group = 0; group < kGroups; ++group) {
    if (group > 0) t *= 2.0;
    for (int k = 0; k < kLayersPerGroup; ++k) {
      layers.push_back(t);
      sum += t;
      if (sum > depth) return layers;
    }
  }
  return layers;
}

int AutoSetupStartingModelParameters(int useData) {
  return SetUpLayers(useData == 1, true, true);
}

int SetupStartingModelParameters() {
  return SetUpLayers(true, false, false);
}

int EvalSMParam() {
  return Evaluate().result;
}

int BestStartingProfile() {
  if (SMPParam.nLayers < 1) return 0;  // tables without a profile are zero, their misfits too
  const int count = std::min(GetCtrlVal(inversion::ALPHA_POINT), SMPParam.rms.hi());
  double smallest = kSearchFrom;
  int best = 0;
  for (int k = 1; k <= count; ++k) {
    const double misfit = SMPParam.rms[k];
    if (!(misfit >= 0.0 && misfit < smallest)) continue;
    smallest = misfit;
    best = k;
  }
  return best;
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
  const Evaluation done = EvaluateFromButton();
  if (!done.started || PressHalted()) return -1;
  if (done.result == 0 && BestStartingProfile() == 0)
    return Refuse("None of the starting profiles has a theoretical curve.");
  const int taken = RunAutoPreInversion();
  return done.result < 0 ? -1 : taken;
}

int DetermineSMPCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? EvaluateFromButton().result : 0;
}

}  // namespace sondera
