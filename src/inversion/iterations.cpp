// iterations.cpp - FS_RunIAnal: the run around the updates; see max_likelihood.h. Owns no state.
#include <algorithm>
#include <iterator>
#include <string>

#include "inversion/max_likelihood.h"
#include "inversion/model_state.h"
#include "inversion/model_step.h"
#include "inversion/run_advice.h"
#include "inversion/several_starts.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/data_deviation.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/result_entries.h"
#include "run/result_files.h"
#include "run/result_statistics.h"
#include "run/run_clock.h"
#include "run/run_files.h"
#include "run/run_history.h"
#include "run/run_progress.h"
#include "run/sweep_state.h"
#include "run/system_model.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "runtime/findings.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kGlobalCurve = 1;

void ShowProcess(const std::string& text) {
  SetCtrlVal(exdthd::PROCESSMSG, text);
}

void JudgeAndShow(Evaluation& e) {
  e.Judge();
  SetCtrlVal(exdthd::RMSERROR, e.rmsVel);
}

void ClearBoxes() {
  ShowProcess("");
  ShowRunStatus("");
}

/// Everything up to the first sweep. -1 after a message.
int Prepare() {
  if (FS_RetrieveSystemPM(kInversionRun, 0) < 0) return -1;
  run.switches.iAnalysis = run.switches.iInvScheme == 0 ? -FModelParam.analysis : FModelParam.analysis;
  run.course.iCurIterNo = 0;
  if (FS_GetStartMP() < 0) return -1;
  std::fill(run.observations.iNoVelocity.begin(), run.observations.iNoVelocity.end(), 0);
  if (run.switches.iDispSource == kGlobalCurve) FS_SearchReceivers(run.receivers.recSetupList);
  FS_ReportTime(0);
  return FS_SetUpObsData(run.switches.iDispSource);
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
                    static_cast<long>(computed), run.observations.nObsRows) +
         KeptText(iteration - 1);
}

/// What the numbers of the run suffer from, for its end. Kept: with fewer rows than parameters the update
/// measures its correction from the prior model but takes it off the present one, so that only the first is a
/// step towards the curve.
std::string RunNote() {
  const int rows = run.update.CdActive.size();
  if (run.course.iCurIterNo > 1 && rows < run.parameters.nModelParm)
    return FormatText(
        "fewer points (%d) than free parameters (%d): only iteration 1 is a step towards the curve", rows,
        run.parameters.nModelParm);
  return {};
}

/// Status at the end of an iteration: its fit, and what its sweep doubted.
std::string EndOfIterationText(int iteration) {
  const std::string doubts = SweepReport();
  return FormatText("End of the iteration No. %d:     The computation time : %s     ", iteration,
                    run.course.timeText.c_str()) +
         FitOfRun() + (doubts.empty() ? "" : "     ") + doubts;
}

/// Status at the end of the run, with the advice.
void ShowEndOfRun(bool settled) {
  if (run.course.iCurIterNo == 0) return;
  const std::string advice = ReportRunAdvice();
  ShowRunStatus(EndOfIterationText(run.course.iCurIterNo) +
                (settled ? "     No part of the last step lowers chi: the run has settled." : "") +
                (advice.empty() ? "" : "     Advice: ") + advice);
}

enum class Step {
  kGoOn,
  kConverged,
  kSettled,  ///< step control keeps the model, and would keep it again: nothing in the next iteration differs
  kEnd,
};

/// One iteration on the curves of the present model, which become those of the new one.
Step Iterate(Evaluation& e, const InversionOptions& options) {
  const int iteration = run.course.iCurIterNo;
  ClearBoxes();
  ShowRunStatus(FormatText("Inv. Analysis: Iter. No = %d", iteration));
  run.switches.iAnalysis = TheoDispInfo.analysis;
  run.course.runTitle = RunTitle(TheoDispInfo.analysis, true);
  const Advance advance = AdvanceModel(e, options);
  if (advance == Advance::kHalted) {
    TellHalt(KeptText(iteration - 1));
    return Step::kEnd;
  }
  if (advance == Advance::kFailed) return Step::kEnd;
  e.doubts.note = RunNote();
  sweepState = e.doubts;
  JudgeAndShow(e);
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
  if (e.rmsVel <= run.switches.epsConverge) return Step::kConverged;
  if (advance == Advance::kKept) return Step::kSettled;
  ShowRunStatus(EndOfIterationText(iteration));
  return Step::kGoOn;
}

Step IterateAll(Evaluation& e, int wanted, const InversionOptions& options) {
  if (run.switches.iUseAmplitude == 0) run.observations.ldObs = run.observations.nObsRows;
  Step step = Step::kGoOn;
  for (int k = 0; k < wanted && step == Step::kGoOn; ++k) {
    run.course.iCurIterNo = k + 1;
    step = Iterate(e, options);
  }
  return step;
}

void TakeDeviationFromData(const Evaluation& e) {
  const double part = RelativeMisfit(e.vel);
  SetRelativeDeviation(part);
  AddNote(
      FormatText("the deviation of the velocities is %.3f of their value, from the misfit of the starting "
                 "model",
                 part));
}

int TryOtherStartsOrTell(const ModelState& given, const Evaluation& e, int wanted,
                         const InversionOptions& options) {
  ShowProcess("Trying other starting models...");
  if (TryOtherStarts(given, e, wanted, options) == 0) return 0;
  TellHalt("The other starting models were not tried to their end. " + KeptText(run.course.iCurIterNo));
  return -1;
}

int EvaluateAndIterate(int wanted, const InversionOptions& options) {
  ClearBoxes();
  ShowRunStatus("Inv. Analysis: ");
  ShowProcess("Evaluating the initial layer system. ");
  ClearStartSpread();
  const ModelState given = PresentModel();
  Evaluation e;
  e.Sweep();
  if (e.halted) {
    TellHalt("The starting model was not evaluated to its end; nothing is kept of this run.");
    return -1;
  }
  if (options.deviationFromData) TakeDeviationFromData(e);
  JudgeAndShow(e);
  if (Store(0, e) < 0) return -1;
  Present(0);
  const Step end = IterateAll(e, wanted, options);
  sweepState =
      e.doubts;  // not those of a perturbed model, where a run ends in the middle of its sensitivities
  if (end == Step::kEnd) return -1;
  if (options.severalStarts && run.course.iCurIterNo > 0) {
    if (TryOtherStartsOrTell(given, e, wanted, options) < 0) return -1;
    sweepState = e.doubts;
  }
  ShowEndOfRun(end == Step::kSettled);
  return 0;
}

}  // namespace

int FS_RunIAnal() {
  const AnalysisLock lock;
  const RunFiles files;
  if (Prepare() < 0) return -1;
  const int wanted = std::max(InvParam.nEntries, 0);
  const InversionOptions options = ChosenOptions();
  const long starts = options.severalStarts ? 1 + static_cast<long>(std::size(kStartRatios)) : 1;
  const long sweeps = starts * (1 + wanted * (2L * run.parameters.nModelParm + 1));
  BeginRunProgress(sweeps * SolvesOfSweep());
  const int result = EvaluateAndIterate(wanted, options);
  EndRunProgress();
  FS_CloseFiles(kInversionRun);
  FS_DeAllocatePropLayer();
  FS_DeAllocateModelInfo();
  FS_DeAllocateObsData();
  FS_DeAllocateRecSetup();
  return result;
}

}  // namespace sondera
