// pulse.h - "Generation of Waveform": the force and the grid of a computed record, its graphs, and its export.
// Traces A and B have the controls of the measurement page.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::pulse {

inline constexpr ListItem kShapes[] = {{"From file", 0}, {"Hammer blow", 1}, {"Ricker wavelet", 2}};
inline constexpr ListItem kSaveOptions[] = {{"Time histories (.tim)", 0}, {"Spectra (.spc)", 1}, {"All", 2}};
inline constexpr ListItem kMotions[] = {{"Velocity", 0}, {"Displacement", 1}, {"Acceleration", 2}};

inline constexpr RingControl SHAPE{
    Panel::PULSE, "SHAPE", "Source",
    kShapes,      2,       {.hint = "Force of the source: from a file, a hammer blow or a Ricker wavelet."}};
inline constexpr TextControl FILE{
    Panel::PULSE,
    "FILE",
    "Source file",
    {.hint = "File with the force over time: a line a sample, time in s and value."}};
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
    {.hint = "Centre frequency of hammer blow and Ricker wavelet, Hz, above 0.", .unit = "Hz", .min = 0.0}};
inline constexpr NumericControl FREQSPAN{
    Panel::PULSE,
    "FREQSPAN",
    "Freq. Span :",
    51200.0,
    {.hint = "Highest frequency, Hz, above 0; the time step is half its inverse.", .unit = "Hz", .min = 0.0}};
inline constexpr IntControl NPOINTS{
    Panel::PULSE,
    "NPOINTS",
    "No. of Points :",
    6,
    {.hint = "Number of samples, even, 16 to 32768; a power of two suits the import.",
     .min = 1.0,
     .step = 1.0}};
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
inline constexpr RingControl MOTION{
    Panel::PULSE, "MOTION", "Motion",
    kMotions,     0,        {.hint = "What the receivers measure, vertical and positive downward."}};
inline constexpr ButtonControl FIT{
    Panel::PULSE,
    "FIT",
    "Fit to site",
    {.hint = "Centre frequency, span and points for the layers and receivers of the model."}};
inline constexpr ButtonControl RUN{
    Panel::PULSE, "RUN", "Run", {.hint = "Computes the records of all receivers of the model."}};
inline constexpr ButtonControl HALT{
    Panel::PULSE, "HALT", "Halt", {.hint = "Halts the run after a question; the record before it stays."}};
inline constexpr TextControl STATUSMSG{
    Panel::PULSE,
    "STATUSMSG",
    "Status",
    {.hint = "How far the run is, and what to know about the record.", .role = Role::TextBox}};
inline constexpr RingControl SAVEOPTION{
    Panel::PULSE, "SAVEOPTION", "Save as", kSaveOptions, 2, {.hint = "Form of the file to save."}};
inline constexpr ButtonControl SAVE{
    Panel::PULSE, "SAVE", "Save", {.hint = "Saves the record in text files, without noise."}};
inline constexpr TextControl MEASID{Panel::PULSE,
                                    "MEASID",
                                    "Measurement",
                                    "waveform",
                                    {.hint = "Id of the measurement that is made of the record."}};
inline constexpr IntControl BLOWS{
    Panel::PULSE,
    "BLOWS",
    "Blows",
    1,
    {.hint = "Blows that the measurement averages, 1 to 1000; their strengths differ.",
     .min = 1.0,
     .max = 1000.0,
     .step = 1.0}};
inline constexpr NumericControl NOISE{
    Panel::PULSE,
    "NOISE",
    "Noise",
    0.0,
    {.hint = "Even noise of each blow and receiver, rms, as a share of the peak of the middle receiver.",
     .min = 0.0}};
inline constexpr NumericControl HUM{
    Panel::PULSE,
    "HUM",
    "Hum",
    0.0,
    {.hint = "Hum of the mains on all receivers, amplitude as a share of the same peak.", .min = 0.0}};
inline constexpr NumericControl HUMFREQ{
    Panel::PULSE,
    "HUMFREQ",
    "Hum at",
    50.0,
    {.hint = "Frequency of the hum, Hz, above 0.", .unit = "Hz", .min = 0.0}};
inline constexpr IntControl SEED{
    Panel::PULSE,
    "SEED",
    "Seed",
    1,
    {.hint = "Number that noise, hum and strengths come from: equal seeds, equal blows.",
     .min = 0.0,
     .step = 1.0}};
inline constexpr ButtonControl TOMEAS{
    Panel::PULSE,
    "TOMEAS",
    "To measurement",
    {.hint = "Makes a measurement of the record, through the import of time histories."}};
inline constexpr ButtonControl CLOSE{Panel::PULSE, "CLOSE", "Close", {.hint = "Hides this panel."}};

inline constexpr GraphControl DISPLAY_A{
    Panel::PULSE, "DISPLAY_A", "Display A", {.hint = "Graph of trace A; its markers can be dragged."}};
inline constexpr GraphControl DISPLAY_B{
    Panel::PULSE, "DISPLAY_B", "Display B", {.hint = "Graph of trace B; its markers can be dragged."}};
inline constexpr GraphControl SECTION{
    Panel::PULSE, "SECTION", "All receivers", {.hint = "Traces of all receivers over their distance."}};
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
    &SHAPE,      &FILE,      &BROWSE,        &CFREQ,       &FREQSPAN,   &NPOINTS,   &DELTAT,     &TOTALT,
    &PROFILEREC, &MOTION,    &FIT,           &RUN,         &HALT,       &STATUSMSG, &SAVEOPTION, &SAVE,
    &MEASID,     &BLOWS,     &NOISE,         &HUM,         &HUMFREQ,    &SEED,      &TOMEAS,     &CLOSE,
    &DISPLAY_A,  &DISPLAY_B, &SECTION,       &DISPACHNL,   &DISPATYPE,  &DISPBCHNL, &DISPBTYPE,  &TRACE_ONOFF,
    &LOG_LINEAR, &VOLT_UNIT, &MARKERS_ONOFF, &AUTOSCALE_X, &AUTOSCALE_Y};

}  // namespace sondera::pulse
