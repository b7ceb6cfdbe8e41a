// run_listener.h - what a run tells beside a plain computation. Callers: the drivers of runs; panels/ has the one
// that fills the boxes of the results page. No state.
#pragma once

#include "runtime/listener.h"

namespace sondera {

class RunListener : public Listener {
 public:
  /// RMS of the velocity residuals of the curve that was just computed, length/s, as FS_RMSerror has it; -1
  /// without any velocity.
  virtual void Misfit(double rmsVel) { (void)rmsVel; }
  virtual void Stored(int entry) { (void)entry; }  ///< an iteration has its entry in the records
};

}  // namespace sondera
