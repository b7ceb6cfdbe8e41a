// covariances.cpp - see covariances.h.
#include "run/covariances.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "run/model_numbers.h"

namespace sondera {
namespace {

/// Smoothing over iterations would divide the scale of Cm by two to this power. Kept: it is 0 in every run.
constexpr int kSmoothingPower = 0;

/// Whether a deviation is computed from the velocity.
bool DeviationFromValue(const Switches& switches, double deviation) {
  return deviation == 0.0 || switches.cdMode == 1;
}
/// Whether all deviations are to be 1.
bool UnitDeviations(const Switches& switches) {
  return switches.cdMode == -1 || switches.iInvScheme == kLeastSquares;
}

/// Deviation by the two tests in turn: the second one has priority.
double DeviationInTurn(const Switches& switches, double deviation, double value) {
  if (DeviationFromValue(switches, deviation)) deviation = value * switches.ufVph;
  return UnitDeviations(switches) ? 1.0 : deviation;
}

/// The second test is made only where the first one fails.
double DeviationEitherOr(const Switches& switches, double deviation, double value) {
  if (DeviationFromValue(switches, deviation)) return value * switches.ufVph;
  return UnitDeviations(switches) ? 1.0 : deviation;
}

double Square(double x) {
  return x * x;
}

void SetRow(Observations& observations, int row, double velocity, double amplitude, double frequency,
            double wavelength) {
  observations.runVel[row] = velocity;
  observations.runAmp[row] = amplitude;
  observations.runFreq[row] = frequency;
  observations.runLambda[row] = observations.runLambda2[row] = wavelength;
}

int SetUpGlobalRows(const Switches& switches, Observations& observations) {
  const int n = observations.nDispPoints;
  if (n > observations.runVel.hi()) return -1;
  observations.nObsRows = observations.ldObs = n;
  observations.Cd = DiagonalMatrix(n);
  for (int i = 1; i <= n; ++i) {
    for (int k = 1; k <= observations.globalRecCount[i]; ++k)
      SetRow(observations, (k - 1) * n + i, observations.globalVel[i], 0.0, observations.globalFreq[i],
             observations.globalLambda[i]);
    if (switches.iAnalysis <= 0) continue;
    double& deviation = observations.globalDev[i];
    deviation = DeviationInTurn(switches, deviation, observations.globalVel[i]);
    observations.Cd.diag(i) = Square(deviation);
  }
  return 0;
}

int SetUpArrayRows(const Switches& switches, Observations& observations) {
  const int n = observations.nObs;
  if (n > observations.runVel.hi()) return -1;
  observations.nObsRows = n;
  observations.ldObs = switches.iUseAmplitude == 1 ? 2 * n : n;
  observations.Cd = DiagonalMatrix(observations.ldObs);
  for (int i = 1; i <= n; ++i) {
    SetRow(observations, i, observations.arrayVel[i], observations.arrayAmp[i], observations.arrayFreq[i],
           observations.arrayVel[i] / observations.arrayFreq[i]);
    if (switches.iAnalysis <= 0) continue;
    double& deviation = observations.arrayDev[i];
    deviation = DeviationEitherOr(switches, deviation, observations.arrayVel[i]);
    observations.Cd.diag(i) = Square(deviation);
    if (switches.iUseAmplitude != 1) continue;
    double& ampDeviation = observations.arrayAmpDev[i];
    ampDeviation = DeviationInTurn(switches, ampDeviation, observations.arrayAmp[i]);
    observations.Cd.diag(n + i) = Square(ampDeviation);
  }
  return 0;
}

/// Depth of the middle of each layer.
OffsetVector<double> MidDepths(const LayeredGround& ground) {
  OffsetVector<double> z(1, ground.nLayersCur);
  double bottom = 0.0;
  for (int l = 1; l <= ground.nLayersCur; ++l) {
    bottom += ground.layerH[l];
    z[l] = bottom - 0.5 * ground.layerH[l];
  }
  return z;
}

}  // namespace

int FS_SetUpObsData(Run& run, int kind) {
  if (std::abs(run.switches.iAnalysis) == 2) kind = 1;
  const int result = kind == 1 ? SetUpGlobalRows(run.switches, run.observations)
                               : SetUpArrayRows(run.switches, run.observations);
  if (result < 0) return result;
  const int columns = run.switches.iInvScheme > 0 ? run.parameters.nModelParm : 0;
  if (run.update.GMatrix.rows() != run.observations.ldObs || run.update.GMatrix.cols() != columns)
    run.update.GMatrix = ColumnMatrix(run.observations.ldObs, columns);
  return 0;
}

void FS_Setup_Cm(Run& run) {
  const int m = run.parameters.nModelParm;
  if (run.parameters.Cm.rows() != m) run.parameters.Cm = ColumnMatrix(m, m);
  run.parameters.Cm.fill(0.0);
  if (m == 0 || run.parameters.UFModel[1] < 0.0 || run.switches.iInvScheme == kLeastSquares) return;

  const OffsetVector<double> z = MidDepths(run.ground);
  const double scale = kSmoothingPower > 0 ? std::ldexp(1.0, -kSmoothingPower) : 1.0;
  OffsetVector<double> deviation(1, m);
  OffsetVector<int> layer(1, m), quantity(1, m);
  for (int i = 1; i <= m; ++i) {
    const double factor = run.parameters.UFModel[i];
    deviation[i] = factor < 1.0 ? factor * run.parameters.rModel[i] : std::fabs(factor);
    FS_ModelNoToLayerNo(run, i, layer[i], quantity[i]);
  }
  for (int i = 1; i <= m; ++i) {
    run.parameters.Cm(i, i) = scale * scale * deviation[i] * deviation[i];
    const double length = run.parameters.CorrLength(quantity[i], layer[i]);
    if (length == 0.0) continue;
    for (int j = i + 1; j <= m; ++j) {
      if (quantity[j] != quantity[i]) continue;
      const double x = 3.0 * (z[layer[j]] - z[layer[i]]) / length;
      run.parameters.Cm(j, i) = deviation[i] * deviation[j] * std::exp(-0.5 * x * x) * scale * scale;
      run.parameters.Cm(i, j) = run.parameters.Cm(j, i);
    }
  }
}

void FS_RMSerror(const Run& run, const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude,
                 double& rmsVel, double& rmsAmp) {
  int n = 0;
  double sum = 0.0, sumAmp = 0.0;
  for (int i = 1; i <= std::min(run.observations.nObsRows, velocity.hi()); ++i) {
    if (velocity[i] == 0.0) continue;
    ++n;
    sum += Square(velocity[i] - run.observations.runVel[i]);
    if (run.switches.iUseAmplitude == 1) sumAmp += Square(amplitude[i] - run.observations.runAmp[i]);
  }
  rmsVel = rmsAmp = -1.0;
  if (n == 0) return;
  rmsVel = std::sqrt(sum / n);
  rmsAmp = std::sqrt(sumAmp / n) / run.course.ampScale;
}

}  // namespace sondera
