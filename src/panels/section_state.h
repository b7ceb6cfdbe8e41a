// section_state.h - what the panel of the section remembers: settings, and the grid with what it was made from.
#pragma once

#include <string>

#include "signal/section.h"

namespace sondera {

/// Start values of a range that nothing has widened yet.
inline constexpr SectionLimits kUnsetLimits = {100000.0, 0.0, 100000.0, 0.0};

/// The colours are in the session (tomoColor).
struct SectionState {
  bool setUp = false;  ///< the ranges are those of this project's line
  SectionLimits limits = kUnsetLimits;
  int tmgNx = 0, tmgNy = 0;  ///< 0: not chosen yet
  bool fill = false;
  double colorLow = 100000.0, colorHigh = 0.0;

  SectionGrid grid;        ///< empty: none
  GridSettings gridOf;     ///< settings of the grid
  SectionSamples samples;  ///< points of the grid
  std::string gridText;    ///< what there is to say about it
  int gridsMade = 0;       ///< counts the grids of this session
  bool haltRequested = false;
};

}  // namespace sondera
