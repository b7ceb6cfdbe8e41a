// tmgrafpnl.h - "Tomographic Image of Phase Velocity": the section along a line, as an image or as stacked
// curves.
//
// The two levels at the ends of the colour scale are entered, the two between are displayed.
#pragma once

#include "runtime/controls.h"

namespace sondera::tmgrafpnl {

inline constexpr ListItem kTypes[] = {{"Stacked curves", 0}, {"Image", 1}};

inline constexpr GraphControl TOMOGRAF{
    Panel::TMGRAFPNL,
    "TOMOGRAF",
    "Section",
    {.hint = "Section of phase velocity: distance along the line against wavelength."}};
inline constexpr RingControl TOMOGRAFTYPE{
    Panel::TMGRAFPNL,
    "TOMOGRAFTYPE",
    "Type",
    kTypes,
    {.hint = "Form of the section: stacked curves, or a colour image."}};
inline constexpr ButtonControl DRAWTOMOGRAF{
    Panel::TMGRAFPNL,
    "DRAWTOMOGRAF",
    "Draw",
    {.hint = "Interpolates the curves to a grid and draws the image."}};
inline constexpr ListControl LIST_INCLUDED{
    Panel::TMGRAFPNL,
    "LIST_INCLUDED",
    "Included",
    {.hint = "Global curves that the section uses; a double click moves one to the excluded ones."}};
inline constexpr ListControl LIST_EXCLUDED{
    Panel::TMGRAFPNL,
    "LIST_EXCLUDED",
    "Excluded",
    {.hint = "Global curves that are left out; a double click moves one to the included ones."}};
inline constexpr ButtonControl INCLUDE{Panel::TMGRAFPNL,
                                       "INCLUDE",
                                       "Include",
                                       {.hint = "Moves the selected excluded curve to the included ones."}};
inline constexpr ButtonControl EXCLUDE{Panel::TMGRAFPNL,
                                       "EXCLUDE",
                                       "Exclude",
                                       {.hint = "Moves the selected included curve to the excluded ones."}};
inline constexpr NumericControl SRCPOS{
    Panel::TMGRAFPNL,
    "SRCPOS",
    "Location",
    {.hint = "Place of the selected curve on the line, in the unit of length.", .unit = "length"}};
inline constexpr NumericControl DMIN{
    Panel::TMGRAFPNL,
    "DMIN",
    "Distance from",
    {.hint = "Left end of the section, in the unit of length.", .unit = "length"}};
inline constexpr NumericControl DMAX{
    Panel::TMGRAFPNL,
    "DMAX",
    "Distance to",
    {.hint = "Right end of the section, in the unit of length.", .unit = "length"}};
inline constexpr NumericControl WLMIN{
    Panel::TMGRAFPNL,
    "WLMIN",
    "Wavelength from",
    {.hint = "Shortest wavelength of the section, in the unit of length.", .unit = "length", .min = 0.0}};
inline constexpr NumericControl WLMAX{
    Panel::TMGRAFPNL,
    "WLMAX",
    "Wavelength to",
    {.hint = "Longest wavelength of the section, in the unit of length.", .unit = "length", .min = 0.0}};
inline constexpr IntControl NX{
    Panel::TMGRAFPNL,
    "NX",
    "Intervals along the distance",
    20,
    {.hint = "Number of grid intervals along the distance, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr IntControl NY{
    Panel::TMGRAFPNL,
    "NY",
    "Intervals along the wavelength",
    10,
    {.hint = "Number of grid intervals along the wavelength, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr GraphControl COLORSCALE{
    Panel::TMGRAFPNL,
    "COLORSCALE",
    "Colour scale",
    {.hint = "Colours of the image from the lowest to the highest velocity."}};
inline constexpr IntControl LOCOLOR{
    Panel::TMGRAFPNL,
    "LOCOLOR",
    "Colour of the lowest velocity",
    0,
    {.hint = "Colour of the lowest velocity, 0xRRGGBB.", .role = Role::Color, .min = 0.0, .max = 0xFFFFFF}};
inline constexpr IntControl INT1COLOR{Panel::TMGRAFPNL,
                                      "INT1COLOR",
                                      "Lower colour between",
                                      0xFF,
                                      {.hint = "Colour of the lower level between, 0xRRGGBB.",
                                       .role = Role::Color,
                                       .min = 0.0,
                                       .max = 0xFFFFFF}};
inline constexpr IntControl INT2COLOR{Panel::TMGRAFPNL,
                                      "INT2COLOR",
                                      "Upper colour between",
                                      0xFF0000,
                                      {.hint = "Colour of the upper level between, 0xRRGGBB.",
                                       .role = Role::Color,
                                       .min = 0.0,
                                       .max = 0xFFFFFF}};
inline constexpr IntControl HICOLOR{
    Panel::TMGRAFPNL,
    "HICOLOR",
    "Colour of the highest velocity",
    0xFFFF00,
    {.hint = "Colour of the highest velocity, 0xRRGGBB.", .role = Role::Color, .min = 0.0, .max = 0xFFFFFF}};
inline constexpr NumericControl LOCOLORVAL{
    Panel::TMGRAFPNL,
    "LOCOLORVAL",
    "Lowest velocity",
    {.hint = "Lower end of the colour scale, in the unit of length per second.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr TextControl INT1COLORVAL{
    Panel::TMGRAFPNL,
    "INT1COLORVAL",
    "Lower level between",
    {.hint = "Velocity of the lower colour between.", .role = Role::ReadOut}};
inline constexpr TextControl INT2COLORVAL{
    Panel::TMGRAFPNL,
    "INT2COLORVAL",
    "Upper level between",
    {.hint = "Velocity of the upper colour between.", .role = Role::ReadOut}};
inline constexpr NumericControl HICOLORVAL{
    Panel::TMGRAFPNL,
    "HICOLORVAL",
    "Highest velocity",
    {.hint = "Upper end of the colour scale, in the unit of length per second.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr ButtonControl UPDATE{
    Panel::TMGRAFPNL, "UPDATE", "Update", {.hint = "Takes these settings."}};
inline constexpr ButtonControl CLOSE{Panel::TMGRAFPNL, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &TOMOGRAF,     &TOMOGRAFTYPE, &DRAWTOMOGRAF, &LIST_INCLUDED, &LIST_EXCLUDED, &INCLUDE,    &EXCLUDE,
    &SRCPOS,       &DMIN,         &DMAX,         &WLMIN,         &WLMAX,         &NX,         &NY,
    &COLORSCALE,   &LOCOLOR,      &INT1COLOR,    &INT2COLOR,     &HICOLOR,       &LOCOLORVAL, &INT1COLORVAL,
    &INT2COLORVAL, &HICOLORVAL,   &UPDATE,       &CLOSE};

}  // namespace sondera::tmgrafpnl
