// analresult.h - "Tables of Analysis Results": the text of one entry, by kind of table.
#pragma once

#include "runtime/controls.h"

namespace sondera::analresult {

inline constexpr ListItem kTables[] = {
    {"Model parameters", 0}, {"Profile", 1}, {"Dispersion curves", 2}, {"Resolution", 3}};

inline constexpr RingControl SEL_RESULT{Panel::ANALRESULT, "SEL_RESULT", "Table", kTables};
inline constexpr TextControl RESULTS{Panel::ANALRESULT, "RESULTS", "Results"};
inline constexpr ButtonControl SAVE{Panel::ANALRESULT, "SAVE", "Save"};
inline constexpr ButtonControl CLOSE{Panel::ANALRESULT, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&SEL_RESULT, &RESULTS, &SAVE, &CLOSE};

}  // namespace sondera::analresult
