// auto_masking.cpp - the run of the automatic masking. See auto_masking.h. Owns no state.
#include "signal/auto_masking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "numeric/scale_arithmetic.h"
#include "signal/irf.h"
#include "signal/line_masks.h"
#include "signal/pair_data.h"
#include "signal/wave_groups.h"
#include "signal/window_tuning.h"

namespace sondera {
namespace {

constexpr double kHalfCircle = 180.0, kCycle = 360.0;  // degrees
/// New time ranges per press. Two or three are usual: a range that is too short doubles, one that is too long
/// shrinks to three times the group. Without a limit, a map may ask for a longer and a shorter range in turn
/// for ever.
constexpr int kMostRanges = 16;
constexpr const char* kBadMap = "The Gabor spectrum has no range or no divisions. Please check its setup.";

/// A map with at least two points on each axis and with ends in order or not yet set.
bool MapIsUsable(const PMeasInfo& pair) {
  if (pair.timeDiv < 2 || pair.freqDiv < 2) return false;
  if (pair.finalTime == 0.0) return true;
  const auto inOrder = [](double first, double last) {
    return std::isfinite(first) && std::isfinite(last) && last > first;
  };
  return inOrder(pair.initTime, pair.finalTime) && inOrder(pair.initFreq, pair.finalFreq);
}

/// The pair with its windows at the velocities of the site; its record is created when there is none.
bool StartPair(CurrentPair& current, int phaseOption) {
  if (current.pair) return CalcIRF(1, current) == 0;
  current.pair = MakePairRecord(current.records.projID, current.records.measID, current.refChan,
                                current.dspChan, *current.records.hwSetup, phaseOption);
  return current.pair && CalcIRF(0, current) == 0;
}

struct MapSteps {
  double row, column;  // Hz, s
};

/// Finds the groups of the enhanced map and replaces the pair's masks by theirs.
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

/// Masks and windows for the present time range of the map. wantedTime: a better end of that range, 0 for
/// none.
Refusal MaskOverRange(const AutoMaskRequest& request, Listener& listener, double& wantedTime) {
  CurrentPair current = request.find();
  if (!current.complete()) return Refusal::WithoutReason();
  if (current.pair && !MapIsUsable(*current.pair)) return kBadMap;
  IrfGeometry geometry;
  if (!StartPair(current, request.phaseOption) || !GetIrfGeometry(current, geometry))
    return Refusal::WithoutReason();
  const double spacing = std::fabs(geometry.spacing);

  CalcGaborMaps(request.find, listener);
  current = request.find();  // events were handled
  if (!current.complete() || !current.pair) return Refusal::WithoutReason();
  if (!MapIsUsable(*current.pair)) return kBadMap;  // a measurement without an analysis band

  PMeasInfo& pair = *current.pair;
  const MapSteps step = {MapStep(pair.initFreq, pair.finalFreq, pair.freqDiv),
                         MapStep(pair.initTime, pair.finalTime, pair.timeDiv)};
  WaveGroups groups = ReplaceMasks(current, spacing, step);
  const StrongestGroup group = TakeStrongestGroup(groups, pair.freqDiv, pair.timeDiv);
  TuneWindows(group, spacing, step.column, groups.extremes.count > 0, pair);
  wantedTime = BetterFinalTime(group, pair.cntThreshold, step.column, pair.finalTime,
                               current.records.hwSetup->timeLength);
  return {};
}

/// Phases with the new masks, then the numbers of the masks from the backbone phase. False for a pair that
/// was removed meanwhile.
bool NumberMasks(const PairFinder& find) {
  const CurrentPair current = find();
  if (!current.pair) return false;
  CalcIRF(0, current);
  UpdateJumpNo(*current.pair);
  return true;
}

}  // namespace

AutoMaskResult MaskPair(const AutoMaskRequest& request, Listener& listener) {
  AutoMaskResult result;
  int completed = 0;  // ranges
  for (int rangesLeft = kMostRanges;; --rangesLeft) {
    double wantedTime = 0.0;
    result.refusal = MaskOverRange(request, listener, wantedTime);
    if (result.refusal) break;
    ++completed;
    if (!(wantedTime > 0.0) || rangesLeft == 0) break;
    if (!request.allowNewRange || !request.allowNewRange()) break;
    if (PMeasInfo* pair = request.find().pair) pair->finalTime = wantedTime;  // all maps are calculated again
  }
  if (completed == 0) return result;  // the masks are unchanged
  result.masked = NumberMasks(request.find);
  // Kept: after a new range the phases are unwrapped again, now with the numbers in the masks.
  if (result.masked && completed > 1) result.masked = NumberMasks(request.find);
  if (!result.masked && !result.refusal) result.refusal = Refusal::WithoutReason();
  return result;
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

}  // namespace sondera
