// gaborpnl.h - "Parameters of Gabor Spectrum": time and frequency grid of the map, width of the Gauss filter, colours.
#pragma once

#include "runtime/controls.h"

namespace sondera::gaborpnl {

inline constexpr TextControl PROJID{
    Panel::GABORPNL, "PROJID", "Project ID", {.hint = "Id of the project.", .role = Role::ReadOut}};
inline constexpr TextControl MEASID{
    Panel::GABORPNL, "MEASID", "Measurement ID", {.hint = "Id of the measurement.", .role = Role::ReadOut}};
inline constexpr NumericControl INITTIME{
    Panel::GABORPNL, "INITTIME", "First time, s", {.hint = "First time of the map, s.", .unit = "s"}};
inline constexpr NumericControl FINALTIME{
    Panel::GABORPNL,
    "FINALTIME",
    "Last time, s",
    {.hint = "Last time of the map, s; 0 lets the program choose.", .unit = "s"}};
inline constexpr IntControl TIMEDIV{
    Panel::GABORPNL,
    "TIMEDIV",
    "Time points",
    50,
    {.hint = "Number of time points of the map, 1 to 50.", .min = 1.0, .max = 50.0, .step = 1.0}};
inline constexpr NumericControl INITFREQ{
    Panel::GABORPNL,
    "INITFREQ",
    "First frequency, Hz",
    {.hint = "First frequency of the map, Hz, 0 or more.", .unit = "Hz", .min = 0.0}};
inline constexpr NumericControl FINALFREQ{
    Panel::GABORPNL,
    "FINALFREQ",
    "Last frequency, Hz",
    {.hint = "Last frequency of the map, Hz, above the first.", .unit = "Hz", .min = 0.0}};
inline constexpr IntControl FREQDIV{
    Panel::GABORPNL,
    "FREQDIV",
    "Frequency points",
    50,
    {.hint = "Number of frequency points of the map, 1 to 50.", .min = 1.0, .max = 50.0, .step = 1.0}};
inline constexpr NumericControl BETA{
    Panel::GABORPNL,
    "BETA",
    "Exponent of the Gauss filter",
    3.0,
    {.hint = "Exponent of the Gauss filter, above 0: the filter falls to exp(-exponent) at its edges.",
     .min = 0.0,
     .step = 0.1}};
inline constexpr NumericControl BAND{Panel::GABORPNL,
                                     "BAND",
                                     "Width of the Gauss filter",
                                     0.5,
                                     {.hint = "Relative half-width of the Gauss filter, above 0 and below 1.",
                                      .min = 0.0,
                                      .max = 1.0,
                                      .step = 0.05}};
inline constexpr IntControl NCONTLEVEL{
    Panel::GABORPNL,
    "NCONTLEVEL",
    "Contour levels",
    10,
    {.hint = "Number of contour levels, kept with the pair.", .min = 0.0, .step = 1.0}};
inline constexpr NumericControl CNTTHRESHOLD{
    Panel::GABORPNL,
    "CNTTHRESHOLD",
    "Threshold (0 to 100)",
    75.0,
    {.hint = "Level on the scale from 0 to 100 below which the map shows nothing.",
     .min = 0.0,
     .max = 100.0,
     .step = 5.0}};
inline constexpr IntControl LOCOLOR{
    Panel::GABORPNL,
    "LOCOLOR",
    "Colour at the threshold",
    0,
    {.hint = "Colour at the threshold, 0xRRGGBB.", .role = Role::Color, .min = 0.0, .max = 0xFFFFFF}};
inline constexpr IntControl INTCOLOR1{Panel::GABORPNL,
                                      "INTCOLOR1",
                                      "Lower colour between",
                                      0xFF,
                                      {.hint = "Colour of the lower level between, 0xRRGGBB.",
                                       .role = Role::Color,
                                       .min = 0.0,
                                       .max = 0xFFFFFF}};
inline constexpr IntControl INTCOLOR2{Panel::GABORPNL,
                                      "INTCOLOR2",
                                      "Upper colour between",
                                      0xFF0000,
                                      {.hint = "Colour of the upper level between, 0xRRGGBB.",
                                       .role = Role::Color,
                                       .min = 0.0,
                                       .max = 0xFFFFFF}};
inline constexpr IntControl HICOLOR{
    Panel::GABORPNL,
    "HICOLOR",
    "Colour at 100",
    0xFFFF00,
    {.hint = "Colour at level 100, 0xRRGGBB.", .role = Role::Color, .min = 0.0, .max = 0xFFFFFF}};
inline constexpr GraphControl COLORSCALE{
    Panel::GABORPNL, "COLORSCALE", "Colour scale", {.hint = "Colours of the map from the threshold to 100."}};
inline constexpr TextControl LOCOLORVAL{
    Panel::GABORPNL,
    "LOCOLORVAL",
    "Threshold level",
    {.hint = "Level of the lowest colour on the scale from 0 to 100.", .role = Role::ReadOut}};
inline constexpr TextControl INTCOLORVAL1{
    Panel::GABORPNL,
    "INTCOLORVAL1",
    "Lower level between",
    {.hint = "Level of the lower colour between on the scale from 0 to 100.", .role = Role::ReadOut}};
inline constexpr TextControl INTCOLORVAL2{
    Panel::GABORPNL,
    "INTCOLORVAL2",
    "Upper level between",
    {.hint = "Level of the upper colour between on the scale from 0 to 100.", .role = Role::ReadOut}};
inline constexpr TextControl HICOLORVAL{
    Panel::GABORPNL,
    "HICOLORVAL",
    "Highest level",
    {.hint = "Level of the highest colour on the scale from 0 to 100.", .role = Role::ReadOut}};
inline constexpr ButtonControl CALC{Panel::GABORPNL,
                                    "CALC",
                                    "Calculate",
                                    {.hint = "Calculates the time-frequency map of the pair and shows it."}};
inline constexpr ButtonControl UPDATE{
    Panel::GABORPNL, "UPDATE", "Update", {.hint = "Keeps these settings with the pair."}};
inline constexpr ButtonControl DEFAULTVALUE{
    Panel::GABORPNL, "DEFAULTVALUE", "Default", {.hint = "Restores the default settings."}};
inline constexpr ButtonControl CLOSE{Panel::GABORPNL, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &PROJID,    &MEASID,  &INITTIME,     &FINALTIME,  &TIMEDIV,      &INITFREQ,     &FINALFREQ,
    &FREQDIV,   &BETA,    &BAND,         &NCONTLEVEL, &CNTTHRESHOLD, &LOCOLOR,      &INTCOLOR1,
    &INTCOLOR2, &HICOLOR, &COLORSCALE,   &LOCOLORVAL, &INTCOLORVAL1, &INTCOLORVAL2, &HICOLORVAL,
    &CALC,      &UPDATE,  &DEFAULTVALUE, &CLOSE};

}  // namespace sondera::gaborpnl
