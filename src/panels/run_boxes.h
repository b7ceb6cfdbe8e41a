// run_boxes.h - shows a run in the boxes of the results page: its reports, its progress, requests to halt it;
// and ensures that nothing else runs at the same time.
//
// Callers: code that starts a run, with one RunBoxes and one AnalysisLock for each. Owned state: none beyond
// that.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "run/run_listener.h"
#include "runtime/control_lock.h"
#include "runtime/controls.h"

namespace sondera {

/// Fills STATUSMSG, PROCESSMSG and RMSERROR of the results page; or, with a box of its own, only that.
class RunBoxes : public RunListener {
 public:
  RunBoxes();
  explicit RunBoxes(const TextControl& status) : status_(status) {}
  /// Once the run reports progress, the share done and the time left follow the text.
  void Status(const std::string& text) override;
  void Process(const std::string& text) override;
  void ShowMessage(const std::string& title, const std::string& text) override;
  /// 0 starts the clock. Updates the status box, at most twice a second.
  void Done(double share) override;
  /// Processes events; true when a halt was requested, by run.course.iHaltRequest, which is then reset, or by
  /// an interrupt of the terminal, which remains for the script. Then the whole press ends (NoteHalt).
  bool Poll() override;
  void LetEventsIn() override;
  void Misfit(double rmsVel) override;

 private:
  using Clock = std::chrono::steady_clock;
  void Show(Clock::time_point now);

  const TextControl& status_;
  const TextControl* process_ = nullptr;  // null without one
  bool underWay_ = false;
  double share_ = 0.0;
  Clock::time_point start_{}, shown_{};
  std::string text_;
};

/// Held while a run works on `run` and the records: only the button Halt works, so that a press during an
/// event poll cannot start another run or replace the project. An earlier request for a halt is cleared.
class AnalysisLock : public ControlLock {
 public:
  AnalysisLock();
  /// The same with another button that halts, and the message for a press of any other.
  AnalysisLock(ControlId halt, std::string_view refusal);
};

/// "     37 % done, 2 min 05 s left" for a share of the work and the time that it took, seconds; without the
/// time while it cannot be estimated.
std::string ProgressText(double share, double elapsed);

}  // namespace sondera
