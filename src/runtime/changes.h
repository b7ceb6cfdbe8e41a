// changes.h - notices that a control, a panel or a graph has changed, and in what.
//
// The store and the graph models report each change by NoteChange. A front end observes: it gets the changes
// of one event together, each control once for each kind of change, and then reads the state. Code that needs
// every intermediate text (a progress line, a test) watches instead and is called at once.
#pragma once

#include <functional>
#include <span>

#include "runtime/control.h"

namespace sondera {

enum class ChangeKind : int {
  Everything,  ///< all controls, panels and graphs: read the whole state again
  Value,       ///< value of a control, text of a text box, selection of a ring or list
  Items,       ///< items of a ring or list, rows of a table
  Cells,       ///< cells of a table, see rows and columns
  Attribute,   ///< dimmed, visible
  Label,       ///< caption of a control, label of a table row
  Graph,       ///< contents of a graph
  Shown,       ///< a panel is shown or hidden
  Title,       ///< title of a panel
  TabPage,     ///< tab page in front
  Lock,        ///< other controls react than before (runtime/control_lock.h)
};

struct Change {
  ChangeKind kind = ChangeKind::Everything;
  Panel panel = Panel::PANEL;
  ControlId control = nullptr;  ///< null for changes of a panel, of the lock, and for everything
  int firstRow = 0, lastRow = 0, firstColumn = 0, lastColumn = 0;  ///< of Cells, from 1
};

/// The changes of one event, or one change outside of an event. Observers and watchers must not throw.
using Observer = std::function<void(std::span<const Change>)>;
using Watcher = std::function<void(const Change&)>;

int AddObserver(Observer observer);  ///< returns a number for RemoveObserver
int AddWatcher(Watcher watcher);     ///< returns a number for RemoveObserver
void RemoveObserver(int number);

/// Reports a change: to watchers now, to observers at the end of the batch.
void NoteChange(const Change& change);

/// While one exists, changes are collected; they are sent when the last one ends.
class ChangeBatch {
 public:
  ChangeBatch();
  ~ChangeBatch();
  ChangeBatch(const ChangeBatch&) = delete;
  ChangeBatch& operator=(const ChangeBatch&) = delete;
};

/// Sends the changes collected so far, also within a batch: before a box is shown, and when events are
/// processed during a run.
void FlushChanges();

}  // namespace sondera
