// run_listener.h - what a run tells besides the texts of every long computation.
//
// panels/ has the one that fills the boxes of the results page. No state.
#pragma once

#include "runtime/listener.h"

namespace sondera {

class RunListener : public Listener {
 public:
  virtual void Misfit(double rms) { (void)rms; }   ///< of the curves just computed, as FS_RMSerror has it
  virtual void Stored(int entry) { (void)entry; }  ///< an iteration has its entry in the records
};

}  // namespace sondera
