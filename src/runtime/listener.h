// listener.h - reports and questions of a long computation to its caller.
//
// Computing code gets a Listener& and knows nothing of boxes and events; panels/ has the one that fills the
// status boxes and processes events. The base class ignores all reports and never halts: for tests and short
// work.
#pragma once

#include <string>

#include "runtime/refusal.h"

namespace sondera {

class Listener {
 public:
  virtual ~Listener() = default;
  virtual void Status(const std::string& text) { (void)text; }   ///< present work
  virtual void Process(const std::string& text) { (void)text; }  ///< the step within it
  /// Start or end of work without any response: a wait cursor.
  virtual void Busy(bool on) { (void)on; }
  /// Message that a person must read now, in a box; the work then continues.
  /// @param title  "": that of the program
  virtual void ShowMessage(const std::string& title, const std::string& text) { (void)title, (void)text; }
  /// Share of the work that is done, 0 to 1.
  virtual void Done(double share) { (void)share; }
  /// Processes events. True: end now, keep finished results.
  virtual bool Poll() { return false; }
  /// Processes events where the work cannot end; a halt takes effect at the next Poll.
  virtual void LetEventsIn() {}

  void Tell(const std::string& text) { ShowMessage("", text); }
  /// Shows a reason during the work; nothing for a refusal without one.
  void Tell(const Refusal& refusal) {
    if (!refusal.reason().empty()) ShowMessage(refusal.title(), refusal.reason());
  }
};

}  // namespace sondera
