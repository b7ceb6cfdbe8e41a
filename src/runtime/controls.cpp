// controls.cpp - the settings store. Owns the state of all controls and panels and the callback table. A
// control's state is created from its declaration at its first use.
#include "runtime/controls.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <limits>
#include <new>
#include <unordered_map>

#include "runtime/dialogs.h"
#include "runtime/events.h"

namespace sondera {
namespace {

constexpr char kTitle[] = "Sondera";  // of a message when the callback showed none

struct StoredItem {
  std::string label;
  double value;
};

struct TableRow {
  std::string label;
  std::vector<double> cells;
};

struct ControlState {
  double number = 0.0;
  std::string text;
  std::vector<StoredItem> items;
  int index = -1;
  std::vector<TableRow> rows;
  bool dimmed = false;
  bool visible = true;
  std::string label;
};

struct PanelState {
  bool shown = false;
  std::string title;
  int activeTab = 0;
};

std::array<PanelState, kPanelCount> FirstPanels() {
  std::array<PanelState, kPanelCount> panels;
  for (int i = 0; i < kPanelCount; ++i) {
    const auto p = static_cast<Panel>(i);
    panels[static_cast<std::size_t>(i)] = {PanelStartsShown(p), std::string(DefaultPanelTitle(p)), 0};
  }
  return panels;
}

struct Store {
  std::unordered_map<ControlId, ControlState> controls;
  std::array<PanelState, kPanelCount> panels = FirstPanels();
  std::unordered_map<ControlId, Callback> callbacks;
};
Store store;

ControlState FirstState(const Control& c) {
  ControlState s;
  s.number = c.number;
  s.text = c.text;
  s.dimmed = c.dimmed;
  s.visible = !c.hidden;
  s.label = c.label;
  for (const ListItem& item : c.items) s.items.push_back({std::string(item.label), item.value});
  if (!s.items.empty()) s.index = static_cast<int>(c.number);
  s.rows.resize(static_cast<std::size_t>(c.rows), TableRow{{}, std::vector<double>(c.columns.size(), 0.0)});
  return s;
}

ControlState& StateOf(const Control& c) {
  auto found = store.controls.find(&c);
  if (found == store.controls.end()) found = store.controls.emplace(&c, FirstState(c)).first;
  return found->second;
}

PanelState& StateOf(Panel p) {
  return store.panels[static_cast<std::size_t>(p)];
}

void Changed(const Control& c, ChangeKind kind) {
  NoteChange({.kind = kind, .panel = c.panel, .control = &c});
}
void Changed(Panel p, ChangeKind kind) {
  NoteChange({.kind = kind, .panel = p});
}

void SetNumber(const Control& c, double value) {
  StateOf(c).number = value;
  Changed(c, ChangeKind::Value);
}
void SetText(const Control& c, std::string_view value) {
  StateOf(c).text = value;
  Changed(c, ChangeKind::Value);
}

bool SelectValue(const Control& c, double value) {
  ControlState& s = StateOf(c);
  for (std::size_t i = 0; i < s.items.size(); ++i) {
    if (s.items[i].value != value) continue;
    s.index = static_cast<int>(i);
    Changed(c, ChangeKind::Value);
    return true;
  }
  return false;
}
double SelectedValue(const Control& c) {
  return items::Value(c, StateOf(c).index);
}

bool HasRow(const Control& c, int row) {
  return row >= 1 && row <= static_cast<int>(StateOf(c).rows.size());
}
bool HasColumn(const Control& c, int column) {
  return column >= 1 && column <= static_cast<int>(c.columns.size());
}
TableRow ZeroRow(const Control& c) {
  return {{}, std::vector<double>(c.columns.size(), 0.0)};
}

}  // namespace

// ---- values -------------------------------------------------------------------------------------------------------

double GetCtrlVal(const NumericControl& c) {
  return StateOf(c).number;
}
int GetCtrlVal(const IntControl& c) {
  return static_cast<int>(StateOf(c).number);
}
std::string GetCtrlVal(const TextControl& c) {
  return StateOf(c).text;
}
std::string GetCtrlVal(const LabelControl& c) {
  return StateOf(c).text;
}
int GetCtrlVal(const ToggleControl& c) {
  return static_cast<int>(StateOf(c).number);
}
int GetCtrlVal(const RingControl& c) {
  return static_cast<int>(SelectedValue(c));
}
double GetCtrlVal(const RealRingControl& c) {
  return SelectedValue(c);
}
int GetCtrlVal(const ListControl& c) {
  return static_cast<int>(SelectedValue(c));
}

void SetCtrlVal(const NumericControl& c, double value) {
  SetNumber(c, value);
}
void SetCtrlVal(const IntControl& c, int value) {
  SetNumber(c, value);
}
void SetCtrlVal(const TextControl& c, std::string_view value) {
  SetText(c, value);
}
void SetCtrlVal(const LabelControl& c, std::string_view value) {
  SetText(c, value);
}
void SetCtrlVal(const ToggleControl& c, int value) {
  SetNumber(c, value);
}
bool SetCtrlVal(const RingControl& c, int value) {
  return SelectValue(c, value);
}
bool SetCtrlVal(const RealRingControl& c, double value) {
  return SelectValue(c, value);
}
bool SetCtrlVal(const ListControl& c, int value) {
  return SelectValue(c, value);
}

void AppendText(const TextControl& c, std::string_view text) {
  StateOf(c).text += text;
  Changed(c, ChangeKind::Value);
}
void ResetTextBox(const TextControl& c, std::string_view text) {
  SetText(c, text);
}

// ---- items --------------------------------------------------------------------------------------------------------

namespace items {

int Count(const Control& c) {
  return static_cast<int>(StateOf(c).items.size());
}
int Index(const Control& c) {
  return StateOf(c).index;
}

bool SetIndex(const Control& c, int index) {
  if (index < 0 || index >= Count(c)) return false;
  StateOf(c).index = index;
  Changed(c, ChangeKind::Value);
  return true;
}

std::string Label(const Control& c, int index) {
  return index >= 0 && index < Count(c) ? StateOf(c).items[static_cast<std::size_t>(index)].label
                                        : std::string();
}

double Value(const Control& c, int index) {
  return index >= 0 && index < Count(c) ? StateOf(c).items[static_cast<std::size_t>(index)].value : 0.0;
}

void Insert(const Control& c, int index, std::string_view label, double value) {
  ControlState& s = StateOf(c);
  const int count = static_cast<int>(s.items.size());
  const int at = index < 0 || index > count ? count : index;
  s.items.insert(s.items.begin() + at, StoredItem{std::string(label), value});
  if (count == 0)
    s.index = 0;
  else if (s.index >= at)
    ++s.index;
  Changed(c, ChangeKind::Items);
}

void Delete(const Control& c, int index) {
  ControlState& s = StateOf(c);
  if (index < 0 || index >= static_cast<int>(s.items.size())) return;
  s.items.erase(s.items.begin() + index);
  if (s.index > index) --s.index;
  s.index = std::min(s.index, static_cast<int>(s.items.size()) - 1);
  Changed(c, ChangeKind::Items);
}

void Clear(const Control& c) {
  StateOf(c).items.clear();
  StateOf(c).index = -1;
  Changed(c, ChangeKind::Items);
}

int Find(const Control& c, std::string_view label) {
  const auto& list = StateOf(c).items;
  const auto found =
      std::find_if(list.begin(), list.end(), [&](const StoredItem& i) { return i.label == label; });
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

}  // namespace items

// ---- tables -------------------------------------------------------------------------------------------------------

int GetNumTableRows(const TableControl& c) {
  return static_cast<int>(StateOf(c).rows.size());
}
int GetNumTableColumns(const TableControl& c) {
  return static_cast<int>(c.columns.size());
}

double GetTableCellVal(const TableControl& c, int row, int column) {
  if (!HasRow(c, row) || !HasColumn(c, column)) return 0.0;
  return StateOf(c).rows[static_cast<std::size_t>(row - 1)].cells[static_cast<std::size_t>(column - 1)];
}

bool SetTableCellVal(const TableControl& c, int row, int column, double value) {
  if (!HasRow(c, row) || !HasColumn(c, column)) return false;
  StateOf(c).rows[static_cast<std::size_t>(row - 1)].cells[static_cast<std::size_t>(column - 1)] = value;
  NoteChange({ChangeKind::Cells, c.panel, &c, row, row, column, column});
  return true;
}

void SetNumTableRows(const TableControl& c, int n) {
  StateOf(c).rows.resize(static_cast<std::size_t>(std::clamp(n, 0, kMaxTableRows)), ZeroRow(c));
  Changed(c, ChangeKind::Items);
}

bool InsertTableRow(const TableControl& c, int row) {
  auto& rows = StateOf(c).rows;
  const int count = static_cast<int>(rows.size());
  if (row < 1 || row > count + 1 || count >= kMaxTableRows) return false;
  rows.insert(rows.begin() + (row - 1), ZeroRow(c));
  Changed(c, ChangeKind::Items);
  return true;
}

bool DeleteTableRow(const TableControl& c, int row) {
  if (!HasRow(c, row)) return false;
  auto& rows = StateOf(c).rows;
  rows.erase(rows.begin() + (row - 1));
  Changed(c, ChangeKind::Items);
  return true;
}

std::string GetTableRowLabel(const TableControl& c, int row) {
  return HasRow(c, row) ? StateOf(c).rows[static_cast<std::size_t>(row - 1)].label : std::string();
}

void SetTableRowLabel(const TableControl& c, int row, std::string_view label) {
  if (!HasRow(c, row)) return;
  StateOf(c).rows[static_cast<std::size_t>(row - 1)].label = label;
  Changed(c, ChangeKind::Label);
}

// ---- input of a person
// ------------------------------------------------------------------------------------------

bool EnterValue(const Control& c, double number) {
  if (!Answers(c) || !std::isfinite(number)) return false;
  switch (c.kind) {
    case ControlKind::Numeric:
      SetNumber(c, number);
      return true;
    case ControlKind::Int:
    case ControlKind::Toggle:
      if (std::fabs(number) > std::numeric_limits<int>::max()) return false;
      SetNumber(c, std::trunc(number));
      return true;
    case ControlKind::Ring:
    case ControlKind::RealRing:
    case ControlKind::List:
      return SelectValue(c, number);
    default:
      return false;
  }
}

bool EnterValue(const Control& c, std::string_view text) {
  if (!Answers(c) || (c.kind != ControlKind::Text && c.kind != ControlKind::Label)) return false;
  SetText(c, text);
  return true;
}

bool EnterIndex(const Control& c, int index) {
  return Answers(c) && items::SetIndex(c, index);
}

bool EnterCell(const TableControl& c, int row, int column, double value) {
  return Answers(c) && std::isfinite(value) && SetTableCellVal(c, row, column, value);
}

// ---- attributes ---------------------------------------------------------------------------------------------------

bool IsDimmed(const Control& c) {
  return StateOf(c).dimmed && !(IsLocked() && Answers(c));  // what a lock names is live while it holds
}
void SetDimmed(const Control& c, bool dimmed) {
  StateOf(c).dimmed = dimmed;
  Changed(c, ChangeKind::Attribute);
}
bool IsVisible(const Control& c) {
  return StateOf(c).visible;
}
void SetVisible(const Control& c, bool visible) {
  StateOf(c).visible = visible;
  Changed(c, ChangeKind::Attribute);
}
std::string GetCtrlLabel(const Control& c) {
  return StateOf(c).label;
}
void SetCtrlLabel(const Control& c, std::string_view label) {
  StateOf(c).label = label;
  Changed(c, ChangeKind::Label);
}

namespace {

/// The tabs with this page, and its number; page -1 for a panel that is not a page.
struct TabPage {
  Panel tabs;
  int page;
};

TabPage TabOf(Panel p) {
  switch (p) {
    case Panel::MEASPANEL:
      return {Panel::PANEL, 0};
    case Panel::SASW:
      return {Panel::PANEL, 1};
    case Panel::DISPCURV:
      return {Panel::PANEL, 2};
    case Panel::EXDTHD:
      return {Panel::PANEL, 3};
    case Panel::HWSETUP:
      return {Panel::HMSETUP, 0};
    case Panel::MEASSETUP:
      return {Panel::HMSETUP, 1};
    default:
      return {p, -1};
  }
}

}  // namespace

// Showing a page of tabs shows its window and brings the page to the front; hiding one does not remove its
// tab.
void DisplayPanel(Panel p) {
  StateOf(p).shown = true;
  Changed(p, ChangeKind::Shown);
  const TabPage tab = TabOf(p);
  if (tab.page < 0) return;
  if (!StateOf(tab.tabs).shown) DisplayPanel(tab.tabs);
  SetActiveTabPage(tab.tabs, tab.page);
}
void HidePanel(Panel p) {
  StateOf(p).shown = false;
  Changed(p, ChangeKind::Shown);
}
bool IsPanelShown(Panel p) {
  return StateOf(p).shown;
}
std::string GetPanelTitle(Panel p) {
  return StateOf(p).title;
}
void SetPanelTitle(Panel p, std::string_view title) {
  StateOf(p).title = title;
  Changed(p, ChangeKind::Title);
}
void SetActiveTabPage(Panel tabs, int page) {
  StateOf(tabs).activeTab = page;
  Changed(tabs, ChangeKind::TabPage);
}
int GetActiveTabPage(Panel tabs) {
  return StateOf(tabs).activeTab;
}

// ---- callbacks --------------------------------------------------------------------------------------

void InstallCallback(const Control& c, Callback callback) {
  store.callbacks[&c] = callback;
}

Callback CallbackOf(const Control& c) {
  const auto found = store.callbacks.find(&c);
  return found == store.callbacks.end() ? nullptr : found->second;
}

int SendEvent(const Control& c, Event event, long data) {
  const ChangeBatch batch;
  if (!Answers(c)) {
    if (event != Event::Commit && event != Event::Close) return 0;
    const LockRefusal refusal = RefusalOf(c);
    MessagePopup(refusal.title, refusal.text);
    return -1;
  }
  const Callback callback = CallbackOf(c);
  if (!callback) return 0;
  std::string trouble;
  try {
    return callback(c.panel, &c, event, data);
  } catch (const std::bad_alloc&) {
    trouble = "There is not enough memory for this. It was not done.";
  } catch (const std::exception& e) {
    trouble = std::string("This was not done, by an error of the program: ") + e.what() + ".";
  }
  SetWaitCursor(false);
  MessagePopup(kTitle, trouble);
  return -1;
}

void ResetControls() {
  store.controls.clear();
  store.panels = FirstPanels();
  NoteChange({.kind = ChangeKind::Everything});
}

}  // namespace sondera
