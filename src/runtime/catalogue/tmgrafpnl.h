// tmgrafpnl.h - "Tomographic Image of Phase Velocity": the section along a line, as an image or as stacked
// curves.
//
// The two levels at the ends of the colour scale are entered, the two between are shown.
#pragma once

#include "runtime/controls.h"

namespace sondera::tmgrafpnl {

inline constexpr ListItem kTypes[] = {{"Stacked curves", 0}, {"Image", 1}};

inline constexpr GraphControl TOMOGRAF{Panel::TMGRAFPNL, "TOMOGRAF", "Section"};
inline constexpr RingControl TOMOGRAFTYPE{Panel::TMGRAFPNL, "TOMOGRAFTYPE", "Type", kTypes};
inline constexpr ButtonControl DRAWTOMOGRAF{Panel::TMGRAFPNL, "DRAWTOMOGRAF", "Draw"};
inline constexpr ListControl LIST_INCLUDED{Panel::TMGRAFPNL, "LIST_INCLUDED", "Included"};
inline constexpr ListControl LIST_EXCLUDED{Panel::TMGRAFPNL, "LIST_EXCLUDED", "Excluded"};
inline constexpr ButtonControl INCLUDE{Panel::TMGRAFPNL, "INCLUDE", "Include"};
inline constexpr ButtonControl EXCLUDE{Panel::TMGRAFPNL, "EXCLUDE", "Exclude"};
inline constexpr NumericControl SRCPOS{Panel::TMGRAFPNL, "SRCPOS", "Location"};
inline constexpr NumericControl DMIN{Panel::TMGRAFPNL, "DMIN", "Distance from"};
inline constexpr NumericControl DMAX{Panel::TMGRAFPNL, "DMAX", "Distance to"};
inline constexpr NumericControl WLMIN{Panel::TMGRAFPNL, "WLMIN", "Wavelength from"};
inline constexpr NumericControl WLMAX{Panel::TMGRAFPNL, "WLMAX", "Wavelength to"};
inline constexpr IntControl NX{Panel::TMGRAFPNL, "NX", "Intervals along the distance", 20};
inline constexpr IntControl NY{Panel::TMGRAFPNL, "NY", "Intervals along the wavelength", 10};
inline constexpr GraphControl COLORSCALE{Panel::TMGRAFPNL, "COLORSCALE", "Colour scale"};
inline constexpr IntControl LOCOLOR{Panel::TMGRAFPNL, "LOCOLOR", "Colour of the lowest velocity", 0};
inline constexpr IntControl INT1COLOR{Panel::TMGRAFPNL, "INT1COLOR", "Lower colour between", 0xFF};
inline constexpr IntControl INT2COLOR{Panel::TMGRAFPNL, "INT2COLOR", "Upper colour between", 0xFF0000};
inline constexpr IntControl HICOLOR{Panel::TMGRAFPNL, "HICOLOR", "Colour of the highest velocity", 0xFFFF00};
inline constexpr NumericControl LOCOLORVAL{Panel::TMGRAFPNL, "LOCOLORVAL", "Lowest velocity"};
inline constexpr TextControl INT1COLORVAL{Panel::TMGRAFPNL, "INT1COLORVAL", "Lower level between"};
inline constexpr TextControl INT2COLORVAL{Panel::TMGRAFPNL, "INT2COLORVAL", "Upper level between"};
inline constexpr NumericControl HICOLORVAL{Panel::TMGRAFPNL, "HICOLORVAL", "Highest velocity"};
inline constexpr ButtonControl UPDATE{Panel::TMGRAFPNL, "UPDATE", "Update"};
inline constexpr ButtonControl CLOSE{Panel::TMGRAFPNL, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &TOMOGRAF,     &TOMOGRAFTYPE, &DRAWTOMOGRAF, &LIST_INCLUDED, &LIST_EXCLUDED, &INCLUDE,    &EXCLUDE,
    &SRCPOS,       &DMIN,         &DMAX,         &WLMIN,         &WLMAX,         &NX,         &NY,
    &COLORSCALE,   &LOCOLOR,      &INT1COLOR,    &INT2COLOR,     &HICOLOR,       &LOCOLORVAL, &INT1COLORVAL,
    &INT2COLORVAL, &HICOLORVAL,   &UPDATE,       &CLOSE};

}  // namespace sondera::tmgrafpnl
