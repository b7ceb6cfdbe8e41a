// question_strip.h - a question of Yes or No on a page, in a strip below its graphs, in place of a box that would hide
// them. Enter and Y say Yes, Escape and N say No. Nothing else on the screen takes mouse or keys meanwhile.
#pragma once

#include <string_view>

#include "runtime/control.h"

namespace sondera {

/// Waits for the answer. A page that is not in front, or has no place for a strip, asks by a box.
bool AskOnPage(Panel page, std::string_view title, std::string_view text);

}  // namespace sondera
