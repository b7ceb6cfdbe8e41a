// devices.h - the boards of the machine: finding them, choosing one, and its properties.
#pragma once

#include <string>
#include <string_view>

#include "runtime/controls.h"

namespace sondera {

/// Finds the boards, shows the choice when there is more than one, and uses the first one.
void FindDevices();
/// True when a board was found.
bool HasDevice();
/// Asks the driver for the properties of the board in use, into session.device.
void ReadDeviceFacts();

/// Fills the list of boards (DEVICEID) from the driver and selects the first. Without one the buttons of the measuring
/// run are dimmed.
void SetupDevPanel();
/// Chooses a board driver (acquisition/board_choice.h) and uses its first device, as the start of a session
/// does. @return "", or one sentence; then the board in use stays, unless the new one needed its program or
/// sound card.
std::string UseBoard(std::string_view choice);

/// SETUP_BOARDS of the menu: shows the board panel.
int SetupBoardsCallback(Panel panel, ControlId control, Event event, long data);
/// FIND of the board panel: UseBoard with the driver in DRIVER, with a message for a fault.
int FindBoardsCallback(Panel panel, ControlId control, Event event, long data);
/// OK of the board panel: the chosen board becomes the one in use. Its properties are read again, and the
/// current measurement starts with its first settings unless it has data; other measurements keep their
/// settings.
int DeviceSetupOKCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
