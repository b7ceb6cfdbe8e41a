// control_lock.h - restricts the controls while a run processes events and its data must not change.
#pragma once

#include <initializer_list>
#include <string_view>

#include "runtime/control.h"

namespace sondera {

/// While it exists only the named controls react: a press of any other is refused with a message, other
/// events of it do nothing, and EnterValue writes nothing to it. Locks nest: a control reacts when each of
/// them names it. Observers are told about the start and the end (ChangeKind::Lock).
class ControlLock {
 public:
  /// @param allowed  the controls that react; the first one is the button that ends the work
  ControlLock(std::initializer_list<ControlId> allowed, std::string_view title, std::string_view refusal);
  ~ControlLock();
  ControlLock(const ControlLock&) = delete;
  ControlLock& operator=(const ControlLock&) = delete;
};

/// True while a lock exists.
bool IsLocked();
/// Whether a press of the control, or a value that a person enters, is accepted now.
bool Answers(const Control& c);
/// The button that ends the work of the innermost lock; null without a lock.
ControlId EndingControl();

/// Message for a control that does not react: that of the innermost lock without it. Empty when it reacts.
struct LockRefusal {
  std::string_view title, text;
};
LockRefusal RefusalOf(const Control& c);

}  // namespace sondera
