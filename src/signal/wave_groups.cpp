// wave_groups.cpp - peaks and valleys of a Gabor map's ridge. See wave_groups.h. Owns no state.
#include "signal/wave_groups.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "numeric/analysis.h"
#include "numeric/scale_arithmetic.h"
#include "numeric/sort.h"
#include "records/session.h"
#include "signal/gabor.h"

namespace sondera {
namespace {

constexpr int kMostOfAKind = kMostExtremes / 2;
constexpr int kPeakWidth = 5, kValleyWidth = 3;  // points per fitted parabola
constexpr double kTop = 100.0;
constexpr double kLeastDepth = 5.0;  // of a valley, below 100
constexpr double kValleyMark = 1e-5;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

/// Scales the map into Z, transposed, and finds the ridge.
void TakeRidge(int nF, int nT, const double* grid, double threshold, WaveGroups& found) {
  found.Z.resize(At(nF * nT));
  for (int f = 0; f < nF; ++f)
    for (int t = 0; t < nT; ++t) found.Z[At(t * nF + f)] = grid[f * nT + t];
  ScalezArray(found.Z.data(), nF, nT, threshold);
  found.peakV.resize(At(nF));
  found.peakT.resize(At(nF));
  std::vector<double> row(At(nT));
  for (int f = 0; f < nF; ++f) {
    for (int t = 0; t < nT; ++t) row[At(t)] = found.Z[At(t * nF + f)];
    double max = 0.0, min = 0.0;
    int atMax = 0, atMin = 0;
    MaxMin1D(row.data(), nT, &max, &atMax, &min, &atMin);
    found.peakV[At(f)] = max;
    found.peakT[At(f)] = max == min ? nT : atMax;
  }
}

/// Passes the strongest peaks, ten at most, to `take(row, curvature)`, strongest first. Returns their number.
template <class Take>
int TakeStrongest(Peaks peaks, Take take) {
  const int n = peaks.count();
  sort3(n, peaks.amplitudes.data(), peaks.locations.data(), peaks.secondDerivatives.data(), nullptr, 0);
  const int taken = std::min(n, kMostOfAKind);
  for (int k = n - 1; k >= n - taken; --k)
    take(TruncToInt(peaks.locations[At(k)] + 0.5), peaks.secondDerivatives[At(k)]);
  return taken;
}

void Append(ExtremeTable& table, int row, double amp, double curv, double vel) {
  const std::size_t e = At(++table.count);
  table.loc[e] = row;
  table.amp[e] = amp;
  table.curv[e] = curv;
  table.vel[e] = vel;
}

/// Velocity of a group, negative where such a wave is impossible at the site.
double JudgedVelocity(double spacing, int column, double timeStep) {
  const double delay = column * timeStep;
  const double v = delay == 0.0 ? std::numeric_limits<double>::infinity() : spacing / delay;
  return v >= session.smV[1] || v < session.smV[4] ? -v : v;
}

}  // namespace

bool IsMapSize(int nF, int nT) {
  return nF >= 1 && nT >= 1 && nF <= kGaborDivisions && nT <= kGaborDivisions;
}

double MapStep(double first, double last, int points) {
  return points > 1 ? (last - first) / (points - 1) : 0.0;
}

void ExtremeTable::Reject(int e) {
  vel[At(e)] = -std::fabs(vel[At(e)]);
}
int ExtremeTable::PeakAtOrBefore(int from) const {
  int e = from;
  while (e >= 1 && !IsPeak(e)) --e;
  return std::max(e, 0);
}
int ExtremeTable::ValleyAtOrBefore(int from) const {
  int e = from;
  while (e >= 1 && !IsValley(e)) --e;
  return std::max(e, 0);
}
int ExtremeTable::PeakFrom(int from, int to) const {
  for (int e = from; e <= to; ++e)
    if (IsPeak(e)) return e;
  return 0;
}
int ExtremeTable::ValleyFrom(int from, int to) const {
  for (int e = from; e <= to; ++e)
    if (IsValley(e)) return e;
  return 0;
}

void IdentifyWaveGroup(int nF, int nT, double tInit, double tFinal, const double* grid, double threshold,
                       double spacing, WaveGroups& found) {
  found = WaveGroups{};
  if (!IsMapSize(nF, nT) || !grid) return;
  TakeRidge(nF, nT, grid, threshold, found);
  const double timeStep = MapStep(tInit, tFinal, nT);
  const std::vector<double>& ridge = found.peakV;
  found.nPeaks =
      TakeStrongest(PeakDetector(ridge.data(), nF, threshold, kPeakWidth), [&](int row, double curv) {
        const int column = TruncToInt(found.peakT[At(row)]);
        Append(found.extremes, row, ridge[At(row)], curv, JudgedVelocity(spacing, column, timeStep));
      });
  std::vector<double> depth(At(nF));
  for (int f = 0; f < nF; ++f) depth[At(f)] = kTop - ridge[At(f)];
  found.nValleys =
      TakeStrongest(PeakDetector(depth.data(), nF, kLeastDepth, kValleyWidth), [&](int row, double curv) {
        Append(found.extremes, row, -(kTop - depth[At(row)]), curv, kValleyMark);
      });
  ExtremeTable& e = found.extremes;
  sort3(e.count, e.loc.data(), e.amp.data(), e.curv.data(), e.vel.data(), 1);
}

}  // namespace sondera
