// max_likelihood.cpp - the model update; see max_likelihood.h. The run around it is in inversion_run.cpp.
#include "inversion/max_likelihood.h"

#include "forward/system_state.h"
#include "inversion/active_rows.h"
#include "inversion/covariances.h"
#include "inversion/result_statistics.h"
#include "inversion/truncated_solve.h"
#include "inversion/update_bounds.h"
#include "inversion/update_dump.h"
#include "numeric/lu.h"
#include "project/session.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/panels/exdthd.h"

namespace sondera {
namespace {

constexpr const char* kWarningTitle = "Sondera 4";

void ShowStep(const char* text) {
  SetCtrlVal(exdthd::PROCESSMSG, text);
}

int CountActive() {
  int n = 0;
  for (int i = 1; i <= run.nObsRows; ++i) n += RowIsActive(i) ? 1 : 0;
  return n;
}

void CopyRow(int full, int compact) {
  run.CdActive.diag(compact) = run.Cd.diag(full);
  for (int p = 1; p <= run.nModelParm; ++p) run.GActive(compact, p) = run.GMatrix(full, p);
}

/// Rows in use, velocities first, then amplitudes.
void BuildActive(int nActive, int rows) {
  run.CdActive = DiagonalMatrix(rows);
  run.GActive = ColumnMatrix(rows, run.nModelParm);
  int next = 0;
  for (int i = 1; i <= run.nObsRows; ++i) {
    if (!RowIsActive(i)) {
      run.iNoVelocity[i] = 1;
      continue;
    }
    CopyRow(i, ++next);
    if (run.iUseAmplitude == 1) CopyRow(run.nObsRows + i, nActive + next);
  }
}

void BuildDelta(int nActive, int rows, const OffsetVector<double>& velocity,
                const OffsetVector<double>& amplitude) {
  run.deltaVel = OffsetVector<double>(1, rows);
  int next = 0;
  for (int i = 1; i <= run.nObsRows && next < nActive; ++i) {
    if (velocity[i] == 0.0) continue;
    run.deltaVel[++next] = velocity[i] - run.runVel[i];
    if (run.iUseAmplitude == 1) run.deltaVel[nActive + next] = amplitude[i] - run.runAmp[i];
  }
}

/// y = inverse of a, which is left as its factors. Events are let in around it.
void Invert(ColumnMatrix& a, ColumnMatrix& y) {
  ProcessSystemEvents();
  FS_InvMatrix(a.shifted(), a.rows(), y.shifted());
  ProcessSystemEvents();
}

/// y += x * factor over n elements from 1 of two shifted pointers.
void AddScaled(double* y, const double* x, double factor, int n) {
  for (int i = 1; i <= n; ++i) y[i] += x[i] * factor;
}

/// Column j of a matrix as a shifted pointer.
double* Column(ColumnMatrix& a, int j) {
  return a.shifted() + (j - 1) * a.rows();
}
const double* Column(const ColumnMatrix& a, int j) {
  return a.shifted() + (j - 1) * a.rows();
}

/// a times b. Columns are run through in order of storage.
ColumnMatrix Product(const ColumnMatrix& a, const ColumnMatrix& b) {
  ColumnMatrix c(a.rows(), b.cols());
  for (int j = 1; j <= b.cols(); ++j)
    for (int k = 1; k <= a.cols(); ++k) AddScaled(Column(c, j), Column(a, k), b(k, j), a.rows());
  return c;
}

/// a times v.
OffsetVector<double> Times(const ColumnMatrix& a, const OffsetVector<double>& v) {
  OffsetVector<double> y(1, a.rows());
  for (int k = 1; k <= a.cols(); ++k) AddScaled(y.shifted(), Column(a, k), v[k], a.rows());
  return y;
}

ColumnMatrix Transposed(const ColumnMatrix& a) {
  ColumnMatrix t(a.cols(), a.rows());
  for (int j = 1; j <= a.cols(); ++j)
    for (int i = 1; i <= a.rows(); ++i) t(j, i) = a(i, j);
  return t;
}

/// Distance of the present model from the prior one.
OffsetVector<double> FromPrior() {
  OffsetVector<double> d(1, run.nModelParm);
  for (int p = 1; p <= run.nModelParm; ++p) d[p] = run.rModel[p] - run.rModelPrior[p];
  return d;
}

/// deltaVel less what the prior model alone would leave: the residual that Weight is applied to.
OffsetVector<double> ResidualFromPrior() {
  OffsetVector<double> left = run.deltaVel;
  const OffsetVector<double> moved = Times(run.GActive, FromPrior());
  for (int r = 1; r <= left.hi(); ++r) left[r] -= moved[r];
  return left;
}

/// Fewer data than unknowns: the square system has an equation for each datum. Kept: it has the prior term,
/// which the same scheme has not where there are more data.
void SolveInDataSpace() {
  ShowStep("Calculating Weight matrix...");
  const ColumnMatrix CmGt = Product(run.Cm, Transposed(run.GActive));
  ColumnMatrix A = Product(run.GActive, CmGt);
  for (int r = 1; r <= A.rows(); ++r) A(r, r) += run.CdActive.diag(r);
  run.InvHData = ColumnMatrix(A.rows(), A.rows());
  Invert(A, run.InvHData);
  run.Weight = Product(CmGt, run.InvHData);
  run.deltaModel = Times(run.Weight, ResidualFromPrior());
}

/// Hessian Gt InvCd G + InvCm. @return Gt InvCd
ColumnMatrix BuildHessian() {
  ShowStep("Calculating Hessian matrix...");
  const int rows = run.GActive.rows(), m = run.nModelParm;
  run.InvCd = DiagonalMatrix(rows);
  ColumnMatrix T(m, rows);
  for (int r = 1; r <= rows; ++r) {
    run.InvCd.diag(r) = 1.0 / run.CdActive.diag(r);
    for (int p = 1; p <= m; ++p) T(p, r) = run.GActive(r, p) * run.InvCd.diag(r);
  }
  run.Hessian = Product(T, run.GActive);
  run.InvCm.fill(0.0);
  // Kept: Cm holds its LU factors from here on, for a diagonal Cm its own values.
  if (run.iInvScheme != kLeastSquares) Invert(run.Cm, run.InvCm);
  for (int q = 1; q <= m; ++q) AddScaled(Column(run.Hessian, q), Column(run.InvCm, q), 1.0, m);
  return T;
}

/// Weight and correction from InvH, by the scheme.
void CorrectInModelSpace(const ColumnMatrix& T) {
  run.Weight = Product(run.InvH, T);
  switch (run.iInvScheme) {
    case kDamped:
    case kDampedPrior: {
      OffsetVector<double> v = Times(T, run.deltaVel);
      if (run.iInvScheme == kDampedPrior) {
        const OffsetVector<double> pull = Times(run.InvCm, FromPrior());
        AddScaled(v.shifted(), pull.shifted(), 1.0, run.nModelParm);
      }
      run.deltaModel = Times(run.InvH, v);
      break;
    }
    case kPrior:
      run.deltaModel = Times(run.Weight, ResidualFromPrior());
      break;
    case kLeastSquares:
      run.deltaModel = Times(run.Weight, run.deltaVel);
      break;
    default:
      run.deltaModel = OffsetVector<double>(1, run.nModelParm);
      break;
  }
}

/// From the weights on: resolution, bounds, the new layers.
Move Apply(const OffsetVector<double>& velocity, int& violations) {
  if (CorrectionIsFinite()) {
    FS_SaveGaussParam(run.GActive, velocity);
  } else {
    MessagePopup(
        session.appTitle,
        "The correction of the model is not finite: a parameter has no influence on the curve and "
        "no deviation of its own, or a sensitivity could not be computed. The model stays as it is.");
  }
  return MoveModel(violations);
}

Move UpdateInModelSpace(const OffsetVector<double>& velocity) {
  const ColumnMatrix T = BuildHessian();
  ShowStep("Calculating Weight matrix...");
  int violations = 0;
  if (run.iUseSVD == 0) {
    Invert(run.Hessian, run.InvH);
    CorrectInModelSpace(T);
    return Apply(velocity, violations);
  }
  TruncatedSolve solve;
  for (;;) {
    CorrectInModelSpace(T);
    const Move move = Apply(velocity, violations);
    if (move != Move::kViolated) return move;
    solve.Tighten(violations);
  }
}

Move UpdateInDataSpace(const OffsetVector<double>& velocity) {
  SolveInDataSpace();
  int violations = 0;
  return Apply(velocity, violations);
}

}  // namespace

int FS_MaxLiklihood(const OffsetVector<double>& velocity, const OffsetVector<double>& amplitude) {
  run.iDumpMatrices = 0;
  const int nActive = CountActive();
  if (nActive == 0) {
    MessagePopup(kWarningTitle, "Warning: No velocities are calculated at all the given frequencies.\n");
    return -1;
  }
  const int rows = run.iUseAmplitude == 1 ? 2 * nActive : nActive;
  BuildActive(nActive, rows);
  FS_Setup_Cm();
  BuildDelta(nActive, rows, velocity, amplitude);

  const int fullRows = run.nObsRows, fullLd = run.ldObs;
  run.nObsRows = nActive;
  run.ldObs = rows;
  const Move move = rows < run.nModelParm ? UpdateInDataSpace(velocity) : UpdateInModelSpace(velocity);
  if (run.iDumpMatrices == 1) DumpUpdate(velocity);
  if (move == Move::kTrapped) return -1;  // Kept: with the numbers of the rows in use
  run.nObsRows = fullRows;
  run.ldObs = fullLd;
  return move == Move::kMoved ? 0 : -1;
}

}  // namespace sondera
