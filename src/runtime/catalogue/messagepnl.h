// messagepnl.h - "Sondera 3.0": a message.
#pragma once

#include "runtime/controls.h"

namespace sondera::messagepnl {

inline constexpr LabelControl MESSAGE{Panel::MESSAGEPNL, "MESSAGE", " ", {.hint = "The message."}};
inline constexpr ButtonControl OK{Panel::MESSAGEPNL, "OK", "OK", {.hint = "Closes this box."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&MESSAGE, &OK};

}  // namespace sondera::messagepnl
