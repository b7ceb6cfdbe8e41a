// cdisppnl.h - "Representative Disp. Curve": how the curves of all pairs are condensed.
//
// The ratio is used while AVG_LINLOG is 1; with 0 the spacing of the points is logarithmic. Settings of the
// array curves follow the global ones, except for the order of each pair's polynomial.
#pragma once

#include "runtime/controls.h"

namespace sondera::cdisppnl {

inline constexpr ListItem kDomains[] = {{"Wavelength", 0}, {"Frequency", 1}};
inline constexpr ListItem kSpacings[] = {{"Logarithmic", 0}, {"By ratio", 1}};

inline constexpr RingControl AVGDOMAIN{
    Panel::CDISPPNL,
    "AVGDOMAIN",
    "Domain",
    kDomains,
    1,
    {.hint = "Domain in which the points of the pair curves are condensed: wavelength or frequency."}};
inline constexpr IntControl GLOBAL_NPOINTS{
    Panel::CDISPPNL,
    "GLOBAL_NPOINTS",
    "Number of points",
    50,
    {.hint = "Number of points of the global curve and of each array curve, 1 or more.",
     .min = 1.0,
     .step = 1.0}};
inline constexpr IntControl GLOBAL_NSPAN{
    Panel::CDISPPNL,
    "GLOBAL_NSPAN",
    "Range / window",
    40,
    {.hint = "Whole range divided by the width of the sliding window in which a polynomial is fitted, 1 or "
             "more; a larger number smooths less.",
     .min = 1.0,
     .step = 1.0}};
inline constexpr RingControl AVG_LINLOG{
    Panel::CDISPPNL,
    "AVG_LINLOG",
    "Spacing of points",
    kSpacings,
    1,
    {.hint = "Spacing of the points: logarithmic, or by the ratio of neighbours."}};
inline constexpr NumericControl GLOBAL_INCRATIO{
    Panel::CDISPPNL,
    "GLOBAL_INCRATIO",
    "Ratio",
    1.07,
    {.hint = "Ratio of one point to the one before, above 0; 1 gives even spacing.",
     .min = 0.0,
     .step = 0.01}};
inline constexpr IntControl GLOBAL_POLYORDER{
    Panel::CDISPPNL,
    "GLOBAL_POLYORDER",
    "Polynomial terms, global",
    4,
    {.hint = "Number of terms of the polynomial for the global curve, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr ToggleControl GDISP_TAKEALL{
    Panel::CDISPPNL,
    "GDISP_TAKEALL",
    "Take all points, global",
    {.hint = "Takes all points of the pair curves as the global curve, without a fit."}};
inline constexpr ToggleControl ADISP_TAKEALL{
    Panel::CDISPPNL,
    "ADISP_TAKEALL",
    "Take all points, array",
    {.hint = "Takes all points of a pair curve as its array curve, without a fit."}};
inline constexpr ListControl ARRAY_DISPCURVELIST{
    Panel::CDISPPNL,
    "ARRAY_DISPCURVELIST",
    "Pairs",
    {.hint = "Included pairs; the selected one shows its number of polynomial terms below."}};
inline constexpr IntControl ARRAY_POLYORDER{
    Panel::CDISPPNL,
    "ARRAY_POLYORDER",
    "Polynomial terms of the pair",
    5,
    {.hint = "Number of terms of the polynomial for the selected pair, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr ButtonControl CALC{
    Panel::CDISPPNL,
    "CALC",
    "Calculate",
    {.hint = "Calculates the representative curves from all included pair curves."}};
inline constexpr ButtonControl UPDATE{
    Panel::CDISPPNL,
    "UPDATE",
    "Calculate and set up layers",
    {.hint = "Calculates the representative curves and sets up the layers of the starting model from them."}};
inline constexpr ButtonControl SAVEGCD{
    Panel::CDISPPNL, "SAVEGCD", "Save global curve", {.hint = "Writes the global curve to a .gcd file."}};
inline constexpr ButtonControl SAVEICD{
    Panel::CDISPPNL, "SAVEICD", "Save array curves", {.hint = "Writes the array curves to an .icd file."}};
inline constexpr ButtonControl SAVERED{
    Panel::CDISPPNL,
    "SAVERED",
    "Save both",
    {.hint = "Writes the global curve and the array curves to a .red file."}};
inline constexpr ButtonControl CANCEL{Panel::CDISPPNL, "CANCEL", "Close", {.hint = "Hides this panel."}};

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
