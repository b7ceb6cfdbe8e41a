// run_state.cpp - see run_state.h.
#include "run/run_state.h"

#include "run/run_files.h"
#include "run/run_history.h"
#include "run/sweep_state.h"

namespace sondera {

Run run;

void ResetRunState() {
  FS_DropFiles();
  ClearInversionHistories();
  sweepState = SweepState{};
  run = Run{};
}

}  // namespace sondera
