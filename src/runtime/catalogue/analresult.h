// analresult.h - "Tables of Analysis Results": the text of one entry, by kind of table.
#pragma once

#include "runtime/controls.h"

namespace sondera::analresult {

inline constexpr ListItem kTables[] = {{"Model parameters", 0},
                                       {"Profile", 1},
                                       {"Dispersion curves", 2},
                                       {"Resolution", 3},
                                       {"Vs30 and site classes", 4}};

inline constexpr RingControl SEL_RESULT{Panel::ANALRESULT,
                                        "SEL_RESULT",
                                        "Table",
                                        kTables,
                                        {.hint = "Table that is shown: model parameters, profile, dispersion "
                                                 "curves, resolution, or Vs30 with the site "
                                                 "classes."}};
inline constexpr TextControl RESULTS{
    Panel::ANALRESULT,
    "RESULTS",
    "Results",
    {.hint = "Text of the table for the iteration that the results page shows.", .role = Role::TextBox}};
inline constexpr ButtonControl SAVE{
    Panel::ANALRESULT, "SAVE", "Save", {.hint = "Writes the table to a text file."}};
inline constexpr ButtonControl CLOSE{Panel::ANALRESULT, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&SEL_RESULT, &RESULTS, &SAVE, &CLOSE};

}  // namespace sondera::analresult
