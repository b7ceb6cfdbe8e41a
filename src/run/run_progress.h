// run_progress.h - how far a run is whose number of solves is known beforehand, share done and time left
// beside the text of the status box; whether it is to be halted; and that nothing else runs beside it.
//
// Callers: the driver of an inversion begins and ends it and sets the status text, the sweeps count their
// solves. Owned state: the progress of the present run. Without a run under way counting does nothing.
#pragma once

#include <string>

#include "runtime/controls.h"

namespace sondera {

/// Solver calls of one sweep over the observation rows: rows of array curves, points times set-ups of a
/// global curve, points alone with plane waves.
long SolvesOfSweep();

/// Starts to count towards a number of solves.
void BeginRunProgress(long solves);
void EndRunProgress();

/// Held by a driver while it works on `run` and the records: of all buttons only Halt answers, so that a
/// press that comes in by an event poll cannot start another run or replace the project under this one. A
/// request for a halt from before is forgotten.
class AnalysisLock : public ControlLock {
 public:
  AnalysisLock();
};

/// Lets events in; true when a halt is asked for, by run.course.iHaltRequest, which is taken back, or by an
/// interrupt of the terminal, which stays for the script.
bool HaltAsked();

/// One more solve is done. Renews the status box, at most twice a second.
void CountSolve();

/// Puts a text into STATUSMSG; while a run is under way with the share done and the time left behind it.
void ShowRunStatus(const std::string& text);

/// "     37 % done, 2 min 05 s left" for a share of solves and the time that they took, seconds; without the
/// time while there is nothing to judge it by.
std::string ProgressText(long done, long solves, double elapsed);

}  // namespace sondera
