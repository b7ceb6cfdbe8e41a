// run_state.h - the state of run/, and its reset at the start of a session.
//
// `run` is in system_state.h, sweepState in sweep_state.h. Objects that are accessed through functions:
//   run_files.cpp    open        the files of the present run and their lock: they live as long as its RunFiles
//   run_history.cpp  histories   the inversions of the session
#pragma once

#include "run/system_state.h"

namespace sondera {

/// The present run, for those who drive one; computing code takes its parts.
extern Run run;

/// State of a fresh start: files that are still open are dropped.
void ResetRunState();

}  // namespace sondera
