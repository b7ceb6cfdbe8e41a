// acquisition_state.h - the state of acquisition/ during a measuring run.
//
// The buttons write the flags and the run reads them after each poll: the two share only measRunning,
// measPaused and daqTask. Boards keep their own state (board_choice.h), which belongs to the process, not to
// a session.
#pragma once

namespace sondera {

struct MeasRunState {
  int daqTask = 0;      ///< task of the board, 0 for none
  int measRunning = 0;  ///< 1 during a run
  int measPaused = 0;   ///< 1: no new record is started
  int measStopped = 0;  ///< 1: the last run was ended by Stop
  int avgTarget = 0;    ///< 0: each record counts alone, until Stop
  int avgOn = 0;        ///< 0: each record stands alone, until Stop
  int delivered = 0;    ///< records of the run so far, also those that were not accepted
};
extern MeasRunState measRun;

/// State of a fresh start. The driver ends a task of the board.
void ResetAcquisitionState();

}  // namespace sondera
