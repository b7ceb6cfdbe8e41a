// cdisppnl.h - "Representative Disp. Curve": how the curves of all pairs are condensed.
//
// The ratio acts while AVG_LINLOG is 1; with 0 the spacing of the points is logarithmic. Settings of the
// array curves follow the global ones, apart from the order of each pair's polynomial.
#pragma once

#include "runtime/controls.h"

namespace sondera::cdisppnl {

inline constexpr ListItem kDomains[] = {{"Wavelength", 0}, {"Frequency", 1}};
inline constexpr ListItem kSpacings[] = {{"Logarithmic", 0}, {"By ratio", 1}};

inline constexpr RingControl AVGDOMAIN{Panel::CDISPPNL, "AVGDOMAIN", "Domain", kDomains, 1};
inline constexpr IntControl GLOBAL_NPOINTS{Panel::CDISPPNL, "GLOBAL_NPOINTS", "Number of points", 50};
inline constexpr IntControl GLOBAL_NSPAN{Panel::CDISPPNL, "GLOBAL_NSPAN", "Range / window", 40};
inline constexpr RingControl AVG_LINLOG{Panel::CDISPPNL, "AVG_LINLOG", "Spacing of points", kSpacings, 1};
inline constexpr NumericControl GLOBAL_INCRATIO{Panel::CDISPPNL, "GLOBAL_INCRATIO", "Ratio", 1.07};
inline constexpr IntControl GLOBAL_POLYORDER{Panel::CDISPPNL, "GLOBAL_POLYORDER", "Polynomial terms, global",
                                             4};
inline constexpr ToggleControl GDISP_TAKEALL{Panel::CDISPPNL, "GDISP_TAKEALL", "Take all points, global"};
inline constexpr ToggleControl ADISP_TAKEALL{Panel::CDISPPNL, "ADISP_TAKEALL", "Take all points, array"};
inline constexpr ListControl ARRAY_DISPCURVELIST{Panel::CDISPPNL, "ARRAY_DISPCURVELIST", "Pairs"};
inline constexpr IntControl ARRAY_POLYORDER{Panel::CDISPPNL, "ARRAY_POLYORDER",
                                            "Polynomial terms of the pair", 5};
inline constexpr ButtonControl CALC{Panel::CDISPPNL, "CALC", "Calculate"};
inline constexpr ButtonControl UPDATE{Panel::CDISPPNL, "UPDATE", "Calculate and set up layers"};
inline constexpr ButtonControl SAVEGCD{Panel::CDISPPNL, "SAVEGCD", "Save global curve"};
inline constexpr ButtonControl SAVEICD{Panel::CDISPPNL, "SAVEICD", "Save array curves"};
inline constexpr ButtonControl SAVERED{Panel::CDISPPNL, "SAVERED", "Save both"};
inline constexpr ButtonControl CANCEL{Panel::CDISPPNL, "CANCEL", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&AVGDOMAIN,
                                               &GLOBAL_NPOINTS,
                                               &GLOBAL_NSPAN,
                                               &AVG_LINLOG,
                                               &GLOBAL_INCRATIO,
                                               &GLOBAL_POLYORDER,
                                               &GDISP_TAKEALL,
                                               &ADISP_TAKEALL,
                                               &ARRAY_DISPCURVELIST,
                                               &ARRAY_POLYORDER,
                                               &CALC,
                                               &UPDATE,
                                               &SAVEGCD,
                                               &SAVEICD,
                                               &SAVERED,
                                               &CANCEL};

}  // namespace sondera::cdisppnl
