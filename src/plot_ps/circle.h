// circle.h - a circle on the page. For the files of this folder only.
#pragma once

#include "plot_ps/path.h"

namespace sondera {

/// Paints a circle; radius in points. `end` closes the line: " arc stroke" and the like.
void PutCircle(PagePoint centre, float radius, const char* end);

inline constexpr const char* kCircleLine = "0 360 arc stroke \n";
inline constexpr const char* kCircleArea = "0 360 arc fill stroke \n";

}  // namespace sondera
