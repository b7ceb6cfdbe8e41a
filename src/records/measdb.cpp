// measdb.cpp - the measurement database: keys, set-up, release and copies of its records. Owns MeasDB.
#include "records/measdb.h"

#include <algorithm>
#include <cmath>

namespace sondera {

MeasDatabase MeasDB;

namespace {

constexpr int kMaxLines = 1 << 30;

template <class T>
T* FindOrAppend(RecordList<T>& list, int key) {
  const int pos = list.findKey(key);
  return pos > 0 ? list.at(pos) : list.append();
}

template <class T>
void RemoveKey(RecordList<T>& list, int key) {
  for (int i = list.count(); i >= 1; --i)
    if (list.at(i)->key == key) list.remove(i);
}

template <class T>
std::size_t Size(T n) {
  return n > 0 ? static_cast<std::size_t>(n) : 0;
}

}  // namespace

GaborMap& PMeasInfo::gaborMap(int option) {
  if (!gabor) gabor = std::make_unique<std::array<GaborMap, 3>>();
  return (*gabor)[static_cast<std::size_t>(std::clamp(option, 0, 2))];
}

int FullTimeLines(int n) {
  int lines = 1;
  while (lines < n && lines < kMaxLines) lines *= 2;
  return lines;
}

// ---- keys -----------------------------------------------------------------------------------------------------------

int InsertNewIDInfo(const std::string& projID, const std::string& measID, int key) {
  const int present = GetKeyFromID(projID, measID);
  if (present != -1) return present;
  if (key == 0) {
    for (const IDInfo& id : MeasDB.idList) key = std::max(key, id.key);
    ++key;
  }
  IDInfo* item = MeasDB.idList.append();
  item->key = key;
  item->ProjID = projID;
  item->MeasID = measID;
  return key;
}

int GetKeyFromID(const std::string& projID, const std::string& measID) {
  for (const IDInfo& id : MeasDB.idList)
    if (id.ProjID == projID && id.MeasID == measID) return id.key;
  return -1;
}

bool GetIDfromKey(int key, std::string& projID, std::string& measID) {
  const int pos = MeasDB.idList.findKey(key);
  if (pos < 0) return false;
  projID = MeasDB.idList.at(pos)->ProjID;
  measID = MeasDB.idList.at(pos)->MeasID;
  return true;
}

int GetInfoFromKey(int key, MeasRecords& out) {
  if (key == -1) return -1;
  out.measPos = out.rawPos = out.hwPos = -1;
  if (!GetIDfromKey(key, out.projID, out.measID)) return -1;
  out.measPos = MeasDB.measSetupList.findKey(key);
  out.rawPos = MeasDB.rawDataList.findKey(key);
  out.hwPos = MeasDB.hwSetupList.findKey(key);
  if (out.measPos > 0) out.measSetup = MeasDB.measSetupList.at(out.measPos);
  if (out.rawPos > 0) out.rawData = MeasDB.rawDataList.at(out.rawPos);
  if (out.hwPos > 0) out.hwSetup = MeasDB.hwSetupList.at(out.hwPos);
  return key;
}

int GetPairMInfoFromKey(int key, int refChan, int dspChan, std::string& projID, std::string& measID,
                        PMeasInfo*& pair, int& pos) {
  pos = -1;
  if (key == -1 || !GetIDfromKey(key, projID, measID)) return -1;
  for (int i = 1; i <= MeasDB.pMeasList.count(); ++i) {
    PMeasInfo* p = MeasDB.pMeasList.at(i);
    if (p->key != key || p->refChan != refChan || p->dspChan != dspChan) continue;
    pair = p;
    pos = i;
  }
  return key;
}

PMeasInfo* FindPair(int key, int refChan, int dspChan) {
  std::string proj, meas;
  PMeasInfo* pair = nullptr;
  int pos = -1;
  GetPairMInfoFromKey(key, refChan, dspChan, proj, meas, pair, pos);
  return pos > 0 ? pair : nullptr;
}

int GetLastKey() {
  return MeasDB.idList.count();
}

int DeleteIDfromList(int key) {
  const int pos = MeasDB.idList.findKey(key);
  if (pos > 0) MeasDB.idList.remove(pos);
  return pos;
}

// ---- set up ---------------------------------------------------------------------------------------------------------

HWSetup* SetupHWSetupArrays(int key, int nChannels) {
  HWSetup* hw = FindOrAppend(MeasDB.hwSetupList, key);
  hw->key = key;
  hw->nChannels = nChannels;
  hw->coupling.assign(Size(nChannels), 0);
  hw->grounding.assign(Size(nChannels), 0);
  hw->inputRange.assign(Size(nChannels), 0.0);
  return hw;
}

MeasSetup* SetupMSetupArrays(int key) {
  MeasSetup* ms = FindOrAppend(MeasDB.measSetupList, key);
  const int hwPos = MeasDB.hwSetupList.findKey(key);
  ms->key = key;
  ms->recLoc.assign(hwPos > 0 ? Size(MeasDB.hwSetupList.at(hwPos)->nChannels) : 0, 0.0);
  return ms;
}

RawData* SetupRawDataArrays(int key) {
  RawData* raw = FindOrAppend(MeasDB.rawDataList, key);
  raw->key = key;
  const int hwPos = MeasDB.hwSetupList.findKey(key);
  std::size_t length = 0;
  if (hwPos > 0) {
    const HWSetup* hw = MeasDB.hwSetupList.at(hwPos);
    if (hw->nLines > 0) length = 2 * Size(FullTimeLines(hw->nLines)) * Size(hw->nChannels);
  }
  for (auto block : kRawBlocks) {
    (raw->*block) = {};  // release first: old and new arrays need not be in memory together
    (raw->*block).assign(length, 0.0);
  }
  SetupAuxiallyArrays(static_cast<int>(std::min(length, Size(kMaxLines))));
  return raw;
}

void SetupPairMeasArrays(PMeasInfo& pair, int nLines) {
  if (nLines <= 0) return;
  pair = PMeasInfo{};
  const std::size_t n = Size(FullTimeLines(nLines));
  for (auto array : kPairArrays) (pair.*array).assign(2 * n, 0.0);
  pair.maskFlag.assign(n, 0);
  pair.dispVel.assign(n, 0.0);
  pair.dispFreq.assign(n, 0.0);
  pair.dispWlen.assign(n, 0.0);
  // Kept: the two Gauss parameters are exchanged here compared with a new pair, which sets its own.
  pair.beta = 0.5;
  pair.band = 3.0;
}

int UpdatePairMeasArrays(int key, int nLines) {
  std::string proj, meas;
  if (key == -1 || !GetIDfromKey(key, proj, meas)) return -1;
  for (PMeasInfo& pair : MeasDB.pMeasList) {
    if (pair.key != key) continue;
    const int refChan = pair.refChan, dspChan = pair.dspChan;
    SetupPairMeasArrays(pair, nLines);
    pair.key = key;
    pair.refChan = refChan;
    pair.dspChan = dspChan;
  }
  return 0;
}

void SetupAuxiallyArrays(int n) {
  if (n <= MeasDB.auxLength) return;
  MeasDB.auxLength = n;
  const double decade = std::pow(10.0, std::floor(std::log10(static_cast<double>(n))));
  MeasDB.nLinesDefault = static_cast<int>(std::lround(std::round(0.8 * n / decade) * decade));
}

void SetupGlobalArrays() {
  MeasDB = MeasDatabase{};
}

// ---- free -----------------------------------------------------------------------------------------------------------

void FreeIDList() {
  MeasDB.idList.clear();
}
void FreeMeasList() {
  MeasDB.measSetupList.clear();
}
void FreeHWSetupList() {
  MeasDB.hwSetupList.clear();
}
void FreeRawDataList() {
  MeasDB.rawDataList.clear();
}
void FreePMeasInfoList() {
  MeasDB.pMeasList.clear();
}
void FreeMaskingInfoList() {
  MeasDB.maskingList.clear();
}
void FreeDispList(RecordList<DispInfo>& list) {
  list.clear();
}

void FreeMaskingInfo(int key, int refChan, int dspChan) {
  const bool all = refChan == 0 && dspChan == 0;
  for (int i = MeasDB.maskingList.count(); i >= 1; --i) {
    const MaskingInfo& m = *MeasDB.maskingList.at(i);
    if (m.key == key && (all || (m.refChan == refChan && m.dspChan == dspChan))) MeasDB.maskingList.remove(i);
  }
}

void EmptyProjectLists() {
  if (MeasDB.measSetupList.empty()) return;
  FreePMeasInfoList();
  FreeIDList();
  FreeHWSetupList();
  FreeMeasList();
  FreeRawDataList();
  FreeDispList(MeasDB.gDispList);
  FreeDispList(MeasDB.aDispList);
  // Kept: no mask has key -1, so the masks of the old project stay and apply where a new key equals theirs.
  FreeMaskingInfo(-1, 0, 0);
}

void FreeGlobalArrays() {
  MeasDB = MeasDatabase{};
}

void RemoveMeasurement(int key) {
  RemoveKey(MeasDB.rawDataList, key);
  RemoveKey(MeasDB.measSetupList, key);
  RemoveKey(MeasDB.hwSetupList, key);
  RemoveKey(MeasDB.pMeasList, key);
  DeleteIDfromList(key);
}

// ---- copy -----------------------------------------------------------------------------------------------------------

void CopyHWSetup(HWSetup& dst, const HWSetup& src, int key) {
  dst.key = key;
  dst.nChannels = src.nChannels;
  dst.nLines = src.nLines;
  dst.freqSpan = src.freqSpan;
  dst.timeLength = src.timeLength;
  dst.deltaT = src.deltaT;
  dst.deltaF = src.deltaF;
  dst.coupling = src.coupling;
  dst.grounding = src.grounding;
  dst.inputRange = src.inputRange;
  dst.triggerChannel = src.triggerChannel;
  dst.triggerSlope = src.triggerSlope;
  dst.triggerDelay = src.triggerDelay;
  dst.triggerLevel = src.triggerLevel;
  dst.averageOn = src.averageOn;
  dst.nAverage = src.nAverage;
}

void CopyMeasSetup(MeasSetup& dst, const MeasSetup& src, int key) {
  dst = src;
  dst.key = key;
}

void CopyRawData(RawData& dst, const RawData& src, int key) {
  RawData* made = SetupRawDataArrays(key);
  if (made != &dst) {  // a record outside the list takes over the new arrays
    dst = *made;
  }
  const int hwPos = MeasDB.hwSetupList.findKey(key);
  if (hwPos < 0) return;
  const HWSetup& hw = *MeasDB.hwSetupList.at(hwPos);
  const std::size_t wanted = 2 * Size(hw.nLines) * Size(hw.nChannels) * Size(hw.decimation);
  for (auto block : kRawBlocks) {
    const std::size_t n = std::min({wanted, (dst.*block).size(), (src.*block).size()});
    std::copy_n((src.*block).begin(), n, (dst.*block).begin());
  }
}

// ---- representative curves and band limits --------------------------------------------------------------------------

void SetupDispArrays(DispInfo& d, int n) {
  d.nPoints = std::max(n, 0);
  for (auto array : kDispArrays) (d.*array) = OffsetVector<double>(1, d.nPoints);
}

void BringBandLimitsUpToDate(HWSetup& hw) {
  if (hw.freqSpan < 0) return;
  hw.startFreq = 0.0;
  hw.stopFreq = hw.freqSpan;
}

double BandEnd(const HWSetup& hw) {
  return hw.freqSpan < 0 ? hw.stopFreq : hw.freqSpan;
}

}  // namespace sondera
