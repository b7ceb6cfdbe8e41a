// listener.h - what a long computation tells whoever started it, and what it asks.
//
// Computing code takes a Listener& and knows nothing of boxes and events; panels/ has the one that fills the
// status boxes and lets events in. A plain Listener hears nothing and never halts: for tests and short work.
#pragma once

#include <string>

#include "runtime/refusal.h"

namespace sondera {

class Listener {
 public:
  virtual ~Listener() = default;
  virtual void Status(const std::string& text) { (void)text; }   ///< what is done now
  virtual void Process(const std::string& text) { (void)text; }  ///< the step within it
  /// A stretch of work in which nothing answers begins or ends: a wait cursor.
  virtual void Busy(bool on) { (void)on; }
  /// What a person has to read now, in a box; the work goes on behind it.
  /// @param title  "": that of the program
  virtual void ShowMessage(const std::string& title, const std::string& text) { (void)title, (void)text; }
  /// Share of the work that is done, 0 to 1.
  virtual void Done(double share) { (void)share; }
  /// Lets events in. True: end now, keep what is finished.
  virtual bool Poll() { return false; }
  /// Lets events in where the work cannot end; a halt is asked for at the next Poll.
  virtual void LetEventsIn() {}

  void Tell(const std::string& text) { ShowMessage("", text); }
  /// Shows a reason in the middle of the work; nothing for a refusal without one.
  void Tell(const Refusal& refusal) {
    if (!refusal.reason().empty()) ShowMessage(refusal.title(), refusal.reason());
  }
};

}  // namespace sondera
