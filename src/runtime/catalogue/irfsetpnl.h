// irfsetpnl.h - "Parameters of IR Filtration (IRF)": the two time windows of the filter, by times or by
// velocities.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::irfsetpnl {

inline constexpr ListItem kModes[] = {{"Band-Pass", 0}, {"Low-Pass", 1}};

inline constexpr TextControl MEASID{Panel::IRFSETPNL, "MEASID", "Measurement ID"};
inline constexpr IntControl REFCHNL{Panel::IRFSETPNL, "REFCHNL", "Reference channel"};
inline constexpr IntControl DSPCHNL{Panel::IRFSETPNL, "DSPCHNL", "Display channel"};
inline constexpr TextControl RECORDLENGTH{Panel::IRFSETPNL, "RECORDLENGTH", "Record length"};
inline constexpr RingControl SITECAT{Panel::IRFSETPNL, "SITECAT", "Site", panel_items::kSiteCategories};
inline constexpr RingControl IRFMODE{Panel::IRFSETPNL, "IRFMODE", "Window", kModes};
inline constexpr NumericControl SMIRF_T1{Panel::IRFSETPNL, "SMIRF_T1", "Enhanced T1, s"};
inline constexpr NumericControl SMIRF_T2{Panel::IRFSETPNL, "SMIRF_T2", "Enhanced T2, s"};
inline constexpr NumericControl SMIRF_T3{Panel::IRFSETPNL, "SMIRF_T3", "Enhanced T3, s"};
inline constexpr NumericControl SMIRF_T4{Panel::IRFSETPNL, "SMIRF_T4", "Enhanced T4, s"};
inline constexpr NumericControl SMIRF_V1{Panel::IRFSETPNL, "SMIRF_V1", "Enhanced V1"};
inline constexpr NumericControl SMIRF_V2{Panel::IRFSETPNL, "SMIRF_V2", "Enhanced V2"};
inline constexpr NumericControl SMIRF_V3{Panel::IRFSETPNL, "SMIRF_V3", "Enhanced V3"};
inline constexpr NumericControl SMIRF_V4{Panel::IRFSETPNL, "SMIRF_V4", "Enhanced V4"};
inline constexpr NumericControl BBIRF_V1{Panel::IRFSETPNL, "BBIRF_V1", "Backbone V1"};
inline constexpr NumericControl BBIRF_V2{Panel::IRFSETPNL, "BBIRF_V2", "Backbone V2"};
inline constexpr NumericControl BBIRF_V3{Panel::IRFSETPNL, "BBIRF_V3", "Backbone V3"};
inline constexpr NumericControl BBIRF_V4{Panel::IRFSETPNL, "BBIRF_V4", "Backbone V4"};
inline constexpr ButtonControl APPLY{Panel::IRFSETPNL, "APPLY", "Apply"};
inline constexpr ButtonControl COMMANDBUTTON_3{Panel::IRFSETPNL, "COMMANDBUTTON_3", "Default"};
inline constexpr ButtonControl OK{Panel::IRFSETPNL, "OK", "OK"};
inline constexpr ButtonControl CANCEL{Panel::IRFSETPNL, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &MEASID,   &REFCHNL,  &DSPCHNL,  &RECORDLENGTH,    &SITECAT,  &IRFMODE,  &SMIRF_T1, &SMIRF_T2,
    &SMIRF_T3, &SMIRF_T4, &SMIRF_V1, &SMIRF_V2,        &SMIRF_V3, &SMIRF_V4, &BBIRF_V1, &BBIRF_V2,
    &BBIRF_V3, &BBIRF_V4, &APPLY,    &COMMANDBUTTON_3, &OK,       &CANCEL};

}  // namespace sondera::irfsetpnl
