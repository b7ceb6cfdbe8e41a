// undo.h - Undo and Redo: masks (New, Update, Delete, Reset, Auto), Include and Exclude, and the three tables of the
// panel of the forward model.
//
// A callback that changes one of them holds an UndoStep while it works. The step keeps what was there before and after,
// of the parts that it changed only, so that Undo takes back nothing else: a curve that was calculated in the meantime
// stays. The steps of a project are in panels_state.h; a load and a new project forget them.
#pragma once

#include <optional>
#include <string>

#include "panels/undo_record.h"
#include "runtime/controls.h"

namespace sondera {

/// Keeps a step if what it guards has changed when it ends. A step inside another belongs to that one.
class UndoStep {
 public:
  explicit UndoStep(std::string what);
  ~UndoStep();
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;

 private:
  std::string what_;
  std::optional<UndoState> before_;
};

/// Takes the latest step back, or does it again, and draws what it concerns. -1 when there is none.
int Undo();
int Redo();
/// What Undo or Redo would concern; empty when there is nothing.
std::string UndoText();
std::string RedoText();
/// Forgets all steps.
void ForgetUndo();

/// Menu items. They are dimmed while there is nothing to take back.
int UndoCallback(Panel panel, ControlId control, Event event, long data);
int RedoCallback(Panel panel, ControlId control, Event event, long data);

/// Tables of the forward model: entering one remembers the cells, and a changed cell makes a step.
int TableCellCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
