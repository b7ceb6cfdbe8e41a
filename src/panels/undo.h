// undo.h - Undo and Redo: masks (New, Update, Delete, Reset, Auto), Include and Exclude, and the three tables of the
// panel of the forward model.
//
// A callback that changes one of them holds an UndoStep while it works. The step stores the state before and
// after, only of the parts that it changed, so that Undo restores nothing else: a curve that was calculated
// in the meantime stays. The steps of a project are in panels_state.h; a load and a new project clear them.
#pragma once

#include <optional>
#include <string>

#include "panels/undo_record.h"
#include "runtime/controls.h"

namespace sondera {

/// Stores a step if the guarded data have changed at its end. A step inside another belongs to that one.
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

/// Undoes the latest step, or does it again, and draws the data concerned. -1 when there is none.
int Undo();
int Redo();
/// Name of the step that Undo or Redo would affect; empty when there is none.
std::string UndoText();
std::string RedoText();
/// Clears all steps.
void ForgetUndo();

/// Menu items. They are dimmed while there is no step.
int UndoCallback(Panel panel, ControlId control, Event event, long data);
int RedoCallback(Panel panel, ControlId control, Event event, long data);

/// Tables of the forward model: focus in stores the cells, and a changed cell makes a step.
int TableCellCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
