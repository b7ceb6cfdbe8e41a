// inversion_settings.cpp - the panel of the inversion: settings between panel and records, and which controls
// are enabled; see inversion.h.
#include <algorithm>
#include <cstddef>

#include "panels/inversion.h"
#include "panels/inversion_entries.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/result_capacity.h"
#include "run/result_entries.h"
#include "run/run_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"

namespace sondera {
namespace {

using namespace inversion;

constexpr int kInversionFace = 2;  // value of FMDORINV
constexpr int kUnitWeights = -1, kByFactor = 1;

/// After a project whose records could not be read, the missing record is reset.
void RestoreMissingRecord() {
  if (InvParam.maxLayers > 0) return;
  const InvRecord profiles = SMPParam;
  InitializeInvAnal();
  if (profiles.maxLayers > 0) SMPParam = profiles;
}

/// Entry 0 from FModelParam.
int SeedGivenModel() {
  SetCtrlVal(exdthd::RMSERROR, 0.0);
  DeleteGraphPlot(exdthd::PROFILE);
  const ModelRecord& m = FModelParam;
  std::size_t rows = m.thickness.size();
  for (auto column : kLayerColumns) rows = std::min(rows, (m.*column).size());
  const int n = std::min(m.nLayers, static_cast<int>(rows));
  if (n < 1) return 0;
  if (ShowRefusal(ReserveEntry(InvParam, 0, n, 0, 0)) < 0) return -1;
  InvRecord& r = InvParam;
  r.nLayers = n;
  double depth = 0.0;
  for (int i = 0; i < n; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    r.depth(0, i) = depth;
    r.H(0, i) = m.thickness[k];
    r.Vp(0, i) = m.Vp[k];
    r.Vs(0, i) = m.Vs[k];
    r.density(0, i) = m.density[k];
    r.nu(0, i) = m.nu[k];
    r.damping(0, i) = m.damping[k];
    if (i < n - 1) depth += m.thickness[k];
  }
  const double last = r.H(0, n - 1), above = n > 1 ? r.H(0, n - 2) : last;
  r.depth(0, n) = depth + (last <= 2.0 * above ? last : above);
  return 0;
}

/// Largest numbers of the iterations and of the starting profiles in the list of the results page.
struct Listed {
  int iterations = 0, profiles = 0;
};

Listed ListedEntries() {
  Listed listed;
  for (int i = 0; i < GetNumListItems(exdthd::ITERNO); ++i) {
    const int index = static_cast<int>(GetValueFromIndex(exdthd::ITERNO, i));
    int& last = index < 0 ? listed.profiles : listed.iterations;
    last = std::max(last, EntryOfIndex(index));
  }
  return listed;
}

bool FactorsAreRelative() {
  return GetCtrlVal(CM_COV) != 0;
}

}  // namespace

int SetInvParams() {
  RestoreMissingRecord();
  const int result = InvParam.nLayers == 0 ? SeedGivenModel() : 0;
  const InvRecord& r = InvParam;
  SetCtrlVal(ALPHA_POINT, SMPParam.nEntries);
  SetCtrlVal(ALPHA_FROM, SMPParam.alphaFrom);
  SetCtrlVal(ALPHA_TO, SMPParam.alphaTo);
  SetCtrlVal(INV_SMP, r.iSelected);
  SetCtrlVal(NITER, r.nEntries);
  SetCtrlVal(MODELPARM, r.MODELPARM);
  SetCtrlVal(FactorsAreRelative() ? UF_H_REL : UF_H, r.ufH);
  SetCtrlVal(FactorsAreRelative() ? UF_VS_REL : UF_VS, r.ufVs);
  SetCtrlVal(LB_H, r.minH);
  SetCtrlVal(UB_H, r.maxH);
  SetCtrlVal(LB_VS, r.minVs);
  SetCtrlVal(UB_VS, r.maxVs);
  return result;
}

int GetInvParams() {
  int result = 0;
  const auto takeEntries = [&result](InvRecord& r, int entries) {
    if (ReserveEntries(r, entries) < 0) {
      result = -1;
    } else {
      r.nEntries = entries;
    }
  };
  takeEntries(SMPParam, GetCtrlVal(ALPHA_POINT));
  SMPParam.alphaFrom = GetCtrlVal(ALPHA_FROM);
  SMPParam.alphaTo = GetCtrlVal(ALPHA_TO);
  InvRecord& r = InvParam;
  takeEntries(r, GetCtrlVal(NITER));
  r.iSelected = GetCtrlVal(INV_SMP);
  r.MODELPARM = GetCtrlVal(MODELPARM);
  r.ufH = GetCtrlVal(FactorsAreRelative() ? UF_H_REL : UF_H);
  r.ufVs = GetCtrlVal(FactorsAreRelative() ? UF_VS_REL : UF_VS);
  r.minH = GetCtrlVal(LB_H);
  r.maxH = GetCtrlVal(UB_H);
  r.minVs = GetCtrlVal(LB_VS);
  r.maxVs = GetCtrlVal(UB_VS);
  return result;
}

LengthUnit UnitOfLength() {
  return {GetCtrlVal(meassetup::LENGTHUNIT), GetCtrlIndex(meassetup::LENGTHUNIT)};
}

InversionSettings SettingsOfInversion() {
  const auto isOn = [](const ToggleControl& control) { return GetCtrlVal(control) == 1; };
  InversionSettings settings;
  settings.PROJID = GetCtrlVal(hmsetup::PROJID);
  settings.fixed = {GetCtrlVal(CONST_MP_VS), GetCtrlVal(CONST_MP_H)};
  settings.UPDATERHONU = GetCtrlVal(UPDATERHONU) == 1;
  settings.unit = UnitOfLength();
  settings.STEPCONTROL = isOn(STEPCONTROL);
  settings.DATADEVIATION = isOn(DATADEVIATION);
  settings.HUBERWEIGHTS = isOn(HUBERWEIGHTS);
  settings.SEVERALSTARTS = isOn(SEVERALSTARTS);
  return settings;
}

int InvAnalysisParamCallback(Panel, ControlId, Event, long) {
  const int result = SetInvParams();
  SetCtrlVal(exdthd::STATUSMSG, "");
  SetCtrlVal(exdthd::PROCESSMSG, "");
  DisplayPanel(Panel::INVERSION);
  return result;
}

int RunInvAnalCallback(Panel panel, ControlId control, Event event, long data) {
  return event == Event::Commit ? InvAnalysisParamCallback(panel, control, event, data) : 0;
}

int InvAnalCloseCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  // The project file stores the number of entries in the records: a smaller number on a panel that was closed
  // without a run must not drop results that are still listed.
  const Listed listed = ListedEntries();
  const int iterations = InvParam.nEntries, profiles = SMPParam.nEntries;
  const int result = GetInvParams();
  InvParam.nEntries = std::max(InvParam.nEntries, std::min(iterations, listed.iterations));
  SMPParam.nEntries = std::max(SMPParam.nEntries, std::min(profiles, listed.profiles));
  HidePanel(Panel::INVERSION);
  return result;
}

int OpenInvAnalWincallback(Panel, ControlId, Event, long) {
  DisplayPanel(Panel::EXDTHD);
  SetCtrlVal(exdthd::FMDORINV, kInversionFace);
  return Commit(exdthd::FMDORINV);
}

int DataCovMatCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  run.switches.cdMode = GetCtrlVal(CD_COV);
  SetDimmed(UF_VPH, run.switches.cdMode != kByFactor);
  return 0;
}

int MParmCovMatCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const bool relative = FactorsAreRelative();
  for (const Control* c : {&UF_H, &UF_VS}) SetDimmed(*c, relative);
  for (const Control* c : {&UF_H_REL, &UF_VS_REL, &UF_VPH}) SetDimmed(*c, !relative);
  if (relative) {
    run.switches.cdMode = kUnitWeights;
    SetCtrlVal(CD_COV, kUnitWeights);
  }
  return 0;
}

}  // namespace sondera
