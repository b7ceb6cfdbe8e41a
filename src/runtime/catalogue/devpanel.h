// devpanel.h - "DAQ Boards Installed ... ": choice of the acquisition board. An item's label begins with the
// name of the device, up to the colon; its value is its position.
#pragma once

#include "runtime/controls.h"

namespace sondera::devpanel {

inline constexpr RingControl DEVICEID{
    Panel::DEVPANEL, "DEVICEID", "Board", {.hint = "Acquisition board that measurements use."}};
inline constexpr ButtonControl OK{Panel::DEVPANEL, "OK", "OK", {.hint = "Takes the board that is chosen."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DEVICEID, &OK};

}  // namespace sondera::devpanel
