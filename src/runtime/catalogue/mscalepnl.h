// mscalepnl.h - "Axis Attributes" of traces A and B: the limits in force beside the ones to take. An axis
// with automatic limits needs none, so its fields start dimmed.
#pragma once

#include "runtime/controls.h"

namespace sondera::mscalepnl {

inline constexpr TextControl CURXMIN{Panel::MSCALEPNL, "CURXMIN", "X from, now"};
inline constexpr TextControl CURXMAX{Panel::MSCALEPNL, "CURXMAX", "X to, now"};
inline constexpr TextControl CURYMIN{Panel::MSCALEPNL, "CURYMIN", "Y from, now"};
inline constexpr TextControl CURYMAX{Panel::MSCALEPNL, "CURYMAX", "Y to, now"};
inline constexpr ToggleControl AUTOSCALE_X{Panel::MSCALEPNL, "AUTOSCALE_X", "Auto scale X", 1};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::MSCALEPNL, "AUTOSCALE_Y", "Auto scale Y", 1};
inline constexpr auto XMIN = Dimmed(NumericControl{Panel::MSCALEPNL, "XMIN", "X from"});
inline constexpr auto XMAX = Dimmed(NumericControl{Panel::MSCALEPNL, "XMAX", "X to"});
inline constexpr auto YMIN = Dimmed(NumericControl{Panel::MSCALEPNL, "YMIN", "Y from"});
inline constexpr auto YMAX = Dimmed(NumericControl{Panel::MSCALEPNL, "YMAX", "Y to"});
inline constexpr ButtonControl OK{Panel::MSCALEPNL, "OK", "OK"};
inline constexpr ButtonControl CANCEL{Panel::MSCALEPNL, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&CURXMIN,     &CURXMAX,     &CURYMIN, &CURYMAX,
                                               &AUTOSCALE_X, &AUTOSCALE_Y, &XMIN,    &XMAX,
                                               &YMIN,        &YMAX,        &OK,      &CANCEL};

}  // namespace sondera::mscalepnl
