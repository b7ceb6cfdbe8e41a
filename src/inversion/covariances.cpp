// covariances.cpp - see covariances.h.
#include "inversion/covariances.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "forward/system_state.h"
#include "inversion/model_numbers.h"

namespace sondera {
namespace {

/// Smoothing over iterations would divide the scale of Cm by two to this power. Kept: it is 0 in every run.
constexpr int kSmoothingPower = 0;

/// Whether a deviation follows from the velocity.
bool DeviationFromValue(double deviation) {
  return deviation == 0.0 || run.cdMode == 1;
}
/// Whether all deviations are to be 1.
bool UnitDeviations() {
  return run.cdMode == -1 || run.iInvScheme == kLeastSquares;
}

/// Deviation by the two tests in turn: the second one wins.
double DeviationInTurn(double deviation, double value) {
  if (DeviationFromValue(deviation)) deviation = value * run.ufVph;
  return UnitDeviations() ? 1.0 : deviation;
}

/// The second test is asked only where the first one fails.
double DeviationEitherOr(double deviation, double value) {
  if (DeviationFromValue(deviation)) return value * run.ufVph;
  return UnitDeviations() ? 1.0 : deviation;
}

double Square(double x) {
  return x * x;
}

void SetRow(int row, double velocity, double amplitude, double frequency, double wavelength) {
  run.runVel[row] = velocity;
  run.runAmp[row] = amplitude;
  run.runFreq[row] = frequency;
  run.runLambda[row] = run.runLambda2[row] = wavelength;
}

int SetUpGlobalRows() {
  const int n = run.nDispPoints;
  if (n > run.runVel.hi()) return -1;
  run.nObsRows = run.ldObs = n;
  run.Cd = DiagonalMatrix(n);
  for (int i = 1; i <= n; ++i) {
    for (int k = 1; k <= run.globalRecCount[i]; ++k)
      SetRow((k - 1) * n + i, run.globalVel[i], 0.0, run.globalFreq[i], run.globalLambda[i]);
    if (run.iAnalysis <= 0) continue;
    double& deviation = run.globalDev[i];
    deviation = DeviationInTurn(deviation, run.globalVel[i]);
    run.Cd.diag(i) = Square(deviation);
  }
  return 0;
}

int SetUpArrayRows() {
  const int n = run.nObs;
  if (n > run.runVel.hi()) return -1;
  run.nObsRows = n;
  run.ldObs = run.iUseAmplitude == 1 ? 2 * n : n;
  run.Cd = DiagonalMatrix(run.ldObs);
  for (int i = 1; i <= n; ++i) {
    SetRow(i, run.arrayVel[i], run.arrayAmp[i], run.arrayFreq[i], run.arrayVel[i] / run.arrayFreq[i]);
    if (run.iAnalysis <= 0) continue;
    double& deviation = run.arrayDev[i];
    deviation = DeviationEitherOr(deviation, run.arrayVel[i]);
    run.Cd.diag(i) = Square(deviation);
    if (run.iUseAmplitude != 1) continue;
    double& ampDeviation = run.arrayAmpDev[i];
    ampDeviation = DeviationInTurn(ampDeviation, run.arrayAmp[i]);
    run.Cd.diag(n + i) = Square(ampDeviation);
  }
  return 0;
}

/// Depth of the middle of each layer.
OffsetVector<double> MidDepths() {
  OffsetVector<double> z(1, run.nLayersCur);
  double bottom = 0.0;
  for (int l = 1; l <= run.nLayersCur; ++l) {
    bottom += run.layerH[l];
    z[l] = bottom - 0.5 * run.layerH[l];
  }
  return z;
}

}  // namespace

int FS_SetUpObsData(int kind) {
  if (std::abs(run.iAnalysis) == 2) kind = 1;
  const int result = kind == 1 ? SetUpGlobalRows() : SetUpArrayRows();
  if (result < 0) return result;
  const int columns = run.iInvScheme > 0 ? run.nModelParm : 0;
  if (run.GMatrix.rows() != run.ldObs || run.GMatrix.cols() != columns)
    run.GMatrix = ColumnMatrix(run.ldObs, columns);
  return 0;
}

void FS_Setup_Cm() {
  const int m = run.nModelParm;
  if (run.Cm.rows() != m) run.Cm = ColumnMatrix(m, m);
  run.Cm.fill(0.0);
  if (m == 0 || run.UFModel[1] < 0.0 || run.iInvScheme == kLeastSquares) return;

  const OffsetVector<double> z = MidDepths();
  const double scale = kSmoothingPower > 0 ? std::ldexp(1.0, -kSmoothingPower) : 1.0;
  OffsetVector<double> deviation(1, m);
  OffsetVector<int> layer(1, m), quantity(1, m);
  for (int i = 1; i <= m; ++i) {
    const double factor = run.UFModel[i];
    deviation[i] = factor < 1.0 ? factor * run.rModel[i] : std::fabs(factor);
    FS_ModelNoToLayerNo(i, layer[i], quantity[i]);
  }
  for (int i = 1; i <= m; ++i) {
    run.Cm(i, i) = scale * scale * deviation[i] * deviation[i];
    const double length = run.CorrLength(quantity[i], layer[i]);
    if (length == 0.0) continue;
    for (int j = i + 1; j <= m; ++j) {
      if (quantity[j] != quantity[i]) continue;
      const double x = 3.0 * (z[layer[j]] - z[layer[i]]) / length;
      run.Cm(j, i) = deviation[i] * deviation[j] * std::exp(-0.5 * x * x) * scale * scale;
      run.Cm(i, j) = run.Cm(j, i);
    }
  }
}

void FS_RMSerror(const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude, double& rmsVel,
                 double& rmsAmp) {
  int n = 0;
  double sum = 0.0, sumAmp = 0.0;
  for (int i = 1; i <= std::min(run.nObsRows, velocity.hi()); ++i) {
    if (velocity[i] == 0.0) continue;
    ++n;
    sum += Square(velocity[i] - run.runVel[i]);
    if (run.iUseAmplitude == 1) sumAmp += Square(amplitude[i] - run.runAmp[i]);
  }
  rmsVel = rmsAmp = -1.0;
  if (n == 0) return;
  rmsVel = std::sqrt(sum / n);
  rmsAmp = std::sqrt(sumAmp / n) / run.ampScale;
}

}  // namespace sondera
