// hwsetup_fields.cpp - see hwsetup_fields.h. Owns no state.
#include "panels/hwsetup_fields.h"

#include <cmath>
#include <type_traits>

#include "acquisition/first_settings.h"
#include "acquisition/hardware_settings.h"
#include "panels/hwsetup.h"
#include "panels/meassetup.h"
#include "panels/trace_selection.h"
#include "records/session.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"

namespace sondera {
namespace {

constexpr int kAllChannels = -1;

/// Stores the controls with `store`, on commit.
template <class Store>
int StoreField(Event event, Store store) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  store(*records.hwSetup);
  MarkChecked(false);
  return 0;
}

/// Changes the shape or the frequencies of a measurement: asks before it removes data, and restores the
/// control after a No. `wanted` false: nothing is changed.
template <class Change, class PutBack>
int ChangeShape(const MeasRecords& records, bool wanted, Change change, PutBack putBack) {
  MarkChecked(false);
  if (!wanted) return 0;
  const int key = records.hwSetup->key;
  if (!MayRemoveData(key)) {
    putBack();
    return -1;
  }
  change(key);
  return 0;
}

/// A shape too large for any record.
int RefuseShape() {
  return Refuse(kInappropriateParameters);
}

/// Stores a value in one channel's entry of an array, or in all.
template <class T>
int StoreOfChannel(Event event, std::vector<T> HWSetup::*array, T value, bool leavesChecked = false) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  HWSetup& hw = *records.hwSetup;
  const int channel = GetCtrlVal(hwsetup::NCHANNELS4);
  for (int c = 0; c < hw.nChannels; ++c)
    if (channel == kAllChannels || channel == c) (hw.*array)[static_cast<std::size_t>(c)] = value;
  FillInputChannelList(hw);
  if (!leavesChecked) MarkChecked(false);
  return 0;
}

bool Shows(const RingControl& list, const std::string& measID) {
  return GetLabelFromIndex(list, GetCtrlIndex(list)) == measID;
}

}  // namespace

MeasRecords CurrentSetup() {
  MeasRecords records;
  if (GetInfoFromKey(GetKeyFromID(session.curProjID, session.curMeasID), records) == -1 || records.hwPos < 1)
    Refuse("Software configuation for the hardware was not completed.");
  return records;
}

bool MayRemoveData(int key) {
  std::string projID, measID;
  if (!HoldsData(key) || !GetIDfromKey(key, projID, measID)) return true;
  return ConfirmPopup(session.appTitle,
                      "The data of [" + measID + "] will be removed. Do you want to proceed ?");
}

void RefillChannelLists(const MeasRecords& records) {
  const HWSetup& hw = *records.hwSetup;
  FillChannelRing(hwsetup::NCHANNELS2, hw.nChannels);
  FillChannelRing(hwsetup::NCHANNELS4, hw.nChannels, "All Channels");
  FillChannelRing(hwsetup::NCHANNELS5, hw.nChannels, "Free Run");
  SetCtrlVal(hwsetup::NCHANNELS2, hw.refChannel);
  SetCtrlVal(hwsetup::NCHANNELS5, hw.triggerChannel);
  DimTriggerControls(hw.triggerChannel < 0);
  FillInputChannelList(hw);
  FillChannelRing(meassetup::NCHANNELS3, hw.nChannels);
  if (records.measPos > 0) FillReceiverList(*records.measSetup);
  const std::string &proj = records.projID, &meas = records.measID;
  if (Shows(sasw::DISPAID, meas)) UpdateSASWwinASetup(proj, meas);
  if (Shows(sasw::DISPBID, meas)) UpdateSASWwinBSetup(proj, meas);
  if (Shows(measpanel::DISPAID, meas)) UpdateMEASwinASetup(proj, meas);
  if (Shows(measpanel::DISPBID, meas)) UpdateMEASwinBSetup(proj, meas);
}

// ---- shape ------------------------------------------------------------------------------------------------

int UpdateNChannelsCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  const HWSetup& hw = *records.hwSetup;
  const int channels = GetCtrlVal(hwsetup::NCHANNELS1);
  const auto putBack = [&] { SetCtrlVal(hwsetup::NCHANNELS1, hw.nChannels); };
  if (channels < 1 || !FitsRecord(hw.nLines, channels)) {
    putBack();
    return RefuseShape();
  }
  return ChangeShape(
      records, channels != hw.nChannels,
      [&](int key) {
        SetChannelCount(key, channels);
        RefillChannelLists(records);
      },
      putBack);
}

int UpdateRefChannelCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) { hw.refChannel = GetCtrlVal(hwsetup::NCHANNELS2); });
}

int UpdateFreqLinesCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  const HWSetup& hw = *records.hwSetup;
  const int lines = FreqLinesFromID(GetCtrlVal(hwsetup::FREQLINES));
  const auto putBack = [&] { SetCtrlIndex(hwsetup::FREQLINES, FreqLinesID(hw.nLines)); };
  if (lines < 1 || !FitsRecord(lines, hw.nChannels)) {
    putBack();
    return RefuseShape();
  }
  return ChangeShape(
      records, lines != hw.nLines, [&](int key) { SetLineCount(key, lines); }, putBack);
}

int UpdateFreqSpanCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  HWSetup& hw = *records.hwSetup;
  const double span = std::fabs(GetCtrlVal(hwsetup::FREQSPAN));
  const auto putBack = [&] { SetCtrlVal(hwsetup::FREQSPAN, std::fabs(hw.freqSpan)); };
  if (!std::isfinite(span)) {
    putBack();
    return RefuseShape();
  }
  return ChangeShape(
      records, span != std::fabs(hw.freqSpan),
      [&](int key) {
        if (HoldsData(key)) RemoveData(key);
        hw.freqSpan = span;
      },
      putBack);
}

// ---- inputs -----------------------------------------------------------------------------------------------

int UpdateInputChnlCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  ShowInputChannel(*records.hwSetup, GetCtrlVal(hwsetup::NCHANNELS4));
  return 0;
}

int UpdateInputChnlListCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) return -1;
  const int channel = GetCtrlIndex(hwsetup::INPUTCHNLLIST);
  if (channel < 0) return 0;
  SetCtrlVal(hwsetup::NCHANNELS4, channel);
  ShowInputChannel(*records.hwSetup, channel);
  return 0;
}

int UpdateACDCsettingCallback(Panel, ControlId, Event event, long) {
  return StoreOfChannel(event, &HWSetup::coupling, GetCtrlVal(hwsetup::ACDC));
}
int UpdateGFsettingCallback(Panel, ControlId, Event event, long) {
  return StoreOfChannel(event, &HWSetup::grounding, GetCtrlVal(hwsetup::GROUNDFLOAT), true);
}
int UpdateInputRangeCallback(Panel, ControlId, Event event, long) {
  return StoreOfChannel(event, &HWSetup::inputRange, GetCtrlVal(hwsetup::INPUTRANGE));
}
int InputChnlUpdateCallback(Panel panel, ControlId control, Event event, long data) {
  return UpdateInputRangeCallback(panel, control, event, data);
}

// ---- trigger, averages, preview ---------------------------------------------------------------------------

int UpdateTriggerChannelCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) {
    hw.triggerChannel = GetCtrlVal(hwsetup::NCHANNELS5);
    DimTriggerControls(hw.triggerChannel < 0);
  });
}
int UpdateTriggerSlopeCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) { hw.triggerSlope = GetCtrlVal(hwsetup::TRIGGERSLOPE); });
}
int UpdateTriggerLevelCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) { hw.triggerLevel = GetCtrlVal(hwsetup::TRIGGERLEVEL); });
}
int UpdateTriggerDelayCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) { hw.triggerDelay = GetCtrlVal(hwsetup::TRIGGERDELAY); });
}
int UpdateAverageOnOffCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) { hw.averageOn = GetCtrlVal(hwsetup::AVERAGEONOFF); });
}
int UpdateNoAverageCallback(Panel, ControlId, Event event, long) {
  return StoreField(event, [](HWSetup& hw) { hw.nAverage = GetCtrlVal(hwsetup::NAVERAGE); });
}

int PreviewOnoffCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  session.measOptions.previewOn = GetCtrlVal(hwsetup::PREVIEW_ONOFF);
  MarkChecked(false);
  return 0;
}

// ---- without effect ---------------------------------------------------------------------------------------

int UpdateVoltUnitCallback(Panel, ControlId, Event, long) {
  return 0;
}
int SetupDeltaXCallback(Panel, ControlId, Event, long) {
  return 0;
}
int SASWwriteCallback(Panel, ControlId, Event, long) {
  return 0;
}
int RetrieveDataCallback(Panel, ControlId, Event, long) {
  return 0;
}
int UpdateNewMeasIDCallback(Panel, ControlId, Event, long) {
  return 0;
}
int UpdateRecLocUnitCallback(Panel, ControlId, Event, long) {
  return 0;
}

}  // namespace sondera
