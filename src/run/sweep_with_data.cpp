// sweep_with_data.cpp - sweeps of runs with data; see sweep.h.
#include "records/kinds.h"
#include "run/receiver_setups.h"
#include "run/sweep.h"
#include "run/sweep_solvers.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

class DataSweep {
 public:
  DataSweep(const SweepParts& parts, Listener& listener, OffsetVector<double>& vel, OffsetVector<double>& amp)
      : o_(parts.observations),
        receivers_(parts.receivers),
        doubts_(parts.doubts),
        listener_(listener),
        shows_(parts.switches.iInvScheme == 0),
        solvers_(parts, parts.observations.nDispPoints, listener),
        vel_(vel),
        amp_(amp) {}

  // Each is false when halted.
  bool PlaneWaves();
  bool Global();
  bool Array(int curveId, const ObsCurve& curve);

 private:
  Observations& o_;
  Receivers& receivers_;
  SweepState& doubts_;
  Listener& listener_;
  bool shows_;  ///< an inversion shows other messages
  SweepSolvers solvers_;
  OffsetVector<double>&vel_, &amp_;
};

bool DataSweep::PlaneWaves() {
  FS_SetupReceivers(0, o_, receivers_);
  for (int i = 1; i <= o_.nDispPoints; ++i) {
    const double freq = o_.runFreq[i];
    const bool going = solvers_.PlaneWave(RatioOrZero(o_.runVel[i], freq), vel_[i]);
    o_.runLambda2[i] = RatioOrZero(vel_[i], freq);
    if (vel_[i] == 0.0) {
      o_.iNoVelocity[i] = 1;
      doubts_.noResult.push_back(FormatText("%d", i));
    }
    if (shows_) listener_.Status(GlobalProgress(i, freq, o_.runLambda2[i], vel_[i]));
    if (!going) return false;
  }
  return true;
}

bool DataSweep::Global() {
  FS_SetupReceivers(0, o_, receivers_);
  const int n = o_.nDispPoints;
  for (int i = 1; i <= n; ++i) {
    for (int k = 1; k <= receivers_.nRecCfgPerPoint[i]; ++k) {
      const double freq = o_.runFreq[i], seed = o_.runVel[i];
      const PairAnswer a =
          solvers_.PointLoad({i, k, freq, seed, RatioOrZero(seed, freq), FormatText("%d", i)});
      const int at = (k - 1) * n + i;
      vel_[at] = a.vel;
      amp_[at] = a.amp * kAmplitudeFactor;
      o_.runLambda2[at] = RatioOrZero(a.vel, freq);
      if (a.vel == 0.0) o_.iNoVelocity[i] = 1;
      if (shows_) listener_.Status(GlobalProgress(i, freq, o_.runLambda2[at], a.vel));
      if (a.halted) return false;
    }
  }
  return true;
}

bool DataSweep::Array(int curveId, const ObsCurve& curve) {
  FS_SetupReceivers(curveId, o_, receivers_);
  solvers_.SetStride(curve.nFreq);
  for (int row = 1; row <= o_.nObsRows; ++row) {
    int iFreq = 0, iPair = 0;
    FS_GetFreqIDAndRecPairID(curve, row, &iFreq, &iPair);
    if (iFreq == 0) break;
    const double freq = o_.runFreq[row], seed = o_.runVel[row];
    const PairAnswer a = solvers_.PointLoad(
        {iFreq, iPair, freq, seed, RatioOrZero(seed, freq), FormatText("(%d,%d)", iFreq, iPair)});
    vel_[row] = a.vel;
    amp_[row] = a.amp * kAmplitudeFactor;
    o_.runLambda2[row] = RatioOrZero(a.vel, freq);
    if (a.vel == 0.0) o_.iNoVelocity[row] = 1;
    if (shows_) listener_.Status(ArrayProgress(true, iFreq, iPair, freq, o_.runLambda2[row], a.vel));
    if (a.halted) return false;
  }
  return true;
}

}  // namespace

SweepParts PartsOfSweep(Run& run) {
  return {run.ground, run.observations, run.receivers, run.switches, sweepState};
}

Refusal FS_rWave3D(const SweepParts& parts, Listener& listener, OffsetVector<double>& vel,
                   OffsetVector<double>& amp) {
  if (parts.switches.iInvScheme == 0) listener.Status("Performing F. Modeling Analysis ...");
  DeriveLayerProperties(parts.ground, true);
  vel = amp = OffsetVector<double>(1, parts.observations.runVel.size());
  DataSweep sweep(parts, listener, vel, amp);
  bool going = true;
  if (IsPlaneWaves(parts.switches.iAnalysis)) {
    going = sweep.PlaneWaves();
  } else if (parts.switches.iDispSource == kGlobalCurve) {
    going = sweep.Global();
  } else {
    int curveId = 0;
    for (const ObsCurve& curve : parts.observations.obsCurves)
      if (going) going = sweep.Array(++curveId, curve);
  }
  return going ? Refusal() : Refusal::WithoutReason();
}

}  // namespace sondera
