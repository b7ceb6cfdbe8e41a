// run_listener.h - the reports of a run beyond those of a plain computation. Callers: the drivers of runs;
// panels/ has the listener that fills the boxes of the results page. No state.
#pragma once

#include "runtime/listener.h"

namespace sondera {

class RunListener : public Listener {
 public:
  /// RMS of the velocity residuals of the last computed curve, length/s, as in FS_RMSerror; -1 without any
  /// velocity.
  virtual void Misfit(double rmsVel) { (void)rmsVel; }
  virtual void Stored(int entry) { (void)entry; }  ///< an iteration has its entry in the records
};

}  // namespace sondera
