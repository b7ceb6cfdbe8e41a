// controls.h - the settings store: every parameter of the logic is the value of a named control of a panel.
//
// A control is declared once, in the header of its panel (runtime/catalogue/), as a typed constant:
//
//     namespace sondera::gaborpnl {
//     inline constexpr NumericControl BETA{Panel::GABORPNL, "BETA", "Exponent", 3.0};
//     }
//
// and used by that constant: GetCtrlVal(gaborpnl::BETA), SetCtrlVal(gaborpnl::BETA, 2.5). A misspelt or
// mistyped access does not compile. The store knows no widgets: a front end observes it and writes user input
// through the same calls. Callbacks of controls are held in a table that app/ fills; Commit runs one, as a
// press would.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace sondera {

/// All panels. MAINMENU holds the menu items of the main window.
enum class Panel : int {
  PANEL,
  MEASPANEL,
  SASW,
  DISPCURV,
  EXDTHD,
  HMSETUP,
  HWSETUP,
  MEASSETUP,
  LOADTXDATA,
  LOAD2CHNL,
  LOADEXD,
  ASAVEDLG,
  DEVPANEL,
  IRFSETPNL,
  IRFSETPNL2,
  GABORPNL,
  CDISPPNL,
  TMGRAFPNL,
  FMODELING,
  INVERSION,
  ANALRESULT,
  PULSE,
  MSCALEPNL,
  DSP_MSCALE,
  EXD_SCALE,
  ABOUTPNL,
  CHANGEID,
  CHANGEID_1,
  CONFIRMPNL,
  MESSAGEPNL,
  MAINMENU,
};
inline constexpr int kPanelCount = static_cast<int>(Panel::MAINMENU) + 1;

enum class ControlKind : int {
  Numeric,
  Int,
  Text,
  Ring,
  RealRing,
  List,
  Table,
  Graph,
  Button,
  Toggle,
  Label,
  Menu
};

/// Item of a ring or a list. Rings of lengths hold real values, all others whole ones.
struct ListItem {
  std::string_view label;
  double value;
};

/// What a control is and how it starts. Use the typed forms below to declare one.
struct Control {
  Panel panel;
  ControlKind kind;
  std::string_view name;                 ///< the constant's own name, e.g. "BETA"
  std::string_view label;                ///< caption shown beside it
  double number = 0.0;                   ///< first value of Numeric, Int, Toggle; first index of rings
  std::string_view text = {};            ///< first value of Text and Label; menu path of Menu
  std::span<const ListItem> items = {};  ///< first items of a ring or list
  int rows = 0;                          ///< first number of rows of a Table; its cells start at 0
  std::span<const std::string_view> columns = {};  ///< column titles of a Table
  bool dimmed = false;                             ///< starts dimmed
  bool hidden = false;                             ///< starts hidden
};
using ControlId = const Control*;

/// Real number.
struct NumericControl : Control {
  constexpr NumericControl(Panel p, std::string_view n, std::string_view l, double first = 0.0)
      : Control{p, ControlKind::Numeric, n, l, first} {}
};
/// Whole number.
struct IntControl : Control {
  constexpr IntControl(Panel p, std::string_view n, std::string_view l, int first = 0)
      : Control{p, ControlKind::Int, n, l, static_cast<double>(first)} {}
};
/// Text, of one line or many.
struct TextControl : Control {
  constexpr TextControl(Panel p, std::string_view n, std::string_view l, std::string_view first = {})
      : Control{p, ControlKind::Text, n, l, 0.0, first} {}
};
/// One of a list of items, each with a whole value. Read and set by value; SetCtrlIndex sets by position.
struct RingControl : Control {
  constexpr RingControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i = {},
                        int firstIndex = 0)
      : Control{p, ControlKind::Ring, n, l, static_cast<double>(firstIndex), {}, i} {}
};
/// The same with real values (units of length, voltage ranges).
struct RealRingControl : Control {
  constexpr RealRingControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i = {},
                            int firstIndex = 0)
      : Control{p, ControlKind::RealRing, n, l, static_cast<double>(firstIndex), {}, i} {}
};
/// List box: items with whole values and a selection.
struct ListControl : Control {
  constexpr ListControl(Panel p, std::string_view n, std::string_view l, std::span<const ListItem> i = {})
      : Control{p, ControlKind::List, n, l, 0.0, {}, i} {}
};
/// Table of real numbers; rows and columns count from 1.
struct TableControl : Control {
  constexpr TableControl(Panel p, std::string_view n, std::string_view l, int rowCount,
                         std::span<const std::string_view> columnTitles)
      : Control{p, ControlKind::Table, n, l, 0.0, {}, {}, rowCount, columnTitles} {}
};
/// Graph; its content is a model of runtime/graphs.h.
struct GraphControl : Control {
  constexpr GraphControl(Panel p, std::string_view n, std::string_view l)
      : Control{p, ControlKind::Graph, n, l} {}
};
/// Push button: no value, a callback.
struct ButtonControl : Control {
  constexpr ButtonControl(Panel p, std::string_view n, std::string_view l)
      : Control{p, ControlKind::Button, n, l} {}
};
/// On or off (or a small count of states): check box, toggle button, lamp.
struct ToggleControl : Control {
  constexpr ToggleControl(Panel p, std::string_view n, std::string_view l, int first = 0)
      : Control{p, ControlKind::Toggle, n, l, static_cast<double>(first)} {}
};
/// Text on the panel that the logic writes (row labels and the like).
struct LabelControl : Control {
  constexpr LabelControl(Panel p, std::string_view n, std::string_view first)
      : Control{p, ControlKind::Label, n, first, 0.0, first} {}
};
/// Item of the menu bar; menu is its path ("File/Import").
struct MenuControl : Control {
  constexpr MenuControl(std::string_view n, std::string_view menu, std::string_view caption)
      : Control{Panel::MAINMENU, ControlKind::Menu, n, caption, 0.0, menu} {}
};

/// Starts hidden or dimmed: `inline constexpr auto X = Hidden(IntControl{...});`
template <class C>
constexpr C Hidden(C control) {
  control.hidden = true;
  return control;
}
template <class C>
constexpr C Dimmed(C control) {
  control.dimmed = true;
  return control;
}

// ---- values
// -------------------------------------------------------------------------------------------------------

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

// ---- items of rings and lists; positions count from 0
// ---------------------------------------------------------------

template <class C>
concept ItemControl =
    std::is_same_v<C, RingControl> || std::is_same_v<C, RealRingControl> || std::is_same_v<C, ListControl>;

/// The untyped forms, for front ends, which meet a control by its name only.
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
/// Removes one item. The selection stays on its item; when that was the removed one it goes to the item that
/// took its place, or to the last.
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

// ---- tables; rows and columns count from 1
// --------------------------------------------------------------------------

inline constexpr int kMaxTableRows = 100000;

int GetNumTableRows(const TableControl& c);
int GetNumTableColumns(const TableControl& c);
/// Outside the table: 0, and a write is dropped with false.
double GetTableCellVal(const TableControl& c, int row, int column);
bool SetTableCellVal(const TableControl& c, int row, int column, double value);
/// Adds zero rows or removes rows at the end until there are n; n is held between 0 and kMaxTableRows.
void SetNumTableRows(const TableControl& c, int n);
/// Inserts a zero row before row `row` (rows + 1 appends), or deletes that row; false when outside.
bool InsertTableRow(const TableControl& c, int row);
bool DeleteTableRow(const TableControl& c, int row);
std::string GetTableRowLabel(const TableControl& c, int row);
void SetTableRowLabel(const TableControl& c, int row, std::string_view label);

// ---- attributes
// -----------------------------------------------------------------------------------------------------

bool IsDimmed(const Control& c);
void SetDimmed(const Control& c, bool dimmed);
bool IsVisible(const Control& c);
void SetVisible(const Control& c, bool visible);
std::string GetCtrlLabel(const Control& c);
void SetCtrlLabel(const Control& c, std::string_view label);

/// Panels: shown or hidden, and the window title.
void DisplayPanel(Panel p);
void HidePanel(Panel p);
bool IsPanelShown(Panel p);
std::string GetPanelTitle(Panel p);
void SetPanelTitle(Panel p, std::string_view title);
/// Tab page in front: of the main window (PANEL) and of the setup dialog (HMSETUP). Pages count from 0.
void SetActiveTabPage(Panel tabs, int page);
int GetActiveTabPage(Panel tabs);

// ---- callbacks
// ------------------------------------------------------------------------------------------------------

enum class Event : int {
  Commit = 1,
  ValChanged = 2,
  LeftClick = 3,
  GotFocus = 4,
  LostFocus = 5,
  RightClick = 6,
  LeftDoubleClick = 7,
  Close = 8
};

/// Event handlers return 0, or -1 when they refused or failed. data is zero for a press.
using Callback = int (*)(Panel panel, ControlId control, Event event, long data);

/// Puts a control's callback into the table (app/callbacks does it for all at start-up).
void InstallCallback(const Control& c, Callback callback);
Callback CallbackOf(const Control& c);
/// Runs the control's callback with an event, as a front end does. Without a callback: 0. An exception out of
/// it, such as memory that is not there, gives a message and -1, so that a person can still save.
int SendEvent(const Control& c, Event event, long data = 0);
/// While it lives only one control answers: a press of any other is refused with a message and -1, other
/// events of them do nothing. For work that lets events in and must keep what it works on. Does not nest.
class OnlyControl {
 public:
  OnlyControl(const Control& allowed, std::string_view title, std::string_view refusal);
  ~OnlyControl();
  OnlyControl(const OnlyControl&) = delete;
  OnlyControl& operator=(const OnlyControl&) = delete;
};

/// The control that alone answers now; null when all do.
ControlId OnlyAnswering();

/// Presses the control: the commit event.
inline int Commit(const Control& c, long data = 0) {
  return SendEvent(c, Event::Commit, data);
}

/// Presses several controls, each of them whatever the others said, and remembers a refusal.
class Presses {
 public:
  void operator()(const Control& c, long data = 0) {
    if (Commit(c, data) < 0) result_ = -1;
  }
  int result() const { return result_; }  ///< 0, or -1 when one refused

 private:
  int result_ = 0;
};

// ---- the whole store
// ------------------------------------------------------------------------------------------------

/// Brings every control and panel to its declared first state. Callbacks and observers stay.
void ResetControls();

/// All controls of a panel, in the order of declaration; and one by its name. Null when there is none.
std::span<const Control* const> ControlsOf(Panel p);
ControlId FindControl(Panel p, std::string_view name);
std::string_view PanelName(Panel p);
/// Title of a panel before any logic writes one, and whether it starts shown: the main window with its menu and the
/// tab pages do, dialogs do not. These and the two above are answered by runtime/catalogue/catalogue.cpp.
std::string_view DefaultPanelTitle(Panel p);
bool PanelStartsShown(Panel p);

/// Called after each change of a control (value, items, attributes) or of a panel (control is null).
using Observer = std::function<void(Panel panel, ControlId control)>;
int AddObserver(Observer observer);  ///< returns a number for RemoveObserver
void RemoveObserver(int number);

}  // namespace sondera
