// parameters.h - the settings of a measurement: first values of its records, and the set-up dialogs that show them.
//
// Callers: start-up and "add measurement" for the first values; a project load, an import and every change of the
// selection for the two refreshes.
#pragma once

#include <string>

#include "project/measdb.h"

namespace sondera {

/// Fills a record whose key, nChannels and channel arrays are set (SetupHWSetupArrays) with the values of the board,
/// or of a session without one, and the channel lists of the set-up dialog with its channels.
void InitHWSetup(HWSetup& hw);
/// Source and receivers at 0, length unit metre; fills the channel lists. Says so when the key has no HWSetup.
void InitMeasSetup(MeasSetup& ms);
/// Changes nothing: the arrays are zero when they are made. Says so when the record's key is not in the list.
void InitRawData(RawData& raw);

/// Shows the hardware settings of a measurement in the set-up dialog. An unknown measurement: nothing.
void UpdateHWSetup(const std::string& projID, const std::string& measID);
/// Shows the geometry of a measurement in the set-up dialog and its channels on the traces.
/// @param which  0 trace A, 1 trace B, any other both
void UpdateMeasSetup(const std::string& projID, const std::string& measID, int which);

}  // namespace sondera
