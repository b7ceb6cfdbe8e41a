// measpanel.h - the measurement page: buttons of the project and of the run, two traces.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::measpanel {

inline constexpr ButtonControl F1{
    Panel::MEASPANEL,
    "F1",
    "New",
    {.hint = "Asks for the id of a new measurement and opens its setup.", .spoken = "New, measurement"}};
inline constexpr ButtonControl F2{
    Panel::MEASPANEL, "F2", "Setup", {.hint = "Opens the hardware and measurement setup."}};
inline constexpr ButtonControl F6{
    Panel::MEASPANEL, "F6", "Save", {.hint = "Saves the project; asks for a name if it has none."}};
inline constexpr ButtonControl F7{
    Panel::MEASPANEL, "F7", "Save As", {.hint = "Saves the project under another name."}};
inline constexpr ButtonControl F9{Panel::MEASPANEL, "F9", "Recall", {.hint = "Opens a project file, .da."}};
inline constexpr ButtonControl F10{
    Panel::MEASPANEL, "F10", "AutoSave", {.hint = "Opens the automatic save of measurements."}};
inline constexpr ButtonControl SASWSTART{
    Panel::MEASPANEL, "SASWSTART", "Start", {.hint = "Starts to measure."}};
inline constexpr ToggleControl SASWPAUSECONT{
    Panel::MEASPANEL,
    "SASWPAUSECONT",
    "Pause",
    {.hint = "Pauses the measuring run; pressed again it goes on.", .role = Role::Latch}};
inline constexpr ButtonControl STOPMEAS{
    Panel::MEASPANEL, "STOPMEAS", "Stop", {.hint = "Ends the measuring run."}};
inline constexpr ToggleControl MEAS_ARM_LED{
    Panel::MEASPANEL,
    "MEAS_ARM_LED",
    "Armed",
    {.hint = "On while the board waits for a blow.", .role = Role::Lamp}};
inline constexpr TextControl DISPA_AVGCOUNT{
    Panel::MEASPANEL,
    "DISPA_AVGCOUNT",
    "Averages",
    {.hint = "Number of blows averaged so far.", .role = Role::ReadOut}};
inline constexpr TextControl MSGBOX{Panel::MEASPANEL,
                                    "MSGBOX",
                                    "Messages",
                                    {.hint = "What the measuring run reports.", .role = Role::TextBox}};

inline constexpr GraphControl DISPLAY_A{
    Panel::MEASPANEL,
    "DISPLAY_A",
    "Display A",
    {.hint = "Graph of trace A; its markers can be dragged.", .spoken = "Display A, measurements page"}};
inline constexpr GraphControl DISPLAY_B{
    Panel::MEASPANEL,
    "DISPLAY_B",
    "Display B",
    {.hint = "Graph of trace B; its markers can be dragged.", .spoken = "Display B, measurements page"}};
inline constexpr RingControl DISPAID{
    Panel::MEASPANEL,
    "DISPAID",
    "A: measurement",
    {.hint = "Measurement that trace A shows.", .spoken = "A: measurement, measurements page"}};
inline constexpr RingControl DISPA_REFCHNL{Panel::MEASPANEL,
                                           "DISPA_REFCHNL",
                                           "A: reference channel",
                                           {.hint = "Reference channel of trace A, counted from 1.",
                                            .spoken = "A: reference channel, measurements page"}};
inline constexpr RingControl DISPACHNL{
    Panel::MEASPANEL,
    "DISPACHNL",
    "A: channel",
    {.hint = "Channel that trace A shows, counted from 1.", .spoken = "A: channel, measurements page"}};
inline constexpr RingControl DISPATYPE{
    Panel::MEASPANEL,
    "DISPATYPE",
    "A: display",
    panel_items::kDisplayTypes,
    3,
    {.hint = "What trace A shows: time trace, a spectrum, the frequency response, coherence, impulse "
             "response or time-frequency map.",
     .spoken = "A: display, measurements page"}};
inline constexpr TextControl DISPAMARKER1COORD{
    Panel::MEASPANEL,
    "DISPAMARKER1COORD",
    "A: marker 1",
    {.hint = "Place of marker 1 on trace A, in the units of the axes.",
     .spoken = "A: marker 1, measurements page",
     .role = Role::ReadOut}};
inline constexpr TextControl DISPAMARKER2COORD{
    Panel::MEASPANEL,
    "DISPAMARKER2COORD",
    "A: marker 2",
    {.hint = "Place of marker 2 on trace A, in the units of the axes.",
     .spoken = "A: marker 2, measurements page",
     .role = Role::ReadOut}};
inline constexpr TextControl DISPADELTAX{Panel::MEASPANEL,
                                         "DISPADELTAX",
                                         "A: distance of markers",
                                         {.hint = "Distance of the two markers on trace A along the x axis.",
                                          .spoken = "A: distance of markers, measurements page",
                                          .role = Role::ReadOut}};
inline constexpr RingControl DISPBID{
    Panel::MEASPANEL,
    "DISPBID",
    "B: measurement",
    {.hint = "Measurement that trace B shows.", .spoken = "B: measurement, measurements page"}};
inline constexpr RingControl DISPB_REFCHNL{Panel::MEASPANEL,
                                           "DISPB_REFCHNL",
                                           "B: reference channel",
                                           {.hint = "Reference channel of trace B, counted from 1.",
                                            .spoken = "B: reference channel, measurements page"}};
inline constexpr RingControl DISPBCHNL{
    Panel::MEASPANEL,
    "DISPBCHNL",
    "B: channel",
    {.hint = "Channel that trace B shows, counted from 1.", .spoken = "B: channel, measurements page"}};
inline constexpr RingControl DISPBTYPE{
    Panel::MEASPANEL,
    "DISPBTYPE",
    "B: display",
    panel_items::kDisplayTypes,
    {.hint = "What trace B shows: time trace, a spectrum, the frequency response, coherence, impulse "
             "response or time-frequency map.",
     .spoken = "B: display, measurements page"}};
inline constexpr TextControl DISPBMARKER1COORD{
    Panel::MEASPANEL,
    "DISPBMARKER1COORD",
    "B: marker 1",
    {.hint = "Place of marker 1 on trace B, in the units of the axes.",
     .spoken = "B: marker 1, measurements page",
     .role = Role::ReadOut}};
inline constexpr TextControl DISPBMARKER2COORD{
    Panel::MEASPANEL,
    "DISPBMARKER2COORD",
    "B: marker 2",
    {.hint = "Place of marker 2 on trace B, in the units of the axes.",
     .spoken = "B: marker 2, measurements page",
     .role = Role::ReadOut}};
inline constexpr TextControl DISPBDELTAX{Panel::MEASPANEL,
                                         "DISPBDELTAX",
                                         "B: distance of markers",
                                         {.hint = "Distance of the two markers on trace B along the x axis.",
                                          .spoken = "B: distance of markers, measurements page",
                                          .role = Role::ReadOut}};

inline constexpr RingControl TRACE_ONOFF{Panel::MEASPANEL,
                                         "TRACE_ONOFF",
                                         "Settings of",
                                         panel_items::kTraces,
                                         {.hint = "Trace that the settings here act on: A, B or both.",
                                          .spoken = "Settings of, measurements page"}};
inline constexpr RingControl LOG_LINEAR{Panel::MEASPANEL,
                                        "LOG_LINEAR",
                                        "Ordinate",
                                        panel_items::kLinearLog,
                                        {.hint = "Ordinate of amplitude displays, linear or logarithmic.",
                                         .spoken = "Ordinate, measurements page"}};
inline constexpr RingControl VOLT_UNIT{Panel::MEASPANEL,
                                       "VOLT_UNIT",
                                       "Unit",
                                       panel_items::kVoltUnits,
                                       {.hint = "Unit of voltage displays: V rms, V peak, or their squares.",
                                        .spoken = "Unit, measurements page"}};
inline constexpr RingControl MARKERS_ONOFF{
    Panel::MEASPANEL,
    "MARKERS_ONOFF",
    "Markers",
    panel_items::kMarkerCounts,
    {.hint = "Number of markers on the graph: none, one or two.", .spoken = "Markers, measurements page"}};
inline constexpr ToggleControl AUTOSCALE_X{
    Panel::MEASPANEL,
    "AUTOSCALE_X",
    "Auto scale X",
    1,
    {.hint = "Takes the limits of the x axis from the curves.", .spoken = "Auto scale X, measurements page"}};
inline constexpr ToggleControl AUTOSCALE_Y{
    Panel::MEASPANEL,
    "AUTOSCALE_Y",
    "Auto scale Y",
    1,
    {.hint = "Takes the limits of the y axis from the curves.", .spoken = "Auto scale Y, measurements page"}};
inline constexpr ButtonControl ADJUSTSCALE{
    Panel::MEASPANEL,
    "ADJUSTSCALE",
    "Axis Attributes",
    {.hint = "Opens the axis dialog of graphs A and B.", .spoken = "Axis Attributes, measurements page"}};
inline constexpr ButtonControl REDRAW{
    Panel::MEASPANEL,
    "REDRAW",
    "Redraw",
    {.hint = "Redraws both graphs.", .spoken = "Redraw, measurements page"}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&F1,
                                               &F2,
                                               &F6,
                                               &F7,
                                               &F9,
                                               &F10,
                                               &SASWSTART,
                                               &SASWPAUSECONT,
                                               &STOPMEAS,
                                               &MEAS_ARM_LED,
                                               &DISPA_AVGCOUNT,
                                               &MSGBOX,
                                               &DISPLAY_A,
                                               &DISPLAY_B,
                                               &DISPAID,
                                               &DISPA_REFCHNL,
                                               &DISPACHNL,
                                               &DISPATYPE,
                                               &DISPAMARKER1COORD,
                                               &DISPAMARKER2COORD,
                                               &DISPADELTAX,
                                               &DISPBID,
                                               &DISPB_REFCHNL,
                                               &DISPBCHNL,
                                               &DISPBTYPE,
                                               &DISPBMARKER1COORD,
                                               &DISPBMARKER2COORD,
                                               &DISPBDELTAX,
                                               &TRACE_ONOFF,
                                               &LOG_LINEAR,
                                               &VOLT_UNIT,
                                               &MARKERS_ONOFF,
                                               &AUTOSCALE_X,
                                               &AUTOSCALE_Y,
                                               &ADJUSTSCALE,
                                               &REDRAW};

}  // namespace sondera::measpanel
