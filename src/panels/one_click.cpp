// one_click.cpp - sequences of presses from curves to a profile. Owns no state.
#include "panels/one_click.h"

#include <algorithm>
#include <cmath>

#include "panels/analresult.h"
#include "panels/inversion.h"
#include "panels/inversion_start.h"
#include "records/kinds.h"
#include "records/measdb.h"
#include "records/measurement_rules.h"
#include "records/model_records.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/measpanel.h"

namespace sondera {
namespace {

constexpr double kSearchFrom = 1e30;
constexpr int kCompositeAndArray = 4;  // what the dispersion page shows after calcVel

/// Properties of a new layer, columns 2 to 6 of the soil table: P-wave velocity 0 so that it follows from
/// Poisson's ratio, S-wave velocity, density, Poisson's ratio, damping.
constexpr double kNewLayer[] = {0.0, 180.0, 1.8, 0.3333, 0.02};

}  // namespace

double LargestArrayWavelength() {
  double largest = -kSearchFrom;
  for (const DispInfo& curve : MeasDB.aDispList) {
    PMeasInfo* pair = nullptr;
    if (!CheckifIncluded(curve.key, curve.refChan, curve.dspChan, pair)) continue;
    for (int i = 1; i <= std::min(curve.nPoints, curve.wlen.hi()); ++i)
      if (std::isfinite(curve.wlen[i])) largest = std::max(largest, curve.wlen[i]);
  }
  return largest;
}

void RunCalcVel(const Press& press) {
  press(dispcurv::COMPDISPCURV, 0);
  press(cdisppnl::UPDATE, 0);
  press(cdisppnl::CANCEL, 0);
  SetCtrlVal(dispcurv::DISPCURVTYPE, kCompositeAndArray);
  SetActiveTabPage(Panel::PANEL, 2);
  press(measpanel::F6, 0);
}

void WriteNewLayers(const std::vector<double>& thicknesses, const Press& press) {
  SetCtrlVal(fmodeling::NLAYERS, static_cast<int>(thicknesses.size()));
  press(fmodeling::NLAYERS, 0);
  for (int row = 1; row <= static_cast<int>(thicknesses.size()); ++row) {
    SetTableCellVal(fmodeling::SOILPROFILE, row, 1, thicknesses[static_cast<std::size_t>(row - 1)]);
    for (int k = 0; k < 5; ++k) SetTableCellVal(fmodeling::SOILPROFILE, row, k + 2, kNewLayer[k]);
  }
}

void RunPreInversion(const std::vector<double>& thicknesses, const Press& press) {
  using namespace fmodeling;
  SetActiveTabPage(Panel::PANEL, 3);
  press(exdthd::FMODELPARAM, 0);
  WriteNewLayers(thicknesses, press);
  SetCtrlVal(GLOBAL_ARRAY, kArrayCurves);
  press(LOADDISPCURV, 0);
  press(GLOBAL_ARRAY, 0);
  press(UPDATE, 0);
  press(CLOSE, 0);

  press(exdthd::RUN_INVERSION, 0);
  press(inversion::EVALSMPARAM, 0);
  const int best = BestStartingProfile();
  if (best > 0) SetCtrlIndex(COPYPRF, best - 1);
  press(NLAYERS, 0);
  press(COPYFROMPRF, 0);
  press(UPDATE_PROFILE2, 0);
  press(UPDATE, 0);
  press(CLOSE, 0);
  press(measpanel::F6, 0);
}

void RunInversionAndSave(const Press& press) {
  press(inversion::PERFORMINV, 0);
  press(measpanel::F6, 0);
  press(exdthd::RESULTBOX, 0);
  press(analresult::SAVE, LastStartHasEntries() ? kUnderProjectName : kNoIteration);
}

int OneClickInversionCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  Presses press;
  press(inversion::EVALSMPARAM, 0);
  RunInversionAndSave(std::ref(press));
  return press.result();
}

int PerformInvInvSaveCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  Presses press;
  RunInversionAndSave(std::ref(press));
  return press.result();
}

}  // namespace sondera
