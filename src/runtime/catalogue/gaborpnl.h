// gaborpnl.h - "Parameters of Gabor Spectrum": time and frequency grid of the map, width of the Gauss filter, colours.
#pragma once

#include "runtime/controls.h"

namespace sondera::gaborpnl {

inline constexpr TextControl PROJID{Panel::GABORPNL, "PROJID", "Project ID"};
inline constexpr TextControl MEASID{Panel::GABORPNL, "MEASID", "Measurement ID"};
inline constexpr NumericControl INITTIME{Panel::GABORPNL, "INITTIME", "First time, s"};
inline constexpr NumericControl FINALTIME{Panel::GABORPNL, "FINALTIME", "Last time, s"};
inline constexpr IntControl TIMEDIV{Panel::GABORPNL, "TIMEDIV", "Time points", 50};
inline constexpr NumericControl INITFREQ{Panel::GABORPNL, "INITFREQ", "First frequency, Hz"};
inline constexpr NumericControl FINALFREQ{Panel::GABORPNL, "FINALFREQ", "Last frequency, Hz"};
inline constexpr IntControl FREQDIV{Panel::GABORPNL, "FREQDIV", "Frequency points", 50};
inline constexpr NumericControl BETA{Panel::GABORPNL, "BETA", "Exponent of the Gauss filter", 3.0};
inline constexpr NumericControl BAND{Panel::GABORPNL, "BAND", "Width of the Gauss filter", 0.5};
inline constexpr IntControl NCONTLEVEL{Panel::GABORPNL, "NCONTLEVEL", "Contour levels", 10};
inline constexpr NumericControl CNTTHRESHOLD{Panel::GABORPNL, "CNTTHRESHOLD", "Threshold (0 to 100)", 75.0};
inline constexpr IntControl LOCOLOR{Panel::GABORPNL, "LOCOLOR", "Colour at the threshold", 0};
inline constexpr IntControl INTCOLOR1{Panel::GABORPNL, "INTCOLOR1", "Lower colour between", 0xFF};
inline constexpr IntControl INTCOLOR2{Panel::GABORPNL, "INTCOLOR2", "Upper colour between", 0xFF0000};
inline constexpr IntControl HICOLOR{Panel::GABORPNL, "HICOLOR", "Colour at 100", 0xFFFF00};
inline constexpr GraphControl COLORSCALE{Panel::GABORPNL, "COLORSCALE", "Colour scale"};
inline constexpr TextControl LOCOLORVAL{Panel::GABORPNL, "LOCOLORVAL", "Threshold level"};
inline constexpr TextControl INTCOLORVAL1{Panel::GABORPNL, "INTCOLORVAL1", "Lower level between"};
inline constexpr TextControl INTCOLORVAL2{Panel::GABORPNL, "INTCOLORVAL2", "Upper level between"};
inline constexpr TextControl HICOLORVAL{Panel::GABORPNL, "HICOLORVAL", "Highest level"};
inline constexpr ButtonControl CALC{Panel::GABORPNL, "CALC", "Calculate"};
inline constexpr ButtonControl UPDATE{Panel::GABORPNL, "UPDATE", "Update"};
inline constexpr ButtonControl DEFAULTVALUE{Panel::GABORPNL, "DEFAULTVALUE", "Default"};
inline constexpr ButtonControl CLOSE{Panel::GABORPNL, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &PROJID,    &MEASID,  &INITTIME,     &FINALTIME,  &TIMEDIV,      &INITFREQ,     &FINALFREQ,
    &FREQDIV,   &BETA,    &BAND,         &NCONTLEVEL, &CNTTHRESHOLD, &LOCOLOR,      &INTCOLOR1,
    &INTCOLOR2, &HICOLOR, &COLORSCALE,   &LOCOLORVAL, &INTCOLORVAL1, &INTCOLORVAL2, &HICOLORVAL,
    &CALC,      &UPDATE,  &DEFAULTVALUE, &CLOSE};

}  // namespace sondera::gaborpnl
