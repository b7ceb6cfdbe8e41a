// auto_masking.cpp - the run of the automatic masking. See auto_masking.h. Owns no state.
#include "signal/auto_masking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "numeric/scale_arithmetic.h"
#include "panels/irfsetpnl.h"
#include "panels/sasw_masking.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "signal/gabor.h"
#include "signal/irf.h"
#include "signal/line_masks.h"
#include "signal/spectra.h"
#include "signal/wave_groups.h"
#include "signal/window_tuning.h"

namespace sondera {
namespace {

constexpr int kMaskingPage = 1;
constexpr double kHalfCircle = 180.0, kCycle = 360.0;  // degrees
/// New time ranges per press. Two or three do in practice: a range that is too short doubles, one that is too
/// long shrinks to three times the group. A map may answer each new range by the opposite wish, without end.
constexpr int kMostRanges = 16;

/// A map that the automatic masks can read: two points or more on each axis, ends in order or not yet set.
bool MapIsUsable(const PMeasInfo& pair) {
  if (pair.timeDiv < 2 || pair.freqDiv < 2) return false;
  if (pair.finalTime == 0.0) return true;
  const auto inOrder = [](double first, double last) {
    return std::isfinite(first) && std::isfinite(last) && last > first;
  };
  return inOrder(pair.initTime, pair.finalTime) && inOrder(pair.initFreq, pair.finalFreq);
}

int RefuseMap() {
  MessagePopup(session.appTitle, "The Gabor spectrum has no range or no divisions. Please check its setup.");
  return -1;
}

/// The pair on display with its windows at the velocities of the site; made when there is none.
bool StartPair(CurrentPair& current) {
  if (current.pair) return CalcIRF(1, Panel::SASW) == 0;
  SetupPMeasDataNode(current.records.projID, current.records.measID, current.refChan, current.dspChan,
                     *current.records.hwSetup, current.pair);
  return current.pair && CalcIRF(0, Panel::SASW) == 0;
}

struct MapSteps {
  double row, column;  // Hz, s
};

/// Finds the groups of the enhanced map and puts their masks in place of the pair's.
WaveGroups ReplaceMasks(const CurrentPair& current, double spacing, const MapSteps& step) {
  PMeasInfo& pair = *current.pair;
  const HWSetup& hw = *current.records.hwSetup;
  WaveGroups groups;
  IdentifyWaveGroup(pair.freqDiv, pair.timeDiv, pair.initTime, pair.finalTime, pair.gaborMap(1).data(),
                    pair.cntThreshold, spacing, groups);
  NoiseTable noise;
  IdentifyBGNoise(hw, *current.records.measSetup, pair, noise);
  RejectPeaksInNoise(noise, hw.deltaF, step.row, pair.finalFreq, groups.extremes);
  const std::vector<int> gridMask = MakeGridMask(groups, pair.freqDiv, pair.cntThreshold);
  const std::vector<int> lineMask = MakeLineMask(gridMask, pair.freqDiv, step.row, pair, hw);
  FreeMaskingInfo(pair.key, pair.refChan, pair.dspChan);
  AppendMasks(lineMask, pair, hw);
  return groups;
}

int MaskPair(int rangesLeft) {
  CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.complete()) return -1;
  if (current.pair && !MapIsUsable(*current.pair)) return RefuseMap();
  IrfGeometry geometry;
  if (!StartPair(current) || !GetIrfGeometry(current, geometry)) return -1;
  const double spacing = std::fabs(geometry.spacing);
  SetWaitCursor(true);
  CalcGaborMaps(Panel::SASW);
  SetWaitCursor(false);
  current = FindCurrentPair(Panel::SASW);  // events were handled
  if (!current.complete() || !current.pair) return -1;
  if (!MapIsUsable(*current.pair)) return RefuseMap();  // a measurement without an analysis band
  PMeasInfo& pair = *current.pair;
  const MapSteps step = {MapStep(pair.initFreq, pair.finalFreq, pair.freqDiv),
                         MapStep(pair.initTime, pair.finalTime, pair.timeDiv)};
  WaveGroups groups = ReplaceMasks(current, spacing, step);
  const StrongestGroup group = TakeStrongestGroup(groups, pair.freqDiv, pair.timeDiv);
  TuneWindows(group, spacing, step.column, groups.extremes.count > 0, pair);
  const double finalTime = BetterFinalTime(group, pair.cntThreshold, step.column, pair.finalTime,
                                           current.records.hwSetup->timeLength);
  if (finalTime > 0.0 && rangesLeft > 0 &&
      ConfirmPopup(session.appTitle, "Need to recalculate Gabor spectrum. Allow to do it ?")) {
    pair.finalTime = finalTime;  // all maps are made again by what follows
    MaskPair(rangesLeft - 1);
    current = FindCurrentPair(Panel::SASW);
    if (!current.pair) return -1;
  }
  CalcIRF(0, Panel::SASW);
  UpdateJumpNo(*current.pair);
  DoPlotting(kMaskingPage);
  return 0;
}

}  // namespace

int AutoMasking() {
  return MaskPair(kMostRanges);
}

void UpdateJumpNo(const PMeasInfo& pair) {
  const int hwPos = MeasDB.hwSetupList.findKey(pair.key);
  const int lines = std::min(hwPos > 0 ? MeasDB.hwSetupList.at(hwPos)->nLines : 0, pair.capacity());
  for (MaskingInfo& mask : MeasDB.maskingList) {
    if (mask.key != pair.key) continue;
    const bool inside = mask.lineFinal >= 0 && mask.lineFinal < lines;
    const double p = inside ? pair.phaseBB[static_cast<std::size_t>(mask.lineFinal)] : 0.0;
    const int below = TruncToInt((p - kHalfCircle) / kCycle);
    mask.jumpNo = p >= kHalfCircle ? std::min(below, std::numeric_limits<int>::max() - 1) + 1 : 0;
  }
}

int MaskingAutoCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const int result = AutoMasking();
  RefreshIRFwindow(Panel::SASW);
  return result;
}

}  // namespace sondera
