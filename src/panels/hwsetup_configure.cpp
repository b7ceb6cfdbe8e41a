// hwsetup_configure.cpp - see hwsetup_configure.h. Owns no state.
#include "panels/hwsetup_configure.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>

#include "acquisition/acquisition_state.h"
#include "acquisition/daq_driver.h"
#include "acquisition/first_settings.h"
#include "acquisition/hardware_settings.h"
#include "panels/hwsetup.h"
#include "panels/hwsetup_fields.h"
#include "panels/meassetup.h"
#include "records/kinds.h"
#include "records/session.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"

namespace sondera {
namespace {

constexpr int kAllChannels = -1, kFreeRun = -1, kFixedChannels = 4;

/// The settings in the dialog.
struct AskedSetup {
  int channels = 0, lines = 0, sensorType = 0, trigger = kFreeRun;
  double span = 0.0;
  bool forAll = false;  // the displayed coupling, grounding and range are for every channel
};

AskedSetup AskedSettings() {
  using namespace hwsetup;
  AskedSetup asked;
  asked.channels = HasFourFixedChannels() ? kFixedChannels : GetCtrlVal(NCHANNELS1);
  asked.lines = FreqLinesFromID(GetCtrlVal(FREQLINES));
  asked.span = GetCtrlVal(FREQSPAN);
  asked.sensorType = GetCtrlVal(SENSORTYPE);
  asked.forAll = GetCtrlVal(NCHANNELS4) == kAllChannels;
  asked.trigger = GetCtrlVal(NCHANNELS5);
  if (asked.trigger >= asked.channels) asked.trigger = kFreeRun;
  return asked;
}

/// E and M series boards couple directly, and trigger on the first channel, with several channels not at all.
void FollowBoardSeries(AskedSetup& asked) {
  using namespace hwsetup;
  const bool series = daq_category::IsDifferential(session.device.devCategory);
  const bool several = asked.channels > 1;
  if (series) {
    SetCtrlVal(ACDC, 1);
    if (asked.trigger >= 0) asked.trigger = several ? kFreeRun : 0;
    SetCtrlVal(NCHANNELS5, asked.trigger);
  }
  SetDimmed(ACDC, series);
  SetDimmed(NCHANNELS5, series && several);
  DimTriggerControls(asked.trigger < 0 || (series && several));
}

/// The measurement with the displayed settings.
HWSetup SetupAsked(const HWSetup& present, const AskedSetup& asked) {
  HWSetup hw = present;
  const auto n = static_cast<std::size_t>(std::max(asked.channels, 0));
  const auto lengthen = [n](auto& values, auto first) {
    values.resize(n, values.empty() ? first : values.back());
  };
  lengthen(hw.coupling, 0);
  lengthen(hw.grounding, 1);
  lengthen(hw.inputRange, 0.0);
  hw.nChannels = asked.channels;
  hw.nLines = asked.lines;
  hw.freqSpan = asked.span;
  hw.sensorType = asked.sensorType;
  hw.triggerChannel = asked.trigger;
  hw.triggerDelay = GetCtrlVal(hwsetup::TRIGGERDELAY);
  hw.triggerLevel = GetCtrlVal(hwsetup::TRIGGERLEVEL);
  if (!asked.forAll) {
    for (double& range : hw.inputRange) range = AcceptedRange(range);
    return hw;
  }
  std::fill(hw.coupling.begin(), hw.coupling.end(), GetCtrlVal(hwsetup::ACDC));
  std::fill(hw.grounding.begin(), hw.grounding.end(), GetCtrlVal(hwsetup::GROUNDFLOAT));
  std::fill(hw.inputRange.begin(), hw.inputRange.end(), AcceptedRange(GetCtrlVal(hwsetup::INPUTRANGE)));
  return hw;
}

/// Stores the checked settings in the record, with fresh zero data; with "All Channels" from the second
/// channel on.
void CommitSetup(HWSetup& hw, const AskedSetup& asked, const HWSetup& checked, const BoardGrant& grant) {
  hw.nLines = asked.lines;
  SetChannelCount(hw.key, asked.channels);
  if (asked.forAll)
    for (std::size_t c = 1; c < static_cast<std::size_t>(hw.nChannels); ++c) {
      hw.coupling[c] = checked.coupling[c];
      hw.grounding[c] = checked.grounding[c];
      hw.inputRange[c] = checked.inputRange[c];
    }
  hw.sensorType = asked.sensorType;
  const int reference = GetCtrlVal(hwsetup::NCHANNELS2);
  hw.refChannel = reference < hw.nChannels ? reference : 0;
  TakeGrant(hw, grant);
  hw.triggerChannel = asked.trigger;
  hw.triggerSlope = GetCtrlVal(hwsetup::TRIGGERSLOPE);
  hw.triggerDelay = GetCtrlVal(hwsetup::TRIGGERDELAY);
  hw.triggerLevel = GetCtrlVal(hwsetup::TRIGGERLEVEL);
  hw.averageOn = GetCtrlVal(hwsetup::AVERAGEONOFF);
  hw.nAverage = GetCtrlVal(hwsetup::NAVERAGE);
  FitSizes(hw.key);
}

/// Settings whose arrays do not fit in memory are not stored.
void CommitOrRestore(const MeasRecords& records, const AskedSetup& asked, const HWSetup& checked,
                     const BoardGrant& grant) {
  const HWSetup before = *records.hwSetup;
  try {
    CommitSetup(*records.hwSetup, asked, checked, grant);
  } catch (const std::bad_alloc&) {
    *records.hwSetup = before;
    records.measSetup->recLoc.resize(static_cast<std::size_t>(before.nChannels), 0.0);
    throw;
  }
}

int RefuseSetup(const HWSetup& hw, const std::string& reason) {
  SetWaitCursor(false);
  SetCtrlVal(hwsetup::NCHANNELS5, hw.triggerChannel);
  DimTriggerControls(hw.triggerChannel < 0);
  return Refuse(kInappropriateParameters + (reason.empty() ? "" : "\n" + reason));
}

int Configure() {
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1 || records.measPos < 1) return -1;
  HWSetup& hw = *records.hwSetup;
  SetWaitCursor(true);
  AskedSetup asked = AskedSettings();
  FollowBoardSeries(asked);
  const HWSetup wanted = SetupAsked(hw, asked);
  BoardGrant grant;
  std::string reason;
  const BoardPlan plan = PlanOf(wanted);
  if (DetermineDAQParam(plan, grant, reason) != 0) return RefuseSetup(hw, reason);
  if (!MayRemoveData(hw.key)) {
    SetWaitCursor(false);
    return -1;
  }
  CommitOrRestore(records, asked, wanted, grant);
  UpdateHWSetup(session.curProjID, session.curMeasID);
  UpdateMeasSetup(session.curProjID, session.curMeasID, 2);
  MarkChecked(true);
  UpdateHWSetupCallback(Panel::HWSETUP, &hwsetup::COFIG_SETUP, Event::Commit, 0);
  SetWaitCursor(false);
  return 0;
}

void SetTimeWindow(const GraphControl& graph, const RingControl& type, const HWSetup& hw) {
  if (!GraphOf(graph).plots.empty() && !IsOverTime(static_cast<DisplayType>(GetCtrlVal(type)))) return;
  const double samples = 2.0 * FullTimeLines(hw.nLines);
  const double before = std::floor(samples * hw.triggerDelay * 0.01 + 0.5);
  SetAxisRange(graph, true, -before * hw.deltaT, (samples - before) * hw.deltaT);
  SetAxisRange(graph, false, -hw.inputRange[0], hw.inputRange[0]);
}

}  // namespace

int ConfigSetupCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (measRun.measRunning) return Refuse("Measurement is running...");
  return Configure();
}

int UpdateHWSetupCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1 || records.hwSetup->inputRange.empty()) return -1;
  SetTimeWindow(measpanel::DISPLAY_A, measpanel::DISPATYPE, *records.hwSetup);
  SetTimeWindow(measpanel::DISPLAY_B, measpanel::DISPBTYPE, *records.hwSetup);
  return 0;
}

}  // namespace sondera
