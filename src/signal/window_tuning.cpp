// window_tuning.cpp - windows and time range from the strongest group. See window_tuning.h. Owns no state.
#include "signal/window_tuning.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "numeric/analysis.h"
#include "numeric/scale_arithmetic.h"
#include "records/session.h"

namespace sondera {
namespace {

constexpr int kTimeFigures = 7;
constexpr double kEdge = 92.0;   // level at which a window begins and ends
constexpr double kTaper = 93.0;  // level at which it is fully open
constexpr int kNone = -1;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

/// Last column at or before the group, or first column from it on, where the map is at a level or below.
int LastAtOrBelow(const StrongestGroup& group, double level) {
  int t = group.column;
  while (t >= 0 && !(group.overTime[At(t)] <= level)) --t;
  return t >= 0 ? t : kNone;
}
int FirstAtOrBelow(const StrongestGroup& group, double level) {
  for (int t = group.column; t < static_cast<int>(group.overTime.size()); ++t)
    if (group.overTime[At(t)] <= level) return t;
  return kNone;
}

void SetTime(double& time, int column, double timeStep) {
  if (column != kNone) time = column * timeStep;
}

}  // namespace

StrongestGroup TakeStrongestGroup(WaveGroups& groups, int nF, int nT) {
  ExtremeTable& extremes = groups.extremes;
  for (int e = 1; e <= extremes.count; ++e)
    if (extremes.Vel(e) < 0.0) extremes.amp[At(e)] = -std::fabs(extremes.Amp(e));
  double max = 0.0, min = 0.0;
  int atMax = 0, atMin = 0;
  MaxMin1D(extremes.amp.data() + 1, extremes.count, &max, &atMax, &min, &atMin);
  const int row = extremes.count > 0 ? TruncToInt(extremes.Loc(atMax + 1)) : 0;
  StrongestGroup group;
  if (groups.Z.size() < At(std::max(nF, 0)) * At(std::max(nT, 0))) return group;
  for (int t = 0; t < nT; ++t) group.overTime.push_back(groups.Z[At(t * nF + row)]);
  MaxMin1D(group.overTime.data(), nT, &group.height, &group.column, &min, &atMin);
  return group;
}

void TuneWindows(const StrongestGroup& group, double spacing, double timeStep, bool found, PMeasInfo& pair) {
  for (std::size_t k = 1; k <= 4; ++k) {
    pair.bbT[k] = NiceNumber(spacing / session.bbV[k], kTimeFigures);
    pair.enT[k] = NiceNumber(spacing / session.smV[k], kTimeFigures);
  }
  if (!found || !(group.height > kEdge)) return;
  SetTime(pair.bbT[1], LastAtOrBelow(group, kEdge), timeStep);
  SetTime(pair.bbT[2], LastAtOrBelow(group, kTaper), timeStep);
  SetTime(pair.bbT[4], FirstAtOrBelow(group, kEdge), timeStep);
  SetTime(pair.bbT[3], FirstAtOrBelow(group, kTaper), timeStep);
  pair.enT[1] = 0.0;
  pair.enT[2] = pair.bbT[1];
  pair.enT[3] = pair.bbT[4];
  pair.enT[4] = std::min(pair.enT[4], 2.0 * pair.bbT[4]);
}

double BetterFinalTime(const StrongestGroup& group, double threshold, double timeStep, double finalTime,
                       double timeLength) {
  const int end = FirstAtOrBelow(group, threshold);
  const double t = (end == kNone ? static_cast<double>(group.overTime.size()) : end) * timeStep;
  if (!(t > 0.0) || !(finalTime < 0.5 * timeLength)) return 0.0;  // a group without length gives no range
  if (t < 0.25 * finalTime && 3.0 * t <= timeLength) return 3.0 * t;
  if (t > 0.5 * finalTime && 2.0 * t <= timeLength) return 2.0 * t;
  return 0.0;
}

}  // namespace sondera
