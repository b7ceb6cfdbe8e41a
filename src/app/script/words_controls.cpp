// words_controls.cpp - the words that reach every control by its name: set, cell, cells, item, press, point.
#include <array>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "runtime/graphs.h"
#include "runtime/project_hooks.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

constexpr std::string_view kEvents = "commit|changed|left|right|double|focus|blur|close";
/// In the order of kEvents.
constexpr std::array kEventsByName = {
    Event::Commit,          Event::ValChanged, Event::LeftClick, Event::RightClick,
    Event::LeftDoubleClick, Event::GotFocus,   Event::LostFocus, Event::Close};
constexpr unsigned kValues = Bit(ControlKind::Numeric) | Bit(ControlKind::Int) | Bit(ControlKind::Text) |
                             Bit(ControlKind::Toggle) | Bit(ControlKind::Label) | kItemControls;

// ---- set, item, cell ------------------------------------------------------------------------------------

void CheckSet(const Arguments& a) {
  CheckValue(a.control("CONTROL"), a.text("VALUE"));
}

void Set(Run& run, const Arguments& a) {
  const Control& control = a.control("CONTROL");
  if (a.text("commit", "yes") == "yes")
    run.enter(control, a.text("VALUE"));
  else
    WriteValue(control, a.text("VALUE"));
}

void Item(Run& run, const Arguments& a) {
  run.choose(a.control("CONTROL"), a.text("LABEL"));
}

/// A column by its number or by its title.
int ColumnOf(const TableControl& table, const std::string& text) {
  const int columns = GetNumTableColumns(table);
  if (const auto number = WholeOf(text)) {
    if (*number < 1 || *number > columns)
      throw Fault(FormatText("%s has the columns 1 to %d", NameOf(table).c_str(), columns));
    return *number;
  }
  std::vector<std::string> titles(table.columns.begin(), table.columns.end());
  for (int c = 1; c <= columns; ++c)
    if (titles[static_cast<std::size_t>(c - 1)] == text) return c;
  throw Fault(UnknownText("column of " + NameOf(table), text, titles));
}

void CheckCell(const Arguments& a) {
  ColumnOf(static_cast<const TableControl&>(a.control("CONTROL")), a.text("COLUMN"));
  if (a.whole("ROW") < 1) throw Fault("rows count from 1");
}

void Cell(Run& run, const Arguments& a) {
  const auto& table = static_cast<const TableControl&>(a.control("CONTROL"));
  run.notify(table, Event::GotFocus);
  if (!SetTableCellVal(table, a.whole("ROW"), ColumnOf(table, a.text("COLUMN")), a.number("VALUE")))
    throw Fault(FormatText("%s has %d rows now", NameOf(table).c_str(), GetNumTableRows(table)));
  run.notify(table, Event::Commit);
}

// ---- cells ----------------------------------------------------------------------------------------------

struct NewCell {
  long row;  // of a line; a table may have fewer
  int column;
  double value;
};

/// The cells of a block: rows between semicolons, values between commas. A cell without a value is left out.
std::vector<NewCell> BlockOf(const Arguments& a) {
  const auto& table = static_cast<const TableControl&>(a.control("CONTROL"));
  const int column = ColumnOf(table, a.text("COLUMN")), columns = GetNumTableColumns(table);
  std::vector<NewCell> block;
  long row = a.whole("ROW");
  std::istringstream rows(a.text("VALUES"));
  for (std::string line; std::getline(rows, line, ';'); ++row) {
    int at = column;
    for (const std::string& item : ItemsOf(line)) {
      if (!item.empty()) {
        const auto number = NumberOf(item);
        if (!number) throw Fault("VALUES: " + Quoted(item) + " is not a number");
        if (at > columns)
          throw Fault(FormatText("%s has the columns 1 to %d", NameOf(table).c_str(), columns));
        block.push_back({row, at, *number});
      }
      ++at;
    }
  }
  if (block.empty()) throw Fault("VALUES has no number");
  return block;
}

void CheckCells(const Arguments& a) {
  if (a.whole("ROW") < 1) throw Fault("rows count from 1");
  BlockOf(a);
}

/// One entry, as a person's who pastes.
void Cells(Run& run, const Arguments& a) {
  const auto& table = static_cast<const TableControl&>(a.control("CONTROL"));
  const std::vector<NewCell> block = BlockOf(a);
  if (block.back().row > GetNumTableRows(table))
    throw Fault(FormatText("%s has %d rows now", NameOf(table).c_str(), GetNumTableRows(table)));
  run.notify(table, Event::GotFocus);
  for (const NewCell& cell : block)
    SetTableCellVal(table, static_cast<int>(cell.row), cell.column, cell.value);
  run.notify(table, Event::Commit);
}

// ---- press ----------------------------------------------------------------------------------------------

void PressControl(Run& run, const Arguments& a) {
  const Event event =
      a.has("event") ? kEventsByName[static_cast<std::size_t>(a.choice("event"))] : Event::Commit;
  run.press(a.control("CONTROL"), event);
}

// ---- point ----------------------------------------------------------------------------------------------

/// A moved cursor is first moving and then released; a left click ends as a completed click.
void Point(Run& run, const Arguments& a) {
  enum { kLeft, kRight, kDouble, kMove };
  const auto& graph = static_cast<const GraphControl&>(a.control("CONTROL"));
  const int choice = a.choice("EVENT");
  GraphPlace place{.x = a.number("X"), .y = a.number("Y"), .button = MouseButton::Left};
  if (choice == kRight) place.button = MouseButton::Right;
  if (a.has("cursor")) {
    place.cursor = a.whole("cursor");
    const int cursors = static_cast<int>(GraphOf(graph).cursors.size());
    if (place.cursor < 1 || place.cursor > cursors)
      throw Fault(FormatText("%s has %d cursors now", NameOf(graph).c_str(), cursors));
  }
  const std::vector<Event> kEventsOf[] = {{Event::LeftClick, Event::Commit},
                                          {Event::RightClick},
                                          {Event::LeftDoubleClick},
                                          {Event::ValChanged, Event::Commit}};
  for (const Event event : kEventsOf[choice]) run.point(graph, event, place);
}

void Drag(Run& run, const Arguments& a) {
  run.point(static_cast<const GraphControl&>(a.control("CONTROL")), Event::Drag,
            {.x = a.number("X2"),
             .y = a.number("Y2"),
             .button = MouseButton::Left,
             .fromX = a.number("X1"),
             .fromY = a.number("Y1")});
}

// ---- page -----------------------------------------------------------------------------------------------

constexpr std::string_view kTabs = "PANEL|HMSETUP";
constexpr int kPages[] = {4, 2};  // of the main window and of the setup dialog

void CheckPage(const Arguments& a) {
  const int pages = kPages[a.choice("TABS")];
  if (a.whole("N") < 1 || a.whole("N") > pages) throw Fault(FormatText("N is from 1 to %d", pages));
}

/// The pages of curves are redrawn when they come to the front.
void Page(Run&, const Arguments& a) {
  constexpr int kDispersionPage = 3, kResultsPage = 4;
  const int page = a.whole("N");
  const Panel tabs = a.choice("TABS") == 0 ? Panel::PANEL : Panel::HMSETUP;
  if (GetActiveTabPage(tabs) == page - 1) return;
  SetActiveTabPage(tabs, page - 1);
  if (tabs != Panel::PANEL) return;
  if (page == kDispersionPage) LookAround([] { DispCurvPlot(1); });
  if (page == kResultsPage) LookAround([] { ExdThdCurvPlot(); });
}

ArgumentSpec Number(std::string_view name) {
  return Fixed(name, Kind::Number);
}

}  // namespace

std::vector<WordForm> ControlForms() {
  const ArgumentSpec graph = ControlArgument("PANEL.GRAPH", Bit(ControlKind::Graph));
  return {
      {"set",
       {ControlArgument("PANEL.CONTROL", kValues), Fixed("VALUE", Kind::Text)},
       {Optional(Named("commit", Kind::Choice, "no|yes"))},
       "Writes a value into a control and commits it, as a person does; with commit=no the value alone. A "
       "ring or a "
       "list takes the value or the label of an item, a switch also yes and no.",
       Set,
       CheckSet},
      {"cell",
       {ControlArgument("PANEL.TABLE", Bit(ControlKind::Table)), Fixed("ROW", Kind::Whole),
        Fixed("COLUMN", Kind::Text), Fixed("VALUE", Kind::Number)},
       {},
       "Writes one cell of a table; the column by its number or its title.",
       Cell,
       CheckCell},
      {"cells",
       {ControlArgument("PANEL.TABLE", Bit(ControlKind::Table)), Fixed("ROW", Kind::Whole),
        Fixed("COLUMN", Kind::Text), Fixed("VALUES", Kind::Text, "V,V,...;V,V,...")},
       {},
       "Writes a block of cells in one step, as a paste does: the first cell, then the values of a row "
       "between "
       "commas and the rows between semicolons. A cell without a value stays.",
       Cells,
       CheckCells},
      {"item",
       {ControlArgument("PANEL.RING", kItemControls), Fixed("LABEL", Kind::Text)},
       {},
       "Selects an item of a ring or a list by its label.",
       Item},
      {"press",
       {ControlArgument("PANEL.CONTROL")},
       {Optional(Named("event", Kind::Choice, kEvents))},
       "Presses a button, a menu item (MAINMENU.NAME) or any other control, or sends it another event.",
       PressControl},
      {"point",
       {graph, Fixed("EVENT", Kind::Choice, "left|right|double|move"), Number("X"), Number("Y")},
       {Optional(Named("cursor", Kind::Whole, "K"))},
       "Sends an event of the mouse to a graph, in the units of its axes: a click, or with move cursor=K a "
       "marker that is moved there. A right click on a mask of trace A picks it.",
       Point},
      {"point",
       {graph, Literal("drag"), Number("X1"), Number("Y1"), Number("X2"), Number("Y2")},
       {},
       "Drags the mouse over a graph: on trace A of the masking page the two markers go to both ends, and "
       "the fields of the mask follow.",
       Drag},
      {"page",
       {Fixed("TABS", Kind::Choice, kTabs), Fixed("N", Kind::Whole)},
       {},
       "Brings a tab page of the main window or of the setup dialog to the front.",
       Page,
       CheckPage},
  };
}

}  // namespace sondera::script
