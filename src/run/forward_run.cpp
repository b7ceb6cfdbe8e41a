// forward_run.cpp - the run on the records as they stand; see forward_run.h. What the panel has to do with it is in
// panels/forward_run.cpp.
#include "run/forward_run.h"

#include <algorithm>

#include "records/model_records.h"
#include "records/session.h"
#include "run/observations.h"
#include "run/receiver_setups.h"
#include "run/result_entries.h"
#include "run/result_files.h"
#include "run/run_clock.h"
#include "run/run_files.h"
#include "run/run_progress.h"
#include "run/sweep.h"
#include "run/system_model.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/dialogs.h"

namespace sondera {
namespace {

constexpr int kGlobalCurve = 1;

/// Stores, writes and announces the result.
int Finish(int iProfile, const OffsetVector<double>& vel, const OffsetVector<double>& amp) {
  double rmsVel = 0.0, rmsAmp = 0.0;
  FS_RMSerror(vel, amp, rmsVel, rmsAmp);
  SetCtrlVal(exdthd::RMSERROR, rmsVel);
  if (FS_RefreshDspCurve(iProfile, vel, rmsVel) < 0 || FS_RefreshModelPar(iProfile) < 0) return -1;
  FS_SaveDspCurve(iProfile, vel, amp, rmsVel, rmsAmp);
  FS_SaveModelPar(iProfile, rmsVel, rmsAmp);
  FS_SaveProfile(iProfile, rmsVel, rmsAmp);
  FS_ReportTime(1);
  std::string status = "End of Forward Modeling Analysis:     The computation time : " + run.course.timeText;
  const std::string doubts = SweepReport();
  if (!doubts.empty()) status += "     " + doubts;
  SetCtrlVal(exdthd::STATUSMSG, status);
  if (!sweepState.refusal.empty())
    MessagePopup(session.appTitle, "The point-load solver gives no velocity. " + sweepState.refusal);
  return 0;
}

}  // namespace

int FS_fModel(int prePrfType, int iProfile, const std::string& PROJID, RunListener& listener) {
  const AnalysisLock lock;
  const RunFiles files;
  if (ShowRefusal(FS_RetrieveSystemPM(kForwardRun, prePrfType, PROJID)) < 0 ||
      ShowRefusal(FS_GetStartMP({}, listener)) < 0)
    return -1;
  std::fill(run.observations.iNoVelocity.begin(), run.observations.iNoVelocity.end(), 0);
  if (run.switches.iDispSource == kGlobalCurve) FS_SearchReceivers(run.receivers.recSetupList);
  FS_ReportTime(0);
  if (FS_SetUpObsData(run.switches.iDispSource) < 0) return -1;
  OffsetVector<double> vel, amp;
  int result = run.switches.iHaveData == 0 ? FS_rWave3D_F(vel, amp) : FS_rWave3D(vel, amp);
  if (result >= 0) {
    result = Finish(iProfile, vel, amp);
    FS_CloseFiles(kForwardRun);
  } else {
    SetCtrlVal(exdthd::STATUSMSG, "The analysis was halted; nothing of it is kept.");
  }
  FS_DeAllocatePropLayer();
  FS_DeAllocateObsData();
  FS_DeAllocateRecSetup();
  return result;
}

}  // namespace sondera
