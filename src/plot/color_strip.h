// color_strip.h - the strip that shows the colours of a scale beside its fields.
#pragma once

#include <vector>

#include "runtime/graphs.h"

namespace sondera {

/// Puts the strip of a scale on a graph, the first level below. Levels ascend.
void PlotColorStrip(const GraphControl& graph, const std::vector<ColorLevel>& levels);

}  // namespace sondera
