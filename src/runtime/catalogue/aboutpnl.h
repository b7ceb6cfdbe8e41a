// aboutpnl.h - "About Sondera 4".
#pragma once

#include "runtime/controls.h"
#include "runtime/version.h"

namespace sondera::aboutpnl {

inline constexpr LabelControl ABOUTTEXT{
    Panel::ABOUTPNL, "ABOUTTEXT", kAppTitle, {.hint = "Name and version of the program."}};
inline constexpr ButtonControl OK{Panel::ABOUTPNL, "OK", "OK", {.hint = "Closes this box."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&ABOUTTEXT, &OK};

}  // namespace sondera::aboutpnl
