// project_bytes.cpp - see project_bytes.h.
#include "support/project_bytes.h"

#include <cstdio>
#include <cstring>
#include <random>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "support/session_fixture.h"

namespace sondera::testing {
namespace {

template <class List>
auto ByKey(const List& list, int key) {
  return list.at(list.findKey(key));
}

void PutModel(ByteStream& s, const ModelRecord& m, bool twin) {
  s.Count(m.capLayers).Count(m.capPairs).Count(m.capRec).Count(m.capPoints).Count(m.capCurve);
  s.I(m.analysis).I(m.nSubLayers).D(m.fDispBulb).Count(m.nLayers);
  s.Ds(m.thickness, m.capLayers).Ds(m.Vp, m.capLayers).Ds(m.Vs, m.capLayers);
  s.Ds(m.density, m.capLayers).Ds(m.nu, m.capLayers).Ds(m.damping, m.capLayers);
  s.I(m.dispCurvType).I(m.DispCurvInfo).D(m.incRatio).Count(m.nDispPointsG);
  s.Ds(m.globalVel, m.capPoints).Ds(m.globalFreq, m.capPoints).Ds(m.globalWlen, m.capPoints);
  s.I(m.GlobalRecType).D(m.GlobalRec1Loc).D(m.GlobalRec2Loc);
  s.I(m.xDomainType).D(m.xMinGlobal).D(m.xMaxGlobal);
  s.Count(m.nReceivers).Ds(m.recLoc, m.capRec);
  s.Count(m.nDispPoints).Count(m.nDispCurves);
  const int cells = m.nDispPoints * m.nDispCurves;
  if (!twin || cells != 0) s.Ds(m.freq, m.nDispPoints).Ds(m.vel, cells).Ds(m.wlen, cells);
  s.Is(m.pairRec1, m.capPairs).Is(m.pairRec2, m.capPairs);
  s.Ds(m.pairMin, m.capPairs).Ds(m.pairMax, m.capPairs);
  s.I(m.closingWord1).I(m.closingWord2);
}

void PutInversion(ByteStream& s, const InvRecord& r) {
  s.Count(r.maxLayers)
      .Count(r.maxCurves)
      .Count(r.maxPoints)
      .Count(r.maxData)
      .Count(r.maxEntries)
      .I(r.reserved);
  s.Count(r.nLayers).Count(r.nCurves).Count(r.nEntries).Count(r.nPoints);
  s.D(r.alphaFrom).D(r.alphaTo);
  for (int i = 0; i <= r.nEntries; ++i)
    for (int j = 0; j <= r.nLayers; ++j)
      s.D(r.depth(i, j))
          .D(r.H(i, j))
          .D(r.Vp(i, j))
          .D(r.Vs(i, j))
          .D(r.density(i, j))
          .D(r.nu(i, j))
          .D(r.damping(i, j));
  for (int i = 0; i <= r.nEntries; ++i)
    for (int j = 0; j < r.nPoints; ++j) s.D(r.freq(i, j));
  for (int i = 0; i <= r.nEntries; ++i)
    for (int j = 0; j < r.nPoints * r.nCurves; ++j) s.D(r.vel(i, j)).D(r.waveL(i, j));
  for (int i = 0; i < r.maxEntries; ++i) s.D(r.rms[i]);
  for (int i = 0; i <= r.nEntries; ++i)
    for (int j = 0; j < r.nLayers; ++j) s.D(r.resolution(i, j));
  s.D(r.ufH).D(r.ufVs).D(r.minH).D(r.maxH).D(r.minVs).D(r.maxVs).I(r.MODELPARM).I(r.iSelected);
}

void PutCurves(ByteStream& s, const RecordList<DispInfo>& list) {
  s.Count(list.count());
  for (const DispInfo& d : list) {
    s.I(d.key).Count(d.nPoints).I(d.refChan).I(d.dspChan).I(d.valid).T(d.label).D(d.wlenMax);
    for (const OffsetVector<double>* a : {&d.freq, &d.vel, &d.wlen, &d.stat1, &d.stat2, &d.stat3})
      for (int i = 1; i <= d.nPoints; ++i) s.D((*a)[i]);
  }
}

void PutPair(ByteStream& s, const PMeasInfo& p, int lines) {
  s.I(p.key).I(p.refChan).I(p.dspChan);
  for (const std::vector<double>* a :
       {&p.hRe,  &p.hIm,  &p.hAmp,  &p.hPhase,  &p.phaseOrig, &p.irRe,   &p.irIm,
        &p.bbRe, &p.bbIm, &p.bbAmp, &p.bbPhase, &p.phaseBB,   &p.bbIrRe, &p.bbIrIm,
        &p.enRe, &p.enIm, &p.enAmp, &p.enPhase, &p.phaseEn,   &p.enIrRe, &p.enIrIm})
    s.Ds(*a, 2 * lines);
  s.Is(p.maskFlag, lines).Ds(p.dispVel, lines).Ds(p.dispFreq, lines).Ds(p.dispWlen, lines);
  s.I(p.irfMode).D(p.gaborTimeStep).D(p.gaborFreqStep);
  for (int i = 1; i <= 4; ++i) s.D(p.bbT[static_cast<std::size_t>(i)]);
  for (int i = 1; i <= 4; ++i) s.D(p.enT[static_cast<std::size_t>(i)]);
  s.Count(p.timeDiv).D(p.initTime).D(p.finalTime).Count(p.freqDiv).D(p.initFreq).D(p.finalFreq);
  s.D(p.beta).D(p.band).D(p.cntThreshold);
  for (int i = 0; i < p.freqDiv; ++i)
    for (int j = 0; j < p.timeDiv; ++j)
      for (std::size_t k = 0; k < 3; ++k)
        s.D(p.gabor && i < 50 && j < 50 ? (*p.gabor)[k][static_cast<std::size_t>(50 * i + j)] : 0.0);
  s.I(p.phaseOption).I(p.reservedInt).Count(p.nDispPoints).I(p.included).I(p.marker).I(p.color);
  s.D(p.wlenCrit).I(p.polyOrderA).I(p.polyOrderB);
}

template <class Random>
void Fill(std::vector<double>& v, Random& random) {
  for (double& x : v) x = random();
}

}  // namespace

ByteStream& ByteStream::I(int v) {
  char raw[4];
  for (int i = 0; i < 4; ++i) raw[i] = static_cast<char>(static_cast<std::uint32_t>(v) >> (8 * i) & 0xff);
  bytes.append(raw, 4);
  return *this;
}
ByteStream& ByteStream::D(double v) {
  std::uint64_t bits;
  std::memcpy(&bits, &v, 8);
  char raw[8];
  for (int i = 0; i < 8; ++i) raw[i] = static_cast<char>(bits >> (8 * i) & 0xff);
  bytes.append(raw, 8);
  return *this;
}
ByteStream& ByteStream::T(const std::string& text) {
  bytes += text;
  bytes.append(256 - text.size(), '\0');
  return *this;
}
ByteStream& ByteStream::Count(int v) {
  counts.push_back(bytes.size());
  return I(v);
}
ByteStream& ByteStream::Is(const std::vector<int>& v, int n) {
  for (int i = 0; i < n; ++i) I(v.at(static_cast<std::size_t>(i)));
  return *this;
}
ByteStream& ByteStream::Ds(const std::vector<double>& v, int n) {
  for (int i = 0; i < n; ++i) D(v.at(static_cast<std::size_t>(i)));
  return *this;
}
ByteStream& ByteStream::Add(const ByteStream& other) {
  for (std::size_t position : other.counts) counts.push_back(bytes.size() + position);
  bytes += other.bytes;
  return *this;
}

ByteStream SetupBytes() {
  ByteStream s;
  s.Count(MeasDB.idList.count());
  for (const IDInfo& id : MeasDB.idList) {
    const HWSetup& h = *ByKey(MeasDB.hwSetupList, id.key);
    char number[16];
    std::snprintf(number, sizeof number, "%4d", h.decimation);
    s.I(id.key).T(id.ProjID.substr(0, 247) + "||||" + number).T(id.MeasID);
    s.I(h.key).Count(h.nChannels).Count(h.nLines).D(h.freqSpan);
    if (h.freqSpan < 0) s.D(h.startFreq).D(h.stopFreq).I(h.spanKind);
    s.D(h.timeLength).D(h.deltaT).D(h.deltaF);
    s.Is(h.coupling, h.nChannels).Is(h.grounding, h.nChannels).Ds(h.inputRange, h.nChannels);
    s.D(h.reservedReal).I(h.triggerChannel).I(h.triggerSlope).D(h.triggerDelay).D(h.triggerLevel);
    s.I(h.averageOn).I(h.reservedInt).I(h.nAverage);
  }
  s.Count(MeasDB.measSetupList.count());
  for (const MeasSetup& m : MeasDB.measSetupList)
    s.I(m.key)
        .D(m.srcLoc)
        .Ds(m.recLoc, ByKey(MeasDB.hwSetupList, m.key)->nChannels)
        .I(m.wlenFilter)
        .D(m.lengthUnit);
  return s;
}

ByteStream RawBytes() {
  ByteStream s;
  s.Count(MeasDB.rawDataList.count());
  for (const RawData& r : MeasDB.rawDataList) {
    const HWSetup& h = *ByKey(MeasDB.hwSetupList, r.key);
    const int length = 2 * h.nLines * h.nChannels;
    s.I(r.key).Ds(r.timeHist, length).Ds(r.linSpecRe, length).Ds(r.linSpecIm, length);
    s.Ds(r.powerSpec, length).Ds(r.crossSpecRe, length).Ds(r.crossSpecIm, length);
  }
  return s;
}

ByteStream AnalysisBytes() {
  ByteStream s;
  s.Count(MeasDB.maskingList.count());
  for (const MaskingInfo& m : MeasDB.maskingList)
    s.I(m.key)
        .I(m.refChan)
        .I(m.dspChan)
        .D(m.freqInit)
        .D(m.freqFinal)
        .I(m.jumpNo)
        .I(m.lineInit)
        .I(m.lineFinal);
  std::vector<const PMeasInfo*> stored;
  for (const PMeasInfo& p : MeasDB.pMeasList)
    if (p.key > 0 && MeasDB.idList.findKey(p.key) > 0) stored.push_back(&p);
  s.Count(static_cast<int>(stored.size()));
  for (const PMeasInfo* p : stored) PutPair(s, *p, ByKey(MeasDB.hwSetupList, p->key)->nLines);
  PutCurves(s, MeasDB.gDispList);
  PutCurves(s, MeasDB.aDispList);
  return s;
}

ByteStream ModelingBytes() {
  ByteStream s;
  PutModel(s, FModelParam, false);
  PutModel(s, TheoDispInfo, true);
  PutInversion(s, SMPParam);
  PutInversion(s, InvParam);
  for (const RingControl* list : {&exdthd::ITERNO, &fmodeling::COPYPRF, &inversion::INV_SMP}) {
    s.Count(GetNumListItems(*list));
    for (int i = 0; i < GetNumListItems(*list); ++i) s.I(static_cast<int>(GetValueFromIndex(*list, i)));
  }
  return s;
}

ByteStream ProjectBytes() {
  return SetupBytes().Add(RawBytes()).Add(AnalysisBytes()).Add(ModelingBytes());
}

void StartEmptyProject() {
  ResetEverything();
  InitializeFModel();
  InitializeTheoDispInfo();
  InitializeInvAnal();
}

namespace {

/// Random values of one seed.
class Source {
 public:
  explicit Source(unsigned seed) : engine_(seed) {}
  double operator()() { return std::uniform_real_distribution<double>(-1e3, 1e3)(engine_); }
  int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(engine_); }

 private:
  std::mt19937 engine_;
};

void AddRandomMeasurement(Source& random, int key, int nChannels, int nLines, bool imported) {
  InsertNewIDInfo("Project, öst", "meas-" + std::to_string(key), key);
  HWSetup& h = *SetupHWSetupArrays(key, nChannels);
  h.nLines = nLines;
  h.freqSpan = imported ? -random.Int(1, 900) : random.Int(1, 900) + 0.25;
  if (imported) {
    h.startFreq = random();
    h.stopFreq = random();
    h.spanKind = random.Int(-9, 9);
  } else {
    h.stopFreq = h.freqSpan;
  }
  h.timeLength = random();
  h.deltaT = random();
  h.deltaF = random();
  h.decimation = random.Int(0, 12000);
  for (int& v : h.coupling) v = random.Int(0, 1);
  for (int& v : h.grounding) v = random.Int(0, 1);
  Fill(h.inputRange, random);
  h.reservedReal = random();
  h.triggerChannel = random.Int(-1, nChannels - 1);
  h.triggerSlope = random.Int(0, 1);
  h.triggerDelay = random();
  h.triggerLevel = random();
  h.averageOn = random.Int(0, 1);
  h.reservedInt = random.Int(-99, 99);
  h.nAverage = random.Int(1, 99);
  MeasSetup& m = *SetupMSetupArrays(key);
  m.srcLoc = random();
  Fill(m.recLoc, random);
  m.wlenFilter = random.Int(0, 1);
  m.lengthUnit = 0.3048;
  RawData& r = *SetupRawDataArrays(key);
  for (auto block : kRawBlocks)  // what the file holds: 2 * nLines per channel
    for (std::size_t i = 0; i < static_cast<std::size_t>(2 * nLines * nChannels); ++i)
      (r.*block)[i] = random();
}

// Sizes of records. A braced list is evaluated from left to right, whichever the compiler: arguments of a call are not.
struct MapSize {
  int timeDiv, freqDiv;
};
struct ModelSize {
  int layers, points, curves;
};
struct RunSize {
  int entries, layers, points, curves;
};

PMeasInfo& AddRandomPair(Source& random, int key, int refChan, int dspChan, MapSize size) {
  const auto [timeDiv, freqDiv] = size;
  const int lines = ByKey(MeasDB.hwSetupList, key)->nLines;
  PMeasInfo& p = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(p, lines);
  p.key = key;
  p.refChan = refChan;
  p.dspChan = dspChan;
  for (auto array : kPairArrays)
    for (int i = 0; i < 2 * lines; ++i) (p.*array)[static_cast<std::size_t>(i)] = random();
  for (std::size_t i = 0; i < static_cast<std::size_t>(lines); ++i) {
    p.maskFlag[i] = random.Int(0, 1);
    p.dispVel[i] = random();
    p.dispFreq[i] = random();
    p.dispWlen[i] = random();
  }
  p.irfMode = random.Int(0, 1);
  p.gaborTimeStep = random();
  p.gaborFreqStep = random();
  for (std::size_t i = 1; i <= 4; ++i) {
    p.bbT[i] = random();
    p.enT[i] = random();
  }
  p.timeDiv = timeDiv;
  p.freqDiv = freqDiv;
  for (double* v :
       {&p.initTime, &p.finalTime, &p.initFreq, &p.finalFreq, &p.beta, &p.band, &p.cntThreshold, &p.wlenCrit})
    *v = random();
  for (int option = 0; option < 3; ++option)
    for (int i = 0; i < std::min(freqDiv, 50); ++i)
      for (int j = 0; j < std::min(timeDiv, 50); ++j)
        p.gaborMap(option)[static_cast<std::size_t>(50 * i + j)] = random();
  p.phaseOption = random.Int(0, 2);
  p.reservedInt = random.Int(-99, 99);
  p.nDispPoints = random.Int(0, lines);
  p.included = random.Int(0, 1);
  p.marker = random.Int(0, 20);
  p.color = random.Int(-1, 0xffffff);
  p.polyOrderA = random.Int(0, 9);
  p.polyOrderB = random.Int(0, 9);
  return p;
}

void AddRandomMask(Source& random, int key) {
  MaskingInfo& m = *MeasDB.maskingList.append();
  m.key = key;
  m.refChan = random.Int(0, 3);
  m.dspChan = random.Int(0, 3);
  m.freqInit = random();
  m.freqFinal = random();
  m.jumpNo = random.Int(-5, 5);
  m.lineInit = random.Int(0, 9);
  m.lineFinal = random.Int(9, 99);
}

void AddRandomCurve(Source& random, RecordList<DispInfo>& list, int key, int points) {
  DispInfo& d = *list.append();
  SetupDispArrays(d, points);
  d.key = key;
  d.refChan = random.Int(0, 3);
  d.dspChan = random.Int(0, 3);
  d.valid = random.Int(0, 1);
  d.label = "curve " + std::to_string(points);
  d.wlenMax = random();
  for (auto array : kDispArrays)
    for (double& v : d.*array) v = random();
}

void FillModel(Source& random, ModelRecord& m, ModelSize size) {
  const auto [layers, points, curves] = size;
  m = ModelRecord{};
  m.capLayers = layers + 2;
  m.capPairs = curves + 1;
  m.capRec = curves + 2;
  m.capPoints = points + 3;
  m.capCurve = points * curves + 5;
  m.nLayers = layers;
  m.nDispPointsG = points + 1;
  m.nReceivers = curves + 1;
  m.nDispPoints = points;
  m.nDispCurves = curves;
  AllocateModelRecord(m);
  m.analysis = random.Int(2, 4);
  m.nSubLayers = random.Int(1, 40);
  m.dispCurvType = random.Int(1, 2);
  m.DispCurvInfo = random.Int(0, 2);
  m.GlobalRecType = random.Int(3, 4);
  m.xDomainType = random.Int(1, 2);
  for (double* v :
       {&m.fDispBulb, &m.incRatio, &m.GlobalRec1Loc, &m.GlobalRec2Loc, &m.xMinGlobal, &m.xMaxGlobal})
    *v = random();
  for (auto column : kLayerColumns) Fill(m.*column, random);
  for (auto column : kGlobalColumns) Fill(m.*column, random);
  for (auto* v : {&m.recLoc, &m.pairMin, &m.pairMax}) Fill(*v, random);
  for (int i = 0; i < points; ++i) m.freq[static_cast<std::size_t>(i)] = random();
  for (int i = 0; i < points * curves; ++i) {
    m.vel[static_cast<std::size_t>(i)] = random();
    m.wlen[static_cast<std::size_t>(i)] = random();
  }
  for (auto* v : {&m.pairRec1, &m.pairRec2})
    for (int& x : *v) x = random.Int(1, 9);
  m.closingWord1 = random.Int(0, 9);
  m.closingWord2 = random.Int(0, 99);
}

void FillInversion(Source& random, InvRecord& r, RunSize size) {
  const auto [entries, layers, points, curves] = size;
  r = InvRecord{};
  r.maxLayers = layers + 1;
  r.maxCurves = curves + 1;
  r.maxPoints = points + 2;
  r.maxData = points * curves + 1;
  r.maxEntries = entries + 2;
  r.reserved = random.Int(-9, 9);
  r.nLayers = layers;
  r.nCurves = curves;
  r.nEntries = entries;
  r.nPoints = points;
  AllocateInvRecord(r);
  for (int i = 0; i <= entries; ++i) {
    for (int j = 0; j <= layers; ++j)
      for (auto table : kModelTables) (r.*table)(i, j) = random();
    for (int j = 0; j < points; ++j) r.freq(i, j) = random();
    for (int j = 0; j < points * curves; ++j) {
      r.vel(i, j) = random();
      r.waveL(i, j) = random();
    }
    for (int j = 0; j < layers; ++j) r.resolution(i, j) = random();
  }
  for (int i = 0; i < r.maxEntries; ++i) r.rms[i] = random();
  for (double* v : {&r.alphaFrom, &r.alphaTo, &r.ufH, &r.ufVs, &r.minH, &r.maxH, &r.minVs, &r.maxVs})
    *v = random();
  r.MODELPARM = random.Int(1, 3);
  r.iSelected = random.Int(-3, 3);
}

}  // namespace

void MakeSmallProject() {
  StartEmptyProject();
  Source random(1);
  AddRandomMeasurement(random, 1, 2, 2, false);
  ByKey(MeasDB.hwSetupList, 1)->decimation = 1;
  AddRandomMask(random, 1);
  AddRandomPair(random, 1, 0, 1, {4, 3});
  AddRandomCurve(random, MeasDB.gDispList, 0, 2);
  AddRandomCurve(random, MeasDB.aDispList, 1, 1);
  FillModel(random, FModelParam, {2, 2, 1});
  FillModel(random, TheoDispInfo, {2, 2, 1});
  FillInversion(random, SMPParam, {1, 2, 1, 1});
  FillInversion(random, InvParam, {2, 2, 2, 1});
  InsertListItem(exdthd::ITERNO, -1, "INV 1", 1);
  InsertListItem(exdthd::ITERNO, -1, "INV 2", 2);
  InsertListItem(fmodeling::COPYPRF, -1, "SMP 1", -1);
  InsertListItem(inversion::INV_SMP, -1, "SMP 1", -1);
  InsertListItem(inversion::INV_SMP, -1, "INV 2", 2);
}

void MakeRandomProject(unsigned seed) {
  StartEmptyProject();
  Source random(seed);
  const int n = random.Int(1, 4);
  int key = 0;
  for (int i = 0; i < n; ++i) {
    key += random.Int(1, 3);
    const int channels = random.Int(1, 5), lines = random.Int(1, 40);
    AddRandomMeasurement(random, key, channels, lines, random.Int(0, 1) == 1);
    for (int k = random.Int(0, 2); k > 0; --k)
      AddRandomPair(random, key, 0, k, {random.Int(0, 60), random.Int(0, 60)});
    for (int k = random.Int(0, 3); k > 0; --k) AddRandomMask(random, key);
    for (int k = random.Int(0, 2); k > 0; --k)
      AddRandomCurve(random, MeasDB.aDispList, key, random.Int(0, 9));
  }
  if (random.Int(0, 1)) AddRandomCurve(random, MeasDB.gDispList, 0, random.Int(0, 9));
  FillModel(random, FModelParam, {random.Int(0, 6), random.Int(0, 5), random.Int(0, 4)});
  FillModel(random, TheoDispInfo, {random.Int(0, 6), random.Int(0, 2), random.Int(0, 2)});
  FillInversion(random, SMPParam, {random.Int(0, 4), random.Int(0, 5), random.Int(0, 4), random.Int(0, 3)});
  FillInversion(random, InvParam, {random.Int(0, 4), random.Int(0, 5), random.Int(0, 4), random.Int(0, 3)});
  for (int k = random.Int(0, 4); k > 0; --k)
    InsertListItem(exdthd::ITERNO, -1, "INV " + std::to_string(k), k);
  for (int k = random.Int(0, 4); k > 0; --k)
    InsertListItem(fmodeling::COPYPRF, -1, "SMP " + std::to_string(k), -k);
  for (int k = random.Int(0, 4); k > 0; --k)
    InsertListItem(inversion::INV_SMP, -1, "INV " + std::to_string(k), k);
}

void PutInt(std::string& bytes, std::size_t position, std::int32_t value) {
  ByteStream s;
  s.I(value);
  bytes.replace(position, 4, s.bytes);
}
std::int32_t IntAt(const std::string& bytes, std::size_t position) {
  std::int32_t v;
  std::memcpy(&v, bytes.data() + position, 4);
  return v;
}

}  // namespace sondera::testing
