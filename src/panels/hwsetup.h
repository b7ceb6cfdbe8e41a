// hwsetup.h - the dialog of the hardware settings of a measurement: first values, and filling from its records.
//
// Callers: start-up, "add measurement" and the choice of a board for the first values; a project load, an import and
// every change of the selection for the refresh. Owns no state.
#pragma once

#include <string>
#include <string_view>

#include "records/measdb.h"
#include "runtime/controls.h"

namespace sondera {

/// First values of acquisition/first_settings.h, after asking the board for its limits, and the channel lists
/// of the dialog.
void InitHWSetup(HWSetup& hw);

/// Shows the hardware settings of a measurement in the dialog. An unknown measurement: nothing.
void UpdateHWSetup(const std::string& projID, const std::string& measID);

/// "Ch  1: AC, F, 5.00 Volts"; a range below 1 V in millivolts. Channel from 0.
std::string InputChannelText(int channel, const HWSetup& hw);
void FillInputChannelList(const HWSetup& hw);
/// Shows coupling, grounding and range of one channel (from 0).
void ShowInputChannel(const HWSetup& hw, int channel);

/// Level, delay and slope of the trigger have no meaning in a free run.
void DimTriggerControls(bool freeRun);
/// Whether the displayed settings were checked with the board: the flag of the session, and the title of the
/// dialog.
void MarkChecked(bool checked);

/// Refills a channel ring with labels from 1 and values from 0, after an optional first item with the value
/// -1. The ring keeps its value.
void FillChannelRing(const RingControl& ring, int channels, std::string_view first = {});

}  // namespace sondera
