// irfsetpnl2.h - the filter's parameters by times only. The velocities of the backbone window and the mode
// stay those of IRFSETPNL.
#pragma once

#include "runtime/controls.h"

namespace sondera::irfsetpnl2 {

inline constexpr NumericControl SMIRF_T1{
    Panel::IRFSETPNL2,
    "SMIRF_T1",
    "Enhanced T1, s",
    {.hint = "Time of corner 1 of the enhanced window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_T2{
    Panel::IRFSETPNL2,
    "SMIRF_T2",
    "Enhanced T2, s",
    {.hint = "Time of corner 2 of the enhanced window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_T3{
    Panel::IRFSETPNL2,
    "SMIRF_T3",
    "Enhanced T3, s",
    {.hint = "Time of corner 3 of the enhanced window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_T4{
    Panel::IRFSETPNL2,
    "SMIRF_T4",
    "Enhanced T4, s",
    {.hint = "Time of corner 4 of the enhanced window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_T1{
    Panel::IRFSETPNL2,
    "BBIRF_T1",
    "Backbone T1, s",
    {.hint = "Time of corner 1 of the backbone window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_T2{
    Panel::IRFSETPNL2,
    "BBIRF_T2",
    "Backbone T2, s",
    {.hint = "Time of corner 2 of the backbone window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_T3{
    Panel::IRFSETPNL2,
    "BBIRF_T3",
    "Backbone T3, s",
    {.hint = "Time of corner 3 of the backbone window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_T4{
    Panel::IRFSETPNL2,
    "BBIRF_T4",
    "Backbone T4, s",
    {.hint = "Time of corner 4 of the backbone window, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr ButtonControl APPLY{
    Panel::IRFSETPNL2, "APPLY", "Apply", {.hint = "Takes the times and filters the pair."}};
inline constexpr ButtonControl CLOSE{Panel::IRFSETPNL2, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&SMIRF_T1, &SMIRF_T2, &SMIRF_T3, &SMIRF_T4, &BBIRF_T1,
                                               &BBIRF_T2, &BBIRF_T3, &BBIRF_T4, &APPLY,    &CLOSE};

}  // namespace sondera::irfsetpnl2
