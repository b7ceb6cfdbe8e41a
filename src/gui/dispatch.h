// dispatch.h - the one place through which a person's actions enter the program.
//
// Each event is handled in the same way: it is refused while the control does not react (a run) or during
// another event; else focus in, left click, the value into the store, the event, the wait cursor removed, and
// the views updated. During a run the controls that the run names (Halt) are handled in the run's polls.
//
// A widget calls one of these from a signal that only a person causes (activated, clicked, editingFinished),
// never when the store has changed it. True: the event was sent; false: refused, and the widget shows the
// store's value again.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "runtime/controls.h"
#include "runtime/graphs.h"

namespace sondera {

/// A button or a menu item.
bool DispatchPress(const Control& c);
/// A field, a check box, a colour: a number and the event. A number that the store does not accept is
/// refused.
bool DispatchNumber(const Control& c, double value);
bool DispatchText(const Control& c, std::string_view text);
/// An item of a ring (Commit) or of a list (ValChanged, then Commit), by its position from 0.
bool DispatchIndex(const Control& c, int index);
/// A click on the item of a list that is chosen already: focus and click, no value.
void DispatchClick(const Control& c);
/// A double click on an item of a list: it is selected, then LeftDoubleClick.
bool DispatchDoubleClick(const Control& c, int index);
/// Cells of a table, rows and columns from 1; one event for all of them.
struct CellEntry {
  int row = 0, column = 0;
  double value = 0.0;
};
bool DispatchCells(const TableControl& c, const std::vector<CellEntry>& cells);
/// The mouse on a graph; see SendGraphEvent for which events there are.
bool DispatchGraph(const GraphControl& c, Event event, const GraphPlace& place);
/// A tab of the main window or of the setup dialog: no event, the page is redrawn where nothing runs.
bool DispatchTab(Panel tabs, int page);
/// The close button of a panel: its CLOSE, else CANCEL, else OK is pressed; without one the panel is hidden.
bool DispatchClose(Panel panel);
/// Any other request of a person that presses controls itself (open a dropped file, undo).
bool DispatchAction(const std::function<void()>& action);

/// Whether an event of the control would be accepted now. Determines which widgets are dimmed.
bool Takes(const Control& c);
/// True during an event of a person.
bool InEvent();

/// Function that updates the views at the end of an event.
void SetShowViews(std::function<void()> show);

/// A close request of the main window. During an event it waits for the end of the event; if the present run
/// can be halted, its button is pressed first.
void RequestClose();

}  // namespace sondera
