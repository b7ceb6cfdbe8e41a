// run_boxes.h - a run on the boxes of the results page: what it tells, how far it is, whether it is to be halted;
// and that nothing else runs beside it.
//
// Callers: whoever starts a run, with one RunBoxes and one AnalysisLock for each. Owned state: none beyond that.
#pragma once

#include <chrono>
#include <string>

#include "run/run_listener.h"
#include "runtime/control_lock.h"

namespace sondera {

/// Fills STATUSMSG, PROCESSMSG and RMSERROR of the results page.
class RunBoxes : public RunListener {
 public:
  /// Once the run tells how far it is, the share done and the time left stand behind the text.
  void Status(const std::string& text) override;
  void Process(const std::string& text) override;
  void ShowMessage(const std::string& title, const std::string& text) override;
  /// 0 starts the clock. Renews the status box, at most twice a second.
  void Done(double share) override;
  /// Lets events in; true when a halt is asked for, by run.course.iHaltRequest, which is taken back, or by an
  /// interrupt of the terminal, which stays for the script. Then the whole press ends (NoteHalt).
  bool Poll() override;
  void LetEventsIn() override;
  void Misfit(double rmsVel) override;

 private:
  using Clock = std::chrono::steady_clock;
  void Show(Clock::time_point now);

  bool underWay_ = false;
  double share_ = 0.0;
  Clock::time_point start_{}, shown_{};
  std::string text_;
};

/// Held while a run works on `run` and the records: of all buttons only Halt answers, so that a press that
/// comes in by an event poll cannot start another run or replace the project under this one. A request for a
/// halt from before is forgotten.
class AnalysisLock : public ControlLock {
 public:
  AnalysisLock();
};

/// "     37 % done, 2 min 05 s left" for a share of the work and the time that it took, seconds; without the
/// time while there is nothing to judge it by.
std::string ProgressText(double share, double elapsed);

}  // namespace sondera
