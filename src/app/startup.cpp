// startup.cpp - session start. Owns no state; initialises that of all other folders.
#include "app/startup.h"

#include "acquisition/acquisition_state.h"
#include "app/callbacks.h"
#include "app/devices.h"
#include "app/shutdown.h"
#include "inversion/inversion_state.h"
#include "numeric/process_end.h"
#include "panels/hwsetup.h"
#include "panels/irfsetpnl.h"
#include "panels/mainmenu_project.h"
#include "panels/meassetup.h"
#include "panels/panel_pictures.h"
#include "panels/panels_state.h"
#include "panels/project_requests.h"
#include "panels/trace_selection.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/records_state.h"
#include "records/session.h"
#include "report/graph_state.h"
#include "run/run_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/project_hooks.h"
#include "runtime/runtime_state.h"
#include "signal/signal_state.h"

namespace sondera {
namespace {

void MakeFirstMeasurement() {
  const int key = InsertNewIDInfo(session.curProjID, session.curMeasID, 0);
  HWSetup* hw = SetupHWSetupArrays(key, session.measOptions.nChannels);
  InitHWSetup(*hw);
  InitMeasSetup(*SetupMSetupArrays(key));
  InitRawData(*SetupRawDataArrays(key));
}

/// Controls of the settings page for receivers at even spacing.
void ShowEvenSpacing() {
  using namespace meassetup;
  SetCtrlVal(RSPACING, 1);
  SetVisible(EVENSPACING, true);
  SetVisible(CHNLLOC, false);
  SetVisible(NCHANNELS3, false);
  SetVisible(CHNLLOCLABEL, false);
}

void InitVariables() {
  if (HasDevice()) ReadDeviceFacts();
  session.measOptions = {session.device.maxChannels, 1, 0};
  session.curChannels = session.device.maxChannels;
  session.samplesPerChan = 1024;
  session.measBuffer.assign(static_cast<std::size_t>(session.samplesPerChan) * session.curChannels, 0.0);
  RefreshWindowTitle();
  MakeFirstMeasurement();
  UpdateHWSetup(session.curProjID, session.curMeasID);
  UpdateMeasSetup(session.curProjID, session.curMeasID, 2);
  SetupSiteCategory();
  ShowEvenSpacing();
  SetCtrlVal(fmodeling::GLOBAL_ARRAY, FModelParam.dispCurvType);
}

}  // namespace

void ResetProgramState() {
  ResetRuntimeState();
  ResetRecordsState();
  ResetSignalState();
  ResetRunState();
  ResetInversionState();
  ResetAcquisitionState();
  ResetGraphState();
  ResetPanelsState();
}

void StartSession() {
  ResetProgramState();
  InstallCallbacks();
  InstallPanelPictures();
  InstallLastStep(OfferSave);
  InstallProjectHooks({ProjectDiffersFromSaved, TakeProjectAsSaved, SaveProjectFile, OpenProjectFile,
                       AskAndOpenProjectFile, [] { return session.projectFileName; }, RescueProjectFile});
  FindDevices();
  DisplayPanel(Panel::PANEL);
  InitVariables();
  SetActiveTabPage(Panel::PANEL, HasDevice() ? 0 : 1);
  TakeProjectAsSaved();
}

}  // namespace sondera
