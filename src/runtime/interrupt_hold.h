// interrupt_hold.h - lets a run finish the step that it is at before an interrupt of the terminal reaches it (events.h).
#pragma once

namespace sondera {

/// Whether holds hold: off at the start of a session. Option --finish-iteration.
void LetRunsFinishSteps(bool on);

/// While it lives, InterruptRequested stays false until the end of the step in which the request came.
class InterruptHold {
 public:
  InterruptHold();
  ~InterruptHold();
  InterruptHold(const InterruptHold&) = delete;
  InterruptHold& operator=(const InterruptHold&) = delete;
  void StepIsDone();  ///< a request that came in this step is told from now on
};

}  // namespace sondera
