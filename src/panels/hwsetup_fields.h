// hwsetup_fields.h - the fields of the hardware setup. Each callback stores its control in the current measurement
// and marks the settings as not checked.
//
// Number of channels, lines and span change the meaning of the measurement's data: they ask before they
// remove any. Without the records of a measurement every callback refuses with a message. Owns no state.
#pragma once

#include <string>

#include "records/measdb.h"
#include "runtime/controls.h"

namespace sondera {

/// Records of the current measurement. A message and hwPos below 1 when its hardware settings are missing.
MeasRecords CurrentSetup();

/// Asks whether data may be removed; true at once for a measurement without data.
bool MayRemoveData(int key);

/// Refills every list of channels for a measurement: of both set-up pages and of the traces that show it.
/// Fields keep their values if these still exist.
void RefillChannelLists(const MeasRecords& records);

int UpdateNChannelsCallback(Panel panel, ControlId control, Event event, long data);   ///< NCHANNELS1
int UpdateRefChannelCallback(Panel panel, ControlId control, Event event, long data);  ///< NCHANNELS2
int UpdateFreqLinesCallback(Panel panel, ControlId control, Event event, long data);   ///< FREQLINES
int UpdateFreqSpanCallback(Panel panel, ControlId control, Event event, long data);    ///< FREQSPAN

/// NCHANNELS4: shows the settings of that channel.
int UpdateInputChnlCallback(Panel panel, ControlId control, Event event, long data);
/// INPUTCHNLLIST: shows the settings of the selected line.
int UpdateInputChnlListCallback(Panel panel, ControlId control, Event event, long data);
/// ACDC, GROUNDFLOAT and INPUTRANGE, for the channel in NCHANNELS4 or for all.
int UpdateACDCsettingCallback(Panel panel, ControlId control, Event event, long data);
/// Kept: after a change of the grounding only, the settings still count as checked.
int UpdateGFsettingCallback(Panel panel, ControlId control, Event event, long data);
int UpdateInputRangeCallback(Panel panel, ControlId control, Event event, long data);
int InputChnlUpdateCallback(Panel panel, ControlId control, Event event, long data);  ///< INPUTCHNLUPDATE

int UpdateTriggerChannelCallback(Panel panel, ControlId control, Event event, long data);  ///< NCHANNELS5
int UpdateTriggerSlopeCallback(Panel panel, ControlId control, Event event, long data);
int UpdateTriggerLevelCallback(Panel panel, ControlId control, Event event, long data);
int UpdateTriggerDelayCallback(Panel panel, ControlId control, Event event, long data);
int UpdateAverageOnOffCallback(Panel panel, ControlId control, Event event, long data);
int UpdateNoAverageCallback(Panel panel, ControlId control, Event event, long data);

/// PREVIEW_ONOFF: of the session, not of the measurement.
int PreviewOnoffCallback(Panel panel, ControlId control, Event event, long data);

// Without effect; no control calls it.
int UpdateVoltUnitCallback(Panel panel, ControlId control, Event event, long data);
int SetupDeltaXCallback(Panel panel, ControlId control, Event event, long data);
int SASWwriteCallback(Panel panel, ControlId control, Event event, long data);
int RetrieveDataCallback(Panel panel, ControlId control, Event event, long data);
int UpdateNewMeasIDCallback(Panel panel, ControlId control, Event event, long data);
int UpdateRecLocUnitCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
