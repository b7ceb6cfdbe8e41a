// legacy_files.cpp - see legacy_files.h.
#include "project/legacy_files.h"

#include <algorithm>
#include <cmath>

#include "project/raw_section.h"
#include "project/text_helpers.h"
#include "records/measdb.h"
#include "records/session.h"

namespace sondera {
namespace {

/// Removes data that depend on the former size of a measurement.
void RemovePairs(int key) {
  for (int i = MeasDB.pMeasList.count(); i >= 1; --i)
    if (MeasDB.pMeasList.at(i)->key == key) MeasDB.pMeasList.remove(i);
}

/// Fields that a ".sms" does not contain: copied from the record that it replaces, where they fit.
void KeepWhatTheFileLacks(const HWSetup* former, HWSetup& hw) {
  const bool sameBand = former && former->freqSpan == hw.freqSpan && former->nLines == hw.nLines;
  hw.stopFreq = std::fabs(hw.freqSpan);
  if (sameBand) {
    hw.startFreq = former->startFreq;
    hw.stopFreq = former->stopFreq;
    hw.spanKind = former->spanKind;
  }
  if (former) {
    hw.decimation = former->decimation;
    hw.sensorType = former->sensorType;
    hw.refChannel = former->refChannel < hw.nChannels ? former->refChannel : 0;
  }
  BringBandLimitsUpToDate(hw);
}

void TakeHardware(int key, HWSetup&& hw) {
  const HWSetup* former = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
  KeepWhatTheFileLacks(former, hw);
  if (former && (former->nLines != hw.nLines || former->nChannels != hw.nChannels)) {
    RemovePairs(key);
    MeasDB.rawDataList.remove(MeasDB.rawDataList.findKey(key));
  }
  hw.key = key;
  *SetupHWSetupArrays(key, hw.nChannels) = std::move(hw);
}

void ReadHardware(SectionReader& file, const LoadQuestions& questions) {
  const int count = file.Count("measurements", kMostMeasurements);
  for (int i = 1; i <= count && !file.Ended(); ++i) {
    const int fileKey = file.Int32();
    const std::string projID = file.Text(), measID = file.Text();
    file.Int32();             // the key once more
    if (file.Ended()) break;  // without its names it is not a measurement
    HWSetup hw;
    ReadHWSetupFields(file, hw, false, false);
    if (file.Ended()) break;  // half a setup would spoil every measurement or file that uses it
    const int key = ClaimFileKey(file, questions, fileKey, projID, measID);
    if (key == -1) return;
    session.fileKeyList.push_back(key);
    TakeHardware(key, std::move(hw));
  }
}

/// The first measurement if the file has only one, else the second.
void SelectLoaded() {
  const std::vector<int>& keys = session.fileKeyList;
  if (keys.empty()) return;
  MeasRecords shown;
  if (GetInfoFromKey(keys.size() == 1 ? keys[0] : keys[1], shown) == -1) return;
  session.curProjID = shown.projID;
  session.curMeasID = shown.measID;
}

Refusal CommitOf(AtomicWriter& file) {
  if (file.Commit()) return {};
  return "The file could not be saved. " + file.Reason() + ".";
}

}  // namespace

GeometryRead ReadLegacySetups(SectionReader& file, const LoadQuestions& questions) {
  session.fileKeyList.clear();
  file.BeginSection("setup");
  ReadHardware(file, questions);
  GeometryRead geometry;
  if (!file.GivenUp()) geometry = ReadMeasSetups(file);
  file.EndSection();
  SelectLoaded();
  return geometry;
}

void ReadLegacyRawData(SectionReader& file) {
  file.BeginSection("raw data");
  ReadRawData(file);
  const double last = file.Real();
  if (!file.Ended()) session.rawFileReal = last;
  file.EndSection();
  for (int key : session.fileKeyList) RemovePairs(key);  // results of other data
}

Refusal WriteLegacySetups(const std::string& path, const std::string& measID) {
  AtomicWriter file(path);
  file.Int32(MeasDB.idList.count());
  for (const IDInfo& id : MeasDB.idList) {
    const HWSetup none;
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(id.key));
    file.Int32(id.key);
    file.Text(id.ProjID);
    file.Text(measID.empty() ? id.MeasID : measID);
    file.Int32(id.key);
    StoreHWSetupFields(file, hw ? *hw : none, false);
  }
  StoreMeasSetups(file);
  return CommitOf(file);
}

Refusal WriteLegacyRawData(const std::string& path, const std::string& measID) {
  if (Refusal refusal = WriteLegacySetups(PlaceFileExtName(path, "sms"), measID)) return refusal;
  AtomicWriter file(path);
  StoreRawData(file);
  file.Real(session.rawFileReal);
  return CommitOf(file);
}

}  // namespace sondera
