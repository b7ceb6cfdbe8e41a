// dispcurv.h - the dispersion page: curves of the receiver pairs, lists of included and excluded ones.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::dispcurv {

inline constexpr ListItem kCurveTypes[] = {{"Composite", 0},
                                           {"Global R.", 1},
                                           {"Array R.", 2},
                                           {"Composite+Global R.", 3},
                                           {"Composite+Array R.", 4}};

inline constexpr GraphControl DISPGRAPH{
    Panel::DISPCURV,
    "DISPGRAPH",
    "Dispersion curves",
    {.hint = "Dispersion curves of the included pairs and the representative curves; a double click opens "
             "the axis dialog, a click reads a place."}};
inline constexpr TextControl COORD{Panel::DISPCURV,
                                   "COORD",
                                   "Cursor",
                                   {.hint = "Place of the cursor in the units of the axes.",
                                    .spoken = "Cursor, dispersion page",
                                    .role = Role::ReadOut}};
inline constexpr RingControl DISPCURVTYPE{
    Panel::DISPCURV,
    "DISPCURVTYPE",
    "Curves",
    kCurveTypes,
    {.hint = "Curves that are drawn: those of the pairs (composite), the global curve, the array curves, or "
             "two of them together."}};
inline constexpr ListControl LIST_INCLUDED{
    Panel::DISPCURV,
    "LIST_INCLUDED",
    "Included",
    {.hint =
         "Curves that count for the representative curves; a double click moves one to the excluded ones."}};
inline constexpr ListControl LIST_EXCLUDED{
    Panel::DISPCURV,
    "LIST_EXCLUDED",
    "Excluded",
    {.hint = "Curves that are left out; a double click moves one to the included ones."}};
inline constexpr ButtonControl INCLUDE{
    Panel::DISPCURV,
    "INCLUDE",
    "Include",
    {.hint = "Moves the selected excluded curve to the included ones; Redraw shows it."}};
inline constexpr ButtonControl EXCLUDE{
    Panel::DISPCURV,
    "EXCLUDE",
    "Exclude",
    {.hint = "Moves the selected included curve to the excluded ones; Redraw shows it."}};
inline constexpr RingControl MARKER{
    Panel::DISPCURV,
    "MARKER",
    "Marker",
    panel_items::kMarkers,
    {.hint = "Marker of the selected included curve, 0 to 18; Redraw shows it.",
     .spoken = "Marker, dispersion page"}};
inline constexpr RingControl COLOR{
    Panel::DISPCURV,
    "COLOR",
    "Colour",
    panel_items::kColors,
    {.hint = "Colour of the selected included curve, 0 to 17; Redraw shows it.",
     .spoken = "Colour, dispersion page"}};
inline constexpr ButtonControl REDRAW{
    Panel::DISPCURV,
    "REDRAW",
    "Redraw",
    {.hint = "Redraws the dispersion curves.", .spoken = "Redraw, dispersion page"}};
inline constexpr ButtonControl COMPDISPCURV{
    Panel::DISPCURV,
    "COMPDISPCURV",
    "Representative Disp. Curve",
    {.hint = "Opens the panel that condenses all included curves into representative ones."}};
inline constexpr ButtonControl TOMOGRAF{
    Panel::DISPCURV,
    "TOMOGRAF",
    "Tomographic Image",
    {.hint = "Opens the panel of the section of phase velocity along a line of stations."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DISPGRAPH,     &COORD,   &DISPCURVTYPE, &LIST_INCLUDED,
                                               &LIST_EXCLUDED, &INCLUDE, &EXCLUDE,      &MARKER,
                                               &COLOR,         &REDRAW,  &COMPDISPCURV, &TOMOGRAF};

}  // namespace sondera::dispcurv
