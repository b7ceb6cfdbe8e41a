// analysis_section.cpp - see analysis_section.h.
#include "project/analysis_section.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "project/setup_section.h"
#include "records/measdb.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

constexpr int kMostDivisionsRead = 1000;  // Kept: maps with this many on a side are written, but not read
constexpr std::int64_t kArrayBytesPerLine = 21 * 2 * 8 + 4 + 3 * 8;  // of a pair record
constexpr std::int64_t kCurveBytesPerPoint = 6 * 8;
constexpr std::int64_t kCellBytes = 3 * 8;  // one Gabor cell: a real of each map

/// Differences between the section of a project and an ".ia" file.
enum class Source { Project, AnalysisFile };

int LinesOf(int key) {
  const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
  return hw && MeasDB.idList.findKey(key) > 0 ? hw->nLines : 0;
}

// --- masks ---

void ReadMasks(SectionReader& file) {
  const int count = file.Count("masks", INT_MAX);
  for (int i = 0; i < count; ++i) {
    MaskingInfo m;
    m.key = file.Int32();
    m.refChan = file.Int32();
    m.dspChan = file.Int32();
    m.freqInit = file.Real();
    m.freqFinal = file.Real();
    m.jumpNo = file.Int32();
    m.lineInit = file.Int32();
    m.lineFinal = file.Int32();
    if (file.Ended()) return;  // half a mask would cover lines that nobody selected
    *MeasDB.maskingList.append() = m;
  }
}

void StoreMasks(AtomicWriter& file) {
  file.Int32(MeasDB.maskingList.count());
  for (const MaskingInfo& m : MeasDB.maskingList) {
    file.Int32(m.key);
    file.Int32(m.refChan);
    file.Int32(m.dspChan);
    file.Real(m.freqInit);
    file.Real(m.freqFinal);
    file.Int32(m.jumpNo);
    file.Int32(m.lineInit);
    file.Int32(m.lineFinal);
  }
}

// --- Gabor maps ---

constexpr std::array<double, 3 * kGaborDivisions> kZeroRow{};

/// Reads rows of interleaved cells and skips those beyond the maps. Maps of only zeros are not created.
void ReadGaborMaps(SectionReader& file, PMeasInfo& pair) {
  if (pair.timeDiv <= 0 || pair.freqDiv <= 0) return;
  if (!file.CanHold(pair.freqDiv, pair.timeDiv, kCellBytes)) {
    file.Skip(INT64_MAX);  // the file ends within the maps
    return;
  }
  const int columns = std::min(pair.timeDiv, kGaborDivisions);
  std::array<double, 3 * kGaborDivisions> row;
  for (int i = 0; i < pair.freqDiv; ++i) {
    file.Reals(row.data(), static_cast<std::size_t>(3 * columns));
    file.Skip((std::int64_t{pair.timeDiv} - columns) * kCellBytes);
    if (i >= kGaborDivisions) continue;
    const std::size_t rowBytes = static_cast<std::size_t>(3 * columns) * sizeof(double);
    const bool zero = std::memcmp(row.data(), kZeroRow.data(), rowBytes) == 0;  // bit by bit: -0.0 is a value
    if (zero && !pair.gabor) continue;
    if (!pair.gabor && !file.Afford(1, 1, sizeof(*pair.gabor))) {
      file.GiveUp("its Gabor maps take more room than the file can fill.");
      return;
    }
    for (int option = 0; option < 3; ++option) {
      GaborMap& map = pair.gaborMap(option);
      for (int j = 0; j < columns; ++j)
        map[static_cast<std::size_t>(i * kGaborDivisions + j)] =
            row[static_cast<std::size_t>(3 * j + option)];
    }
  }
}

/// Writes freqDiv rows of timeDiv cells, with zeros beyond the size of the maps.
void StoreGaborMaps(AtomicWriter& file, const PMeasInfo& pair) {
  if (pair.timeDiv <= 0 || pair.freqDiv <= 0) return;
  const int columns = std::min(pair.timeDiv, kGaborDivisions);
  std::array<double, 3 * kGaborDivisions> row;
  for (int i = 0; i < pair.freqDiv && file.Ok(); ++i) {
    row.fill(0.0);
    if (pair.gabor && i < kGaborDivisions)
      for (std::size_t option = 0; option < 3; ++option)
        for (int j = 0; j < columns; ++j)
          row[3 * static_cast<std::size_t>(j) + option] =
              (*pair.gabor)[option][static_cast<std::size_t>(i * kGaborDivisions + j)];
    StorePadded(row.data(), static_cast<std::size_t>(3 * columns), std::int64_t{3} * pair.timeDiv, file);
  }
}

// --- pair records ---

void ReadPairSettings(SectionReader& file, PMeasInfo& pair, Source source) {
  pair.irfMode = file.Int32();
  pair.gaborTimeStep = file.Real();
  pair.gaborFreqStep = file.Real();
  file.Reals(pair.bbT.data() + 1, 4);
  file.Reals(pair.enT.data() + 1, 4);
  pair.timeDiv = file.Int32();
  pair.initTime = file.Real();
  pair.finalTime = file.Real();
  pair.freqDiv = file.Int32();
  pair.initFreq = file.Real();
  pair.finalFreq = file.Real();
  pair.beta = file.Real();
  pair.band = file.Real();
  pair.cntThreshold = file.Real();
  if (source == Source::AnalysisFile ||
      (pair.timeDiv < kMostDivisionsRead && pair.freqDiv < kMostDivisionsRead))
    ReadGaborMaps(file, pair);
  else
    file.Note("It has a Gabor map of " + FormatText("%d by %d", pair.freqDiv, pair.timeDiv) +
              " cells, which was not read; what follows it may be wrong.");
  pair.phaseOption = file.Int32();
  pair.reservedInt = file.Int32();
  pair.nDispPoints = file.Int32();
  pair.included = file.Int32();
  pair.marker = file.Int32();
  pair.color = file.Int32();
  pair.wlenCrit = file.Real();
  pair.polyOrderA = file.Int32();
  pair.polyOrderB = file.Int32();
}

/// Limits counters and divisions of the record to the size of its arrays.
void HoldCounters(SectionReader& file, PMeasInfo& pair) {
  if (pair.timeDiv < 0 || pair.timeDiv >= kMostDivisionsRead) pair.timeDiv = kGaborDivisions;
  if (pair.freqDiv < 0 || pair.freqDiv >= kMostDivisionsRead) pair.freqDiv = kGaborDivisions;
  const int points = std::clamp(pair.nDispPoints, 0, pair.capacity());
  if (points != pair.nDispPoints)
    file.Note(
        FormatText("It claims a dispersion curve of %d points, which no pair of its measurement can have.",
                   pair.nDispPoints));
  pair.nDispPoints = points;
}

void ReadPairs(SectionReader& file, Source source, const std::function<void()>& poll) {
  const int count = file.Count("pair records", INT_MAX);
  for (int i = 0; i < count; ++i) {
    if (poll) poll();
    int key = file.Int32();
    if (file.Ended()) return;
    if (source == Source::AnalysisFile && key > INT_MIN) --key;
    const int lines = LinesOf(key);
    if (lines <= 0) {
      file.GiveUp(FormatText(
          "pair record %d belongs to key %d, which is not the key of a measurement with lines.", i + 1, key));
      return;
    }
    if (!file.CanHold(lines, 1, kArrayBytesPerLine)) {
      file.Skip(INT64_MAX);  // the file ends within the record
      return;
    }
    if (!file.Afford(FullTimeLines(lines), 1, kArrayBytesPerLine)) {
      file.GiveUp("its pair records take more room than the file can fill.");
      return;
    }
    auto pair = std::make_unique<PMeasInfo>();
    SetupPairMeasArrays(*pair, 1);  // first values; the arrays are filled with their data
    pair->key = key;
    pair->refChan = file.Int32();
    pair->dspChan = file.Int32();
    const std::size_t n = static_cast<std::size_t>(lines),
                      room = static_cast<std::size_t>(FullTimeLines(lines));
    for (auto array : kPairArrays) LoadVector((*pair).*array, 2 * n, 2 * room, file);
    pair->maskFlag.assign(room, 0);
    LoadIArray(pair->maskFlag.data(), lines, file);
    LoadVector(pair->dispVel, n, room, file);
    LoadVector(pair->dispFreq, n, room, file);
    LoadVector(pair->dispWlen, n, room, file);
    ReadPairSettings(file, *pair, source);
    if (file.Ended()) return;  // incomplete results can be calculated again; half of them would look complete
    HoldCounters(file, *pair);
    MeasDB.pMeasList.append(std::move(pair));
  }
}

bool IsStored(const PMeasInfo& pair) {
  return pair.key > 0 && LinesOf(pair.key) > 0;
}

void StorePair(AtomicWriter& file, const PMeasInfo& pair) {
  const int lines = LinesOf(pair.key);
  file.Int32(pair.key);
  file.Int32(pair.refChan);
  file.Int32(pair.dspChan);
  for (auto array : kPairArrays) StorePadded(pair.*array, std::int64_t{2} * lines, file);
  StorePadded(pair.maskFlag, lines, file);
  StorePadded(pair.dispVel, lines, file);
  StorePadded(pair.dispFreq, lines, file);
  StorePadded(pair.dispWlen, lines, file);
  file.Int32(pair.irfMode);
  file.Real(pair.gaborTimeStep);
  file.Real(pair.gaborFreqStep);
  file.Reals(pair.bbT.data() + 1, 4);
  file.Reals(pair.enT.data() + 1, 4);
  file.Int32(pair.timeDiv);
  file.Real(pair.initTime);
  file.Real(pair.finalTime);
  file.Int32(pair.freqDiv);
  file.Real(pair.initFreq);
  file.Real(pair.finalFreq);
  file.Real(pair.beta);
  file.Real(pair.band);
  file.Real(pair.cntThreshold);
  StoreGaborMaps(file, pair);
  file.Int32(pair.phaseOption);
  file.Int32(pair.reservedInt);
  file.Int32(pair.nDispPoints);
  file.Int32(pair.included);
  file.Int32(pair.marker);
  file.Int32(pair.color);
  file.Real(pair.wlenCrit);
  file.Int32(pair.polyOrderA);
  file.Int32(pair.polyOrderB);
}

// --- representative curves ---

void ReadCurves(SectionReader& file, RecordList<DispInfo>& list, const char* what) {
  const int count = file.Count(what, INT_MAX);
  for (int i = 0; i < count; ++i) {
    auto d = std::make_unique<DispInfo>();
    d->key = file.Int32();
    const int points = file.Int32();
    d->refChan = file.Int32();
    d->dspChan = file.Int32();
    d->valid = file.Int32();
    d->label = file.Text();
    d->wlenMax = file.Real();
    if (file.Ended()) return;
    if (points < 0) file.GiveUp(FormatText("a representative curve claims %d points.", points));
    if (!file.CanHold(points, 1, kCurveBytesPerPoint)) {
      file.Skip(INT64_MAX);  // the file ends within the curve
      return;
    }
    SetupDispArrays(*d, points);
    for (auto array : kDispArrays) LoadDArray(((*d).*array).data(), points, file);
    list.append(std::move(d));
  }
}

void StoreCurves(AtomicWriter& file, const RecordList<DispInfo>& list) {
  file.Int32(list.count());
  for (const DispInfo& d : list) {
    const int points = std::max(d.nPoints, 0);
    file.Int32(d.key);
    file.Int32(points);
    file.Int32(d.refChan);
    file.Int32(d.dspChan);
    file.Int32(d.valid);
    file.Text(d.label);
    file.Real(d.wlenMax);
    for (auto array : kDispArrays)
      StorePadded((d.*array).data(), static_cast<std::size_t>((d.*array).size()), points, file);
  }
}

void ReadSection(SectionReader& file, Source source, const std::function<void()>& poll) {
  ReadMasks(file);
  FreePMeasInfoList();
  ReadPairs(file, source, poll);
  FreeDispList(MeasDB.gDispList);
  ReadCurves(file, MeasDB.gDispList, "global curves");
  FreeDispList(MeasDB.aDispList);
  ReadCurves(file, MeasDB.aDispList, "array curves");
}

}  // namespace

int ReadAnalysis(SectionReader& file, const std::function<void()>& poll) {
  ReadSection(file, Source::Project, poll);
  return 0;
}

void StoreAnalysis(AtomicWriter& file, const std::function<void()>& poll) {
  StoreMasks(file);
  int count = 0;
  for (const PMeasInfo& pair : MeasDB.pMeasList) count += IsStored(pair) ? 1 : 0;
  file.Int32(count);
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (poll) poll();
    if (IsStored(pair)) StorePair(file, pair);
  }
  StoreCurves(file, MeasDB.gDispList);
  StoreCurves(file, MeasDB.aDispList);
}

void LoadAnalysisFrom(SectionReader& file) {
  file.BeginSection("analysis");
  // Kept: no mask has key -1, so the masks already there stay before those of the file.
  FreeMaskingInfo(-1, 0, 0);
  ReadSection(file, Source::AnalysisFile, {});
  file.EndSection();
}

Refusal WriteAnalysis(const std::string& path) {
  AtomicWriter file(path);
  StoreAnalysis(file);
  if (file.Commit()) return {};
  return "The interpretation could not be saved. " + file.Reason() + ".";
}

}  // namespace sondera
