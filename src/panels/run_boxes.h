// run_boxes.h - the listener of a run that was started from a panel: STATUSMSG, PROCESSMSG and RMSERROR of the
// results page, message boxes, and the polls that let Halt in. No state.
#pragma once

#include <string>

#include "run/run_listener.h"

namespace sondera {

class RunBoxes : public RunListener {
 public:
  void Status(const std::string& text) override;
  void Process(const std::string& text) override;
  void ShowMessage(const std::string& title, const std::string& text) override;
  /// True when a halt is asked for, by run.course.iHaltRequest, which is taken back, or by an interrupt of the
  /// terminal, which stays for the script. Then the whole press ends (NoteHalt).
  bool Poll() override;
  void LetEventsIn() override;
  void Misfit(double rms) override;
};

}  // namespace sondera
