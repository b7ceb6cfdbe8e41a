// items.h - lists of items that more than one panel offers: display types, length units, sites, markers,
// colours.
//
// Used by the headers of the panels and by code that fills a list again. The position of an item is its value
// unless the list has other values.
#pragma once

#include "runtime/controls.h"

namespace sondera::panel_items {

/// Contents of a trace.
inline constexpr ListItem kDisplayTypes[] = {{"Time Trace", 0},
                                             {"Linear Spectrum (Phase)", 1},
                                             {"Linear Spectrum (Amp)", 2},
                                             {"Freq Resp (Phase)", 3},
                                             {"Freq Resp (Amp)", 4},
                                             {"Power Spectrum", 5},
                                             {"Cross Power Spectrum (Phase)", 6},
                                             {"Cross Power Spectrum (Amplitude)", 7},
                                             {"Coherence", 8},
                                             {"Impulse Response", 9},
                                             {"Gabor Spectrum", 10}};

/// The trace that the other controls of the page change.
inline constexpr ListItem kTraces[] = {{"Trace A", 0}, {"Trace B", 1}, {"Both", 2}};

/// Ordinate of amplitude displays.
inline constexpr ListItem kLinearLog[] = {{"Linear", 0}, {"Log", 1}};

/// Scale of an axis in the axis dialogs; the reverse of kLinearLog, as in the records of the axes.
inline constexpr ListItem kAxisScales[] = {{"Log", 0}, {"Linear", 1}};

/// Unit of voltage displays.
inline constexpr ListItem kVoltUnits[] = {{"V rms", 0}, {"V pk", 1}, {"V rms^2", 2}, {"V pk^2", 3}};

/// Graph cursors in use; masking works with two.
inline constexpr ListItem kMarkerCounts[] = {{"Off", 0}, {"One", 1}, {"Two", 2}};

/// Metres per unit of length.
inline constexpr ListItem kLengthUnits[] = {{"meter", 1.0}, {"cm", 0.01}, {"ft", 0.3048}, {"in", 0.0254}};

/// Kind of site: selects the pseudo velocities of the impulse response filter.
inline constexpr ListItem kSiteCategories[] = {
    {"Geotechnical Site", 0}, {"Concrete Site", 1}, {"Pavement Site", 2}};

/// The three unwrapped phases of a pair.
inline constexpr ListItem kPhaseOptions[] = {{"Original", 0}, {"Enhanced", 1}, {"Backbone", 2}};

/// Quantity on an axis of a dispersion graph.
inline constexpr ListItem kDispersionAxes[] = {{"Phase Velocity", 0}, {"Frequency", 1}, {"Wavelength", 2}};

/// Markers of curves; counters that assign them run to 18.
inline constexpr ListItem kMarkers[] = {{"Empty square", 0},
                                        {"Solid square", 1},
                                        {"Dotted square", 2},
                                        {"Small empty square", 3},
                                        {"Small solid square", 4},
                                        {"Empty diamond", 5},
                                        {"Solid diamond", 6},
                                        {"Dotted diamond", 7},
                                        {"Empty triangle", 8},
                                        {"Solid triangle", 9},
                                        {"Empty circle", 10},
                                        {"Dotted circle", 11},
                                        {"Solid circle", 12},
                                        {"Small empty circle", 13},
                                        {"Small solid circle", 14},
                                        {"Asterisk", 15},
                                        {"Cross", 16},
                                        {"Plus", 17},
                                        {"Dot", 18}};

/// Colours of curves, in the order of the colour table.
inline constexpr ListItem kColors[] = {{"Red", 0},         {"Green", 1},       {"Blue", 2},    {"Cyan", 3},
                                       {"Magenta", 4},     {"Yellow", 5},      {"Maroon", 6},  {"Navy", 7},
                                       {"Dark green", 8},  {"Dark cyan", 9},   {"Purple", 10}, {"Olive", 11},
                                       {"Light gray", 12}, {"Gray", 13},       {"Black", 14},  {"White", 15},
                                       {"Silver", 16},     {"Medium gray", 17}};

}  // namespace sondera::panel_items
