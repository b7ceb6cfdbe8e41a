// input_scope.h - one act of a person, as a front end tells it to the listener of the session (session_watch.h). No
// state.
#pragma once

#include <utility>
#include <vector>

#include "runtime/controls.h"
#include "runtime/graphs.h"

namespace sondera {

/// What a person did.
struct Input {
  enum class Kind {
    Press,  ///< a button or a menu item
    Value,  ///< a value entered into a field, or an item selected
    Cells,  ///< cells of a table
    Point,  ///< the mouse on a graph
    Page,   ///< a tab page brought to the front
    Open,   ///< another project opened, whatever was asked before
  } kind = Kind::Press;
  ControlId control = nullptr;
  Event event = Event::Commit;
  GraphPlace place = {};
  std::vector<std::pair<int, int>> cells = {};  ///< rows and columns, from 1
  Panel panel = Panel::PANEL;                   ///< of Page
  int page = 0;                                 ///< of Page, from 0
};

/// An act, from its first event to its last. What a callback does inside of it is no act of its own.
class InputScope {
 public:
  explicit InputScope(Input input);
  ~InputScope();
  InputScope(const InputScope&) = delete;
  InputScope& operator=(const InputScope&) = delete;
  /// The value stands in the store.
  void entered();
  /// Takes the result of an event: below 0 the act was refused.
  void note(int result) { refused_ = refused_ || result < 0; }

 private:
  Input input_;
  bool refused_ = false;
  int messages_;  // shown before; a message counts as a refusal, since a script stops at it
};

}  // namespace sondera
