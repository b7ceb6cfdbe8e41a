// panel.h - the main window. Its tab control has four pages (MEASPANEL, SASW, DISPCURV, EXDTHD), which the
// store keeps as the active page of Panel::PANEL rather than as a value.
#pragma once

#include "runtime/controls.h"

namespace sondera::panel {

inline constexpr ButtonControl CLOSE{
    Panel::PANEL, "CLOSE", "Exit", {.hint = "Ends the program after a question."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&CLOSE};

}  // namespace sondera::panel
