// devices.cpp - the boards of the machine and the one in use. Owns no state besides the session's device
// facts.
#include "app/devices.h"

#include <algorithm>

#include "acquisition/board_choice.h"
#include "acquisition/daq_driver.h"
#include "acquisition/first_settings.h"
#include "acquisition/hardware_settings.h"
#include "panels/hwsetup.h"
#include "panels/hwsetup_fields.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/dialogs.h"

namespace sondera {
namespace {

/// Device name in the list of boards: the text before the colon, cut to four characters.
std::string SelectedDeviceName() {
  const std::string text = GetLabelFromIndex(devpanel::DEVICEID, GetCtrlIndex(devpanel::DEVICEID));
  return CutDeviceName(text.substr(0, text.find(':')));
}

}  // namespace

bool HasDevice() {
  return GetNumListItems(devpanel::DEVICEID) > 0;
}

void ReadDeviceFacts() {
  DeviceFacts& d = session.device;
  const DaqDriver& daq = Daq();
  int triggerSupported = 0;
  daq.devProductCategory(d.devName, d.devCategory);
  d.aiTriggerSupported = daq.devAnlgTrigSupported(d.devName, triggerSupported) < 0 || triggerSupported != 0;
  daq.devAIPhysicalChans(d.devName, d.aiPhysicalChans);
  d.maxChannels = static_cast<int>(std::count(d.aiPhysicalChans.begin(), d.aiPhysicalChans.end(), ',')) + 1;
  if (daq_category::IsDifferential(d.devCategory)) d.maxChannels /= 2;
  if (d.devProductType.starts_with("USB-4432")) d.maxChannels = 4;
  d.maxChannels = std::max(d.maxChannels, 1);
  daq.devAIMaxSingleChanRate(d.devName, d.aiMaxRate);
  daq.devAIMinRate(d.devName, d.aiMinRate);
  ReadVoltageRanges();
  daq.devAICouplings(d.devName, d.aiCouplings);
}

void FindDevices() {
  SetupDevPanel();
  if (GetNumListItems(devpanel::DEVICEID) > 1) DisplayPanel(Panel::DEVPANEL);
  if (!HasDevice()) return;
  session.device.devName = SelectedDeviceName();
  Daq().devProductCategory(session.device.devName, session.device.devCategory);
  Daq().devProductType(session.device.devName, session.device.devProductType);
}

void SetupDevPanel() {
  std::string names;
  Daq().sysDevNames(names);
  ClearListCtrl(devpanel::DEVICEID);
  int number = 0;
  for (const std::string& name : SplitDaqNames(names)) {
    int category = 0;
    Daq().devProductCategory(CutDeviceName(name), category);
    InsertListItem(devpanel::DEVICEID, -1, DeviceListText(name, category), number++);
  }
  SetCtrlIndex(devpanel::DEVICEID, 0);
  for (ControlId button : std::initializer_list<ControlId>{&measpanel::SASWSTART, &measpanel::SASWPAUSECONT,
                                                           &measpanel::STOPMEAS})
    SetDimmed(*button, number == 0);
}

namespace {

/// The data of the device selected in the list, or those of a session without a board.
void ReadSelectedDevice() {
  DeviceFacts& d = session.device;
  d = DeviceFacts{};
  d.aiVoltageRngs.fill(10.0);
  d.aiVoltageRngs.back() = 0.0;
  if (!HasDevice()) return;
  d.devName = SelectedDeviceName();
  Daq().devProductType(d.devName, d.devProductType);
  ReadDeviceFacts();
}

/// The present measurement starts again with the first settings of the board. One with data keeps its
/// settings.
void GiveFirstSettings(int key) {
  MeasRecords records;
  if (GetInfoFromKey(key, records) == -1 || records.hwPos < 1) return;
  if (!HoldsData(key)) {
    records.hwSetup->nLines = 0;  // nothing is reset twice
    SetChannelCount(key, session.device.maxChannels);
    InitHWSetup(*records.hwSetup);
    RemoveData(key);
  }
  UpdateHWSetup(records.projID, records.measID);
  RefillChannelLists(records);
}

void TakeSelectedDevice() {
  ReadSelectedDevice();
  session.measOptions.nChannels = session.device.maxChannels;
  session.configDone = 0;
  GiveFirstSettings(GetKeyFromID(session.curProjID, session.curMeasID));
}

}  // namespace

std::string UseBoard(std::string_view choice) {
  std::string fault = ChooseBoard(choice);
  if (fault.empty() || (HasDevice() && &Daq() == &daqNone)) {
    SetupDevPanel();
    TakeSelectedDevice();
  }
  return fault;
}

int SetupBoardsCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) DisplayPanel(Panel::DEVPANEL);
  return 0;
}

int FindBoardsCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const std::string fault = UseBoard(GetCtrlVal(devpanel::DRIVER));
  return fault.empty() ? 0 : Refuse(fault);
}

int DeviceSetupOKCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  TakeSelectedDevice();
  HidePanel(Panel::DEVPANEL);
  return 0;
}

}  // namespace sondera
