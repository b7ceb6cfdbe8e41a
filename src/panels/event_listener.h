// event_listener.h - the listener of work that shows no progress: polls let events in, a busy stretch shows the
// wait cursor. No state.
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
  void Busy(bool on) override { SetWaitCursor(on); }
};

}  // namespace sondera
