// import_record.cpp - see import_record.h. Owns no state.
#include "project/import_record.h"

#include <algorithm>

#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

// Settings of a measurement without a board.
constexpr double kInputRange = 5.0;            // V
constexpr std::size_t kChannelsWithRange = 2;  // Kept: other channels have the range 0
constexpr double kTriggerShare = 0.01;         // of the input range

void SetCommonFields(HWSetup& hw) {
  hw.refChannel = 0;
  std::fill(hw.coupling.begin(), hw.coupling.end(), 0);
  std::fill(hw.grounding.begin(), hw.grounding.end(), 1);
  std::fill(hw.inputRange.begin(), hw.inputRange.end(), 0.0);
  std::fill_n(hw.inputRange.begin(), std::min(hw.inputRange.size(), kChannelsWithRange), kInputRange);
  hw.reservedReal = 1.0;
  hw.triggerChannel = 0;
  hw.triggerSlope = 1;
  hw.triggerDelay = 10.0;
  hw.triggerLevel = kInputRange * kTriggerShare;
  hw.averageOn = 1;
  hw.nAverage = 5;
}

/// Geometry and arrays, after nLines and nChannels are set.
void MakeRest(const ImportRequest& request, ImportRecords& records) {
  records.meas = SetupMSetupArrays(records.key);
  records.meas->lengthUnit = request.lengthUnit;
  records.meas->srcLoc = request.locations.empty() ? 0.0 : request.locations.front();
  for (std::size_t c = 0; c < records.meas->recLoc.size() && c + 1 < request.locations.size(); ++c)
    records.meas->recLoc[c] = request.locations[c + 1];
  records.raw = SetupRawDataArrays(records.key);
}

template <class T>
void ResetInPlace(RecordList<T>& list, int key) {
  const int pos = list.findKey(key);
  if (pos > 0) *list.at(pos) = T{};
  if (pos > 0) list.at(pos)->key = key;
}

}  // namespace

const std::string& FileInRow(const ImportRequest& request, int row) {
  static const std::string none;
  return row >= 0 && row < static_cast<int>(request.files.size())
             ? request.files[static_cast<std::size_t>(row)]
             : none;
}

bool OpenRow(const ImportRequest& request, int row, TextReader& text, std::string& reason) {
  const std::string& name = FileInRow(request, row);
  if (name.empty()) reason = FormatText("Row %d has no file name.", row + 1);
  return !name.empty() && request.open(name, text, reason);
}

std::string import_text::CannotRead(const std::string& cause) {
  return std::string(kCannotRead) + "\n" + cause;
}

std::string import_text::CannotRead(const std::string& path, const TextFault& fault) {
  const std::string where =
      fault.line > 0 ? path + FormatText(", line %lld", static_cast<long long>(fault.line)) : path;
  return CannotRead(where + ": " + fault.cause);
}

bool BeginImport(const ImportRequest& request, IfPresent ifPresent, ImportRecords& records) {
  session.curProjID = request.projID;
  records.key = GetKeyFromID(session.curProjID, request.measID);
  records.existed = records.key != -1;
  if (!records.existed) {
    records.key = InsertNewIDInfo(session.curProjID, request.measID);
    return true;
  }
  return ifPresent == IfPresent::Overwrite || (request.mayOverwrite && request.mayOverwrite());
}

void MakeSpectrumRecords(const ImportRequest& request, const SpectrumLayout& layout, ImportRecords& records) {
  HWSetup& hw = *(records.hw = SetupHWSetupArrays(records.key, request.nChannels));
  SetCommonFields(hw);
  hw.decimation = 1;
  hw.nLines = layout.nLines;
  hw.freqSpan = layout.freqSpan;
  hw.startFreq = layout.startFreq;
  hw.stopFreq = layout.stopFreq;
  hw.spanKind = layout.spanKind;
  hw.deltaT = layout.deltaT;
  hw.timeLength = layout.timeLength;
  hw.deltaF = layout.deltaF;
  MakeRest(request, records);
}

void MakeTimeRecords(const ImportRequest& request, const TimeLayout& layout, ImportRecords& records) {
  ResetInPlace(MeasDB.hwSetupList, records.key);
  ResetInPlace(MeasDB.measSetupList, records.key);
  ResetInPlace(MeasDB.rawDataList, records.key);
  HWSetup& hw = *(records.hw = SetupHWSetupArrays(records.key, request.nChannels));
  SetCommonFields(hw);
  hw.decimation = 0;  // Kept: unlike other imports; code that selects samples by it counts 0 as 1
  hw.nLines = layout.samples / 2;
  hw.freqSpan = layout.freqSpan;
  hw.startFreq = 0.0;
  hw.stopFreq = layout.freqSpan;
  hw.spanKind = 0;
  hw.deltaT = layout.deltaT;
  hw.timeLength = layout.timeLength;
  hw.deltaF = layout.deltaF;
  hw.triggerDelay = layout.triggerDelay;
  MakeRest(request, records);
}

void CompletePairs(const ImportRequest& request, const ImportRecords& records) {
  if (!records.existed) return;
  for (int i = MeasDB.pMeasList.count(); i >= 1; --i) {
    const PMeasInfo& pair = *MeasDB.pMeasList.at(i);
    if (pair.key == records.key && std::max(pair.refChan, pair.dspChan) >= request.nChannels)
      MeasDB.pMeasList.remove(i);
  }
  UpdatePairMeasArrays(records.key, records.hw->nLines);
}

}  // namespace sondera
