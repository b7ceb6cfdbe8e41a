// model_step.cpp - see model_step.h.
#include "inversion/model_step.h"

#include "inversion/huber_weights.h"
#include "inversion/max_likelihood.h"
#include "inversion/sensitivity.h"
#include "inversion/step_control.h"
#include "numeric/svd.h"
#include "run/active_rows.h"
#include "run/report_file.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"

namespace sondera {
namespace {

constexpr std::size_t kSwitchSvd = 0;  // place in Switches::reportSwitch

/// Singular values of the sensitivities, with both sides.
void ReportSingularValues() {
  const int rows = run.update.GMatrix.rows(), m = run.parameters.nModelParm;
  ReportFile file(".svd");
  file.Printf("\n\nIteration no. : %2ld ...", static_cast<long>(run.course.iCurIterNo));
  if (rows >= m) {  // the decomposition takes no fewer rows
    ColumnMatrix U = run.update.GMatrix, V(rows, m);
    OffsetVector<double> w(1, m);
    FS_svdcmp(rows, m, U.shifted(), w.shifted(), V.shifted());
    const auto put = [&file](const ColumnMatrix& a, int n, int cols) {
      for (int i = 1; i <= n; ++i) {
        for (int j = 1; j <= cols; ++j) file.Printf(j > 1 ? " %lf" : "%lf", a(i, j));
        file.Put("\n");
      }
    };
    file.Put("U ... \n");
    put(U, rows, m);
    file.Put("W ... \n");
    for (int k = 1; k <= m; ++k) file.Printf("%lf\n", w[k]);
    file.Put("V ... \n");
    put(V, m, m);
  }
  file.Append();
}

/// One update from these curves, with the deviations that it is to have.
int UpdateModel(const Evaluation& e, bool huber) {
  const DiagonalMatrix given = run.observations.Cd;
  const OffsetVector<double> curve = CurveOfActiveRows(e.vel);
  if (huber) run.observations.Cd = HuberCovariance(curve);
  const int result = FS_MaxLiklihood(curve, e.amp);
  run.observations.Cd = given;
  return result;
}

}  // namespace

Advance AdvanceModel(Evaluation& e, const InversionOptions& options) {
  const ModelState from = PresentModel();
  if (FS_Gmatrix() < 0) return Advance::kHalted;
  if (run.switches.reportSwitch[kSwitchSvd]) ReportSingularValues();
  if (UpdateModel(e, options.huberWeights) < 0) return Advance::kFailed;
  SetCtrlVal(exdthd::PROCESSMSG, "Evaluating the updated layer system...");
  if (options.stepControl)
    return EvaluateControlled(from, e, options.huberWeights) ? Advance::kMoved : Advance::kKept;
  e.Sweep();
  return Advance::kMoved;
}

}  // namespace sondera
