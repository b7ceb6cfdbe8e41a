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

namespace sondera {
namespace {

constexpr std::size_t kSwitchSvd = 0;  // place in Switches::reportSwitch

/// Singular values of the sensitivities, with both sides.
void ReportSingularValues(const Run& run, Listener& listener) {
  const int rows = run.update.GMatrix.rows(), m = run.parameters.nModelParm;
  ReportFile file(run.switches, ".svd");
  file.Printf("\n\nIteration no. : %2ld ...", static_cast<long>(run.course.iCurIterNo));
  if (rows >= m) {  // the decomposition requires at least as many rows
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
  file.Append(listener);
}

/// One update from these curves, with the given deviations.
Refusal UpdateModel(Run& run, const Evaluation& e, bool huber, Listener& listener) {
  const DiagonalMatrix given = run.observations.Cd;
  const OffsetVector<double> curve = CurveOfActiveRows(run.observations, e.vel);
  if (huber) run.observations.Cd = HuberCovariance(run.observations, run.switches, curve);
  Refusal result = FS_MaxLiklihood(run, curve, e.amp, listener);
  run.observations.Cd = given;
  return result;
}

}  // namespace

Advance AdvanceModel(Run& run, Evaluation& e, const InversionSettings& settings, RunListener& listener) {
  const ModelState from = PresentModel(run.ground, run.parameters);
  if (FS_Gmatrix(run, settings, listener)) return Advance::kHalted;
  if (run.switches.reportSwitch[kSwitchSvd]) ReportSingularValues(run, listener);
  if (const Refusal refusal = UpdateModel(run, e, settings.HUBERWEIGHTS, listener)) {
    listener.Tell(refusal);
    return Advance::kFailed;
  }
  listener.Process("Evaluating the updated layer system...");
  if (settings.STEPCONTROL)
    return EvaluateControlled(run, from, e, settings.HUBERWEIGHTS, listener) ? Advance::kMoved
                                                                             : Advance::kKept;
  e.Sweep(run, listener);
  return Advance::kMoved;
}

}  // namespace sondera
