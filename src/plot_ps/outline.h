// outline.h - closed outlines on the page. For the files of this folder only.
#pragma once

#include <span>

#include "plot_ps/path.h"

namespace sondera {

/// How a closed outline is painted: the line, then the area.
struct Paint {
  bool outlined = false;
  bool filled = false;
  float gray = -1.0f;  // of the area; below 0: the current grey
};

/// Draws a closed outline; points that are not finite are left out. The pen is at the first point afterwards.
/// False, with nothing written, when no point is left.
bool PaintOutline(std::span<const PagePoint> points, const Paint& paint);

}  // namespace sondera
