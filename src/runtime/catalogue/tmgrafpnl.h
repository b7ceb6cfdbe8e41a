// tmgrafpnl.h - "Tomographic Image of Phase Velocity": the section along a line, as an image or as stacked
// curves.
//
// The two levels at the ends of the colour scale are entered, the two between are displayed.
#pragma once

#include "runtime/controls.h"

namespace sondera::tmgrafpnl {

inline constexpr ListItem kTypes[] = {{"Stacked curves", 0}, {"Image", 1}};
inline constexpr ListItem kVerticalAxes[] = {
    {"Wavelength", 1}, {"Pseudo-depth = wavelength / 2", 2}, {"Pseudo-depth = wavelength / 3", 3}};

inline constexpr GraphControl TOMOGRAF{
    Panel::TMGRAFPNL,
    "TOMOGRAF",
    "Section",
    {.hint =
         "Section of phase velocity: distance along the line against wavelength; a click reads a place."}};
inline constexpr TextControl COORD{Panel::TMGRAFPNL,
                                   "COORD",
                                   "Cursor",
                                   {.hint = "Distance, wavelength and velocity at the cursor.",
                                    .spoken = "Cursor, section",
                                    .role = Role::ReadOut}};
inline constexpr TextControl MESSAGE{Panel::TMGRAFPNL,
                                     "MESSAGE",
                                     "Message",
                                     {.hint = "What there is to say about the section: nodes without a "
                                              "value, points left out, an image that is older "
                                              "than its settings.",
                                      .role = Role::ReadOut}};
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
inline constexpr auto HALT = Dimmed(ButtonControl{
    Panel::TMGRAFPNL,
    "HALT",
    "Halt",
    {.hint = "Ends the calculation of the image; the former one stays.", .spoken = "Halt, section"}});
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
    {.hint =
         "Place of the selected included curve on the line, in the unit of length; a new number is stored.",
     .unit = "length"}};
inline constexpr ButtonControl ADDSTATION{
    Panel::TMGRAFPNL,
    "ADDSTATION",
    "Add station",
    {.hint = "Adds the global curves of another project (.da), or of a .gcd file, at a place of the line."}};
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
inline constexpr ToggleControl FILL{Panel::TMGRAFPNL,
                                    "FILL",
                                    "Fill",
                                    {.hint = "Estimates every node from six points of two stations or more, "
                                             "so that none is left without a value."}};
inline constexpr RingControl VERTICALAXIS{
    Panel::TMGRAFPNL,
    "VERTICALAXIS",
    "Vertical axis",
    kVerticalAxes,
    {.hint = "Vertical axis: wavelength, or a pseudo-depth, which is no depth of a layer."}};
inline constexpr ToggleControl CONTOURS{Panel::TMGRAFPNL,
                                        "CONTOURS",
                                        "Contour lines",
                                        1,
                                        {.hint = "Draws lines of equal velocity at round values."}};
inline constexpr ToggleControl KEEPCOLORS{
    Panel::TMGRAFPNL,
    "KEEPCOLORS",
    "Keep the ends",
    {.hint = "Keeps both ends of the colour scale when the panel is shown, so that sections compare."}};
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
inline constexpr ButtonControl SAVEGRID{
    Panel::TMGRAFPNL,
    "SAVEGRID",
    "Save grid",
    {.hint = "Writes the nodes of the image to a .csv file: distance, wavelength, velocity."}};
inline constexpr ButtonControl SAVEPOINTS{Panel::TMGRAFPNL,
                                          "SAVEPOINTS",
                                          "Save points",
                                          {.hint = "Writes the points of the included curves to a .csv file: "
                                                   "station, distance, wavelength, velocity."}};
inline constexpr ButtonControl CLOSE{Panel::TMGRAFPNL, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &TOMOGRAF,      &COORD,        &MESSAGE,    &TOMOGRAFTYPE, &DRAWTOMOGRAF, &HALT,         &LIST_INCLUDED,
    &LIST_EXCLUDED, &INCLUDE,      &EXCLUDE,    &SRCPOS,       &ADDSTATION,   &DMIN,         &DMAX,
    &WLMIN,         &WLMAX,        &NX,         &NY,           &FILL,         &VERTICALAXIS, &CONTOURS,
    &KEEPCOLORS,    &COLORSCALE,   &LOCOLOR,    &INT1COLOR,    &INT2COLOR,    &HICOLOR,      &LOCOLORVAL,
    &INT1COLORVAL,  &INT2COLORVAL, &HICOLORVAL, &UPDATE,       &SAVEGRID,     &SAVEPOINTS,   &CLOSE};

}  // namespace sondera::tmgrafpnl
