// setup_section.cpp - see setup_section.h.
#include "project/setup_section.h"

#include <algorithm>
#include <string_view>

#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

constexpr std::string_view kBars = "||||";
constexpr std::size_t kTextBytes = kLongestFileText;
constexpr std::size_t kProjectBytes = 247;  // of a ProjID in its field: bars and number must fit after it
constexpr int kChannelsOfABadCount = 8;
constexpr int kMostPrompts = 10;  // new names asked for in a row

/// The ProjID as it is in the file.
std::string ProjectField(const std::string& projID, int decimation) {
  const std::string tail = std::string(kBars) + FormatText("%4d", decimation);
  return projID.substr(0, std::min(kProjectBytes, kTextBytes - tail.size())) + tail;
}

/// Cuts a ProjID field at its bars and returns the decimation after them; 1 for a field without them.
int TakeDecimation(std::string& field) {
  for (std::size_t p = 0; p + kBars.size() < field.size(); ++p) {
    if (field.compare(p, kBars.size(), kBars) != 0) continue;
    std::size_t used = 0;
    const int decimation = ParseInt(std::string_view(field).substr(p + kBars.size()), &used);
    field.resize(p);
    return used > 0 ? decimation : 1;
  }
  return 1;
}

/// Hardware record of the item at a position of idList. The two lists have the same order; a record in
/// another place is found by its key.
const HWSetup* HardwareOf(int position) {
  const int key = MeasDB.idList.at(position)->key;
  const HWSetup* beside = MeasDB.hwSetupList.at(position);
  if (beside && beside->key == key) return beside;
  const HWSetup* own = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
  return own ? own : beside;
}

/// Puts a record from the file in its place in the list; data that are not in the file stay.
void TakeHardware(int key, HWSetup&& hw) {
  HWSetup* record = SetupHWSetupArrays(key, hw.nChannels);
  hw.key = key;
  hw.refChannel = record->refChannel < hw.nChannels ? record->refChannel : 0;
  hw.sensorType = record->sensorType;
  BringBandLimitsUpToDate(hw);
  *record = std::move(hw);
}

/// Part A. Returns the first key in *firstKey; -1 when the person cancelled.
int ReadHWSetups(SectionReader& file, const LoadQuestions& questions, int* firstKey) {
  const int count = file.Count("measurements", kMostMeasurements);
  for (int i = 1; i <= count && !file.Ended(); ++i) {
    const int fileKey = file.Int32();
    std::string projID = file.Text();
    const int decimation = TakeDecimation(projID);
    const std::string measID = file.Text();
    if (file.Ended()) break;  // without its names it is not a measurement

    HWSetup hw;
    file.Int32();  // the key once more
    ReadHWSetupFields(file, hw, true, true);
    hw.decimation = decimation;
    if (file.GivenUp()) break;

    session.curProjID = projID;
    session.curMeasID = measID;
    const int key = ClaimFileKey(file, questions, fileKey, projID, measID);
    if (key == -1) return -1;
    if (i == 1) *firstKey = key;
    session.fileKeyList.push_back(key);
    TakeHardware(key, std::move(hw));
  }
  return 0;
}

}  // namespace

int StoredChannels(const HWSetup* hw) {
  return hw ? std::clamp(hw->nChannels, 1, kMostChannels) : 1;
}

int ClaimFileKey(SectionReader& file, const LoadQuestions& questions, int fileKey, const std::string& projID,
                 std::string measID) {
  for (int tries = 0;; ++tries) {
    const int present = GetKeyFromID(projID, measID);
    if (present == -1) break;
    if (questions.mayOverwrite && questions.mayOverwrite()) return present;
    const auto newID = tries < kMostPrompts && questions.newMeasID ? questions.newMeasID() : std::nullopt;
    if (!newID) {
      file.Abandon("Its reading was given up at the measurement " + measID +
                   ", which is in the list already.");
      return -1;
    }
    measID = newID->substr(0, kTextBytes);
    fileKey = 0;
  }
  // One key for two measurements would mix their data, and -1 means none: such a measurement gets a free key.
  if (fileKey == -1 || MeasDB.idList.findKey(fileKey) > 0) {
    file.Note("It gives the measurement " + measID + " a key that is taken; its analysis may be missing.");
    fileKey = 0;
  }
  return InsertNewIDInfo(projID, measID, fileKey);
}

void ReadHWSetupFields(SectionReader& file, HWSetup& hw, bool withBand, bool useEight) {
  hw.nChannels = file.Int32();
  if (hw.nChannels < 1) {
    if (!useEight) file.GiveUp(FormatText("a measurement claims %d channels.", hw.nChannels));
    hw.nChannels = kChannelsOfABadCount;
  }
  if (hw.nChannels > kMostChannels) {
    file.GiveUp(FormatText("a measurement claims %d channels.", hw.nChannels));
    hw.nChannels = kChannelsOfABadCount;
  }
  hw.nLines = file.Int32();
  if (hw.nLines < 0 || hw.nLines > kMostLines) {
    file.GiveUp(FormatText("a measurement claims %d lines.", hw.nLines));
    hw.nLines = 0;
  }
  hw.freqSpan = file.Real();
  if (withBand && hw.freqSpan < 0) {
    hw.startFreq = file.Real();
    hw.stopFreq = file.Real();
    hw.spanKind = file.Int32();
  }
  hw.timeLength = file.Real();
  hw.deltaT = file.Real();
  hw.deltaF = file.Real();
  const std::size_t n = static_cast<std::size_t>(hw.nChannels);
  hw.coupling.assign(n, 0);
  hw.grounding.assign(n, 0);
  hw.inputRange.assign(n, 0.0);
  LoadIArray(hw.coupling.data(), hw.nChannels, file);
  LoadIArray(hw.grounding.data(), hw.nChannels, file);
  LoadDArray(hw.inputRange.data(), hw.nChannels, file);
  hw.reservedReal = file.Real();
  hw.triggerChannel = file.Int32();
  hw.triggerSlope = file.Int32();
  hw.triggerDelay = file.Real();
  hw.triggerLevel = file.Real();
  hw.averageOn = file.Int32();
  hw.reservedInt = file.Int32();
  hw.nAverage = file.Int32();
}

void StoreHWSetupFields(AtomicWriter& file, const HWSetup& hw, bool withBand) {
  const int n = StoredChannels(&hw);
  file.Int32(n);
  file.Int32(hw.nLines);
  file.Real(hw.freqSpan);
  if (withBand && hw.freqSpan < 0) {
    file.Real(hw.startFreq);
    file.Real(hw.stopFreq);
    file.Int32(hw.spanKind);
  }
  file.Real(hw.timeLength);
  file.Real(hw.deltaT);
  file.Real(hw.deltaF);
  StorePadded(hw.coupling, n, file);
  StorePadded(hw.grounding, n, file);
  StorePadded(hw.inputRange, n, file);
  file.Real(hw.reservedReal);
  file.Int32(hw.triggerChannel);
  file.Int32(hw.triggerSlope);
  file.Real(hw.triggerDelay);
  file.Real(hw.triggerLevel);
  file.Int32(hw.averageOn);
  file.Int32(hw.reservedInt);
  file.Int32(hw.nAverage);
}

GeometryRead ReadMeasSetups(SectionReader& file) {
  bool any = false;
  const int count = file.Count("geometry records", kMostMeasurements);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count) && !file.Ended(); ++i) {
    if (i >= session.fileKeyList.size()) {
      file.GiveUp("there are more geometry records than measurements.");
      return {false, any};
    }
    const int key = session.fileKeyList[i];
    MeasSetup read;
    file.Int32();  // the key; the order of the records replaces it
    read.srcLoc = file.Real();
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
    read.recLoc.assign(hw ? static_cast<std::size_t>(hw->nChannels) : 0, 0.0);
    LoadDArray(read.recLoc.data(), static_cast<int>(read.recLoc.size()), file);
    read.wlenFilter = file.Int32();
    read.lengthUnit = file.Real();
    if (file.Ended()) break;  // a geometry that is cut is none: a length unit of 0 would spoil every velocity
    read.key = key;
    session.lengthUnit = read.lengthUnit;
    any = true;
    *SetupMSetupArrays(key) = std::move(read);
  }
  return {true, any};
}

void StoreMeasSetups(AtomicWriter& file) {
  const auto records = InFileOrder(MeasDB.measSetupList);
  file.Int32(static_cast<int>(records.size()));
  for (std::size_t i = 0; i < records.size(); ++i) {
    const int position = static_cast<int>(i) + 1;
    const MeasSetup none;
    const MeasSetup& ms = records[i] ? *records[i] : none;
    file.Int32(MeasDB.idList.at(position)->key);
    file.Real(ms.srcLoc);
    StorePadded(ms.recLoc, StoredChannels(HardwareOf(position)), file);
    file.Int32(ms.wlenFilter);
    file.Real(ms.lengthUnit);
  }
}

SetupsRead ReadMHWSetup(SectionReader& file, const LoadQuestions& questions) {
  int firstKey = -1;
  if (ReadHWSetups(file, questions, &firstKey) == -1) return {};
  SetupsRead read;
  read.geometry = ReadMeasSetups(file);
  read.whole = read.geometry.whole;
  MeasRecords shown;
  if (!read.whole || GetInfoFromKey(firstKey, shown) == -1) return read;
  session.curProjID = shown.projID;
  session.curMeasID = shown.measID;
  read.selected = true;
  return read;
}

void StoreMHWSetup(AtomicWriter& file) {
  file.Int32(MeasDB.idList.count());
  for (int i = 1; i <= MeasDB.idList.count(); ++i) {
    const IDInfo& id = *MeasDB.idList.at(i);
    const HWSetup none;
    const HWSetup* found = HardwareOf(i);
    const HWSetup& hw = found ? *found : none;
    file.Int32(id.key);
    file.Text(ProjectField(id.ProjID, hw.decimation));
    file.Text(id.MeasID);
    file.Int32(found ? hw.key : id.key);
    StoreHWSetupFields(file, hw, true);
  }
  StoreMeasSetups(file);
}

}  // namespace sondera
