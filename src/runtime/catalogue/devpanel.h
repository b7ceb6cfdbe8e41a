// devpanel.h - "DAQ Boards Installed ... ": choice of the driver and of the acquisition board. An item's label
// begins with the name of the device, up to the colon; its value is its position.
#pragma once

#include "runtime/controls.h"

namespace sondera::devpanel {

inline constexpr TextControl DRIVER{
    Panel::DEVPANEL,
    "DRIVER",
    "Driver",
    {.hint = "Driver of boards and its options: sim, process:PROGRAM ARGUMENTS, alsa or none."}};
inline constexpr ButtonControl FIND{
    Panel::DEVPANEL, "FIND", "Find", {.hint = "Takes this driver and lists the boards that it finds."}};
inline constexpr RingControl DEVICEID{
    Panel::DEVPANEL, "DEVICEID", "Board", {.hint = "Acquisition board that measurements use."}};
inline constexpr ButtonControl OK{Panel::DEVPANEL, "OK", "OK", {.hint = "Takes the board that is chosen."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DRIVER, &FIND, &DEVICEID, &OK};

}  // namespace sondera::devpanel
