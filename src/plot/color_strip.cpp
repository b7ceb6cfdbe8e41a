// color_strip.cpp - see color_strip.h. Owns no state.
#include "plot/color_strip.h"

#include <utility>

namespace sondera {

void PlotColorStrip(const GraphControl& graph, const std::vector<ColorLevel>& levels) {
  IntensityModel strip;
  strip.colorMap = levels;
  strip.columns = 2;
  strip.rows = static_cast<int>(levels.size());
  for (int column = 0; column < strip.columns; ++column)
    for (const ColorLevel& entry : levels) strip.z.push_back(entry.level);
  strip.xMax = 1.0;
  strip.yMin = levels.empty() ? 0.0 : levels.front().level;
  strip.yMax = levels.empty() ? 0.0 : levels.back().level;
  PlotIntensity(graph, std::move(strip));
}

}  // namespace sondera
