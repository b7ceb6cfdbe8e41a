// first_settings.h - initial settings of a new measurement: those of its hardware from the board in use, and
// the steps that a board offers for lines and ranges.
//
// Callers: the set-up dialogs. State: the device facts of the session.
#pragma once

#include "records/measdb.h"

namespace sondera {

/// Reads sampling rate, kind and input ranges of the board in use into session.device.
void ReadBoardLimits();
/// Reads the input ranges of the board in use into session.device, V. They do not change if the driver
/// refuses.
void ReadVoltageRanges();

/// Largest limit in the table of the board's input ranges, V, and the number of pairs of limits in the table.
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

/// Position in the table of line counts (512 to 524288) of the smallest entry at or above lines; 2 if lines
/// exceeds the table. FreqLinesFromID is the entry at a position, 0 outside.
int FreqLinesID(int lines);
int FreqLinesFromID(int index);
/// Number of the voltage range step: 6 for at most 0.01 V, down to 0 above 3.16 V.
int VoltRangeID(double range);

}  // namespace sondera
