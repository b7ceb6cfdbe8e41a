// solve_counter.h - progress of a run whose number of solver calls is known beforehand. Callers: the driver
// of an inversion. Owned state: none.
#pragma once

#include <string>

#include "run/run_listener.h"
#include "run/system_state.h"

namespace sondera {

/// Solver calls of one sweep over the observation rows: rows of array curves; points times set-ups of a
/// global curve; only points with plane waves.
long SolvesOfSweep(const Observations& observations, const Switches& switches);

/// Listener between a run and its own listener: each poll (one after each solver call) counts as a solve and
/// reports the share that is done. With a number of solves below 1 it reports none.
class SolveCounter : public RunListener {
 public:
  SolveCounter(RunListener& listener, long solves) : listener_(listener), solves_(solves) {
    if (solves_ > 0) listener_.Done(0.0);
  }
  void Status(const std::string& text) override { listener_.Status(text); }
  void Process(const std::string& text) override { listener_.Process(text); }
  void Busy(bool on) override { listener_.Busy(on); }
  void ShowMessage(const std::string& title, const std::string& text) override {
    listener_.ShowMessage(title, text);
  }
  void Done(double share) override { listener_.Done(share); }
  bool Poll() override;
  void LetEventsIn() override { listener_.LetEventsIn(); }
  void Misfit(double rmsVel) override { listener_.Misfit(rmsVel); }
  void Stored(int entry) override { listener_.Stored(entry); }

 private:
  RunListener& listener_;
  long solves_ = 0, done_ = 0;
};

}  // namespace sondera
