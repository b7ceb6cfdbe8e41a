// hwsetup.h - the settings of a measurement: first values of its records, and the set-up dialogs that show
// them.
//
// Callers: start-up and "add measurement" for the first values; a project load, an import and every change of
// the selection for the two refreshes.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// Fills a record whose key, nChannels and channel arrays are set (SetupHWSetupArrays) with the values of the
/// board, or of a session without one, and the channel lists of the set-up dialog with its channels.
void InitHWSetup(HWSetup& hw);
/// Source and receivers at 0, length unit metre; fills the channel lists. Says so when the key has no
/// HWSetup.
void InitMeasSetup(MeasSetup& ms);
/// Changes nothing: the arrays are zero when they are made. Says so when the record's key is not in the list.
void InitRawData(RawData& raw);

/// Shows the hardware settings of a measurement in the set-up dialog. An unknown measurement: nothing.
void UpdateHWSetup(const std::string& projID, const std::string& measID);
/// Shows the geometry of a measurement in the set-up dialog and its channels on the traces.
/// @param which  0 trace A, 1 trace B, any other both
void UpdateMeasSetup(const std::string& projID, const std::string& measID, int which);

// ---- what the set-up dialogs share
// ------------------------------------------------------------------------------

/// Takes the input ranges of the board in use into session.device, V. A driver that refuses leaves them as they were.
void ReadVoltageRanges();

/// Position in the table of line counts (512 to 524288) of the smallest entry at or above lines; 2 for more
/// than the table has. FreqLinesFromID is the entry at a position, 0 outside.
int FreqLinesID(int lines);
int FreqLinesFromID(int index);
/// Number of the voltage range step: 6 for at most 0.01 V, down to 0 above 3.16 V.
int VoltRangeID(double range);

/// "Ch  1: AC, F, 5.00 Volts"; a range below 1 V in millivolts. Channel from 0.
std::string InputChannelText(int channel, const HWSetup& hw);
void FillInputChannelList(const HWSetup& hw);
/// Shows coupling, grounding and range of one channel (from 0).
void ShowInputChannel(const HWSetup& hw, int channel);
void FillReceiverList(const MeasSetup& ms);

}  // namespace sondera
