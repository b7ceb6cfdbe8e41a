// modeling_section.cpp - see modeling_section.h.
#include "project/modeling_section.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "panels/entry_lists.h"
#include "panels/fmodeling_records.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "run/theo_disp_info.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/controls.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

constexpr int kMostListItems = 100000;

// ---- model records
// --------------------------------------------------------------------------------------------

/// Whether the point arrays are in the file: always those of FModelParam, those of its twin unless they are
/// empty.
enum class PointArrays { Always, UnlessEmpty };

std::int64_t Cells(const ModelRecord& m) {
  return std::int64_t{m.nDispPoints} * m.nDispCurves;
}

void StoreModelHead(AtomicWriter& file, const ModelRecord& m) {
  for (int capacity : {m.capLayers, m.capPairs, m.capRec, m.capPoints, m.capCurve}) file.Int32(capacity);
  file.Int32(m.analysis);
  file.Int32(m.nSubLayers);
  file.Real(m.fDispBulb);
  file.Int32(m.nLayers);
}

void StoreModelBody(AtomicWriter& file, const ModelRecord& m, PointArrays points) {
  for (auto column : kLayerColumns) StorePadded(m.*column, m.capLayers, file);
  file.Int32(m.dispCurvType);
  file.Int32(m.DispCurvInfo);
  file.Real(m.incRatio);
  file.Int32(m.nDispPointsG);
  for (auto column : kGlobalColumns) StorePadded(m.*column, m.capPoints, file);
  file.Int32(m.GlobalRecType);
  file.Real(m.GlobalRec1Loc);
  file.Real(m.GlobalRec2Loc);
  file.Int32(m.xDomainType);
  file.Real(m.xMinGlobal);
  file.Real(m.xMaxGlobal);
  file.Int32(m.nReceivers);
  StorePadded(m.recLoc, m.capRec, file);
  file.Int32(m.nDispPoints);
  file.Int32(m.nDispCurves);
  if (points == PointArrays::Always || Cells(m) != 0) {
    StorePadded(m.freq, m.nDispPoints, file);
    StorePadded(m.vel, Cells(m), file);
    StorePadded(m.wlen, Cells(m), file);
  }
  StorePadded(m.pairRec1, m.capPairs, file);
  StorePadded(m.pairRec2, m.capPairs, file);
  StorePadded(m.pairMin, m.capPairs, file);
  StorePadded(m.pairMax, m.capPairs, file);
  file.Int32(m.closingWord1);
  file.Int32(m.closingWord2);
}

/// The head of a record behind its first capacity.
void ReadModelHead(SectionReader& file, ModelRecord& m) {
  m.capPairs = file.Int32();
  m.capRec = file.Int32();
  m.capPoints = file.Int32();
  m.capCurve = file.Int32();
  m.analysis = file.Int32();
  m.nSubLayers = file.Int32();
  m.fDispBulb = file.Real();
  m.nLayers = file.Int32();
}

/// Whether arrays of so many bytes can still be in the file; where they cannot, the file ends within them.
bool HoldsBytes(SectionReader& file, std::int64_t bytes) {
  if (file.CanHold(bytes, 1, 1)) return true;
  file.Skip(INT64_MAX);
  return false;
}

/// Capacities that no file can mean end the reading; one that only memory would feel comes down to what is
/// used. Nothing is sized before the arrays are known to be there.
bool AffordModel(SectionReader& file, ModelRecord& m) {
  for (int capacity : {m.capLayers, m.capPairs, m.capRec, m.capPoints, m.capCurve})
    if (capacity < 0) {
      file.GiveUp(FormatText("a model has a capacity of %d.", capacity));
      return false;
    }
  const std::int64_t real = sizeof(double), whole = sizeof(int);
  if (!HoldsBytes(file, real * (6LL * m.capLayers + 3LL * m.capPoints + m.capRec) +
                            (2 * whole + 2 * real) * m.capPairs))
    return false;
  const bool fits = file.Afford(m.capLayers, 6, sizeof(double)) &&
                    file.Afford(m.capPoints, 4, sizeof(double)) && file.Afford(m.capRec, 1, sizeof(double)) &&
                    file.Afford(m.capPairs, 3, sizeof(double));
  if (!fits) {
    file.GiveUp("the capacities of a model take more room than the file can fill.");
    return false;
  }
  if (!file.Afford(m.capCurve, 2, sizeof(double))) {
    file.Note(FormatText("A model has a capacity of %d points by curves.", m.capCurve));
    m.capCurve = 1;  // not 0, which would stand for the capacity of the other record
  }
  return true;
}

/// A counter that the arrays cannot serve comes down to what they hold: what it counted is not in the file.
void HoldCount(SectionReader& file, int& counter, int capacity, const char* what) {
  const int held = std::clamp(counter, 0, capacity);
  if (held != counter) file.Note(FormatText("A model claims %d %s and holds %d.", counter, what, capacity));
  counter = held;
}

/// The point arrays of the array curves, which are as long as the counters say.
void ReadPointArrays(SectionReader& file, ModelRecord& m, PointArrays points) {
  if (m.nDispPoints < 0 || m.nDispCurves < 0) {
    file.GiveUp(FormatText("a model claims %d points on %d curves.", m.nDispPoints, m.nDispCurves));
    m.nDispPoints = m.nDispCurves = 0;
  }
  const bool small = m.nDispPoints <= m.capPoints && Cells(m) <= m.capCurve;  // room is there already
  if (!small && !(file.CanHold(m.nDispPoints, 1, sizeof(double)) &&
                  file.CanHold(Cells(m), 2, sizeof(double)) && file.CanHold(m.nDispCurves, 1, 1))) {
    file.GiveUp(FormatText("a model claims %d points on %d curves.", m.nDispPoints, m.nDispCurves));
    m.nDispPoints = m.nDispCurves = 0;
  }
  m.freq.assign(static_cast<std::size_t>(std::max(m.capPoints, m.nDispPoints)), 0.0);
  for (auto* table : {&m.vel, &m.wlen})
    table->assign(static_cast<std::size_t>(std::max<std::int64_t>(m.capCurve, Cells(m))), 0.0);
  if (points == PointArrays::UnlessEmpty && Cells(m) == 0) return;
  file.Reals(m.freq.data(), static_cast<std::size_t>(m.nDispPoints));
  file.Reals(m.vel.data(), static_cast<std::size_t>(Cells(m)));
  file.Reals(m.wlen.data(), static_cast<std::size_t>(Cells(m)));
}

/// The record behind its head; false when nothing of it can be used.
bool ReadModelBody(SectionReader& file, ModelRecord& m, PointArrays points) {
  if (!AffordModel(file, m)) return false;
  HoldCount(file, m.nLayers, m.capLayers, "layers");
  const std::size_t layers = static_cast<std::size_t>(m.capLayers),
                    pointsG = static_cast<std::size_t>(m.capPoints),
                    receivers = static_cast<std::size_t>(m.capRec),
                    pairs = static_cast<std::size_t>(m.capPairs);
  for (auto column : kLayerColumns) {
    (m.*column).assign(layers, 0.0);
    file.Reals((m.*column).data(), layers);
  }
  m.dispCurvType = file.Int32();
  m.DispCurvInfo = file.Int32();
  m.incRatio = file.Real();
  m.nDispPointsG = file.Int32();
  HoldCount(file, m.nDispPointsG, m.capPoints, "points of a global curve");
  for (auto column : kGlobalColumns) {
    (m.*column).assign(pointsG, 0.0);
    file.Reals((m.*column).data(), pointsG);
  }
  m.GlobalRecType = file.Int32();
  m.GlobalRec1Loc = file.Real();
  m.GlobalRec2Loc = file.Real();
  m.xDomainType = file.Int32();
  m.xMinGlobal = file.Real();
  m.xMaxGlobal = file.Real();
  m.nReceivers = file.Int32();
  HoldCount(file, m.nReceivers, m.capRec, "receivers");
  m.recLoc.assign(receivers, 0.0);
  file.Reals(m.recLoc.data(), receivers);
  m.nDispPoints = file.Int32();
  m.nDispCurves = file.Int32();
  ReadPointArrays(file, m, points);
  if (m.nDispCurves > m.capPairs && Cells(m) == 0) HoldCount(file, m.nDispCurves, m.capPairs, "curves");
  const std::size_t pairsInUse = std::max(pairs, static_cast<std::size_t>(m.nDispCurves));
  m.pairRec1.assign(pairsInUse, 0);
  m.pairRec2.assign(pairsInUse, 0);
  m.pairMin.assign(pairsInUse, 0.0);
  m.pairMax.assign(pairsInUse, 0.0);
  file.Int32s(m.pairRec1.data(), pairs);
  file.Int32s(m.pairRec2.data(), pairs);
  file.Reals(m.pairMin.data(), pairs);
  file.Reals(m.pairMax.data(), pairs);
  m.closingWord1 = file.Int32();
  m.closingWord2 = file.Int32();
  return !file.GivenUp();
}

/// -1 when the file has no model.
int ReadFModel(SectionReader& file) {
  FModelParam = ModelRecord{};
  FModelParam.capLayers = file.Int32();
  if (FModelParam.capLayers == 0) return -1;
  ReadModelHead(file, FModelParam);
  return ReadModelBody(file, FModelParam, PointArrays::Always) ? 0 : -1;
}

/// -2 when the file has no theoretical curves.
int ReadTheoDisp(SectionReader& file) {
  ModelRecord& m = TheoDispInfo;
  m = ModelRecord{};
  m.capLayers = file.Int32();
  ReadModelHead(file, m);
  if (m.capLayers == 0) return -2;  // Kept: only behind the head
  if (m.capRec == 0) m.capRec = FModelParam.capRec;
  if (m.capCurve == 0) m.capCurve = FModelParam.capCurve;
  if (m.capPairs == 0) m.capPairs = FModelParam.capPairs;
  return ReadModelBody(file, m, PointArrays::UnlessEmpty) ? 0 : -2;
}

// ---- inversion records
// ----------------------------------------------------------------------------------------

/// Entries in the file: those wanted and the one in front of them.
std::int64_t StoredEntries(const InvRecord& r) {
  return std::int64_t{std::max(r.nEntries, 0)} + 1;
}

/// Value of a table, zero outside it.
double Cell(const OffsetMatrix<double>& table, std::int64_t i, std::int64_t j) {
  return i <= table.rowHi() && j <= table.colHi() ? table(static_cast<int>(i), static_cast<int>(j)) : 0.0;
}

/// Cell by cell, one value from each of the tables.
void StoreInterleaved(AtomicWriter& file, const std::vector<const OffsetMatrix<double>*>& tables,
                      std::int64_t rows, std::int64_t columns) {
  for (std::int64_t i = 0; i < rows && file.Ok(); ++i)
    for (std::int64_t j = 0; j < columns; ++j)
      for (const OffsetMatrix<double>* table : tables) file.Real(Cell(*table, i, j));
}

void ReadInterleaved(SectionReader& file, const std::vector<OffsetMatrix<double>*>& tables, std::int64_t rows,
                     std::int64_t columns) {
  for (std::int64_t i = 0; i < rows && !file.Ended(); ++i)
    for (std::int64_t j = 0; j < columns; ++j)
      for (OffsetMatrix<double>* table : tables)
        (*table)(static_cast<int>(i), static_cast<int>(j)) = file.Real();
}

template <class Record, class Table>
std::vector<Table*> ModelTables(Record& r) {
  std::vector<Table*> tables;
  for (auto table : kModelTables) tables.push_back(&(r.*table));
  return tables;
}

void StoreInvRecord(AtomicWriter& file, const InvRecord& r) {
  for (int n : {r.maxLayers, r.maxCurves, r.maxPoints, r.maxData, r.maxEntries, r.reserved, r.nLayers,
                r.nCurves, r.nEntries, r.nPoints})
    file.Int32(n);
  file.Real(r.alphaFrom);
  file.Real(r.alphaTo);
  const std::int64_t rows = StoredEntries(r);
  StoreInterleaved(file, ModelTables<const InvRecord, const OffsetMatrix<double>>(r), rows,
                   std::int64_t{r.nLayers} + 1);
  StoreInterleaved(file, {&r.freq}, rows, r.nPoints);
  StoreInterleaved(file, {&r.vel, &r.waveL}, rows, std::int64_t{r.nPoints} * r.nCurves);
  StorePadded(r.rms.data(), static_cast<std::size_t>(r.rms.size()), r.maxEntries, file);
  StoreInterleaved(file, {&r.resolution}, rows, r.nLayers);
  for (double v : {r.ufH, r.ufVs, r.minH, r.maxH, r.minVs, r.maxVs}) file.Real(v);
  file.Int32(r.MODELPARM);
  file.Int32(r.iSelected);
}

/// Holds counters and capacities against what the file can fill.
bool AffordInvRecord(SectionReader& file, const InvRecord& r) {
  bool sound = r.maxLayers > 0;
  for (int n :
       {r.maxCurves, r.maxPoints, r.maxData, r.maxEntries, r.nLayers, r.nCurves, r.nEntries, r.nPoints})
    sound = sound && n >= 0;
  const InvTableSizes size = TableSizes(r);
  const std::int64_t rows = size.entries + 1;
  if (sound && file.Afford(rows, 8 * (size.layers + 1), sizeof(double)) &&
      file.Afford(rows, size.points + 1, sizeof(double)) &&
      file.Afford(rows, 2 * (size.data + 1), sizeof(double)))
    return true;
  file.GiveUp(FormatText("a record of results claims %d entries of %d layers and %d points on %d curves.",
                         r.nEntries, r.nLayers, r.nPoints, r.nCurves));
  return false;
}

/// -3 when the record is not there.
int ReadInvRecord(SectionReader& file, InvRecord& r) {
  r = InvRecord{};
  r.maxLayers = file.Int32();
  if (r.maxLayers == 0) return -3;
  for (int* n : {&r.maxCurves, &r.maxPoints, &r.maxData, &r.maxEntries, &r.reserved, &r.nLayers, &r.nCurves,
                 &r.nEntries, &r.nPoints})
    *n = file.Int32();
  r.alphaFrom = file.Real();
  r.alphaTo = file.Real();
  if (!AffordInvRecord(file, r)) return -3;
  const std::int64_t rows = StoredEntries(r);
  const std::int64_t perRow =
      7 * (std::int64_t{r.nLayers} + 1) + r.nPoints + 2 * std::int64_t{r.nPoints} * r.nCurves + r.nLayers;
  if (!HoldsBytes(file, static_cast<std::int64_t>(sizeof(double)) * (rows * perRow + r.maxEntries)))
    return -3;
  AllocateInvRecord(r);
  ReadInterleaved(file, ModelTables<InvRecord, OffsetMatrix<double>>(r), rows, std::int64_t{r.nLayers} + 1);
  ReadInterleaved(file, {&r.freq}, rows, r.nPoints);
  ReadInterleaved(file, {&r.vel, &r.waveL}, rows, std::int64_t{r.nPoints} * r.nCurves);
  file.Reals(r.rms.data(), static_cast<std::size_t>(r.maxEntries));
  ReadInterleaved(file, {&r.resolution}, rows, r.nLayers);
  for (double* v : {&r.ufH, &r.ufVs, &r.minH, &r.maxH, &r.minVs, &r.maxVs}) *v = file.Real();
  r.MODELPARM = file.Int32();
  r.iSelected = file.Int32();
  return 0;
}

// ---- lists of entries
// -----------------------------------------------------------------------------------------

void StoreEntryList(AtomicWriter& file, const RingControl& list) {
  const int n = GetNumListItems(list);
  file.Int32(n);
  for (int i = 0; i < n; ++i) file.Int32(static_cast<int>(GetValueFromIndex(list, i)));
}

/// Appends `count` entries by their numbers.
void ReadEntries(SectionReader& file, const RingControl& list, int count) {
  for (int i = 0; i < count; ++i) {
    const int v = file.Int32();
    if (file.Ended()) return;
    const std::string label =
        v < 0 ? FormatText("SMP %ld", -static_cast<long>(v)) : FormatText("INV %ld", static_cast<long>(v));
    InsertListItem(list, -1, label, v);
  }
}

/// The first item of the starting models is fixed; its value is in the file and not used. Kept: it is read
/// even where the count is 0.
void ReadStartingModels(SectionReader& file) {
  const int count = file.Count("starting models", kMostListItems);
  file.Int32();
  ReadEntries(file, inversion::INV_SMP, count - 1);
}

/// Brings panel and curve lists up to date with records that were read whole.
void ShowModels() {
  // Every run makes the twin ready for itself, which empties its curves. Here the lists are what is wanted:
  // the curves of the last run are in the file to be seen again, and the next save has to write the same
  // bytes.
  ModelRecord read = TheoDispInfo;
  static_cast<void>(ResetTheoDispInfo());
  TheoDispInfo = std::move(read);
  SetFModelParam();
}

}  // namespace

int ReadModeling(SectionReader& file) {
  ClearEntryLists();
  if (ReadFModel(file) < 0) return -1;
  if (ReadTheoDisp(file) < 0) return -2;
  if (ReadInvRecord(file, SMPParam) < 0 || ReadInvRecord(file, InvParam) < 0) return -3;
  const int count = file.Count("iterations", kMostListItems);
  if (file.Ended()) return -5;
  ReadEntries(file, exdthd::ITERNO, count);
  ReadEntries(file, fmodeling::COPYPRF, file.Count("profiles", kMostListItems));
  ReadStartingModels(file);
  ShowModels();
  return 0;
}

/// Stops behind the mark of a record that is not there, as its reader does.
void StoreModeling(AtomicWriter& file) {
  if (FModelParam.capLayers == 0) return file.Int32(0);
  StoreModelHead(file, FModelParam);
  StoreModelBody(file, FModelParam, PointArrays::Always);
  StoreModelHead(file, TheoDispInfo);
  if (TheoDispInfo.capLayers == 0) return;
  StoreModelBody(file, TheoDispInfo, PointArrays::UnlessEmpty);
  for (const InvRecord* record : {&SMPParam, &InvParam}) {
    if (record->maxLayers == 0) return file.Int32(0);
    StoreInvRecord(file, *record);
  }
  StoreEntryList(file, exdthd::ITERNO);
  StoreEntryList(file, fmodeling::COPYPRF);
  if (GetNumListItems(inversion::INV_SMP) == 0) {  // its reader always takes the fixed item
    file.Int32(1);
    file.Int32(0);
    return;
  }
  StoreEntryList(file, inversion::INV_SMP);
}

}  // namespace sondera
