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
bool DeviationFromValue(double deviation) {
  return deviation == 0.0 || run.switches.cdMode == 1;
}
/// Whether all deviations are to be 1.
bool UnitDeviations() {
  return run.switches.cdMode == -1 || run.switches.iInvScheme == kLeastSquares;
}

/// Deviation by the two tests in turn: the second one has priority.
double DeviationInTurn(double deviation, double value) {
  if (DeviationFromValue(deviation)) deviation = value * run.switches.ufVph;
  return UnitDeviations() ? 1.0 : deviation;
}

/// The second test is made only where the first one fails.
double DeviationEitherOr(double deviation, double value) {
  if (DeviationFromValue(deviation)) return value * run.switches.ufVph;
  return UnitDeviations() ? 1.0 : deviation;
}

double Square(double x) {
  return x * x;
}

void SetRow(int row, double velocity, double amplitude, double frequency, double wavelength) {
  run.observations.runVel[row] = velocity;
  run.observations.runAmp[row] = amplitude;
  run.observations.runFreq[row] = frequency;
  run.observations.runLambda[row] = run.observations.runLambda2[row] = wavelength;
}

int SetUpGlobalRows() {
  const int n = run.observations.nDispPoints;
  if (n > run.observations.runVel.hi()) return -1;
  run.observations.nObsRows = run.observations.ldObs = n;
  run.observations.Cd = DiagonalMatrix(n);
  for (int i = 1; i <= n; ++i) {
    for (int k = 1; k <= run.observations.globalRecCount[i]; ++k)
      SetRow((k - 1) * n + i, run.observations.globalVel[i], 0.0, run.observations.globalFreq[i],
             run.observations.globalLambda[i]);
    if (run.switches.iAnalysis <= 0) continue;
    double& deviation = run.observations.globalDev[i];
    deviation = DeviationInTurn(deviation, run.observations.globalVel[i]);
    run.observations.Cd.diag(i) = Square(deviation);
  }
  return 0;
}

int SetUpArrayRows() {
  const int n = run.observations.nObs;
  if (n > run.observations.runVel.hi()) return -1;
  run.observations.nObsRows = n;
  run.observations.ldObs = run.switches.iUseAmplitude == 1 ? 2 * n : n;
  run.observations.Cd = DiagonalMatrix(run.observations.ldObs);
  for (int i = 1; i <= n; ++i) {
    SetRow(i, run.observations.arrayVel[i], run.observations.arrayAmp[i], run.observations.arrayFreq[i],
           run.observations.arrayVel[i] / run.observations.arrayFreq[i]);
    if (run.switches.iAnalysis <= 0) continue;
    double& deviation = run.observations.arrayDev[i];
    deviation = DeviationEitherOr(deviation, run.observations.arrayVel[i]);
    run.observations.Cd.diag(i) = Square(deviation);
    if (run.switches.iUseAmplitude != 1) continue;
    double& ampDeviation = run.observations.arrayAmpDev[i];
    ampDeviation = DeviationInTurn(ampDeviation, run.observations.arrayAmp[i]);
    run.observations.Cd.diag(n + i) = Square(ampDeviation);
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

int FS_SetUpObsData(int kind) {
  if (std::abs(run.switches.iAnalysis) == 2) kind = 1;
  const int result = kind == 1 ? SetUpGlobalRows() : SetUpArrayRows();
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
