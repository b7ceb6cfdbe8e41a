// hwsetup.cpp - first values of a measurement's records, and the set-up dialogs filled from them. Owns no
// state.
#include "panels/hwsetup.h"

#include <algorithm>
#include <cmath>

#include "acquisition/daq_driver.h"
#include "panels/trace_selection.h"
#include "records/session.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/files.h"

namespace sondera {
namespace {

constexpr int kRangesScanned = 100;
constexpr double kWorkingSpan = 52100.0;  // Hz; working value of a session whose board sets no span
constexpr double kInputRangeShown = 5.0;  // V
constexpr int kFirstLines = 512;

constexpr int kLinesTable[] = {512, 1024, 2048, 4096, 8192, 16384, 32768, 65536, 131072, 262144, 524288};
constexpr int kLinesOverflowIndex = 2;  // Kept: more lines than the table has select its third entry

/// Largest of the board's ranges, and how many pairs of limits there are.
struct BoardRanges {
  double largest = 0.0;
  int pairs = 0;
};
BoardRanges ScanRanges() {
  BoardRanges ranges;
  const auto& limits = session.device.aiVoltageRngs;
  int i = 0;
  for (; i < kRangesScanned && limits[static_cast<std::size_t>(i)] != 0.0; ++i)
    ranges.largest = std::max(ranges.largest, limits[static_cast<std::size_t>(i)]);
  ranges.pairs = i / 2;
  return ranges;
}

void RefreshDeviceFacts() {
  if (GetNumListItems(devpanel::DEVICEID) == 0) return;
  DeviceFacts& d = session.device;
  const DaqDriver& daq = Daq();
  daq.devAIMaxSingleChanRate(d.devName, d.aiMaxRate);
  daq.devProductCategory(d.devName, d.devCategory);
  ReadVoltageRanges();
}

/// Channel ring with labels from 1 and values from 0, behind an optional first item with the value -1.
void FillChannelRing(const RingControl& ring, int channels, std::string_view first = {}) {
  const int value = GetCtrlVal(ring);
  ClearListCtrl(ring);
  if (!first.empty()) InsertListItem(ring, -1, first, -1);
  for (int c = 0; c < channels; ++c) InsertListItem(ring, -1, FormatText("%3d", c + 1), c);
  SetCtrlVal(ring, value);
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

void DimTriggerControls(bool freeRun) {
  SetDimmed(hwsetup::TRIGGERDELAY, freeRun);
  SetDimmed(hwsetup::TRIGGERLEVEL, freeRun);
  SetDimmed(hwsetup::TRIGGERSLOPE, freeRun);
}

}  // namespace

void ReadVoltageRanges() {
  DeviceFacts& d = session.device;
  std::vector<double> limits;
  if (Daq().devAIVoltageRngs(d.devName, limits) < 0) return;
  limits.resize(
      std::min(limits.size(), d.aiVoltageRngs.size() - 1));  // the last entry stays 0 and ends the table
  d.aiVoltageRngs.fill(0.0);
  std::copy(limits.begin(), limits.end(), d.aiVoltageRngs.begin());
}

int FreqLinesID(int lines) {
  for (std::size_t i = 0; i < std::size(kLinesTable); ++i)
    if (kLinesTable[i] >= lines) return static_cast<int>(i);
  return kLinesOverflowIndex;
}

int FreqLinesFromID(int index) {
  return index >= 0 && index < static_cast<int>(std::size(kLinesTable)) ? kLinesTable[index] : 0;
}

int VoltRangeID(double range) {
  constexpr double kLimits[] = {0.01, 0.0316, 0.1, 0.316, 1.0, 3.16};
  for (int i = 0; i < 6; ++i)
    if (range <= kLimits[i]) return 6 - i;
  return 0;
}

void InitHWSetup(HWSetup& hw) {
  RefreshDeviceFacts();
  const bool differential = daq_category::IsDifferential(session.device.devCategory);
  std::fill(hw.coupling.begin(), hw.coupling.end(), differential ? 1 : 0);
  std::fill(hw.grounding.begin(), hw.grounding.end(), differential ? 0 : 1);
  std::fill(hw.inputRange.begin(), hw.inputRange.end(), ScanRanges().largest);

  session.curChannels = hw.nChannels;
  double span = kWorkingSpan;
  hw.freqSpan = 0.0;  // stays 0 where no board says more
  if (differential) hw.freqSpan = span = session.device.aiMaxRate * 0.5 / std::max(hw.nChannels, 1);
  if (session.device.devCategory == daq_category::kDynamicSignal)
    hw.freqSpan = span = session.device.aiMaxRate * 0.5;

  hw.nLines = kFirstLines;
  hw.deltaT = 0.5 / span;
  hw.timeLength = hw.deltaT * (2.0 * FullTimeLines(MeasDB.nLinesDefault) - 1.0);
  hw.deltaF = 2.0 * span / (2.0 * MeasDB.nLinesDefault);
  hw.triggerChannel = -1;
  hw.triggerSlope = 1;
  hw.triggerDelay = 10.0;
  hw.triggerLevel = 10.0;
  hw.averageOn = 1;
  hw.nAverage = 5;
  hw.refChannel = 0;

  FillHardwareLists(hw.nChannels);
  DimTriggerControls(true);
}

void InitMeasSetup(MeasSetup& ms) {
  MeasRecords records;
  if (GetInfoFromKey(ms.key, records) == -1 || records.hwPos < 0) {
    MessagePopup(session.appTitle, "Software configuation for the hardware was not completed.");
    return;
  }
  ms.srcLoc = 0.0;
  std::fill(ms.recLoc.begin(), ms.recLoc.end(), 0.0);
  ms.lengthUnit = 1.0;
  FillChannelRing(meassetup::NCHANNELS3, records.hwSetup->nChannels);
}

void InitRawData(RawData& raw) {
  if (MeasDB.rawDataList.findKey(raw.key) < 0)
    MessagePopup(session.appTitle, "Software configuation for the hardware was not completed.");
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
}

void UpdateMeasSetup(const std::string& projID, const std::string& measID, int which) {
  MeasRecords records;
  if (GetInfoFromKey(GetKeyFromID(projID, measID), records) == -1 || records.measPos < 0 || records.hwPos < 0)
    return;
  const MeasSetup& ms = *records.measSetup;
  using namespace meassetup;

  session.curProjID = projID;
  session.curMeasID = measID;
  SetCtrlVal(hmsetup::PROJID, projID);
  SetCtrlVal(hmsetup::MEASID, measID);
  SetCtrlVal(SRCLOC, ms.srcLoc);
  FillChannelRing(NCHANNELS3, records.hwSetup->nChannels);
  FillReceiverList(ms);
  SetCtrlVal(CHNLLOC, ms.recLoc.empty() ? 0.0 : ms.recLoc[0]);
  SetCtrlVal(LENGTHUNIT, ms.lengthUnit);
  session.lengthUnit = ms.lengthUnit;

  FillMeasIDListBox(Panel::SASW, projID);
  FillMeasIDListBox(Panel::MEASPANEL, projID);
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, FindListItem(hmsetup::MEASIDLISTBOX, measID));
  if (which != 1) {
    UpdateSASWwinASetup(projID, measID);
    UpdateMEASwinASetup(projID, measID);
  }
  if (which != 0) {
    UpdateSASWwinBSetup(projID, measID);
    UpdateMEASwinBSetup(projID, measID);
  }
}

void FillReceiverList(const MeasSetup& ms) {
  ClearListCtrl(meassetup::RECLOCLIST);
  for (std::size_t c = 0; c < ms.recLoc.size(); ++c)
    InsertListItem(meassetup::RECLOCLIST, -1, FormatText("Ch%3d: %lg", static_cast<int>(c) + 1, ms.recLoc[c]),
                   static_cast<double>(c));
}

}  // namespace sondera
