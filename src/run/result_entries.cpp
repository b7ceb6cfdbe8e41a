// result_entries.cpp - see result_entries.h.
#include "run/result_entries.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include "records/kinds.h"
#include "records/model_records.h"
#include "records/result_capacity.h"
#include "run/receiver_setups.h"

namespace sondera {
namespace {

void AtLeast(std::vector<double>& v, int n) {
  if (v.size() < static_cast<std::size_t>(n)) v.resize(static_cast<std::size_t>(n), 0.0);
}

/// Computed point of the global curve, as it is stored.
struct CurvePoint {
  double vel = 0.0, freq = 0.0, wlen = 0.0;
};

CurvePoint GlobalPoint(const Run& run, int i, const OffsetVector<double>& velocity) {
  CurvePoint p;
  if (IsPlaneWaves(run.switches.iAnalysis)) {
    p.wlen = run.observations.runLambda[i];
    p.vel = velocity[i];
    p.freq = p.wlen > 0.0 ? p.vel / p.wlen : 0.0;
    return p;
  }
  const int firstSetup = run.receivers.nRecSetupsUsed > 0 ? run.receivers.recSetupList[1] : 0;
  p.vel = FS_CheckRecNo(run.receivers, run.observations.nDispPoints, i, firstSetup, velocity);
  p.freq = run.observations.runFreq[i];
  p.wlen = p.vel != 0.0 && p.freq > 0.0 ? p.vel / p.freq : 0.0;
  return p;
}

void RefreshGlobalCurve(const Run& run, const OffsetVector<double>& velocity) {
  ModelRecord& t = TheoDispInfo;
  t.nDispPointsG = run.observations.nDispPoints;
  for (auto column : kGlobalColumns) AtLeast(t.*column, run.observations.nDispPoints);
  t.capPoints = std::max(t.capPoints, run.observations.nDispPoints);
  AtLeast(t.freq, t.capPoints);
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    const CurvePoint p = GlobalPoint(run, i, velocity);
    const std::size_t k = static_cast<std::size_t>(i - 1);
    t.globalVel[k] = p.vel;
    t.globalFreq[k] = p.freq;
    t.globalWlen[k] = p.wlen;
  }
}

void RefreshArrayCurves(const Observations& observations, const OffsetVector<double>& velocity) {
  const ObsCurve& o = observations.obsCurves.front();
  ModelRecord& t = TheoDispInfo;
  AtLeast(t.freq, o.nFreq);
  AtLeast(t.vel, o.vel.size());
  AtLeast(t.wlen, o.vel.size());
  for (int p = 1; p <= o.nFreq; ++p) {
    t.freq[static_cast<std::size_t>(p - 1)] = o.freq[p];
    for (int c = 1; c <= o.nCurves; ++c) {
      const int row = observations.iArrayIndex(c, p);
      const std::size_t at = static_cast<std::size_t>(o.At(p, c) - 1);
      t.vel[at] = row > 0 ? velocity[row] : 0.0;
      t.wlen[at] = row > 0 && o.freq[p] > 0.0 ? velocity[row] / o.freq[p] : 0.0;
    }
  }
}

/// Places of the curves in TheoDispInfo and in an entry's row.
struct CurveColumns {
  std::vector<double>*vel, *freq, *wlen;
};

CurveColumns ShownColumns(bool global) {
  ModelRecord& t = TheoDispInfo;
  if (global) return {&t.globalVel, &t.globalFreq, &t.globalWlen};
  return {&t.vel, &t.freq, &t.wlen};
}

bool HasEntry(const InvRecord& r, int entry) {
  return entry >= 0 && entry <= r.rms.hi();
}

}  // namespace

InvRecord& RecordOfIndex(int index) {
  return index >= 0 ? InvParam : SMPParam;
}

int EntryOfIndex(int index) {
  return index >= 0 ? index : -std::max(index, -std::numeric_limits<int>::max());
}

bool RowsAreGlobal(const Run& run) {
  return run.observations.obsCurves.empty() || run.switches.iDispSource == kGlobalCurve ||
         (IsPlaneWaves(run.switches.iAnalysis) && run.switches.iHaveData != 0);
}

bool StoredIsGlobal() {
  // A run on array curves keeps no global points, except a plane-wave run with data.
  return TheoDispInfo.dispCurvType == kGlobalCurve ||
         (TheoDispInfo.analysis == kPlaneWaves && TheoDispInfo.nDispPointsG > 0);
}

Refusal FS_RefreshDspCurve(const Run& run, int index, const OffsetVector<double>& velocity, double rms) {
  const bool global = RowsAreGlobal(run);
  if (global) {
    RefreshGlobalCurve(run, velocity);
  } else {
    RefreshArrayCurves(run.observations, velocity);
  }
  InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index);
  const int points = global ? run.observations.nDispPoints : run.observations.obsCurves.front().nFreq;
  const int curves = global ? 1 : run.observations.obsCurves.front().nCurves;
  if (Refusal refusal = ReserveEntry(r, entry, TheoDispInfo.nLayers, points, curves)) return refusal;
  const CurveColumns from = ShownColumns(global);
  for (int p = 0; p < points; ++p) r.freq(entry, p) = (*from.freq)[static_cast<std::size_t>(p)];
  for (int k = 0; k < points * curves; ++k) {
    r.vel(entry, k) = (*from.vel)[static_cast<std::size_t>(k)];
    r.waveL(entry, k) = (*from.wlen)[static_cast<std::size_t>(k)];
  }
  r.nPoints = points;
  r.nCurves = curves;
  r.rms[entry] = rms;
  return {};
}

Refusal FS_RefreshModelPar(const LayeredGround& ground, int index) {
  InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index);
  const int n = std::min(TheoDispInfo.nLayers, ground.nLayersCur);
  if (n < 1) return Refusal::WithoutReason();
  if (Refusal refusal = ReserveEntry(r, entry, n, r.nPoints, r.nCurves)) return refusal;
  r.nLayers = n;
  double depth = 0.0;
  for (int l = 1; l <= n; ++l) {
    r.depth(entry, l - 1) = depth;
    r.H(entry, l - 1) = ground.layerH[l];
    r.Vp(entry, l - 1) = ground.layerVp[l];
    r.Vs(entry, l - 1) = ground.layerVs[l];
    r.density(entry, l - 1) = ground.layerRho[l];
    r.nu(entry, l - 1) = ground.layerNu[l];
    r.damping(entry, l - 1) = ground.layerDamp[l];
    if (l < n) depth += ground.layerH[l];
  }
  const double above = n > 1 ? ground.layerH[n - 1] : ground.layerH[n];
  r.depth(entry, n) = ground.layerH[n] <= 2.0 * above ? depth + ground.layerH[n] : depth + 0.5 * above;
  return {};
}

void FS_RecallDspCurve(int index) {
  const InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index);
  const int points = r.nPoints, cells = points * r.nCurves;
  if (!HasEntry(r, entry) || points < 1 || r.nCurves < 1 || points > r.freq.colHi() + 1 ||
      cells > r.vel.colHi() + 1)
    return;
  const bool global = StoredIsGlobal();
  if (global && r.nCurves != 1) return;
  ModelRecord& t = TheoDispInfo;
  if (global) {
    t.nDispPointsG = points;
  } else {
    if (r.nCurves > static_cast<int>(t.pairRec1.size())) return;
    t.nDispPoints = points;
    t.nDispCurves = r.nCurves;
  }
  const CurveColumns to = ShownColumns(global);
  AtLeast(*to.freq, points);
  AtLeast(*to.vel, cells);
  AtLeast(*to.wlen, cells);
  for (int p = 0; p < points; ++p) (*to.freq)[static_cast<std::size_t>(p)] = r.freq(entry, p);
  for (int k = 0; k < cells; ++k) {
    (*to.vel)[static_cast<std::size_t>(k)] = r.vel(entry, k);
    (*to.wlen)[static_cast<std::size_t>(k)] = r.waveL(entry, k);
  }
}

void FS_RecallModelPar(int index) {
  const InvRecord& r = RecordOfIndex(index);
  const int entry = EntryOfIndex(index);
  const int n = r.nLayers;
  if (!HasEntry(r, entry) || n < 1 || n > r.H.colHi()) return;
  ModelRecord& t = TheoDispInfo;
  t.nLayers = n;
  t.capLayers = std::max(t.capLayers, n + 1);
  const OffsetMatrix<double>* tables[] = {&r.H, &r.Vp, &r.Vs, &r.density, &r.nu, &r.damping};
  for (std::size_t k = 0; k < kLayerColumns.size(); ++k) {
    std::vector<double>& column = t.*kLayerColumns[k];
    AtLeast(column, t.capLayers);
    for (int i = 1; i <= n; ++i) column[static_cast<std::size_t>(i)] = (*tables[k])(entry, i);
  }
}

double PosteriorDeviation(int index, int i) {
  const InvRecord& r = InvParam;
  if (index <= 0 || index > r.rms.hi() || i > r.Vs.colHi()) return 0.0;
  const double prior = r.ufVs <= 1.0 ? r.ufVs * r.Vs(index - 1, i) : r.ufVs;
  const double left = std::max(1.0 - r.resolution(index, i), 0.0);  // rounding may give a value above 1
  return std::sqrt(left * prior * prior);
}

}  // namespace sondera
