// devices.h - the boards of the machine: finding them, choosing one, and what a board can do.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Finds the boards, shows the choice when there is more than one, and takes the first as the one in use.
void FindDevices();
/// True when a board was found.
bool HasDevice();
/// Asks the driver what the board in use can do, into session.device.
void ReadDeviceFacts();

/// Fills the list of boards (DEVICEID) from the driver and selects the first.
void SetupDevPanel();
/// OK of the board panel: the chosen board becomes the one in use.
int DeviceSetupOKCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
