// aboutpnl.h - "About Sondera 4".
#pragma once

#include "runtime/controls.h"
#include "runtime/version.h"

namespace sondera::aboutpnl {

inline constexpr LabelControl ABOUTTEXT{Panel::ABOUTPNL, "ABOUTTEXT", kAppTitle};
inline constexpr ButtonControl OK{Panel::ABOUTPNL, "OK", "OK"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&ABOUTTEXT, &OK};

}  // namespace sondera::aboutpnl
