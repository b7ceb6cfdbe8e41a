// hmsetup.cpp - the list of measurements. The texts stored while one is being edited are in panels_state.h.
#include "panels/hmsetup.h"

#include <algorithm>

#include "acquisition/daq_driver.h"
#include "panels/hwsetup.h"
#include "panels/meassetup.h"
#include "panels/panels_state.h"
#include "panels/trace_selection.h"
#include "panels/undo.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/dialogs.h"
#include "runtime/files.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

constexpr int kLongestPrompt = 80;
constexpr std::size_t kLongestID = 255;         // the file's text fields hold 256 bytes
constexpr std::size_t kLongestProjectID = 247;  // the file has four bars and a number after it

void RefillLists() {
  FillMeasIDListBox(Panel::SASW, session.curProjID);
  FillMeasIDListBox(Panel::MEASPANEL, session.curProjID);
}

int SelectMeasurement(const std::string& measID) {
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  session.curMeasID = measID;
  SetCtrlVal(hmsetup::MEASID, measID);
  MeasRecords records;
  GetInfoFromKey(GetKeyFromID(session.curProjID, measID), records);
  if (records.hwPos < 0) {
    MessagePopup(session.appTitle, "Software configuation for the hardware was not completed.");
    return -1;
  }
  UpdateMeasSetup(session.curProjID, measID, 2);
  UpdateHWSetup(session.curProjID, measID);
  return 0;
}

void Rename(int key, const std::string& measID) {
  for (IDInfo& id : MeasDB.idList)
    if (id.key == key) id.MeasID = BeginningOf(measID, kLongestID);
  session.curMeasID = BeginningOf(measID, kLongestID);
  SetCtrlVal(hmsetup::MEASID, session.curMeasID);
  RefillLists();
  RefreshWindowTitle();
}

}  // namespace

int UpdateMeasIDListCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int index = GetCtrlIndex(hmsetup::MEASIDLISTBOX);
  if (index < 0) return 0;
  return SelectMeasurement(GetLabelFromIndex(hmsetup::MEASIDLISTBOX, index));
}

int UpdateProjIDCallback(Panel, ControlId, Event event, long) {
  if (event == Event::GotFocus) panelsState.edited.projID = GetCtrlVal(hmsetup::PROJID);
  if (event != Event::Commit) return 0;
  const std::string projID(BeginningOf(GetCtrlVal(hmsetup::PROJID), kLongestProjectID));
  for (IDInfo& id : MeasDB.idList)
    if (id.ProjID == panelsState.edited.projID) id.ProjID = projID;
  session.curProjID = projID;
  SetCtrlVal(hmsetup::PROJID, projID);
  panelsState.edited.projID = projID;
  RefreshWindowTitle();
  return 0;
}

int UpdateMeasIDCallback(Panel, ControlId, Event event, long) {
  const std::string measID = GetCtrlVal(hmsetup::MEASID);
  if (event == Event::GotFocus) {
    MeasRecords records;
    panelsState.edited.measID.clear();
    if (GetInfoFromKey(GetKeyFromID(session.curProjID, measID), records) != -1 && records.measPos > 0)
      panelsState.edited.measID = measID;
  }
  if (event != Event::Commit) return 0;
  const int key = GetKeyFromID(session.curProjID, panelsState.edited.measID);
  if (panelsState.edited.measID.empty() || key == -1) return 0;
  panelsState.edited.measID = measID;
  Rename(key, measID);
  return 0;
}

int AddMeasIDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const auto id = PromptPopup(session.appTitle, "Please enter a new measurement ID.", kLongestPrompt);
  if (!id || id->empty()) return 0;
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  if (GetKeyFromID(session.curProjID, *id) != -1) {
    MessagePopup(session.appTitle, "The same measurement ID is in the list.");
    return -1;
  }
  const int key = InsertNewIDInfo(session.curProjID, *id, 0);
  InitHWSetup(*SetupHWSetupArrays(key, session.measOptions.nChannels));
  InitMeasSetup(*SetupMSetupArrays(key));
  InitRawData(*SetupRawDataArrays(key));
  UpdateHWSetup(session.curProjID, *id);
  UpdateMeasSetup(session.curProjID, *id, 2);
  RefreshWindowTitle();
  return 0;
}

int F1Callback(Panel panel, ControlId control, Event event, long data) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::HWSETUP);
  HidePanel(Panel::MEASSETUP);
  return AddMeasIDCallback(panel, control, event, data);
}

int F2Callback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::HWSETUP);
  HidePanel(Panel::MEASSETUP);
  // These boards are always coupled directly.
  SetDimmed(hwsetup::ACDC, daq_category::IsDifferential(session.device.devCategory));
  return 0;
}

int RenameMeasIDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int key = GetKeyFromID(session.curProjID, session.curMeasID);
  if (key == -1) return -1;
  if (!ConfirmPopup(session.appTitle,
                    "Are you sure to rename the measurement ID of [" + session.curMeasID + "] ?"))
    return 0;
  const auto id = PromptPopup(session.appTitle, "Please enter a new measurement ID.", kLongestPrompt);
  if (!id || id->empty() || *id == session.curMeasID) return 0;
  if (GetKeyFromID(session.curProjID, *id) != -1) {
    MessagePopup(session.appTitle, "The same measurement ID is in the list.");
    return -1;
  }
  Rename(key, *id);
  return 0;
}

int UpdateRemoveMeasIDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int index = GetCtrlIndex(hmsetup::MEASIDLISTBOX);
  if (index < 0) return -1;
  const std::string measID = GetLabelFromIndex(hmsetup::MEASIDLISTBOX, index);
  if (!ConfirmPopup(session.appTitle,
                    "Are you sure to remove the measurement setting for [" + measID + "] ?"))
    return 0;
  if (MeasDB.measSetupList.count() <= 1) {
    MessagePopup(session.appTitle, "You can not delete the last item.");
    return -1;
  }
  const int key = GetKeyFromID(session.curProjID, measID);
  if (key == -1) return -1;
  RemoveMeasurement(key);
  ForgetUndo();
  RefillLists();
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, std::max(index - 1, 0));
  return SelectMeasurement(GetLabelFromIndex(hmsetup::MEASIDLISTBOX, GetCtrlIndex(hmsetup::MEASIDLISTBOX)));
}

int RemoveMeasIDCallback(Panel panel, ControlId control, Event event, long data) {
  return UpdateRemoveMeasIDCallback(panel, control, event, data);
}

int HWSetupOKCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::HMSETUP);
  return 0;
}

}  // namespace sondera
