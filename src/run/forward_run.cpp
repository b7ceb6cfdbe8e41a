// forward_run.cpp - see forward_run.h.
#include "run/forward_run.h"

#include <algorithm>

#include "records/kinds.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/result_entries.h"
#include "run/result_files.h"
#include "run/run_clock.h"
#include "run/run_files.h"
#include "run/sweep.h"

namespace sondera {
namespace {

/// Everything up to the sweep.
Refusal Prepare(Run& run, const std::string& PROJID, int prePrfType, Listener& listener) {
  if (Refusal refusal = FS_RetrieveSystemPM(run, kForwardRun, prePrfType, PROJID)) return refusal;
  if (Refusal refusal = FS_GetStartMP(run, {}, listener)) return refusal;
  std::fill(run.observations.iNoVelocity.begin(), run.observations.iNoVelocity.end(), 0);
  if (run.switches.iDispSource == kGlobalCurve) FS_SearchReceivers(run.observations, run.receivers);
  FS_ReportTime(run.course, 0);
  return FS_SetUpObsData(run, run.switches.iDispSource) < 0 ? Refusal::WithoutReason() : Refusal();
}

/// Stores, writes and reports the result.
Refusal Finish(Run& run, int iProfile, const OffsetVector<double>& vel, const OffsetVector<double>& amp,
               RunListener& listener) {
  double rmsVel = 0.0, rmsAmp = 0.0;
  FS_RMSerror(run, vel, amp, rmsVel, rmsAmp);
  listener.Misfit(rmsVel);
  if (Refusal refusal = FS_RefreshDspCurve(run, iProfile, vel, rmsVel)) return refusal;
  if (Refusal refusal = FS_RefreshModelPar(run.ground, iProfile)) return refusal;
  FS_SaveDspCurve(run, iProfile, vel, amp, rmsVel, rmsAmp, listener);
  FS_SaveModelPar(run, iProfile, rmsVel, rmsAmp, listener);
  FS_SaveProfile(run, iProfile, rmsVel, rmsAmp, listener);
  FS_ReportTime(run.course, 1);
  std::string status = "End of Forward Modeling Analysis:     The computation time : " + run.course.timeText;
  const std::string doubts = SweepReport();
  if (!doubts.empty()) status += "     " + doubts;
  listener.Status(status);
  if (!sweepState.refusal.empty())
    listener.Tell("The point-load solver gives no velocity. " + sweepState.refusal);
  return {};
}

}  // namespace

ForwardRunEnd RunForward(Run& run, const ModelRecord& settings, const std::string& PROJID, int prePrfType,
                         int iProfile, RunListener& listener) {
  const RunFiles files;
  if (Refusal refusal = Prepare(run, PROJID, prePrfType, listener)) return {refusal};
  OffsetVector<double> vel, amp;
  const SweepParts parts = PartsOfSweep(run);
  Refusal refusal = run.switches.iHaveData == 0 ? FS_rWave3D_F(parts, settings, listener, vel, amp)
                                                : FS_rWave3D(parts, listener, vel, amp);
  if (refusal) return {refusal, true};
  refusal = Finish(run, iProfile, vel, amp, listener);
  FS_CloseFiles(kForwardRun, listener);
  return {refusal};
}

}  // namespace sondera
