// control_lock.h - which controls answer while something runs that lets events in and must keep what it works on.
#pragma once

#include <initializer_list>
#include <string_view>

#include "runtime/control.h"

namespace sondera {

/// While it lives only the named controls answer: a press of any other is refused with a message, other events of
/// them do nothing, and EnterValue writes nothing into them. Locks nest: a control answers when each of them names
/// it. Observers hear of the beginning and the end (ChangeKind::Lock).
class ControlLock {
 public:
  /// @param allowed  what answers; the first one is the button that ends the work
  ControlLock(std::initializer_list<ControlId> allowed, std::string_view title, std::string_view refusal);
  ~ControlLock();
  ControlLock(const ControlLock&) = delete;
  ControlLock& operator=(const ControlLock&) = delete;
};

/// True while a lock lives.
bool IsLocked();
/// Whether a press of the control, or a value that a person enters, is taken now.
bool Answers(const Control& c);
/// The button that ends the work of the innermost lock; null without a lock.
ControlId EndingControl();

/// What a control that does not answer says: that of the innermost lock without it. Empty when it answers.
struct LockRefusal {
  std::string_view title, text;
};
LockRefusal RefusalOf(const Control& c);

}  // namespace sondera
