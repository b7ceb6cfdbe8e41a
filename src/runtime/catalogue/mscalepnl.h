// mscalepnl.h - "Axis Attributes" of traces A and B: the present limits and fields for new ones. An axis with
// automatic limits needs none, so its fields start dimmed.
#pragma once

#include "runtime/controls.h"

namespace sondera::mscalepnl {

inline constexpr TextControl CURXMIN{Panel::MSCALEPNL,
                                     "CURXMIN",
                                     "X from, now",
                                     {.hint = "Lower limit of the x axis in force.", .role = Role::ReadOut}};
inline constexpr TextControl CURXMAX{Panel::MSCALEPNL,
                                     "CURXMAX",
                                     "X to, now",
                                     {.hint = "Upper limit of the x axis in force.", .role = Role::ReadOut}};
inline constexpr TextControl CURYMIN{Panel::MSCALEPNL,
                                     "CURYMIN",
                                     "Y from, now",
                                     {.hint = "Lower limit of the y axis in force.", .role = Role::ReadOut}};
inline constexpr TextControl CURYMAX{Panel::MSCALEPNL,
                                     "CURYMAX",
                                     "Y to, now",
                                     {.hint = "Upper limit of the y axis in force.", .role = Role::ReadOut}};
inline constexpr ToggleControl AUTOSCALE_X{Panel::MSCALEPNL,
                                           "AUTOSCALE_X",
                                           "Auto scale X",
                                           1,
                                           {.hint = "Takes the limits of the x axis from the curves."}};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::MSCALEPNL,
                                           "AUTOSCALE_Y",
                                           "Auto scale Y",
                                           1,
                                           {.hint = "Takes the limits of the y axis from the curves."}};
inline constexpr auto XMIN = Dimmed(NumericControl{
    Panel::MSCALEPNL,
    "XMIN",
    "X from",
    {.hint =
         "Lower limit to take for the x axis, in Hz, s, degrees or V; equal limits mean automatic ones."}});
inline constexpr auto XMAX = Dimmed(NumericControl{
    Panel::MSCALEPNL,
    "XMAX",
    "X to",
    {.hint =
         "Upper limit to take for the x axis, in Hz, s, degrees or V; equal limits mean automatic ones."}});
inline constexpr auto YMIN = Dimmed(NumericControl{
    Panel::MSCALEPNL,
    "YMIN",
    "Y from",
    {.hint =
         "Lower limit to take for the y axis, in Hz, s, degrees or V; equal limits mean automatic ones."}});
inline constexpr auto YMAX = Dimmed(NumericControl{
    Panel::MSCALEPNL,
    "YMAX",
    "Y to",
    {.hint =
         "Upper limit to take for the y axis, in Hz, s, degrees or V; equal limits mean automatic ones."}});
inline constexpr ButtonControl OK{Panel::MSCALEPNL, "OK", "OK", {.hint = "Takes these limits and redraws."}};
inline constexpr ButtonControl CANCEL{
    Panel::MSCALEPNL, "CANCEL", "Cancel", {.hint = "Hides this panel and keeps the limits."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&CURXMIN,     &CURXMAX,     &CURYMIN, &CURYMAX,
                                               &AUTOSCALE_X, &AUTOSCALE_Y, &XMIN,    &XMAX,
                                               &YMIN,        &YMAX,        &OK,      &CANCEL};

}  // namespace sondera::mscalepnl
