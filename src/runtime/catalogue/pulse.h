// pulse.h - "Generation of Waveform": settings of a synthetic time history. No waveform is made from them;
// traces A and B have the controls of the measurement page and show no data.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::pulse {

inline constexpr ListItem kShapes[] = {{"From file", 0}, {"Shape 1", 1}, {"Shape 2", 2}};
inline constexpr ListItem kSaveOptions[] = {{"Option 0", 0}, {"Option 1", 1}, {"Option 2", 2}};

inline constexpr RingControl SHAPE{
    Panel::PULSE, "SHAPE", "Source",
    kShapes,      2,       {.hint = "Time history of the source: from a file, or a made one."}};
inline constexpr TextControl FILE{
    Panel::PULSE, "FILE", "Source file", {.hint = "File with the time history of the source."}};
inline constexpr ButtonControl BROWSE{
    Panel::PULSE,
    "BROWSE",
    "Browse",
    {.hint = "Chooses the file of the source.", .spoken = "Source file, browse"}};
inline constexpr NumericControl CFREQ{
    Panel::PULSE,
    "CFREQ",
    "Center Feq. :",
    1280.0,
    {.hint = "Centre frequency of the source, Hz, above 0.", .unit = "Hz", .min = 0.0}};
inline constexpr NumericControl FREQSPAN{
    Panel::PULSE,
    "FREQSPAN",
    "Freq. Span :",
    51200.0,
    {.hint = "Highest frequency, Hz, above 0; the time step is half its inverse.", .unit = "Hz", .min = 0.0}};
inline constexpr IntControl NPOINTS{Panel::PULSE,
                                    "NPOINTS",
                                    "No. of Points :",
                                    6,
                                    {.hint = "Number of samples, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr TextControl DELTAT{
    Panel::PULSE,
    "DELTAT",
    "Time step",
    {.hint = "Time step that follows from the frequency span.", .role = Role::ReadOut}};
inline constexpr TextControl TOTALT{
    Panel::PULSE, "TOTALT", "Time length", {.hint = "Length of the time history.", .role = Role::ReadOut}};
inline constexpr ButtonControl PROFILEREC{Panel::PULSE,
                                          "PROFILEREC",
                                          "Layers and receivers",
                                          {.hint = "Opens the layers and receivers of the model."}};
inline constexpr auto RUN =
    Dimmed(ButtonControl{Panel::PULSE, "RUN", "Run", {.hint = "Makes no waveform in this version."}});
inline constexpr RingControl SAVEOPTION{
    Panel::PULSE, "SAVEOPTION", "Save as", kSaveOptions, 2, {.hint = "Form of the file to save."}};
inline constexpr auto SAVE =
    Dimmed(ButtonControl{Panel::PULSE, "SAVE", "Save", {.hint = "Saves no waveform in this version."}});
inline constexpr ButtonControl CLOSE{Panel::PULSE, "CLOSE", "Close", {.hint = "Hides this panel."}};

inline constexpr GraphControl DISPLAY_A{
    Panel::PULSE, "DISPLAY_A", "Display A", {.hint = "Graph of trace A; its markers can be dragged."}};
inline constexpr GraphControl DISPLAY_B{
    Panel::PULSE, "DISPLAY_B", "Display B", {.hint = "Graph of trace B; its markers can be dragged."}};
inline constexpr RingControl DISPACHNL{
    Panel::PULSE, "DISPACHNL", "A: channel", {.hint = "Channel that trace A shows, counted from 1."}};
inline constexpr RingControl DISPATYPE{
    Panel::PULSE,
    "DISPATYPE",
    "A: display",
    panel_items::kDisplayTypes,
    3,
    {.hint = "What trace A shows: time trace, a spectrum, the frequency response, coherence, impulse "
             "response or time-frequency map."}};
inline constexpr RingControl DISPBCHNL{
    Panel::PULSE, "DISPBCHNL", "B: channel", {.hint = "Channel that trace B shows, counted from 1."}};
inline constexpr RingControl DISPBTYPE{
    Panel::PULSE,
    "DISPBTYPE",
    "B: display",
    panel_items::kDisplayTypes,
    {.hint = "What trace B shows: time trace, a spectrum, the frequency response, coherence, impulse "
             "response or time-frequency map."}};
inline constexpr RingControl TRACE_ONOFF{Panel::PULSE,
                                         "TRACE_ONOFF",
                                         "Settings of",
                                         panel_items::kTraces,
                                         {.hint = "Trace that the settings here act on: A, B or both."}};
inline constexpr RingControl LOG_LINEAR{Panel::PULSE,
                                        "LOG_LINEAR",
                                        "Ordinate",
                                        panel_items::kLinearLog,
                                        {.hint = "Ordinate of amplitude displays, linear or logarithmic."}};
inline constexpr RingControl VOLT_UNIT{
    Panel::PULSE,
    "VOLT_UNIT",
    "Unit",
    panel_items::kVoltUnits,
    {.hint = "Unit of voltage displays: V rms, V peak, or their squares."}};
inline constexpr RingControl MARKERS_ONOFF{Panel::PULSE,
                                           "MARKERS_ONOFF",
                                           "Markers",
                                           panel_items::kMarkerCounts,
                                           {.hint = "Number of markers on the graph: none, one or two."}};
inline constexpr ToggleControl AUTOSCALE_X{Panel::PULSE,
                                           "AUTOSCALE_X",
                                           "Auto scale X",
                                           1,
                                           {.hint = "Takes the limits of the x axis from the curves."}};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::PULSE,
                                           "AUTOSCALE_Y",
                                           "Auto scale Y",
                                           1,
                                           {.hint = "Takes the limits of the y axis from the curves."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &SHAPE,     &FILE,          &BROWSE,      &CFREQ,      &FREQSPAN,  &NPOINTS,     &DELTAT,
    &TOTALT,    &PROFILEREC,    &RUN,         &SAVEOPTION, &SAVE,      &CLOSE,       &DISPLAY_A,
    &DISPLAY_B, &DISPACHNL,     &DISPATYPE,   &DISPBCHNL,  &DISPBTYPE, &TRACE_ONOFF, &LOG_LINEAR,
    &VOLT_UNIT, &MARKERS_ONOFF, &AUTOSCALE_X, &AUTOSCALE_Y};

}  // namespace sondera::pulse
