// event_listener.h - the listener of work without a progress display: polls process events, the wait cursor
// is shown while it is busy. No state.
#pragma once

#include "runtime/events.h"
#include "runtime/listener.h"

namespace sondera {

class EventListener : public Listener {
 public:
  bool Poll() override {
    ProcessSystemEvents();
    return false;
  }
  void LetEventsIn() override { ProcessSystemEvents(); }
  void Busy(bool on) override { SetWaitCursor(on); }
};

}  // namespace sondera
