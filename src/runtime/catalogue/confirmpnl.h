// confirmpnl.h - "Sondera 3.0: Confirm": a question with two answers.
#pragma once

#include "runtime/controls.h"

namespace sondera::confirmpnl {

inline constexpr LabelControl QUESTION{
    Panel::CONFIRMPNL, "QUESTION", "Are you sure ?", {.hint = "The question that is asked."}};
inline constexpr ButtonControl YES{Panel::CONFIRMPNL, "YES", "Yes", {.hint = "Answers yes."}};
inline constexpr ButtonControl NO{Panel::CONFIRMPNL, "NO", "No", {.hint = "Answers no."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&QUESTION, &YES, &NO};

}  // namespace sondera::confirmpnl
