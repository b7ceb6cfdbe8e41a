// sweep_curves.cpp - sweeps of runs without data, in the wavelength and the frequency domain; see sweep.h.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>

#include "records/model_records.h"
#include "records/session.h"
#include "run/layer_table.h"
#include "run/receiver_setups.h"
#include "run/sampled_curve.h"
#include "run/sweep.h"
#include "run/sweep_solvers.h"
#include "run/system_state.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kFreeDeviation = 0.01;  // of points that no measurement stands behind
constexpr double kNoMinimum = 1e+36, kNoMaximum = 0.0;
constexpr int kWavelengthDomain = 1, kArrayCurves = 2;

double Ratio(double value, double by) {
  return by > 0.0 ? value / by : 0.0;
}

bool UsesPointLoad() {
  return std::abs(run.switches.iAnalysis) != 2;
}

/// Plane-wave values of a point of the global curve, which stand as its observation.
void RecordGlobalPoint(int i, double vel, double freq, double wavelength) {
  run.observations.runVel[i] = run.observations.globalVel[i] = vel;
  run.observations.runFreq[i] = run.observations.globalFreq[i] = freq;
  run.observations.runLambda[i] = run.observations.runLambda2[i] = run.observations.globalLambda[i] =
      wavelength;
}

void RecordNoResult(int row, const std::string& name) {
  run.observations.iNoVelocity[row] = 1;
  sweepState.noResult.push_back(name);
}

/// Point-load velocities of all set-ups of a point of the global curve. @return false when halted
bool SolveGlobalPairs(SweepSolvers& solvers, int i, bool byFrequency, OffsetVector<double>& vel,
                      OffsetVector<double>& amp) {
  const int n = run.observations.nDispPoints;
  const double freq = run.observations.runFreq[i], seed = run.observations.runVel[i],
               wavelength = run.observations.runLambda[i];
  for (int k = 1; k <= run.receivers.nRecCfgPerPoint[i]; ++k) {
    const PairAnswer a = solvers.PointLoad({i, k, freq, seed, wavelength, FormatText("%d", i)});
    const int at = (k - 1) * n + i;
    vel[at] = a.vel;
    amp[at] = a.amp * kAmplitudeFactor;
    run.observations.runLambda2[at] = Ratio(a.vel, freq);
    if (a.vel == 0.0) run.observations.iNoVelocity[i] = 1;
    if (run.switches.iUseAmplitude == 1) {
      sweepState.recAmp[(2 * k - 2) * n + i] = a.recAmp[1];
      sweepState.recAmp[(2 * k - 1) * n + i] = a.recAmp[2];
    }
    if (byFrequency) {
      ShowSlotProgress(i, k, freq, run.observations.runLambda2[at], a.vel);
    } else {
      ShowGlobalProgress(i, freq, run.observations.runLambda2[at], a.vel);
    }
    if (a.halted) return false;
  }
  return true;
}

/// The result of a point after its plane-wave values have been recorded. @return false when halted
bool FinishGlobalPoint(SweepSolvers& solvers, int i, bool byFrequency, OffsetVector<double>& vel,
                       OffsetVector<double>& amp) {
  if (UsesPointLoad()) return SolveGlobalPairs(solvers, i, byFrequency, vel, amp);
  vel[i] = run.observations.runVel[i];
  if (vel[i] == 0.0) RecordNoResult(i, FormatText("%d", i));
  ShowGlobalProgress(i, run.observations.runFreq[i], run.observations.runLambda[i], vel[i]);
  return true;
}

int SweepByWavelength(SweepSolvers& solvers, OffsetVector<double>& vel, OffsetVector<double>& amp) {
  FS_SetupReceivers(0);
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    const double wavelength = run.observations.runLambda[i];
    double c = 0.0;
    if (!solvers.PlaneWave(wavelength, c)) return -1;
    RecordGlobalPoint(i, c, Ratio(c, wavelength), wavelength);
    if (!FinishGlobalPoint(solvers, i, false, vel, amp)) return -1;
  }
  return 0;
}

int SweepGlobalByFrequency(SweepSolvers& solvers, const SampledCurve& curve, OffsetVector<double>& vel,
                           OffsetVector<double>& amp) {
  for (int i = 1; i <= run.observations.nDispPoints; ++i) {
    const double freq = run.observations.runFreq[i], c = VelocityAt(curve, freq);
    RecordGlobalPoint(i, c, freq, Ratio(c, freq));
    if (!FinishGlobalPoint(solvers, i, true, vel, amp)) return -1;
  }
  return 0;
}

/// Makes the marked points of the array curves the rows of the run, with plane-wave velocities.
void MakeArrayRows(ObsCurve& o, const SampledCurve& curve) {
  run.observations.nObs = 0;
  for (int p = 1; p <= o.nFreq; ++p) {
    const double freq = o.freq[p], c = VelocityAt(curve, freq);
    for (int k = 1; k <= o.nCurves; ++k) {
      double& mark = o.vel[o.At(p, k)];
      if (mark == 0.0) continue;
      mark = c;
      const int row = run.observations.iArrayIndex(k, p) = ++run.observations.nObs;
      run.observations.runVel[row] = run.observations.arrayVel[row] = c;
      run.observations.runFreq[row] = run.observations.arrayFreq[row] = freq;
      run.observations.runLambda[row] = run.observations.runLambda2[row] = Ratio(c, freq);
      run.observations.arrayDev[row] = kFreeDeviation;
      if (run.switches.iUseAmplitude != 1) continue;
      run.observations.runAmp[row] = run.observations.arrayAmp[row] = 1.0;
      run.observations.arrayAmpDev[row] = kFreeDeviation;
    }
  }
  run.observations.nObsRows = run.observations.nObs;
  run.observations.ldObs =
      run.switches.iUseAmplitude == 1 ? 2 * run.observations.nObs : run.observations.nObs;
}

/// Result of one array row. @return false when halted
bool FinishArrayRow(SweepSolvers& solvers, int row, int p, int k, OffsetVector<double>& vel,
                    OffsetVector<double>& amp) {
  const std::string name = FormatText("(%d,%d)", p, k);
  const double freq = run.observations.runFreq[row], seed = run.observations.runVel[row];
  bool going = true;
  if (UsesPointLoad()) {
    const PairAnswer a = solvers.PointLoad({p, k, freq, seed, run.observations.runLambda[row], name});
    vel[row] = a.vel;
    amp[row] = a.amp * kAmplitudeFactor;
    if (a.vel == 0.0) run.observations.iNoVelocity[row] = 1;
    going = !a.halted;
  } else {
    vel[row] = seed;
    if (seed == 0.0) RecordNoResult(row, name);
  }
  run.observations.runLambda2[row] = Ratio(vel[row], freq);
  if (run.switches.iInvScheme == 0)
    ShowArrayProgress(false, p, k, freq, run.observations.runLambda2[row], vel[row]);
  return going;
}

int SweepArrayByFrequency(SweepSolvers& solvers, int curveId, ObsCurve& o, const SampledCurve& curve,
                          OffsetVector<double>& vel, OffsetVector<double>& amp) {
  MakeArrayRows(o, curve);
  FS_SetupReceivers(curveId);
  solvers.SetStride(o.nFreq);
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int k = 1; k <= o.nCurves; ++k) {
      const int row = run.observations.iArrayIndex(k, p);
      if (row > 0 && !FinishArrayRow(solvers, row, p, k, vel, amp)) return -1;
    }
  }
  return 0;
}

struct Range {
  double min, max;
};

/// Frequencies of the run, Hz.
Range WantedFrequencies() {
  const ModelRecord& m = FModelParam;
  if (run.switches.iDispSource != kArrayCurves) return {m.xMinGlobal, m.xMaxGlobal};
  Range r{kNoMinimum, kNoMaximum};
  for (std::size_t c = 0; c < static_cast<std::size_t>(m.nDispCurves); ++c) {
    r.min = std::min(r.min, m.pairMin[c]);
    r.max = std::max(r.max, m.pairMax[c]);
  }
  return r;
}

int SweepByFrequency(SweepSolvers& solvers, OffsetVector<double>& vel, OffsetVector<double>& amp) {
  FS_SetupReceivers(0);
  const Range wanted = WantedFrequencies();
  if (!(wanted.min > 0.0 && wanted.max > 0.0 && std::isfinite(wanted.max))) {
    MessagePopup(session.appTitle,
                 FormatText("The frequencies from %g to %g Hz make no range. Both ends must "
                            "be above 0.",
                            wanted.min, wanted.max));
    return -1;
  }
  SampledCurve curve;
  if (!SampleCurve(solvers, wanted.min, wanted.max, curve)) return -1;
  if (run.switches.iDispSource != kArrayCurves) return SweepGlobalByFrequency(solvers, curve, vel, amp);
  int curveId = 0;
  for (ObsCurve& item : run.observations.obsCurves)
    if (SweepArrayByFrequency(solvers, ++curveId, item, curve, vel, amp) < 0) return -1;
  return 0;
}

}  // namespace

int FS_rWave3D_F(OffsetVector<double>& vel, OffsetVector<double>& amp) {
  DeriveLayerProperties(false);
  vel = amp = OffsetVector<double>(1, run.observations.runVel.size());
  SweepSolvers solvers(run.observations.nDispPoints);
  if (run.switches.iUseAmplitude == 1)
    sweepState.recAmp = OffsetVector<double>(1, 2 * run.observations.runVel.size());
  return run.switches.xDomain == kWavelengthDomain ? SweepByWavelength(solvers, vel, amp)
                                                   : SweepByFrequency(solvers, vel, amp);
}

}  // namespace sondera
