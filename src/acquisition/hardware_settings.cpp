// hardware_settings.cpp - see hardware_settings.h. Owns no state.
#include "acquisition/hardware_settings.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "acquisition/board_task.h"
#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kRangesLookedAt = 100;
constexpr std::string_view kFourChannelBoards = "USB-4432";

struct Found {
  HWSetup* hw = nullptr;
  MeasSetup* places = nullptr;
  RawData* raw = nullptr;
};
Found FindRecords(int key) {
  MeasRecords records;
  if (GetInfoFromKey(key, records) == -1) return {};
  return {records.hwPos > 0 ? records.hwSetup : nullptr, records.measPos > 0 ? records.measSetup : nullptr,
          records.rawPos > 0 ? records.rawData : nullptr};
}

std::size_t BlockLength(const HWSetup& hw) {
  return 2 * static_cast<std::size_t>(FullTimeLines(hw.nLines)) * static_cast<std::size_t>(hw.nChannels);
}

/// New entries copy the last one.
template <class T>
void Lengthen(std::vector<T>& values, int n, T first) {
  const T last = values.empty() ? first : values.back();
  values.resize(static_cast<std::size_t>(n), last);
}

void RemovePairsBeyond(int key, int channels) {
  for (int pos = MeasDB.pMeasList.count(); pos >= 1; --pos) {
    const PMeasInfo& pair = *MeasDB.pMeasList.at(pos);
    if (pair.key == key && std::max(pair.refChan, pair.dspChan) >= channels) MeasDB.pMeasList.remove(pos);
  }
}

bool PairsFit(int key, int lines) {
  const int capacity = FullTimeLines(lines);
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.key == key && pair.capacity() != capacity) return false;
  return true;
}

}  // namespace

bool HasBoard() {
  return !session.device.devName.empty();
}

bool HasFourFixedChannels() {
  return session.device.devProductType.starts_with(kFourChannelBoards);
}

BoardPlan PlanOf(const HWSetup& hw) {
  const DeviceFacts& d = session.device;
  BoardPlan plan;
  plan.device = CutDeviceName(d.devName);
  plan.category = d.devCategory;
  plan.inputs = d.aiPhysicalChans;
  plan.minRate = d.aiMinRate;
  plan.maxRate = d.aiMaxRate;
  plan.channels = hw.nChannels;
  plan.lines = hw.nLines;
  plan.span = hw.freqSpan;
  plan.decimation = KeptDecimation(std::fabs(hw.freqSpan), hw.deltaT, hw.decimation);
  plan.coupling = hw.coupling;
  plan.inputRange = hw.inputRange;
  plan.sensorType = hw.sensorType;
  plan.trigger = hw.triggerChannel;
  plan.delay = hw.triggerDelay;
  plan.level = hw.triggerLevel;
  return plan;
}

int DetermineDAQParam(const BoardPlan& plan, BoardGrant& grant, std::string& reason) {
  reason.clear();
  for (int c = 0; c < plan.channels; ++c)
    if (static_cast<std::size_t>(c) < plan.inputRange.size() &&
        !(plan.inputRange[static_cast<std::size_t>(c)] > 0.0)) {
      reason = FormatText("Channel %d has no input range.", c + 1);
      return -1;
    }
  if (HasBoard()) {
    if (plan.trigger >= 0 && !session.device.aiTriggerSupported) {
      reason = "This board has no trigger.";
      return -1;
    }
    return TryPlan(plan, grant, reason) ? 0 : -1;
  }
  BoardSampling sampling;
  if (plan.channels < 1 || !PlanSampling(plan, sampling)) return -1;
  grant = GrantOf(plan, sampling, sampling.rate, plan.channels);
  return 0;
}

void TakeGrant(HWSetup& hw, const BoardGrant& grant) {
  hw.freqSpan = grant.span;
  hw.deltaT = grant.deltaT;
  hw.timeLength = grant.timeLength;
  hw.deltaF = grant.deltaF;
  hw.decimation = grant.decimation;
}

double AcceptedRange(double range) {
  const auto& limits = session.device.aiVoltageRngs;
  const bool accepted = std::any_of(limits.begin(), limits.begin() + kRangesLookedAt,
                                    [range](double limit) { return limit >= range; });
  return accepted ? range : 0.0;
}

bool HoldsData(const RawData& raw) {
  return std::any_of(kRawBlocks.begin(), kRawBlocks.end(), [&raw](auto block) {
    const std::vector<double>& values = raw.*block;
    return std::any_of(values.begin(), values.end(), [](double x) { return x != 0.0; });
  });
}
bool HoldsData(int key) {
  const Found found = FindRecords(key);
  return found.raw && HoldsData(*found.raw);
}

bool FitsRecord(int lines, int channels, int decimation) {
  const std::int64_t samples =
      std::int64_t{2} * FullTimeLines(lines) * std::max(decimation, 1);  // below 2^62
  return samples <= kMostRecordSamples / std::max(channels, 1);
}

void RemoveData(int key) {
  const Found found = FindRecords(key);
  if (!found.hw) return;
  found.hw->freqSpan = std::fabs(found.hw->freqSpan);
  SetupRawDataArrays(key);
  RemovePairsBeyond(key, found.hw->nChannels);
  UpdatePairMeasArrays(key, found.hw->nLines);
}

void SetChannelCount(int key, int channels) {
  const Found found = FindRecords(key);
  if (!found.hw || channels < 1) return;
  HWSetup& hw = *found.hw;
  Lengthen(hw.coupling, channels, 0);
  Lengthen(hw.grounding, channels, 1);
  Lengthen(hw.inputRange, channels, 0.0);
  if (found.places) found.places->recLoc.resize(static_cast<std::size_t>(channels), 0.0);
  hw.nChannels = channels;
  if (hw.refChannel >= channels) hw.refChannel = 0;
  if (hw.triggerChannel >= channels) hw.triggerChannel = -1;
  session.curChannels = channels;
  RemoveData(key);
}

void SetLineCount(int key, int lines) {
  const Found found = FindRecords(key);
  if (!found.hw || lines < 1) return;
  found.hw->nLines = lines;
  RemoveData(key);
}

void FitSizes(int key) {
  const Found found = FindRecords(key);
  if (!found.hw || !found.raw) return;
  HWSetup& hw = *found.hw;
  hw.nLines = FullTimeLines(hw.nLines);
  const std::size_t length = BlockLength(hw);
  const bool blocksFit = std::all_of(kRawBlocks.begin(), kRawBlocks.end(),
                                     [&](auto block) { return ((*found.raw).*block).size() == length; });
  if (!blocksFit || !PairsFit(key, hw.nLines)) RemoveData(key);
  session.samplesPerChan = 2 * hw.nLines * std::max(hw.decimation, 1);
  const std::size_t wanted =
      static_cast<std::size_t>(session.samplesPerChan) * static_cast<std::size_t>(hw.nChannels);
  if (session.measBuffer.size() == wanted) return;
  std::vector<double>().swap(session.measBuffer);  // the former one is released first
  session.measBuffer.resize(wanted);
}

}  // namespace sondera
