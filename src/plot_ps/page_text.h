// page_text.h - text at a point of the page. For the files of this folder only.
#pragma once

#include <string_view>

#include "plot_ps/path.h"

namespace sondera {

/// Text at a point of the page; height as in ps_chara(). 1; 0 for a text that is refused.
int WriteAt(PagePoint point, std::string_view text, float height, float angle);

}  // namespace sondera
