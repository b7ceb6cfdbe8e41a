// input_scope.h - one action of a person, which a front end reports to the listener of the session
// (session_watch.h). No state.
#pragma once

#include <utility>
#include <vector>

#include "runtime/controls.h"
#include "runtime/graphs.h"

namespace sondera {

/// Kind of action.
struct Input {
  enum class Kind {
    Press,  ///< a button or a menu item
    Value,  ///< a value entered into a field, or an item selected
    Cells,  ///< cells of a table
    Point,  ///< the mouse on a graph
    Page,   ///< a tab page brought to the front
    Open,   ///< another project opened, whatever the questions before
  } kind = Kind::Press;
  ControlId control = nullptr;
  Event event = Event::Commit;
  GraphPlace place = {};
  std::vector<std::pair<int, int>> cells = {};  ///< rows and columns, from 1
  Panel panel = Panel::PANEL;                   ///< of Page
  int page = 0;                                 ///< of Page, from 0
};

/// An action, from its first event to its last. Actions of a callback inside it are not separate.
class InputScope {
 public:
  explicit InputScope(Input input);
  ~InputScope();
  InputScope(const InputScope&) = delete;
  InputScope& operator=(const InputScope&) = delete;
  /// The value is in the store.
  void entered();
  /// Gets the result of an event: below 0 the action was refused.
  void note(int result) { refused_ = refused_ || result < 0; }

 private:
  Input input_;
  bool refused_ = false;
  int messages_;  // shown before
};

}  // namespace sondera
