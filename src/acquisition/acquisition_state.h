// acquisition_state.h - what acquisition/ remembers while a measuring run is on.
//
// The buttons write the flags and the run reads them behind each poll: measRunning, measPaused and daqTask are all that
// the two share. Boards keep their own state (board_choice.h): they are of the process, not of a session.
#pragma once

namespace sondera {

struct MeasRunState {
  int daqTask = 0;      ///< task of the board, 0 for none
  int measRunning = 0;  ///< 1 during a run
  int measPaused = 0;   ///< 1: no record is begun
  int measStopped = 0;  ///< 1: the last run was ended by Stop
  int avgTarget = 0;    ///< number of averages of the run
  int avgOn = 0;        ///< 0: each record stands alone, until Stop
  int delivered = 0;    ///< records of the run so far, those that were not accepted too
};
extern MeasRunState measRun;

/// State of a fresh start. A task at the board is the driver's to end.
void ResetAcquisitionState();

}  // namespace sondera
