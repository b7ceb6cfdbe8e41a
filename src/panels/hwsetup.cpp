// hwsetup.cpp - see hwsetup.h. Owns no state.
#include "panels/hwsetup.h"

#include <algorithm>
#include <cmath>

#include "acquisition/first_settings.h"
#include "records/session.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/dialogs.h"
#include "runtime/files.h"

namespace sondera {
namespace {

constexpr double kInputRangeShown = 5.0;  // V
constexpr std::string_view kSetupTitle = "Hardware and Measurement Setup";

/// Asks the board for its limits; without a board the session keeps its own.
void RefreshDeviceFacts() {
  if (GetNumListItems(devpanel::DEVICEID) > 0) ReadBoardLimits();
}

void FillHardwareLists(int channels) {
  using namespace hwsetup;
  ClearListCtrl(NCHANNELS1);
  for (int c = 1; c <= std::max(session.device.maxChannels, channels); ++c)
    InsertListItem(NCHANNELS1, -1, FormatText("%3d", c), c);
  FillChannelRing(NCHANNELS2, channels);
  FillChannelRing(NCHANNELS4, channels, "All Channels");
  FillChannelRing(NCHANNELS5, channels, "Free Run");
  ClearListCtrl(INPUTRANGE);
  const int pairs = ScanRanges().pairs;
  double last = 0.0;
  for (int p = 0; p < pairs; ++p) {
    const double high = session.device.aiVoltageRngs[static_cast<std::size_t>(2 * p + 1)];
    if (p > 0 && high == last) continue;  // without a board all entries are the same
    InsertListItem(INPUTRANGE, -1, FormatText("%lg", high), high);
    last = high;
  }
  SetCtrlVal(INPUTRANGE, kInputRangeShown);
}

}  // namespace

void DimTriggerControls(bool freeRun) {
  SetDimmed(hwsetup::TRIGGERDELAY, freeRun);
  SetDimmed(hwsetup::TRIGGERLEVEL, freeRun);
  SetDimmed(hwsetup::TRIGGERSLOPE, freeRun);
}

void MarkChecked(bool checked) {
  session.configDone = checked ? 1 : 0;
  SetPanelTitle(Panel::HMSETUP, std::string(kSetupTitle) + (checked ? "" : " - not checked yet"));
}

void FillChannelRing(const RingControl& ring, int channels, std::string_view first) {
  const int value = GetCtrlVal(ring);
  ClearListCtrl(ring);
  if (!first.empty()) InsertListItem(ring, -1, first, -1);
  for (int c = 0; c < channels; ++c) InsertListItem(ring, -1, FormatText("%3d", c + 1), c);
  SetCtrlVal(ring, value);
}

void InitHWSetup(HWSetup& hw) {
  RefreshDeviceFacts();
  FirstHWSetup(hw);
  FillHardwareLists(hw.nChannels);
  DimTriggerControls(true);
}

std::string InputChannelText(int channel, const HWSetup& hw) {
  const std::size_t c = static_cast<std::size_t>(channel);
  const char* coupling = hw.coupling[c] == 0 ? "AC" : "DC";
  const char* terminal = hw.grounding[c] == 1 ? "F" : "G";
  const double range = hw.inputRange[c];
  return range < 1.0
             ? FormatText("Ch%3d: %s, %s, %.2lf mVolts", channel + 1, coupling, terminal, range * 1000.0)
             : FormatText("Ch%3d: %s, %s, %.2lf Volts", channel + 1, coupling, terminal, range);
}

void FillInputChannelList(const HWSetup& hw) {
  ClearListCtrl(hwsetup::INPUTCHNLLIST);
  for (int c = 0; c < hw.nChannels; ++c)
    InsertListItem(hwsetup::INPUTCHNLLIST, -1, InputChannelText(c, hw), c);
}

void ShowInputChannel(const HWSetup& hw, int channel) {
  if (channel < 0 || channel >= hw.nChannels) return;
  const std::size_t c = static_cast<std::size_t>(channel);
  SetCtrlVal(hwsetup::ACDC, hw.coupling[c]);
  SetCtrlVal(hwsetup::GROUNDFLOAT, hw.grounding[c]);
  SetCtrlVal(hwsetup::INPUTRANGE, hw.inputRange[c]);
}

void UpdateHWSetup(const std::string& projID, const std::string& measID) {
  MeasRecords records;
  if (GetInfoFromKey(GetKeyFromID(projID, measID), records) == -1 || records.hwPos < 0) return;
  const HWSetup& hw = *records.hwSetup;
  using namespace hwsetup;
  session.curChannels = hw.nChannels;
  FillHardwareLists(hw.nChannels);
  SetCtrlVal(NCHANNELS1, hw.nChannels);
  SetCtrlVal(NCHANNELS2, hw.refChannel);
  SetCtrlIndex(FREQLINES, FreqLinesID(hw.nLines));
  SetCtrlVal(FREQSPAN, std::fabs(hw.freqSpan));
  SetCtrlVal(SENSORTYPE, hw.sensorType);
  SetCtrlVal(NCHANNELS4, 0);
  ShowInputChannel(hw, 0);
  FillInputChannelList(hw);
  SetCtrlVal(NCHANNELS5, hw.triggerChannel);
  SetCtrlVal(TRIGGERSLOPE, hw.triggerSlope);
  SetCtrlVal(TRIGGERLEVEL, hw.triggerLevel);
  SetCtrlVal(TRIGGERDELAY, hw.triggerDelay);
  DimTriggerControls(hw.triggerChannel < 0);
  SetCtrlVal(AVERAGEONOFF, hw.averageOn);
  SetCtrlVal(NAVERAGE, hw.nAverage);
  SetCtrlVal(PREVIEW_ONOFF, session.measOptions.previewOn);
}

}  // namespace sondera
