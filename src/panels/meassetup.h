// meassetup.h - the dialog of the geometry of a measurement: first values, filling from its records, the wavelength
// criterion and the spacing of the receivers.
//
// Callers: start-up and "add measurement" for the first values; a project load, an import and every change of
// the selection for the refresh. Owns no state.
#pragma once

#include <string>

#include "records/measdb.h"
#include "runtime/controls.h"

namespace sondera {

inline constexpr int kEvenSpacing = 1;  ///< of RSPACING: receivers at equal distances

/// Source and receivers at 0, length unit metre; fills the channel list. A message when the key has no
/// HWSetup.
void InitMeasSetup(MeasSetup& ms);
/// Changes nothing: the arrays are zero when they are made. A message when the record's key is not in the
/// list.
void InitRawData(RawData& raw);

/// Shows the geometry of a measurement in the set-up dialog and its channels on the traces.
/// @param which  0 trace A, 1 trace B, any other both
void UpdateMeasSetup(const std::string& projID, const std::string& measID, int which);

void FillReceiverList(const MeasSetup& ms);

/// HYX_WLENFILTER on commit: the criterion of the session and of the text import.
int UpdateWLenFilterCallback(Panel panel, ControlId control, Event event, long data);

/// RSPACING: shows the field of the spacing (1) or the controls of single locations.
int RSpacingOptionCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
