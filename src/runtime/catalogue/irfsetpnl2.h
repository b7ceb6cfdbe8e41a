// irfsetpnl2.h - the filter's parameters by times only. The velocities of the backbone window and the mode
// stay those of IRFSETPNL.
#pragma once

#include "runtime/controls.h"

namespace sondera::irfsetpnl2 {

inline constexpr NumericControl SMIRF_T1{Panel::IRFSETPNL2, "SMIRF_T1", "Enhanced T1, s"};
inline constexpr NumericControl SMIRF_T2{Panel::IRFSETPNL2, "SMIRF_T2", "Enhanced T2, s"};
inline constexpr NumericControl SMIRF_T3{Panel::IRFSETPNL2, "SMIRF_T3", "Enhanced T3, s"};
inline constexpr NumericControl SMIRF_T4{Panel::IRFSETPNL2, "SMIRF_T4", "Enhanced T4, s"};
inline constexpr NumericControl BBIRF_T1{Panel::IRFSETPNL2, "BBIRF_T1", "Backbone T1, s"};
inline constexpr NumericControl BBIRF_T2{Panel::IRFSETPNL2, "BBIRF_T2", "Backbone T2, s"};
inline constexpr NumericControl BBIRF_T3{Panel::IRFSETPNL2, "BBIRF_T3", "Backbone T3, s"};
inline constexpr NumericControl BBIRF_T4{Panel::IRFSETPNL2, "BBIRF_T4", "Backbone T4, s"};
inline constexpr ButtonControl APPLY{Panel::IRFSETPNL2, "APPLY", "Apply"};
inline constexpr ButtonControl CLOSE{Panel::IRFSETPNL2, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&SMIRF_T1, &SMIRF_T2, &SMIRF_T3, &SMIRF_T4, &BBIRF_T1,
                                               &BBIRF_T2, &BBIRF_T3, &BBIRF_T4, &APPLY,    &CLOSE};

}  // namespace sondera::irfsetpnl2
