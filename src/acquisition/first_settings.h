// first_settings.h - what a new measurement begins with: the settings of its hardware by the board in use, and the steps
// that a board offers for lines and ranges.
//
// Callers: the set-up dialogs. State: the device facts of the session.
#pragma once

#include "records/measdb.h"

namespace sondera {

/// Asks the board in use for its sampling rate, its kind and its input ranges, into session.device.
void ReadBoardLimits();
/// Takes the input ranges of the board in use into session.device, V. A driver that refuses leaves them as they were.
void ReadVoltageRanges();

/// Largest limit in the table of the board's input ranges, V, and how many pairs of limits the table has.
struct BoardRanges {
  double largest = 0.0;
  int pairs = 0;
};
BoardRanges ScanRanges();

/// Fills a record whose key, nChannels and channel arrays are set (SetupHWSetupArrays) with the values of the
/// board, or of a session without one. The session's number of channels becomes that of the record.
void FirstHWSetup(HWSetup& hw);
/// Source and receivers at 0, length unit metre.
void FirstMeasSetup(MeasSetup& ms);

/// Position in the table of line counts (512 to 524288) of the smallest entry at or above lines; 2 for more
/// than the table has. FreqLinesFromID is the entry at a position, 0 outside.
int FreqLinesID(int lines);
int FreqLinesFromID(int index);
/// Number of the voltage range step: 6 for at most 0.01 V, down to 0 above 3.16 V.
int VoltRangeID(double range);

}  // namespace sondera
