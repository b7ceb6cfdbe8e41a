// devices.h - the boards of the machine: finding them, choosing one, and what a board can do.
#pragma once

#include <string>
#include <string_view>

#include "runtime/controls.h"

namespace sondera {

/// Finds the boards, shows the choice when there is more than one, and takes the first as the one in use.
void FindDevices();
/// True when a board was found.
bool HasDevice();
/// Asks the driver what the board in use can do, into session.device.
void ReadDeviceFacts();

/// Fills the list of boards (DEVICEID) from the driver and selects the first. Without one the buttons of the measuring
/// run are dimmed.
void SetupDevPanel();
/// Chooses a board driver (acquisition/board_choice.h) and takes its first device, as the start of a session does.
/// @return "", or one sentence; then the board in use stays, unless it had to be given up for the new one.
std::string UseBoard(std::string_view choice);

/// SETUP_BOARDS of the menu: shows the board panel.
int SetupBoardsCallback(Panel panel, ControlId control, Event event, long data);
/// FIND of the board panel: UseBoard with the driver in DRIVER, with a message for what is wrong.
int FindBoardsCallback(Panel panel, ControlId control, Event event, long data);
/// OK of the board panel: the chosen board becomes the one in use. Its facts are read anew, and the current measurement
/// begins with its first settings unless it holds data; other measurements keep their settings.
int DeviceSetupOKCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
