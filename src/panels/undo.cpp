// undo.cpp - see undo.h. The history is in panels_state.h.
#include "panels/undo.h"

#include <cstddef>
#include <cstring>
#include <utility>

#include "panels/dispcurv_page.h"
#include "panels/fmodeling_records.h"
#include "panels/panels_state.h"
#include "records/selection.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "signal/irf.h"

namespace sondera {
namespace {

struct UndoTable {
  const TableControl& table;
  const IntControl& rows;
  const char* prefix;  ///< of the labels of its rows
};
constexpr UndoTable kTables[] = {{fmodeling::SOILPROFILE, fmodeling::NLAYERS, "L"},
                                 {fmodeling::RECEIVERLOC, fmodeling::NRECEIVERS, "R"},
                                 {fmodeling::DISPCURVINFO, fmodeling::NDISPCURVES, "D"}};

/// Stored numbers of a pair, and their places.
template <class T>
struct PairField {
  T PairMapState::*kept;
  T PMeasInfo::*own;
};
constexpr PairField<int> kPairInts[] = {{&PairMapState::irfMode, &PMeasInfo::irfMode},
                                        {&PairMapState::timeDiv, &PMeasInfo::timeDiv},
                                        {&PairMapState::freqDiv, &PMeasInfo::freqDiv}};
constexpr PairField<double> kPairReals[] = {{&PairMapState::initTime, &PMeasInfo::initTime},
                                            {&PairMapState::finalTime, &PMeasInfo::finalTime},
                                            {&PairMapState::initFreq, &PMeasInfo::initFreq},
                                            {&PairMapState::finalFreq, &PMeasInfo::finalFreq},
                                            {&PairMapState::cntThreshold, &PMeasInfo::cntThreshold}};

// ---- present state
// ------------------------------------------------------------------------------------------------

MaskState MasksNow() {
  MaskState state;
  for (const MaskingInfo& mask : MeasDB.maskingList) state.masks.push_back(mask);
  state.picked = session.selMask;
  return state;
}

bool Same(const MaskState& a, const MaskState& b) {
  const auto same = [](const MaskingInfo& x, const MaskingInfo& y) {
    return x.key == y.key && x.refChan == y.refChan && x.dspChan == y.dspChan && x.freqInit == y.freqInit &&
           x.freqFinal == y.freqFinal && x.jumpNo == y.jumpNo && x.lineInit == y.lineInit &&
           x.lineFinal == y.lineFinal;
  };
  if (a.masks.size() != b.masks.size()) return false;
  for (std::size_t i = 0; i < a.masks.size(); ++i)
    if (!same(a.masks[i], b.masks[i])) return false;
  return true;
}

/// FNV-1a over bytes.
void AddBytes(std::uint64_t& digest, const void* data, std::size_t size) {
  const auto* byte = static_cast<const unsigned char*>(data);
  for (std::size_t i = 0; i < size; ++i) digest = (digest ^ byte[i]) * 1099511628211ull;
}

std::uint64_t DigestOf(const PMeasInfo& pair) {
  std::uint64_t digest = 14695981039346656037ull;
  AddBytes(digest, pair.maskFlag.data(), pair.maskFlag.size() * sizeof(int));
  for (const auto array : kPairArrays)
    AddBytes(digest, (pair.*array).data(), (pair.*array).size() * sizeof(double));
  return digest;
}

/// Masks belong to the pair on trace A.
std::optional<PairMapState> PairNow() {
  using namespace sasw;
  const int key = GetKeyFromID(session.curProjID, GetLabelFromIndex(DISPAID, GetCtrlIndex(DISPAID)));
  const PMeasInfo* pair =
      key == -1 ? nullptr : FindPair(key, GetCtrlVal(DISPA_REFCHNL), GetCtrlVal(DISPACHNL));
  if (!pair) return std::nullopt;
  const PMeasInfo& p = *pair;
  PairMapState state;
  state.key = p.key;
  state.refChan = p.refChan;
  state.dspChan = p.dspChan;
  state.arrays = DigestOf(p);
  for (const auto field : kPairInts) state.*field.kept = p.*field.own;
  for (const auto field : kPairReals) state.*field.kept = p.*field.own;
  state.bbT = p.bbT;
  state.enT = p.enT;
  if (p.gabor) state.maps = std::make_shared<const std::array<GaborMap, 3>>(*p.gabor);
  return state;
}

bool SameSettings(const PairMapState& a, const PairMapState& b) {
  const bool sameMaps = a.maps && b.maps ? *a.maps == *b.maps : !a.maps && !b.maps;
  bool same = sameMaps && a.bbT == b.bbT && a.enT == b.enT;
  for (const auto field : kPairInts) same = same && a.*field.kept == b.*field.kept;
  for (const auto field : kPairReals) same = same && a.*field.kept == b.*field.kept;
  return same;
}

InclusionState InclusionNow() {
  InclusionState state;
  for (const PMeasInfo& p : MeasDB.pMeasList)
    state.flags.push_back({p.key, p.refChan, p.dspChan, p.included});
  return state;
}

TableState TablesNow() {
  TableState state;
  for (std::size_t t = 0; t < std::size(kTables); ++t) {
    const TableControl& table = kTables[t].table;
    TableState::Cells& cells = state.tables[t];
    cells.rows = GetNumTableRows(table);
    for (int row = 1; row <= cells.rows; ++row)
      for (int column = 1; column <= GetNumTableColumns(table); ++column)
        cells.values.push_back(GetTableCellVal(table, row, column));
  }
  return state;
}

UndoState EverythingNow() {
  return {MasksNow(), PairNow(), InclusionNow(), TablesNow()};
}

// ---- steps ----------------------------------------------------------------------------------------------

void DimMenu() {
  SetDimmed(mainmenu::UNDO, panelsState.undo.done.empty());
  SetDimmed(mainmenu::REDO, panelsState.undo.undone.empty());
}

/// Drops the parts that are the same in both states.
void KeepWhatDiffers(UndoState& before, UndoState& after) {
  const bool masksChanged = !Same(*before.masks, *after.masks);
  const bool samePair = before.pair && after.pair && before.pair->key == after.pair->key &&
                        before.pair->refChan == after.pair->refChan &&
                        before.pair->dspChan == after.pair->dspChan;
  const bool pairChanged =
      samePair && (before.pair->arrays != after.pair->arrays || !SameSettings(*before.pair, *after.pair));
  if (!masksChanged) before.masks = after.masks = std::nullopt;
  if (!masksChanged || !pairChanged) before.pair = after.pair = std::nullopt;
  // A new pair is created by a display, not by a step.
  if (before.inclusion->flags.size() != after.inclusion->flags.size() ||
      *before.inclusion == *after.inclusion)
    before.inclusion = after.inclusion = std::nullopt;
  if (*before.tables == *after.tables) before.tables = after.tables = std::nullopt;
}

void Keep(std::string what, UndoState before, UndoState after) {
  KeepWhatDiffers(before, after);
  if (!before.masks && !before.inclusion && !before.tables) return;
  UndoHistory& history = panelsState.undo;
  history.undone.clear();
  history.done.push_back({std::move(what), std::move(before), std::move(after)});
  if (history.done.size() > kMostUndoSteps) history.done.erase(history.done.begin());
  DimMenu();
}

// ---- back and forth -------------------------------------------------------------------------------------

void PutMasks(const MaskState& state) {
  MeasDB.maskingList.clear();
  for (const MaskingInfo& mask : state.masks) *MeasDB.maskingList.append() = mask;
  session.selMask = state.picked;
}

/// Computes the pair from the masks. Arrays that the step did not change stay.
void PutPair(const PairMapState& state, const PairMapState& other) {
  CurrentPair current;
  current.key = state.key;
  current.refChan = state.refChan;
  current.dspChan = state.dspChan;
  if (GetInfoFromKey(state.key, current.records) == -1) return;
  current.pair = FindPair(state.key, state.refChan, state.dspChan);
  if (!current.pair) return;
  PMeasInfo& p = *current.pair;
  if (!SameSettings(state, other)) {
    for (const auto field : kPairInts) p.*field.own = state.*field.kept;
    for (const auto field : kPairReals) p.*field.own = state.*field.kept;
    p.bbT = state.bbT;
    p.enT = state.enT;
    p.gabor = state.maps ? std::make_unique<std::array<GaborMap, 3>>(*state.maps) : nullptr;
  }
  if (state.arrays != other.arrays) CalcIRF(0, current);
}

void PutInclusion(const InclusionState& state) {
  for (const InclusionState::Flag& flag : state.flags)
    if (PMeasInfo* pair = FindPair(flag.key, flag.refChan, flag.dspChan)) pair->included = flag.included;
  FillCurveLists();
}

void PutTables(const TableState& state, const TableState& other) {
  for (std::size_t t = 0; t < std::size(kTables); ++t) {
    const TableState::Cells& cells = state.tables[t];
    if (cells == other.tables[t]) continue;
    const UndoTable& to = kTables[t];
    AdjustTableSize(to.table, cells.rows, to.prefix);
    SetCtrlVal(to.rows, cells.rows);
    std::size_t at = 0;
    for (int row = 1; row <= cells.rows; ++row)
      for (int column = 1; column <= GetNumTableColumns(to.table) && at < cells.values.size(); ++column)
        SetTableCellVal(to.table, row, column, cells.values[at++]);
  }
  panelsState.undo.atFocus = TablesNow();
}

void Put(const UndoState& state, const UndoState& other) {
  if (state.masks) PutMasks(*state.masks);
  if (state.pair) PutPair(*state.pair, *other.pair);
  if (state.inclusion) PutInclusion(*state.inclusion);
  if (state.tables) PutTables(*state.tables, *other.tables);
  if (state.masks) DoPlotting(kMaskingPage);
}

int Move(std::vector<UndoEntry>& from, std::vector<UndoEntry>& to, bool back) {
  if (from.empty()) return -1;
  UndoEntry entry = std::move(from.back());
  from.pop_back();
  if (back)
    Put(entry.before, entry.after);
  else
    Put(entry.after, entry.before);
  to.push_back(std::move(entry));
  DimMenu();
  return 0;
}

}  // namespace

UndoStep::UndoStep(std::string what) : what_(std::move(what)) {
  if (panelsState.undo.depth++ == 0) before_ = EverythingNow();
}

UndoStep::~UndoStep() {
  --panelsState.undo.depth;
  if (!before_) return;
  Keep(std::move(what_), std::move(*before_), EverythingNow());
  if (panelsState.undo.atFocus) panelsState.undo.atFocus = TablesNow();
}

int Undo() {
  return Move(panelsState.undo.done, panelsState.undo.undone, true);
}
int Redo() {
  return Move(panelsState.undo.undone, panelsState.undo.done, false);
}

std::string UndoText() {
  return panelsState.undo.done.empty() ? std::string() : panelsState.undo.done.back().what;
}
std::string RedoText() {
  return panelsState.undo.undone.empty() ? std::string() : panelsState.undo.undone.back().what;
}

void ForgetUndo() {
  panelsState.undo = {};
  DimMenu();
}

int UndoCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Undo() : 0;
}
int RedoCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Redo() : 0;
}

int TableCellCallback(Panel, ControlId, Event event, long) {
  UndoHistory& history = panelsState.undo;
  if (event == Event::GotFocus) history.atFocus = TablesNow();
  if (event != Event::Commit || !history.atFocus) return 0;
  UndoState before = EverythingNow(), after = before;
  before.tables = std::exchange(history.atFocus, after.tables);
  Keep("Cell of a table", std::move(before), std::move(after));
  return 0;
}

}  // namespace sondera
