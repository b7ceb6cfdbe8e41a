// sweep.cpp - sweeps of runs with data; see sweep.h. Those without data stand in sweep_curves.cpp.
#include "run/sweep.h"

#include <cstdlib>

#include "run/layer_table.h"
#include "run/receiver_setups.h"
#include "run/sweep_solvers.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

double Ratio(double value, double by) {
  return by > 0.0 ? value / by : 0.0;
}

int SweepPlaneWaves(SweepSolvers& solvers, OffsetVector<double>& vel) {
  FS_SetupReceivers(0);
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    const double freq = run.observations.runFreq[i];
    const bool going = solvers.PlaneWave(Ratio(run.observations.runVel[i], freq), vel[i]);
    run.observations.runLambda2[i] = Ratio(vel[i], freq);
    if (vel[i] == 0.0) {
      run.observations.iNoVelocity[i] = 1;
      sweepState.noResult.push_back(FormatText("%d", i));
    }
    if (run.switches.iInvScheme == 0) ShowGlobalProgress(i, freq, run.observations.runLambda2[i], vel[i]);
    if (!going) return -1;
  }
  return 0;
}

int SweepGlobal(SweepSolvers& solvers, OffsetVector<double>& vel, OffsetVector<double>& amp) {
  FS_SetupReceivers(0);
  const int n = run.observations.nDispPoints;
  for (int i = 1; i <= n; ++i) {
    for (int k = 1; k <= run.receivers.nRecCfgPerPoint[i]; ++k) {
      const double freq = run.observations.runFreq[i], seed = run.observations.runVel[i];
      const PairAnswer a = solvers.PointLoad({i, k, freq, seed, Ratio(seed, freq), FormatText("%d", i)});
      const int at = (k - 1) * n + i;
      vel[at] = a.vel;
      amp[at] = a.amp * kAmplitudeFactor;
      run.observations.runLambda2[at] = Ratio(a.vel, freq);
      if (a.vel == 0.0) run.observations.iNoVelocity[i] = 1;
      if (run.switches.iInvScheme == 0) ShowGlobalProgress(i, freq, run.observations.runLambda2[at], a.vel);
      if (a.halted) return -1;
    }
  }
  return 0;
}

int SweepArray(SweepSolvers& solvers, int curveId, const ObsCurve& curve, OffsetVector<double>& vel,
               OffsetVector<double>& amp) {
  FS_SetupReceivers(curveId);
  solvers.SetStride(curve.nFreq);
  for (int row = 1; row <= run.observations.nObsRows; ++row) {
    int iFreq = 0, iPair = 0;
    FS_GetFreqIDAndRecPairID(curve, row, &iFreq, &iPair);
    if (iFreq == 0) break;
    const double freq = run.observations.runFreq[row], seed = run.observations.runVel[row];
    const PairAnswer a =
        solvers.PointLoad({iFreq, iPair, freq, seed, Ratio(seed, freq), FormatText("(%d,%d)", iFreq, iPair)});
    vel[row] = a.vel;
    amp[row] = a.amp * kAmplitudeFactor;
    run.observations.runLambda2[row] = Ratio(a.vel, freq);
    if (a.vel == 0.0) run.observations.iNoVelocity[row] = 1;
    if (run.switches.iInvScheme == 0)
      ShowArrayProgress(true, iFreq, iPair, freq, run.observations.runLambda2[row], a.vel);
    if (a.halted) return -1;
  }
  return 0;
}

}  // namespace

int FS_rWave3D(OffsetVector<double>& vel, OffsetVector<double>& amp) {
  if (run.switches.iInvScheme == 0) SetCtrlVal(exdthd::STATUSMSG, "Performing F. Modeling Analysis ...");
  DeriveLayerProperties(true);
  vel = amp = OffsetVector<double>(1, run.observations.runVel.size());
  SweepSolvers solvers(run.observations.nDispPoints);
  if (std::abs(run.switches.iAnalysis) == 2) return SweepPlaneWaves(solvers, vel);
  if (run.switches.iDispSource == 1) return SweepGlobal(solvers, vel, amp);
  int curveId = 0;
  for (const ObsCurve& curve : run.observations.obsCurves)
    if (SweepArray(solvers, ++curveId, curve, vel, amp) < 0) return -1;
  return 0;
}

}  // namespace sondera
