// irfsetpnl.h - "Parameters of IR Filtration (IRF)": the two time windows of the filter, by times or by
// velocities.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::irfsetpnl {

inline constexpr ListItem kModes[] = {{"Band-Pass", 0}, {"Low-Pass", 1}};

inline constexpr TextControl MEASID{
    Panel::IRFSETPNL, "MEASID", "Measurement ID", {.hint = "Id of the measurement.", .role = Role::ReadOut}};
inline constexpr IntControl REFCHNL{
    Panel::IRFSETPNL,
    "REFCHNL",
    "Reference channel",
    {.hint = "Reference channel of the pair, counted from 1.", .role = Role::ReadOut}};
inline constexpr IntControl DSPCHNL{
    Panel::IRFSETPNL,
    "DSPCHNL",
    "Display channel",
    {.hint = "Display channel of the pair, counted from 1.", .role = Role::ReadOut}};
inline constexpr TextControl RECORDLENGTH{
    Panel::IRFSETPNL,
    "RECORDLENGTH",
    "Record length",
    {.hint = "Length of the record, s; no time of a window may be beyond it.", .role = Role::ReadOut}};
inline constexpr RingControl SITECAT{
    Panel::IRFSETPNL,
    "SITECAT",
    "Site",
    panel_items::kSiteCategories,
    {.hint = "Kind of site, by which the filter gets its first velocities."}};
inline constexpr RingControl IRFMODE{
    Panel::IRFSETPNL,
    "IRFMODE",
    "Window",
    kModes,
    {.hint = "Window in time: band-pass from T1 to T4, or low-pass, which keeps both ends of the record."}};
inline constexpr NumericControl SMIRF_T1{
    Panel::IRFSETPNL,
    "SMIRF_T1",
    "Enhanced T1, s",
    {.hint =
         "Time at which the window of the enhanced phase is at its corner 1, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_T2{
    Panel::IRFSETPNL,
    "SMIRF_T2",
    "Enhanced T2, s",
    {.hint =
         "Time at which the window of the enhanced phase is at its corner 2, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_T3{
    Panel::IRFSETPNL,
    "SMIRF_T3",
    "Enhanced T3, s",
    {.hint =
         "Time at which the window of the enhanced phase is at its corner 3, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_T4{
    Panel::IRFSETPNL,
    "SMIRF_T4",
    "Enhanced T4, s",
    {.hint =
         "Time at which the window of the enhanced phase is at its corner 4, s, 0 up to the record length.",
     .unit = "s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_V1{
    Panel::IRFSETPNL,
    "SMIRF_V1",
    "Enhanced V1",
    {.hint = "Velocity of a wave that arrives at corner 1 of the enhanced window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_V2{
    Panel::IRFSETPNL,
    "SMIRF_V2",
    "Enhanced V2",
    {.hint = "Velocity of a wave that arrives at corner 2 of the enhanced window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_V3{
    Panel::IRFSETPNL,
    "SMIRF_V3",
    "Enhanced V3",
    {.hint = "Velocity of a wave that arrives at corner 3 of the enhanced window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl SMIRF_V4{
    Panel::IRFSETPNL,
    "SMIRF_V4",
    "Enhanced V4",
    {.hint = "Velocity of a wave that arrives at corner 4 of the enhanced window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_V1{
    Panel::IRFSETPNL,
    "BBIRF_V1",
    "Backbone V1",
    {.hint = "Velocity of a wave that arrives at corner 1 of the backbone window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_V2{
    Panel::IRFSETPNL,
    "BBIRF_V2",
    "Backbone V2",
    {.hint = "Velocity of a wave that arrives at corner 2 of the backbone window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_V3{
    Panel::IRFSETPNL,
    "BBIRF_V3",
    "Backbone V3",
    {.hint = "Velocity of a wave that arrives at corner 3 of the backbone window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl BBIRF_V4{
    Panel::IRFSETPNL,
    "BBIRF_V4",
    "Backbone V4",
    {.hint = "Velocity of a wave that arrives at corner 4 of the backbone window, in the unit of length per "
             "second; V1 is the highest.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr GraphControl WINDOWS{
    Panel::IRFSETPNL,
    "WINDOWS",
    "Windows over the impulse response",
    {.hint = "Impulse response of the pair with both windows: drag a corner and its fields follow; the first "
             "markers are those of the enhanced window, the others those of the backbone window."}};
inline constexpr ButtonControl APPLY{
    Panel::IRFSETPNL,
    "APPLY",
    "Apply",
    {.hint = "Takes the times of the enhanced window and filters the pair."}};
inline constexpr ButtonControl COMMANDBUTTON_3{
    Panel::IRFSETPNL,
    "COMMANDBUTTON_3",
    "Default",
    {.hint = "Shows the default velocities for this kind of site; Apply or OK takes them."}};
inline constexpr ButtonControl OK{
    Panel::IRFSETPNL, "OK", "OK", {.hint = "Takes the velocities of both windows and filters the pair."}};
inline constexpr ButtonControl CANCEL{Panel::IRFSETPNL, "CANCEL", "Cancel", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &MEASID,   &REFCHNL,  &DSPCHNL,  &RECORDLENGTH, &SITECAT,         &IRFMODE,  &SMIRF_T1, &SMIRF_T2,
    &SMIRF_T3, &SMIRF_T4, &SMIRF_V1, &SMIRF_V2,     &SMIRF_V3,        &SMIRF_V4, &BBIRF_V1, &BBIRF_V2,
    &BBIRF_V3, &BBIRF_V4, &WINDOWS,  &APPLY,        &COMMANDBUTTON_3, &OK,       &CANCEL};

}  // namespace sondera::irfsetpnl
