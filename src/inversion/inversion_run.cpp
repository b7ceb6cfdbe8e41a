// inversion_run.cpp - FS_RunIAnal: the run around the updates; see max_likelihood.h. Owns no state.
#include <algorithm>
#include <cstddef>
#include <string>

#include "forward/model_records.h"
#include "forward/receiver_setups.h"
#include "forward/run_clock.h"
#include "forward/run_progress.h"
#include "forward/sweep.h"
#include "forward/sweep_state.h"
#include "forward/system_model.h"
#include "inversion/active_rows.h"
#include "inversion/max_likelihood.h"
#include "inversion/observations.h"
#include "inversion/report_file.h"
#include "inversion/result_entries.h"
#include "inversion/result_files.h"
#include "inversion/result_statistics.h"
#include "inversion/run_advice.h"
#include "inversion/run_history.h"
#include "inversion/sensitivity.h"
#include "numeric/svd.h"
#include "project/session.h"
#include "runtime/dialogs.h"
#include "runtime/panels/exdthd.h"
#include "runtime/panels/fmodeling.h"
#include "runtime/panels/inversion.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kGlobalCurve = 1;
constexpr std::size_t kSwitchSvd = 0;  // place in RunState::reportSwitch

/// Computed curves of the present model, with their misfit.
struct Evaluation {
  OffsetVector<double> vel, amp;
  double rmsVel = 0.0, rmsAmp = 0.0;
  bool halted = false;
  SweepState doubts;  ///< of the sweep behind these curves

  void Sweep() {
    halted = FS_rWave3D(vel, amp) < 0;
    doubts = sweepState;
  }
  void Judge() {
    FS_RMSerror(vel, amp, rmsVel, rmsAmp);
    SetCtrlVal(exdthd::RMSERROR, rmsVel);
  }
};

void ShowProcess(const std::string& text) {
  SetCtrlVal(exdthd::PROCESSMSG, text);
}

void ClearBoxes() {
  ShowProcess("");
  ShowRunStatus("");
}

/// Everything up to the first sweep. -1 after a message.
int Prepare() {
  if (FS_RetrieveSystemPM(kInversionRun, 0) < 0) return -1;
  run.iAnalysis = run.iInvScheme == 0 ? -FModelParam.analysis : FModelParam.analysis;
  run.iCurIterNo = 0;
  if (FS_GetStartMP() < 0) return -1;
  std::fill(run.iNoVelocity.begin(), run.iNoVelocity.end(), 0);
  if (run.iDispSource == kGlobalCurve) FS_SearchReceivers(run.recSetupList);
  FS_ReportTime(0);
  return FS_SetUpObsData(run.iDispSource);
}

/// Result of an iteration into its entry and the files.
int Store(int iteration, const Evaluation& e) {
  if (FS_RefreshDspCurve(iteration, e.vel, e.rmsVel) < 0 || FS_RefreshModelPar(iteration) < 0) return -1;
  if (!e.halted) NoteIteration(iteration, e.vel, e.rmsVel);
  FS_SaveDspCurve(iteration, e.vel, e.amp, e.rmsVel, e.rmsAmp);
  FS_SaveModelPar(iteration, e.rmsVel, e.rmsAmp);
  FS_SaveProfile(iteration, e.rmsVel, e.rmsAmp);
  if (iteration == 0) return 0;
  FS_SavePostMPar(iteration, e.rmsVel);
  FS_SaveSMPfile(iteration, e.rmsVel, e.rmsAmp);
  FS_ReportTime(1);
  return 0;
}

/// The iteration into the lists of entries and onto the results page.
void Present(int iteration) {
  const std::string label = FormatText("INV %d", iteration);
  InsertListItem(exdthd::ITERNO, -1, label, iteration);
  InsertListItem(inversion::INV_SMP, -1, label, iteration);
  InsertListItem(fmodeling::COPYPRF, -1, label, iteration);
  SetCtrlIndex(exdthd::ITERNO, GetNumListItems(exdthd::ITERNO) - 1);
  DisplayPanel(Panel::EXDTHD);
  ExdThdCurvPlot();
  DrawSideGraph(iteration);
}

/// Singular values of the sensitivities, with both sides.
void ReportSingularValues() {
  const int rows = run.GMatrix.rows(), m = run.nModelParm;
  ReportFile file(".svd");
  file.Printf("\n\nIteration no. : %2ld ...", static_cast<long>(run.iCurIterNo));
  if (rows >= m) {  // the decomposition takes no fewer rows
    ColumnMatrix U = run.GMatrix, V(rows, m);
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
  file.AppendOrPrint();
}

void TellHalt(const std::string& what) {
  MessagePopup(session.appTitle, "The inversion was halted. " + what);
}

std::string KeptText(int iteration) {
  return iteration == 0 ? "The starting model is kept; no iteration was finished."
                        : FormatText("Iteration %d is the last finished one and is kept.", iteration);
}

/// Halted in the sweep after the update: the model is whole, its curve is not.
std::string CutShortText(int iteration, const Evaluation& e) {
  const auto has = [](double v) { return v != 0.0; };
  const auto computed = std::count_if(e.vel.begin(), e.vel.end(), has);
  return FormatText("The curve and the RMS of iteration %d cover %ld of %d points. ", iteration,
                    static_cast<long>(computed), run.nObsRows) +
         KeptText(iteration - 1);
}

/// What the numbers of the run suffer from, for its end. Kept: with fewer rows than parameters the update
/// measures its correction from the prior model but takes it off the present one, so that only the first is a
/// step towards the curve.
std::string RunNote() {
  const int rows = run.CdActive.size();
  if (run.iCurIterNo > 1 && rows < run.nModelParm)
    return FormatText(
        "fewer points (%d) than free parameters (%d): only iteration 1 is a step towards the curve", rows,
        run.nModelParm);
  return {};
}

/// Status at the end of an iteration: its fit, and what its sweep doubted.
std::string EndOfIterationText(int iteration) {
  const std::string doubts = SweepReport();
  return FormatText("End of the iteration No. %d:     The computation time : %s     ", iteration,
                    run.timeText.c_str()) +
         FitOfRun() + (doubts.empty() ? "" : "     ") + doubts;
}

/// Status at the end of the run, with the advice.
void ShowEndOfRun() {
  if (run.iCurIterNo == 0) return;
  const std::string advice = ReportRunAdvice();
  ShowRunStatus(EndOfIterationText(run.iCurIterNo) + (advice.empty() ? "" : "     Advice: ") + advice);
}

enum class Step { kGoOn, kConverged, kEnd };

/// One iteration on the curves of the present model, which become those of the new one.
Step Iterate(Evaluation& e) {
  const int iteration = run.iCurIterNo;
  ClearBoxes();
  ShowRunStatus(FormatText("Inv. Analysis: Iter. No = %d", iteration));
  run.iAnalysis = TheoDispInfo.analysis;
  run.runTitle = RunTitle(TheoDispInfo.analysis, true);
  if (FS_Gmatrix() < 0) {
    TellHalt(KeptText(iteration - 1));
    return Step::kEnd;
  }
  if (run.reportSwitch[kSwitchSvd]) ReportSingularValues();
  if (FS_MaxLiklihood(CurveOfActiveRows(e.vel), e.amp) < 0) return Step::kEnd;
  ShowProcess("Evaluating the updated layer system...");
  e.Sweep();
  e.doubts.note = sweepState.note = RunNote();
  e.Judge();
  if (Store(iteration, e) < 0) return Step::kEnd;
  ShowProcess("Refreshing the plots...");
  Present(iteration);
  if (e.halted) {
    TellHalt(CutShortText(iteration, e));
    return Step::kEnd;
  }
  if (e.rmsVel < 0.0) {
    MessagePopup(
        session.appTitle,
        FormatText("No point has a velocity after iteration %d: its model is no ground. Iteration %d is the "
                   "last one with a curve.",
                   iteration, iteration - 1));
    return Step::kEnd;
  }
  if (e.rmsVel <= run.epsConverge) return Step::kConverged;
  ShowRunStatus(EndOfIterationText(iteration));
  return Step::kGoOn;
}

int IterateAll(Evaluation& e, int wanted) {
  if (run.iUseAmplitude == 0) run.ldObs = run.nObsRows;
  for (int k = 0; k < wanted; ++k) {
    run.iCurIterNo = k + 1;
    const Step step = Iterate(e);
    if (step == Step::kConverged) return 0;
    if (step == Step::kEnd) return -1;
  }
  return 0;
}

int EvaluateAndIterate(int wanted) {
  ClearBoxes();
  ShowRunStatus("Inv. Analysis: ");
  ShowProcess("Evaluating the initial layer system. ");
  Evaluation e;
  e.Sweep();
  if (e.halted) {
    TellHalt("The starting model was not evaluated to its end; nothing is kept of this run.");
    return -1;
  }
  e.Judge();
  if (Store(0, e) < 0) return -1;
  Present(0);
  const int result = IterateAll(e, wanted);
  if (result == 0) ShowEndOfRun();
  sweepState =
      e.doubts;  // not those of a perturbed model, where a run ends in the middle of its sensitivities
  return result;
}

}  // namespace

int FS_RunIAnal() {
  const AnalysisLock lock;
  if (Prepare() < 0) return -1;
  const int wanted = std::max(InvParam.nEntries, 0);
  const long sweeps = 1 + wanted * (2L * run.nModelParm + 1);
  BeginRunProgress(sweeps * SolvesOfSweep());
  const int result = EvaluateAndIterate(wanted);
  EndRunProgress();
  FS_DeAllocatePropLayer();
  FS_DeAllocateModelInfo();
  FS_DeAllocateObsData();
  FS_DeAllocateRecSetup();
  return result;
}

}  // namespace sondera
