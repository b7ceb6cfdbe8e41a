// controls.h - the settings store: every parameter of the program is the value of a named control of a panel.
//
// A control is used by its constant: GetCtrlVal(gaborpnl::BETA), SetCtrlVal(gaborpnl::BETA, 2.5). An access
// with a wrong name or type does not compile. The store knows no widgets: a front end is notified of each
// change (runtime/changes.h), writes a person's input by EnterValue and the related functions, and sends
// events by SendEvent. Callbacks of controls are in a table that app/ fills; Commit runs one, as a press
// does.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "runtime/changes.h"
#include "runtime/control.h"
#include "runtime/control_lock.h"
#include "runtime/events.h"

namespace sondera {

// --- values ---

double GetCtrlVal(const NumericControl& c);
int GetCtrlVal(const IntControl& c);
std::string GetCtrlVal(const TextControl& c);
std::string GetCtrlVal(const LabelControl& c);
int GetCtrlVal(const ToggleControl& c);
/// Value of the selected item; 0 when nothing is selected.
int GetCtrlVal(const RingControl& c);
double GetCtrlVal(const RealRingControl& c);
int GetCtrlVal(const ListControl& c);

void SetCtrlVal(const NumericControl& c, double value);
void SetCtrlVal(const IntControl& c, int value);
void SetCtrlVal(const TextControl& c, std::string_view value);
void SetCtrlVal(const LabelControl& c, std::string_view value);
void SetCtrlVal(const ToggleControl& c, int value);
/// Selects the first item with this value; without one the selection stays. Returns whether there was one.
bool SetCtrlVal(const RingControl& c, int value);
bool SetCtrlVal(const RealRingControl& c, double value);
bool SetCtrlVal(const ListControl& c, int value);

/// Text boxes: appends, or replaces all (empties by default).
void AppendText(const TextControl& c, std::string_view text);
void ResetTextBox(const TextControl& c, std::string_view text = {});

// --- items of rings and lists; positions count from 0 ---

template <class C>
concept ItemControl =
    std::is_same_v<C, RingControl> || std::is_same_v<C, RealRingControl> || std::is_same_v<C, ListControl>;

/// The untyped forms, for front ends, which know a control only by its name.
namespace items {
int Count(const Control& c);
int Index(const Control& c);
bool SetIndex(const Control& c, int index);
std::string Label(const Control& c, int index);
double Value(const Control& c, int index);
void Insert(const Control& c, int index, std::string_view label, double value);
void Delete(const Control& c, int index);
void Clear(const Control& c);
int Find(const Control& c, std::string_view label);
}  // namespace items

/// Number of items.
template <ItemControl C>
int GetNumListItems(const C& c) {
  return items::Count(c);
}
/// Position of the selected item, -1 when there is none.
template <ItemControl C>
int GetCtrlIndex(const C& c) {
  return items::Index(c);
}
/// Selects by position; a position outside the list leaves the selection and returns false.
template <ItemControl C>
bool SetCtrlIndex(const C& c, int index) {
  return items::SetIndex(c, index);
}
/// Label at a position, empty outside the list.
template <ItemControl C>
std::string GetLabelFromIndex(const C& c, int index) {
  return items::Label(c, index);
}
/// Value at a position, 0 outside the list.
template <ItemControl C>
double GetValueFromIndex(const C& c, int index) {
  return items::Value(c, index);
}
/// Inserts before a position; -1 appends. The first item of an empty list becomes the selected one.
template <ItemControl C>
void InsertListItem(const C& c, int index, std::string_view label, double value) {
  items::Insert(c, index, label, value);
}
/// Removes one item. The selection stays on its item; when that was the removed one, the item at its place is
/// selected, or the last one.
template <ItemControl C>
void DeleteListItem(const C& c, int index) {
  items::Delete(c, index);
}
template <ItemControl C>
void ClearListCtrl(const C& c) {
  items::Clear(c);
}
/// Position of the first item with this label, -1 when there is none.
template <ItemControl C>
int FindListItem(const C& c, std::string_view label) {
  return items::Find(c, label);
}

// --- tables; rows and columns count from 1 ---

inline constexpr int kMaxTableRows = 100000;

int GetNumTableRows(const TableControl& c);
int GetNumTableColumns(const TableControl& c);
/// Outside the table: 0, and a write is dropped with false.
double GetTableCellVal(const TableControl& c, int row, int column);
bool SetTableCellVal(const TableControl& c, int row, int column, double value);
/// Adds zero rows or removes rows at the end until there are n; n is limited to 0 to kMaxTableRows.
void SetNumTableRows(const TableControl& c, int n);
/// Inserts a zero row before row `row` (rows + 1 appends), or deletes that row; false when outside.
bool InsertTableRow(const TableControl& c, int row);
bool DeleteTableRow(const TableControl& c, int row);
std::string GetTableRowLabel(const TableControl& c, int row);
void SetTableRowLabel(const TableControl& c, int row, std::string_view label);

// --- input of a person ---

/// As SetCtrlVal and the others, for a person's input: false, with nothing written, while the control does
/// not react, for a kind without such values, a number that is not finite or does not fit, an item or a cell
/// that does not exist. For an Int fractions are truncated. Numeric, Int and Toggle accept numbers, rings and
/// lists the value of an item.
bool EnterValue(const Control& c, double number);
/// Text and Label.
bool EnterValue(const Control& c, std::string_view text);
/// Rings and lists, by position from 0.
bool EnterIndex(const Control& c, int index);
bool EnterCell(const TableControl& c, int row, int column, double value);

// --- attributes ---

/// Dimmed by the logic. A control that is not dimmed can still refuse, while something runs (Answers of control_lock.h).
bool IsDimmed(const Control& c);
void SetDimmed(const Control& c, bool dimmed);
bool IsVisible(const Control& c);
void SetVisible(const Control& c, bool visible);
std::string GetCtrlLabel(const Control& c);
void SetCtrlLabel(const Control& c, std::string_view label);

/// Panels: shown or hidden, and the window title. A panel that is shown already is shown again: windows bring it to the
/// front. Of the four pages the one shown last comes to the front; hiding one has no visible effect. A tab page of
/// HMSETUP shows that window with the tab in front.
void DisplayPanel(Panel p);
void HidePanel(Panel p);
bool IsPanelShown(Panel p);
std::string GetPanelTitle(Panel p);
void SetPanelTitle(Panel p, std::string_view title);
/// Tab page in front: of the main window (PANEL) and of the setup dialog (HMSETUP). Pages count from 0.
void SetActiveTabPage(Panel tabs, int page);
int GetActiveTabPage(Panel tabs);

// --- callbacks ---

enum class Event : int {
  Commit = 1,
  ValChanged = 2,
  LeftClick = 3,
  GotFocus = 4,
  LostFocus = 5,
  RightClick = 6,
  LeftDoubleClick = 7,
  Close = 8,
  Drag = 9  ///< of a graph: the mouse moves with the left button down, or is released
};

/// Event handlers return 0, or -1 when they refused or failed. data is zero for a press.
using Callback = int (*)(Panel panel, ControlId control, Event event, long data);

/// Sets a control's callback in the table (app/callbacks does it for all at start-up).
void InstallCallback(const Control& c, Callback callback);
Callback CallbackOf(const Control& c);
/// Runs the control's callback with an event, as a front end does. Without a callback: 0. A control that does
/// not react now (runtime/control_lock.h) refuses a press, or the close of a window, with the message of the
/// lock and -1; its other events do nothing. After an exception from the callback, such as lack of memory,
/// there is a message and -1, so that a person can still save. Observers get all changes of one event in one
/// batch.
int SendEvent(const Control& c, Event event, long data = 0);

/// Presses the control: the commit event.
inline int Commit(const Control& c, long data = 0) {
  return SendEvent(c, Event::Commit, data);
}

/// Presses several controls, each of them whatever the others returned, and remembers a refusal. A halt in
/// one of them ends the chain: the rest is not pressed (see NoteHalt).
class Presses {
 public:
  Presses() { ForgetHalt(); }
  void operator()(const Control& c, long data = 0) {
    if (PressHalted() || Commit(c, data) < 0) result_ = -1;
  }
  int result() const { return result_; }  ///< 0, or -1 when one refused

 private:
  int result_ = 0;
};

// --- the whole store ---

/// Restores the declared first state of every control and panel; observers get one change, of everything.
/// Callbacks and observers stay.
void ResetControls();

}  // namespace sondera
