// iterations.cpp - see iterations.h.
#include "inversion/iterations.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "inversion/model_state.h"
#include "inversion/model_step.h"
#include "inversion/run_advice.h"
#include "inversion/several_starts.h"
#include "records/inv_records.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "run/data_deviation.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/result_entries.h"
#include "run/result_files.h"
#include "run/result_statistics.h"
#include "run/run_clock.h"
#include "run/run_files.h"
#include "run/run_history.h"
#include "run/run_sizes.h"
#include "run/solve_counter.h"
#include "run/sweep_state.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

void JudgeAndShow(const Run& run, Evaluation& e, RunListener& listener) {
  e.Judge(run);
  listener.Misfit(e.rmsVel);
}

void ClearTexts(RunListener& listener) {
  listener.Process("");
  listener.Status("");
}

/// Everything up to the first sweep.
Refusal Prepare(Run& run, const InversionSettings& settings, RunListener& listener) {
  if (Refusal refusal = FS_RetrieveSystemPM(run, kInversionRun, 0, settings.PROJID)) return refusal;
  run.switches.iAnalysis = run.switches.iInvScheme == 0 ? -FModelParam.analysis : FModelParam.analysis;
  run.course.iCurIterNo = 0;
  if (Refusal refusal = FS_GetStartMP(run, settings.fixed, listener)) return refusal;
  std::fill(run.observations.iNoVelocity.begin(), run.observations.iNoVelocity.end(), 0);
  if (run.switches.iDispSource == kGlobalCurve) FS_SearchReceivers(run.observations, run.receivers);
  FS_ReportTime(run.course, 0);
  return FS_SetUpObsData(run, run.switches.iDispSource) < 0 ? Refusal::WithoutReason() : Refusal();
}

/// Result of an iteration into its entry and the files; false after a message when there is no entry for it.
bool Store(Run& run, int iteration, const Evaluation& e, RunListener& listener) {
  Refusal refusal = FS_RefreshDspCurve(run, iteration, e.vel, e.rmsVel);
  if (!refusal) refusal = FS_RefreshModelPar(run.ground, iteration);
  if (refusal) {
    listener.Tell(refusal);
    return false;
  }
  if (!e.halted) NoteIteration(run, iteration, e.vel, e.rmsVel);
  FS_SaveDspCurve(run, iteration, e.vel, e.amp, e.rmsVel, e.rmsAmp, listener);
  FS_SaveModelPar(run, iteration, e.rmsVel, e.rmsAmp, listener);
  FS_SaveProfile(run, iteration, e.rmsVel, e.rmsAmp, listener);
  if (iteration == 0) return true;
  FS_SavePostMPar(run, iteration, e.rmsVel, listener);
  FS_SaveSMPfile(run, iteration, e.rmsVel, e.rmsAmp, listener);
  FS_ReportTime(run.course, 1);
  return true;
}

void TellHalt(RunListener& listener, const std::string& what) {
  listener.Tell("The inversion was halted. " + what);
}

std::string KeptText(int iteration) {
  return iteration == 0 ? "The starting model is kept; no iteration was finished."
                        : FormatText("Iteration %d is the last finished one and is kept.", iteration);
}

/// Halted in the sweep after the update: the model is complete, its curve is not.
std::string CutShortText(int points, int iteration, const Evaluation& e) {
  const auto has = [](double v) { return v != 0.0; };
  const auto computed = std::count_if(e.vel.begin(), e.vel.end(), has);
  return FormatText("The curve and the RMS of iteration %d cover %ld of %d points. ", iteration,
                    static_cast<long>(computed), points) +
         KeptText(iteration - 1);
}

/// Weaknesses of the run's numbers, for its end. Kept: with fewer rows than parameters the update computes
/// its correction relative to the prior model but subtracts it from the present one, so only the first
/// correction is a step towards the curve.
std::string RunNote(const Run& run) {
  const int rows = run.update.CdActive.size();
  if (run.course.iCurIterNo > 1 && rows < run.parameters.nModelParm)
    return FormatText(
        "fewer points (%d) than free parameters (%d): only iteration 1 is a step towards the curve", rows,
        run.parameters.nModelParm);
  return {};
}

/// Status at the end of an iteration: its fit, and the doubts of its sweep.
std::string EndOfIterationText(const Course& course, int iteration) {
  const std::string doubts = SweepReport();
  return FormatText("End of the iteration No. %d:     The computation time : %s     ", iteration,
                    course.timeText.c_str()) +
         FitOfRun() + (doubts.empty() ? "" : "     ") + doubts;
}

/// Status at the end of the run, with the advice.
void ShowEndOfRun(const Run& run, bool settled, RunListener& listener) {
  if (run.course.iCurIterNo == 0) return;
  const std::string advice = ReportRunAdvice(run);
  listener.Status(EndOfIterationText(run.course, run.course.iCurIterNo) +
                  (settled ? "     No part of the last step lowers chi: the run has settled." : "") +
                  (advice.empty() ? "" : "     Advice: ") + advice);
}

enum class Step {
  kGoOn,
  kConverged,
  kSettled,  ///< step control keeps the model; the next iteration would be the same and keep it again
  kEnd,
};

/// One iteration on the curves of the present model, which become those of the new one.
Step Iterate(Run& run, Evaluation& e, const InversionSettings& settings, RunListener& listener) {
  const int iteration = run.course.iCurIterNo;
  ClearTexts(listener);
  listener.Status(FormatText("Inv. Analysis: Iter. No = %d", iteration));
  run.switches.iAnalysis = TheoDispInfo.analysis;
  run.course.runTitle = RunTitle(TheoDispInfo.analysis, true);
  const Advance advance = AdvanceModel(run, e, settings, listener);
  if (advance == Advance::kHalted) {
    TellHalt(listener, KeptText(iteration - 1));
    return Step::kEnd;
  }
  if (advance == Advance::kFailed) return Step::kEnd;
  e.doubts.note = RunNote(run);
  sweepState = e.doubts;
  JudgeAndShow(run, e, listener);
  if (!Store(run, iteration, e, listener)) return Step::kEnd;
  listener.Process("Refreshing the plots...");
  listener.Stored(iteration);
  if (e.halted) {
    TellHalt(listener, CutShortText(run.observations.nObsRows, iteration, e));
    return Step::kEnd;
  }
  if (e.rmsVel < 0.0) {
    listener.Tell(FormatText(
        "No point has a velocity after iteration %d: its model is not physical. Iteration %d is the "
        "last one with a curve.",
        iteration, iteration - 1));
    return Step::kEnd;
  }
  if (e.rmsVel <= run.switches.epsConverge) return Step::kConverged;
  if (advance == Advance::kKept) return Step::kSettled;
  listener.Status(EndOfIterationText(run.course, iteration));
  return Step::kGoOn;
}

Step IterateAll(Run& run, Evaluation& e, int wanted, const InversionSettings& settings,
                RunListener& listener) {
  if (run.switches.iUseAmplitude == 0) run.observations.ldObs = run.observations.nObsRows;
  Step step = Step::kGoOn;
  for (int k = 0; k < wanted && step == Step::kGoOn; ++k) {
    run.course.iCurIterNo = k + 1;
    step = Iterate(run, e, settings, listener);
  }
  return step;
}

void TakeDeviationFromData(Observations& observations, const Evaluation& e) {
  const double part = RelativeMisfit(observations, e.vel);
  SetRelativeDeviation(observations, part);
  AddNote(
      FormatText("the deviation of the velocities is %.3f of their value, from the misfit of the starting "
                 "model",
                 part));
}

Refusal TryOtherStartsOrTell(Run& run, const ModelState& given, const Evaluation& e, int wanted,
                             const InversionSettings& settings, RunListener& listener) {
  listener.Process("Trying other starting models...");
  Refusal halt = TryOtherStarts(run, given, e, wanted, settings, listener);
  if (halt)
    TellHalt(listener,
             "The other starting models were not tried to their end. " + KeptText(run.course.iCurIterNo));
  return halt;
}

Refusal EvaluateAndIterate(Run& run, int wanted, const InversionSettings& settings, RunListener& listener) {
  ClearTexts(listener);
  listener.Status("Inv. Analysis: ");
  listener.Process("Evaluating the initial layer system. ");
  ClearStartSpread();
  const ModelState given = PresentModel(run.ground, run.parameters);
  Evaluation e;
  e.Sweep(run, listener);
  if (e.halted) {
    TellHalt(listener, "The starting model was not evaluated to its end; nothing is kept of this run.");
    return Refusal::WithoutReason();
  }
  if (settings.DATADEVIATION) TakeDeviationFromData(run.observations, e);
  JudgeAndShow(run, e, listener);
  if (!Store(run, 0, e, listener)) return Refusal::WithoutReason();
  listener.Stored(0);
  const Step end = IterateAll(run, e, wanted, settings, listener);
  sweepState = e.doubts;  // not those of a perturbed model, if a run ends in the middle of its sensitivities
  if (end == Step::kEnd) return Refusal::WithoutReason();
  if (settings.SEVERALSTARTS && run.course.iCurIterNo > 0) {
    if (Refusal halt = TryOtherStartsOrTell(run, given, e, wanted, settings, listener)) return halt;
    sweepState = e.doubts;
  }
  ShowEndOfRun(run, end == Step::kSettled, listener);
  return {};
}

}  // namespace

Refusal RunInversion(Run& run, const InversionSettings& settings, RunListener& listener) {
  const RunFiles files;
  if (Refusal refusal = Prepare(run, settings, listener)) return refusal;
  const int wanted = std::max(InvParam.nEntries, 0);
  const long starts = settings.SEVERALSTARTS ? 1 + static_cast<long>(std::size(kStartRatios)) : 1;
  const long sweeps = starts * (1 + wanted * (2L * run.parameters.nModelParm + 1));
  SolveCounter counted(listener, sweeps * SolvesOfSweep(run.observations, run.switches));
  Refusal result = EvaluateAndIterate(run, wanted, settings, counted);
  FS_CloseFiles(kInversionRun, listener);
  FS_DeAllocatePropLayer();
  FS_DeAllocateModelInfo();
  FS_DeAllocateObsData();
  FS_DeAllocateRecSetup();
  return result;
}

}  // namespace sondera
