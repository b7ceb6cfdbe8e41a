// modeling_section.cpp - see modeling_section.h.
#include "project/modeling_section.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/run_limits.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

constexpr int kMostListItems = 100000;

// --- fields ---
//
// One list of fields for each record, in the order of the file, for both directions: ModelHead, ModelBody,
// InvHead and InvBody name the fields, Writer and Reader process them.

using Tables = std::vector<OffsetMatrix<double> InvRecord::*>;

std::int64_t Cells(const ModelRecord& m) {
  return std::int64_t{m.nDispPoints} * m.nDispCurves;
}

/// Whether the point arrays are in the file: always for FModelParam, for TheoDispInfo unless they are empty.
enum class PointArrays { Always, UnlessEmpty };

/// Value of a table, zero outside it.
double Cell(const OffsetMatrix<double>& table, std::int64_t i, std::int64_t j) {
  return i <= table.rowHi() && j <= table.colHi() ? table(static_cast<int>(i), static_cast<int>(j)) : 0.0;
}

class Writer {
 public:
  explicit Writer(AtomicWriter& file) : file_(file) {}

  void Field(int n) { file_.Int32(n); }
  void Field(double v) { file_.Real(v); }
  void Counter(int n, int, const char*) { file_.Int32(n); }
  template <class T>
  void Column(const std::vector<T>& column, int n) {
    StorePadded(column, n, file_);
  }
  void Column(const OffsetVector<double>& column, int n) {
    StorePadded(column.data(), static_cast<std::size_t>(column.size()), n, file_);
  }
  void PairColumns(const ModelRecord& m) {
    Column(m.pairRec1, m.capPairs);
    Column(m.pairRec2, m.capPairs);
    Column(m.pairMin, m.capPairs);
    Column(m.pairMax, m.capPairs);
  }
  void Points(const ModelRecord& m, PointArrays points) {
    if (points == PointArrays::UnlessEmpty && Cells(m) == 0) return;
    StorePadded(m.freq, m.nDispPoints, file_);
    StorePadded(m.vel, Cells(m), file_);
    StorePadded(m.wlen, Cells(m), file_);
  }
  /// Cell by cell, one value from each of the tables.
  void Interleaved(const InvRecord& r, const Tables& tables, std::int64_t rows, std::int64_t columns) {
    for (std::int64_t i = 0; i < rows && file_.Ok(); ++i)
      for (std::int64_t j = 0; j < columns; ++j)
        for (auto table : tables) file_.Real(Cell(r.*table, i, j));
  }

 private:
  AtomicWriter& file_;
};

class Reader {
 public:
  explicit Reader(SectionReader& file) : file_(file) {}

  void Field(int& n) { n = file_.Int32(); }
  void Field(double& v) { v = file_.Real(); }
  /// Limits a counter to the size of the arrays: entries beyond it are not in the file.
  void Counter(int& n, int capacity, const char* what) {
    n = file_.Int32();
    Hold(n, capacity, what);
  }
  template <class T>
  void Column(std::vector<T>& column, int n) {
    column.assign(static_cast<std::size_t>(n), T{});
    Fill(column, n);
  }
  /// What is beyond the column belongs to entries that are not in the file.
  void Column(OffsetVector<double>& column, int n) {
    const int kept = std::min(n, column.size());
    file_.Reals(column.data(), static_cast<std::size_t>(kept));
    file_.Skip(static_cast<std::int64_t>(sizeof(double)) * (n - kept));
  }
  void Hold(int& counter, int capacity, const char* what) {
    const int held = std::clamp(counter, 0, capacity);
    if (held != counter)
      file_.Note(FormatText("A model claims %d %s and holds %d.", counter, what, capacity));
    counter = held;
  }
  void PairColumns(ModelRecord& m);
  void Points(ModelRecord& m, PointArrays points);
  void Interleaved(InvRecord& r, const Tables& tables, std::int64_t rows, std::int64_t columns) {
    for (std::int64_t i = 0; i < rows && !file_.Ended(); ++i)
      for (std::int64_t j = 0; j < columns; ++j)
        for (auto table : tables) (r.*table)(static_cast<int>(i), static_cast<int>(j)) = file_.Real();
  }

 private:
  void Fill(std::vector<double>& column, int n) { file_.Reals(column.data(), static_cast<std::size_t>(n)); }
  void Fill(std::vector<int>& column, int n) { file_.Int32s(column.data(), static_cast<std::size_t>(n)); }

  SectionReader& file_;
};

/// The point arrays of the array curves, with the length that the counters give.
void Reader::Points(ModelRecord& m, PointArrays points) {
  const auto refuse = [&] {
    file_.GiveUp(FormatText("a model claims %d points on %d curves.", m.nDispPoints, m.nDispCurves));
    m.nDispPoints = m.nDispCurves = 0;
  };
  if (m.nDispPoints < 0 || m.nDispCurves < 0) refuse();
  const bool inTheFile = points == PointArrays::Always || Cells(m) > 0;
  if (!inTheFile) Hold(m.nDispPoints, m.capPoints, "points without a curve");
  const bool small = m.nDispPoints <= m.capPoints && Cells(m) <= m.capCurve;  // space is already there
  if (!small && !(file_.CanHold(m.nDispPoints, 1, sizeof(double)) &&
                  file_.CanHold(Cells(m), 2, sizeof(double)) && file_.CanHold(m.nDispCurves, 1, 1)))
    refuse();
  m.freq.assign(static_cast<std::size_t>(std::max(m.capPoints, m.nDispPoints)), 0.0);
  for (auto* table : {&m.vel, &m.wlen})
    table->assign(static_cast<std::size_t>(std::max<std::int64_t>(m.capCurve, Cells(m))), 0.0);
  if (!inTheFile) return;
  file_.Reals(m.freq.data(), static_cast<std::size_t>(m.nDispPoints));
  file_.Reals(m.vel.data(), static_cast<std::size_t>(Cells(m)));
  file_.Reals(m.wlen.data(), static_cast<std::size_t>(Cells(m)));
}

/// The file contains as many pairs as the capacity says; further curves have pairs of zero.
void Reader::PairColumns(ModelRecord& m) {
  if (m.nDispCurves > m.capPairs && Cells(m) == 0) Hold(m.nDispCurves, m.capPairs, "curves");
  const std::size_t used = static_cast<std::size_t>(std::max(m.capPairs, m.nDispCurves));
  for (auto column : {&ModelRecord::pairRec1, &ModelRecord::pairRec2}) {
    (m.*column).assign(used, 0);
    Fill(m.*column, m.capPairs);
  }
  for (auto column : {&ModelRecord::pairMin, &ModelRecord::pairMax}) {
    (m.*column).assign(used, 0.0);
    Fill(m.*column, m.capPairs);
  }
}

/// A model record after its first capacity, up to the fields that must be checked before the arrays are made.
template <class Direction, class Record>
void ModelHead(Direction& d, Record& m) {
  d.Field(m.capPairs);
  d.Field(m.capRec);
  d.Field(m.capPoints);
  d.Field(m.capCurve);
  d.Field(m.analysis);
  d.Field(m.nSubLayers);
  d.Field(m.fDispBulb);
  d.Field(m.nLayers);
}

template <class Direction, class Record>
void ModelBody(Direction& d, Record& m, PointArrays points) {
  for (auto column : kLayerColumns) d.Column(m.*column, m.capLayers);
  d.Field(m.dispCurvType);
  d.Field(m.DispCurvInfo);
  d.Field(m.incRatio);
  d.Counter(m.nDispPointsG, m.capPoints, "points of a global curve");
  for (auto column : kGlobalColumns) d.Column(m.*column, m.capPoints);
  d.Field(m.GlobalRecType);
  d.Field(m.GlobalRec1Loc);
  d.Field(m.GlobalRec2Loc);
  d.Field(m.xDomainType);
  d.Field(m.xMinGlobal);
  d.Field(m.xMaxGlobal);
  d.Counter(m.nReceivers, m.capRec, "receivers");
  d.Column(m.recLoc, m.capRec);
  d.Field(m.nDispPoints);
  d.Field(m.nDispCurves);
  d.Points(m, points);
  d.PairColumns(m);
  d.Field(m.closingWord1);
  d.Field(m.closingWord2);
}

/// A record of results after its first capacity.
template <class Direction, class Record>
void InvHead(Direction& d, Record& r) {
  d.Field(r.maxCurves);
  d.Field(r.maxPoints);
  d.Field(r.maxData);
  d.Field(r.maxEntries);
  d.Field(r.reserved);
  d.Field(r.nLayers);
  d.Field(r.nCurves);
  d.Field(r.nEntries);
  d.Field(r.nPoints);
  d.Field(r.alphaFrom);
  d.Field(r.alphaTo);
}

/// Entries in the file: the wanted ones and the one before them.
std::int64_t StoredEntries(const InvRecord& r) {
  return std::int64_t{std::max(r.nEntries, 0)} + 1;
}

template <class Direction, class Record>
void InvBody(Direction& d, Record& r) {
  const std::int64_t rows = StoredEntries(r);
  d.Interleaved(r, {kModelTables.begin(), kModelTables.end()}, rows, std::int64_t{r.nLayers} + 1);
  d.Interleaved(r, {&InvRecord::freq}, rows, r.nPoints);
  d.Interleaved(r, {&InvRecord::vel, &InvRecord::waveL}, rows, std::int64_t{r.nPoints} * r.nCurves);
  d.Column(r.rms, r.maxEntries);
  d.Interleaved(r, {&InvRecord::resolution}, rows, r.nLayers);
  d.Field(r.ufH);
  d.Field(r.ufVs);
  d.Field(r.minH);
  d.Field(r.maxH);
  d.Field(r.minVs);
  d.Field(r.maxVs);
  d.Field(r.MODELPARM);
  d.Field(r.iSelected);
}

// --- limits from the size of the file ---

/// Whether arrays of so many bytes can still be in the file; if not, the file ends within them.
bool HoldsBytes(SectionReader& file, std::int64_t bytes) {
  if (file.CanHold(bytes, 1, 1)) return true;
  file.Skip(INT64_MAX);
  return false;
}

/// Impossible capacities end the reading; a capacity that would only waste memory is reduced to the used
/// size. Nothing is allocated before the arrays are known to be there.
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
    m.capCurve = 1;  // not 0, which would mean the capacity of the other record
  }
  return true;
}

/// Table sizes of a record that memory can be spent on: by its capacities, or by what is in use where they would
/// only waste memory, as behind a long run in a small project. The tables grow again at the next run.
std::optional<InvTableSizes> AffordInvRecord(SectionReader& file, const InvRecord& r) {
  bool sound = r.maxLayers > 0;
  for (int n :
       {r.maxCurves, r.maxPoints, r.maxData, r.maxEntries, r.nLayers, r.nCurves, r.nEntries, r.nPoints})
    sound = sound && n >= 0;
  const auto afford = [&file](const InvTableSizes& sizes) {
    const double doubles = sizes.Doubles();
    return doubles < 1e15 && file.Afford(static_cast<std::int64_t>(doubles), 1, sizeof(double));
  };
  const InvTableSizes full = TableSizes(r), used = UsedSizes(r);
  if (sound && afford(full)) return full;
  if (sound && full.Doubles() <= kMaxRunDoubles)
    for (const InvTableSizes& sizes :
         {InvTableSizes{full.entries, used.layers, used.points, used.data}, used})
      if (afford(sizes)) return sizes;
  file.GiveUp(FormatText("a record of results claims %d entries of %d layers and %d points on %d curves.",
                         r.nEntries, r.nLayers, r.nPoints, r.nCurves));
  return std::nullopt;
}

// --- records ---

/// The record after its head; false when nothing of it can be used.
bool ReadModelBody(SectionReader& file, ModelRecord& m, PointArrays points) {
  if (!AffordModel(file, m)) return false;
  Reader reader(file);
  reader.Hold(m.nLayers, m.capLayers, "layers");
  ModelBody(reader, m, points);
  return !file.GivenUp();
}

/// -1 when the file has no model.
int ReadFModel(SectionReader& file) {
  FModelParam = ModelRecord{};
  FModelParam.capLayers = file.Int32();
  if (FModelParam.capLayers == 0) return -1;
  Reader reader(file);
  ModelHead(reader, FModelParam);
  return ReadModelBody(file, FModelParam, PointArrays::Always) ? 0 : -1;
}

/// -2 when the file has no theoretical curves.
int ReadTheoDisp(SectionReader& file) {
  ModelRecord& m = TheoDispInfo;
  m = ModelRecord{};
  m.capLayers = file.Int32();
  Reader reader(file);
  ModelHead(reader, m);
  if (m.capLayers == 0) return -2;  // Kept: only after the head
  if (m.capRec == 0) m.capRec = FModelParam.capRec;
  if (m.capCurve == 0) m.capCurve = FModelParam.capCurve;
  if (m.capPairs == 0) m.capPairs = FModelParam.capPairs;
  return ReadModelBody(file, m, PointArrays::UnlessEmpty) ? 0 : -2;
}

/// -3 when the record is not there.
int ReadInvRecord(SectionReader& file, InvRecord& r) {
  r = InvRecord{};
  r.maxLayers = file.Int32();
  if (r.maxLayers == 0) return -3;
  Reader reader(file);
  InvHead(reader, r);
  const std::optional<InvTableSizes> sizes = AffordInvRecord(file, r);
  if (!sizes) return -3;
  const std::int64_t rows = StoredEntries(r);
  const std::int64_t perRow =
      7 * (std::int64_t{r.nLayers} + 1) + r.nPoints + 2 * std::int64_t{r.nPoints} * r.nCurves + r.nLayers;
  if (!HoldsBytes(file, static_cast<std::int64_t>(sizeof(double)) * (rows * perRow + r.maxEntries)))
    return -3;
  AllocateInvRecord(r, *sizes);
  InvBody(reader, r);
  return 0;
}

// --- lists of entries ---

void StoreNumbers(AtomicWriter& file, const std::vector<int>& numbers) {
  for (const int n : numbers) file.Int32(n);
}

/// Up to `count` numbers, but no more than the file has.
std::vector<int> ReadNumbers(SectionReader& file, int count) {
  std::vector<int> numbers;
  for (int i = 0; i < count; ++i) {
    const int v = file.Int32();
    if (file.Ended()) break;
    numbers.push_back(v);
  }
  return numbers;
}

}  // namespace

int ReadModeling(SectionReader& file, EntryNumbers& entries) {
  entries = {};
  if (ReadFModel(file) < 0) return -1;
  if (ReadTheoDisp(file) < 0) return -2;
  if (ReadInvRecord(file, SMPParam) < 0 || ReadInvRecord(file, InvParam) < 0) return -3;
  int count = file.Count("iterations", kMostListItems);
  if (file.Ended()) return -5;
  entries.iterations = ReadNumbers(file, count);
  count = file.Count("profiles", kMostListItems);
  entries.profiles = ReadNumbers(file, count);
  count = file.Count("starting models", kMostListItems);
  file.Int32();  // the given model. Kept: it is read even where the count is 0
  entries.startingModels = ReadNumbers(file, count - 1);
  return 0;
}

/// Stops after the mark of a missing record, as its reader does.
void StoreModeling(AtomicWriter& file, const EntryNumbers& entries) {
  Writer writer(file);
  file.Int32(FModelParam.capLayers);
  if (FModelParam.capLayers == 0) return;
  ModelHead(writer, FModelParam);
  ModelBody(writer, FModelParam, PointArrays::Always);
  file.Int32(TheoDispInfo.capLayers);
  ModelHead(writer, TheoDispInfo);
  if (TheoDispInfo.capLayers == 0) return;
  ModelBody(writer, TheoDispInfo, PointArrays::UnlessEmpty);
  for (const InvRecord* record : {&SMPParam, &InvParam}) {
    file.Int32(record->maxLayers);
    if (record->maxLayers == 0) return;
    InvHead(writer, *record);
    InvBody(writer, *record);
  }
  for (const std::vector<int>* list : {&entries.iterations, &entries.profiles}) {
    file.Int32(static_cast<int>(list->size()));
    StoreNumbers(file, *list);
  }
  file.Int32(static_cast<int>(entries.startingModels.size()) + 1);
  file.Int32(0);  // the given model
  StoreNumbers(file, entries.startingModels);
}

}  // namespace sondera
