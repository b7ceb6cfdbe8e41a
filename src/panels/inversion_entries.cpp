// inversion_entries.cpp - stored profiles as starting models and as settings; see inversion.h, inversion_entries.h.
#include "panels/inversion_entries.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "inversion/rho_nu_rule.h"
#include "panels/fmodeling_records.h"
#include "panels/inversion.h"
#include "records/result_capacity.h"
#include "records/session.h"
#include "records/settings_capacity.h"
#include "run/result_entries.h"
#include "run/theo_disp_info.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Tables of a stored profile, in the order of kLayerColumns.
constexpr OffsetMatrix<double> InvRecord::*kProfileTables[] = {
    &InvRecord::H, &InvRecord::Vp, &InvRecord::Vs, &InvRecord::density, &InvRecord::nu, &InvRecord::damping};

/// Because of a damaged file, a list or a counter may refer to missing data.
bool IsStored(const InvRecord& r, int entry) {
  return r.nLayers > 0 && entry <= r.H.rowHi() && r.nLayers <= r.H.colHi();
}

/// Density and Poisson's ratio from Vs, for the panel's record and the profile that it was copied from.
void UpdateDensityAndNu(InvRecord& r, int entry) {
  const LengthUnit unit = UnitOfLength();
  for (int i = 0; i < FModelParam.nLayers; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    const DensityAndNu ground = RuleForVs(FModelParam.Vs[k], unit.LENGTHUNIT, unit.index);
    FModelParam.density[k] = r.density(entry, i) = ground.density;
    FModelParam.nu[k] = r.nu(entry, i) = ground.nu;
  }
}

}  // namespace

int TakeProfile(int index, ModelRecord& to) {
  const InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index);
  if (!IsStored(r, entry))
    return Refuse(FormatText("There is no profile %s %d.", index < 0 ? "SMP" : "INV", entry));
  ReserveLayers(to, r.nLayers);
  to.nLayers = r.nLayers;
  for (std::size_t c = 0; c < kLayerColumns.size(); ++c)
    for (int i = 0; i < r.nLayers; ++i)
      (to.*kLayerColumns[c])[static_cast<std::size_t>(i)] = (r.*kProfileTables[c])(entry, i);
  return 0;
}

int ReserveEntries(InvRecord& r, int entries) {
  // One more than wanted: the project file holds the misfits of the entries before the capacity.
  const int last = std::clamp(entries, 0, std::numeric_limits<int>::max() - 1) + 1;
  return ShowRefusal(ReserveEntry(r, last, r.nLayers, r.nPoints, r.nCurves));
}

int TakeStartingModel(ModelRecord& start) {
  start = FModelParam;
  return InvParam.iSelected != 0 ? TakeProfile(InvParam.iSelected, start) : 0;
}

int UpdateMParm() {
  InvParam.iSelected = GetCtrlVal(inversion::INV_SMP);
  if (InvParam.iSelected != 0 && TakeProfile(InvParam.iSelected, FModelParam) < 0) return -1;
  SetFModelParam_AS();
  return 0;
}

int UpdateTheoDispInfoForInvAnal() {
  UpdateTheoDispInfo(FModelParam);
  return InvParam.iSelected != 0 ? TakeProfile(InvParam.iSelected, TheoDispInfo) : 0;
}

int CopyFromGivenPRFCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (GetCtrlIndex(fmodeling::COPYPRF) < 0) return Refuse("There is no profile to copy.");
  const int index = GetCtrlVal(fmodeling::COPYPRF);
  if (TakeProfile(index, FModelParam) < 0) return -1;
  if (GetCtrlVal(inversion::UPDATERHONU) == 1) UpdateDensityAndNu(RecordOfIndex(index), EntryOfIndex(index));
  SetFModelParam_AS();
  return 0;
}

}  // namespace sondera
