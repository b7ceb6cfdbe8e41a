// pulse.h - "Generation of Waveform": settings of a synthetic time history. No waveform is made from them;
// traces A and B have the controls of the measurement page and show no data.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::pulse {

inline constexpr ListItem kShapes[] = {{"From file", 0}, {"Shape 1", 1}, {"Shape 2", 2}};
inline constexpr ListItem kSaveOptions[] = {{"Option 0", 0}, {"Option 1", 1}, {"Option 2", 2}};

inline constexpr RingControl SHAPE{Panel::PULSE, "SHAPE", "Source", kShapes, 2};
inline constexpr TextControl FILE{Panel::PULSE, "FILE", "Source file"};
inline constexpr ButtonControl BROWSE{Panel::PULSE, "BROWSE", "Browse"};
inline constexpr NumericControl CFREQ{Panel::PULSE, "CFREQ", "Center Feq. :", 1280.0};
inline constexpr NumericControl FREQSPAN{Panel::PULSE, "FREQSPAN", "Freq. Span :", 51200.0};
inline constexpr IntControl NPOINTS{Panel::PULSE, "NPOINTS", "No. of Points :", 6};
inline constexpr TextControl DELTAT{Panel::PULSE, "DELTAT", "Time step"};
inline constexpr TextControl TOTALT{Panel::PULSE, "TOTALT", "Time length"};
inline constexpr ButtonControl PROFILEREC{Panel::PULSE, "PROFILEREC", "Layers and receivers"};
inline constexpr ButtonControl RUN{Panel::PULSE, "RUN", "Run"};
inline constexpr RingControl SAVEOPTION{Panel::PULSE, "SAVEOPTION", "Save as", kSaveOptions, 2};
inline constexpr ButtonControl SAVE{Panel::PULSE, "SAVE", "Save"};
inline constexpr ButtonControl CLOSE{Panel::PULSE, "CLOSE", "Close"};

inline constexpr GraphControl DISPLAY_A{Panel::PULSE, "DISPLAY_A", "Display A"};
inline constexpr GraphControl DISPLAY_B{Panel::PULSE, "DISPLAY_B", "Display B"};
inline constexpr RingControl DISPACHNL{Panel::PULSE, "DISPACHNL", "A: channel"};
inline constexpr RingControl DISPATYPE{Panel::PULSE, "DISPATYPE", "A: display", panel_items::kDisplayTypes,
                                       3};
inline constexpr RingControl DISPBCHNL{Panel::PULSE, "DISPBCHNL", "B: channel"};
inline constexpr RingControl DISPBTYPE{Panel::PULSE, "DISPBTYPE", "B: display", panel_items::kDisplayTypes};
inline constexpr RingControl TRACE_ONOFF{Panel::PULSE, "TRACE_ONOFF", "Settings of", panel_items::kTraces};
inline constexpr RingControl LOG_LINEAR{Panel::PULSE, "LOG_LINEAR", "Ordinate", panel_items::kLinearLog};
inline constexpr RingControl VOLT_UNIT{Panel::PULSE, "VOLT_UNIT", "Unit", panel_items::kVoltUnits};
inline constexpr RingControl MARKERS_ONOFF{Panel::PULSE, "MARKERS_ONOFF", "Markers",
                                           panel_items::kMarkerCounts};
inline constexpr ToggleControl AUTOSCALE_X{Panel::PULSE, "AUTOSCALE_X", "Auto scale X", 1};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::PULSE, "AUTOSCALE_Y", "Auto scale Y", 1};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &SHAPE,     &FILE,          &BROWSE,      &CFREQ,      &FREQSPAN,  &NPOINTS,     &DELTAT,
    &TOTALT,    &PROFILEREC,    &RUN,         &SAVEOPTION, &SAVE,      &CLOSE,       &DISPLAY_A,
    &DISPLAY_B, &DISPACHNL,     &DISPATYPE,   &DISPBCHNL,  &DISPBTYPE, &TRACE_ONOFF, &LOG_LINEAR,
    &VOLT_UNIT, &MARKERS_ONOFF, &AUTOSCALE_X, &AUTOSCALE_Y};

}  // namespace sondera::pulse
