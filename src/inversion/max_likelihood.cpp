// max_likelihood.cpp - the model update; see max_likelihood.h. The run around it is in iterations.cpp.
#include "inversion/max_likelihood.h"

#include "inversion/truncated_solve.h"
#include "inversion/update_bounds.h"
#include "inversion/update_dump.h"
#include "numeric/lu.h"
#include "run/active_rows.h"
#include "run/covariances.h"
#include "run/result_statistics.h"
#include "run/system_state.h"

namespace sondera {
namespace {

constexpr const char* kWarningTitle = "Sondera 4";

int CountActive(const Run& run) {
  int n = 0;
  for (int i = 1; i <= run.observations.nObsRows; ++i) n += RowIsActive(run.observations, i) ? 1 : 0;
  return n;
}

void CopyRow(Run& run, int full, int compact) {
  run.update.CdActive.diag(compact) = run.observations.Cd.diag(full);
  for (int p = 1; p <= run.parameters.nModelParm; ++p)
    run.update.GActive(compact, p) = run.update.GMatrix(full, p);
}

/// Rows in use, velocities first, then amplitudes.
void BuildActive(Run& run, int nActive, int rows) {
  run.update.CdActive = DiagonalMatrix(rows);
  run.update.GActive = ColumnMatrix(rows, run.parameters.nModelParm);
  int next = 0;
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    if (!RowIsActive(run.observations, i)) {
      run.observations.iNoVelocity[i] = 1;
      continue;
    }
    CopyRow(run, i, ++next);
    if (run.switches.iUseAmplitude == 1) CopyRow(run, run.observations.nObsRows + i, nActive + next);
  }
}

void BuildDelta(Run& run, int nActive, int rows, const OffsetVector<double>& velocity,
                const OffsetVector<double>& amplitude) {
  run.update.deltaVel = OffsetVector<double>(1, rows);
  int next = 0;
  for (int i = 1; i <= run.observations.nObsRows && next < nActive; ++i) {
    if (velocity[i] == 0.0) continue;
    run.update.deltaVel[++next] = velocity[i] - run.observations.runVel[i];
    if (run.switches.iUseAmplitude == 1)
      run.update.deltaVel[nActive + next] = amplitude[i] - run.observations.runAmp[i];
  }
}

/// y = inverse of a; a holds its factors afterwards. Processes events before and after.
void Invert(ColumnMatrix& a, ColumnMatrix& y, Listener& listener) {
  listener.LetEventsIn();
  FS_InvMatrix(a.shifted(), a.rows(), y.shifted());
  listener.LetEventsIn();
}

/// y += x * factor over n elements from 1 of two shifted pointers.
void AddScaled(double* y, const double* x, double factor, int n) {
  for (int i = 1; i <= n; ++i) y[i] += x[i] * factor;
}

/// Column j of a matrix as a shifted pointer.
double* ColumnOf(ColumnMatrix& a, int j) {
  return a.shifted() + (j - 1) * a.rows();
}
const double* ColumnOf(const ColumnMatrix& a, int j) {
  return a.shifted() + (j - 1) * a.rows();
}

/// a times b. Columns are run through in order of storage.
ColumnMatrix Product(const ColumnMatrix& a, const ColumnMatrix& b) {
  ColumnMatrix c(a.rows(), b.cols());
  for (int j = 1; j <= b.cols(); ++j)
    for (int k = 1; k <= a.cols(); ++k) AddScaled(ColumnOf(c, j), ColumnOf(a, k), b(k, j), a.rows());
  return c;
}

/// a times v.
OffsetVector<double> Times(const ColumnMatrix& a, const OffsetVector<double>& v) {
  OffsetVector<double> y(1, a.rows());
  for (int k = 1; k <= a.cols(); ++k) AddScaled(y.shifted(), ColumnOf(a, k), v[k], a.rows());
  return y;
}

ColumnMatrix Transposed(const ColumnMatrix& a) {
  ColumnMatrix t(a.cols(), a.rows());
  for (int j = 1; j <= a.cols(); ++j)
    for (int i = 1; i <= a.rows(); ++i) t(j, i) = a(i, j);
  return t;
}

/// Distance of the present model from the prior one.
OffsetVector<double> FromPrior(const Run& run) {
  OffsetVector<double> d(1, run.parameters.nModelParm);
  for (int p = 1; p <= run.parameters.nModelParm; ++p)
    d[p] = run.parameters.rModel[p] - run.parameters.rModelPrior[p];
  return d;
}

/// deltaVel minus the part that comes from the prior model: the residual that Weight is applied to.
OffsetVector<double> ResidualFromPrior(const Run& run) {
  OffsetVector<double> left = run.update.deltaVel;
  const OffsetVector<double> moved = Times(run.update.GActive, FromPrior(run));
  for (int r = 1; r <= left.hi(); ++r) left[r] -= moved[r];
  return left;
}

/// Fewer data than unknowns: the square system has an equation for each datum. Kept: it has the prior term;
/// with more data the same scheme has none.
void SolveInDataSpace(Run& run, Listener& listener) {
  listener.Process("Calculating Weight matrix...");
  const ColumnMatrix CmGt = Product(run.parameters.Cm, Transposed(run.update.GActive));
  ColumnMatrix A = Product(run.update.GActive, CmGt);
  for (int r = 1; r <= A.rows(); ++r) A(r, r) += run.update.CdActive.diag(r);
  run.update.InvHData = ColumnMatrix(A.rows(), A.rows());
  Invert(A, run.update.InvHData, listener);
  run.update.Weight = Product(CmGt, run.update.InvHData);
  run.update.deltaModel = Times(run.update.Weight, ResidualFromPrior(run));
}

/// Hessian Gt InvCd G + InvCm. @return Gt InvCd
ColumnMatrix BuildHessian(Run& run, Listener& listener) {
  listener.Process("Calculating Hessian matrix...");
  const int rows = run.update.GActive.rows(), m = run.parameters.nModelParm;
  run.update.InvCd = DiagonalMatrix(rows);
  ColumnMatrix T(m, rows);
  for (int r = 1; r <= rows; ++r) {
    run.update.InvCd.diag(r) = 1.0 / run.update.CdActive.diag(r);
    for (int p = 1; p <= m; ++p) T(p, r) = run.update.GActive(r, p) * run.update.InvCd.diag(r);
  }
  run.update.Hessian = Product(T, run.update.GActive);
  run.update.InvCm.fill(0.0);
  // Kept: Cm holds its LU factors from here on, for a diagonal Cm its own values.
  if (run.switches.iInvScheme != kLeastSquares) Invert(run.parameters.Cm, run.update.InvCm, listener);
  for (int q = 1; q <= m; ++q)
    AddScaled(ColumnOf(run.update.Hessian, q), ColumnOf(run.update.InvCm, q), 1.0, m);
  return T;
}

/// Weight and correction from InvH, by the scheme.
void CorrectInModelSpace(Run& run, const ColumnMatrix& T) {
  run.update.Weight = Product(run.update.InvH, T);
  switch (run.switches.iInvScheme) {
    case kDamped:
    case kDampedPrior: {
      OffsetVector<double> v = Times(T, run.update.deltaVel);
      if (run.switches.iInvScheme == kDampedPrior) {
        const OffsetVector<double> pull = Times(run.update.InvCm, FromPrior(run));
        AddScaled(v.shifted(), pull.shifted(), 1.0, run.parameters.nModelParm);
      }
      run.update.deltaModel = Times(run.update.InvH, v);
      break;
    }
    case kPrior:
      run.update.deltaModel = Times(run.update.Weight, ResidualFromPrior(run));
      break;
    case kLeastSquares:
      run.update.deltaModel = Times(run.update.Weight, run.update.deltaVel);
      break;
    default:
      run.update.deltaModel = OffsetVector<double>(1, run.parameters.nModelParm);
      break;
  }
}

/// The rest after the weights: resolution, bounds, the new layers.
MoveResult Apply(Run& run, const OffsetVector<double>& velocity, Listener& listener) {
  const bool finite = CorrectionIsFinite(run);
  if (finite) FS_SaveGaussParam(run, run.update.GActive, velocity, listener);
  MoveResult result = MoveModel(run, listener);
  if (!finite)
    result.refusal =
        "The correction of the model is not finite: a parameter has no influence on the curve and "
        "no deviation of its own, or a sensitivity could not be computed. The model stays as it is.";
  return result;
}

MoveResult UpdateInModelSpace(Run& run, const OffsetVector<double>& velocity, Listener& listener) {
  const ColumnMatrix T = BuildHessian(run, listener);
  listener.Process("Calculating Weight matrix...");
  if (run.switches.iUseSVD == 0) {
    Invert(run.update.Hessian, run.update.InvH, listener);
    CorrectInModelSpace(run, T);
    return Apply(run, velocity, listener);
  }
  TruncatedSolve solve(run);
  for (;;) {
    CorrectInModelSpace(run, T);
    MoveResult result = Apply(run, velocity, listener);
    if (result.move != Move::kViolated) return result;
    solve.Tighten(result.violations);
  }
}

MoveResult UpdateInDataSpace(Run& run, const OffsetVector<double>& velocity, Listener& listener) {
  SolveInDataSpace(run, listener);
  return Apply(run, velocity, listener);
}

}  // namespace

Refusal FS_MaxLiklihood(Run& run, const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude,
                        Listener& listener) {
  run.switches.iDumpMatrices = 0;
  const int nActive = CountActive(run);
  if (nActive == 0)
    return Refusal::Titled(kWarningTitle,
                           "Warning: No velocities are calculated at all the given frequencies.\n");
  const int rows = run.switches.iUseAmplitude == 1 ? 2 * nActive : nActive;
  BuildActive(run, nActive, rows);
  FS_Setup_Cm(run);
  BuildDelta(run, nActive, rows, velocity, amplitude);

  const int fullRows = run.observations.nObsRows, fullLd = run.observations.ldObs;
  run.observations.nObsRows = nActive;
  run.observations.ldObs = rows;
  MoveResult result = rows < run.parameters.nModelParm ? UpdateInDataSpace(run, velocity, listener)
                                                       : UpdateInModelSpace(run, velocity, listener);
  if (run.switches.iDumpMatrices == 1) DumpUpdate(run, velocity, listener);
  if (result.move == Move::kTrapped) return result.refusal;  // Kept: with the numbers of the rows in use
  run.observations.nObsRows = fullRows;
  run.observations.ldObs = fullLd;
  return result.refusal;
}

}  // namespace sondera
