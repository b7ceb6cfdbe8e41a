// sasw.h - the masking page: two traces, the three phases of a pair, and the masks on trace A.
//
// The dispersion starts with the enhanced phase, since a run that only sets the enhanced window must affect
// the curve; so the box of that phase is on as well.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::sasw {

inline constexpr GraphControl DISPLAY_A{
    Panel::SASW,
    "DISPLAY_A",
    "Display A",
    {.hint = "Graph of trace A: drag over it to set the two markers, right click on a mask to pick it."}};
inline constexpr GraphControl DISPLAY_B{
    Panel::SASW, "DISPLAY_B", "Display B", {.hint = "Graph of trace B; its markers can be dragged."}};
inline constexpr auto PAIRCURVE = Hidden(GraphControl{
    Panel::SASW,
    "PAIRCURVE",
    "Curve of the pair",
    {.hint = "Dispersion curve of the pair of trace A, once it is calculated; a click shows the dispersion "
             "page."}});
inline constexpr RingControl DISPAID{
    Panel::SASW, "DISPAID", "A: measurement", {.hint = "Measurement that trace A shows."}};
inline constexpr RingControl DISPA_REFCHNL{Panel::SASW,
                                           "DISPA_REFCHNL",
                                           "A: reference channel",
                                           {.hint = "Reference channel of trace A, counted from 1."}};
inline constexpr RingControl DISPACHNL{
    Panel::SASW, "DISPACHNL", "A: channel", {.hint = "Channel that trace A shows, counted from 1."}};
inline constexpr RingControl DISPATYPE{
    Panel::SASW,
    "DISPATYPE",
    "A: display",
    panel_items::kDisplayTypes,
    3,
    {.hint = "What trace A shows: time trace, a spectrum, the frequency response, coherence, impulse "
             "response or time-frequency map."}};
inline constexpr TextControl DISPAMARKER1COORD{
    Panel::SASW,
    "DISPAMARKER1COORD",
    "A: marker 1",
    {.hint = "Place of marker 1 on trace A, in the units of the axes.", .role = Role::ReadOut}};
inline constexpr TextControl DISPAMARKER2COORD{
    Panel::SASW,
    "DISPAMARKER2COORD",
    "A: marker 2",
    {.hint = "Place of marker 2 on trace A, in the units of the axes.", .role = Role::ReadOut}};
inline constexpr TextControl DISPADELTAX{
    Panel::SASW,
    "DISPADELTAX",
    "A: distance of markers",
    {.hint = "Distance of the two markers on trace A along the x axis.", .role = Role::ReadOut}};
inline constexpr RingControl DISPBID{
    Panel::SASW, "DISPBID", "B: measurement", {.hint = "Measurement that trace B shows."}};
inline constexpr RingControl DISPB_REFCHNL{Panel::SASW,
                                           "DISPB_REFCHNL",
                                           "B: reference channel",
                                           {.hint = "Reference channel of trace B, counted from 1."}};
inline constexpr RingControl DISPBCHNL{
    Panel::SASW, "DISPBCHNL", "B: channel", {.hint = "Channel that trace B shows, counted from 1."}};
inline constexpr RingControl DISPBTYPE{
    Panel::SASW,
    "DISPBTYPE",
    "B: display",
    panel_items::kDisplayTypes,
    {.hint = "What trace B shows: time trace, a spectrum, the frequency response, coherence, impulse "
             "response or time-frequency map."}};
inline constexpr TextControl DISPBMARKER1COORD{
    Panel::SASW,
    "DISPBMARKER1COORD",
    "B: marker 1",
    {.hint = "Place of marker 1 on trace B, in the units of the axes.", .role = Role::ReadOut}};
inline constexpr TextControl DISPBMARKER2COORD{
    Panel::SASW,
    "DISPBMARKER2COORD",
    "B: marker 2",
    {.hint = "Place of marker 2 on trace B, in the units of the axes.", .role = Role::ReadOut}};
inline constexpr TextControl DISPBDELTAX{
    Panel::SASW,
    "DISPBDELTAX",
    "B: distance of markers",
    {.hint = "Distance of the two markers on trace B along the x axis.", .role = Role::ReadOut}};

inline constexpr RingControl TRACE_ONOFF{Panel::SASW,
                                         "TRACE_ONOFF",
                                         "Settings of",
                                         panel_items::kTraces,
                                         {.hint = "Trace that the settings here act on: A, B or both."}};
inline constexpr RingControl LOG_LINEAR{Panel::SASW,
                                        "LOG_LINEAR",
                                        "Ordinate",
                                        panel_items::kLinearLog,
                                        {.hint = "Ordinate of amplitude displays, linear or logarithmic."}};
inline constexpr RingControl VOLT_UNIT{
    Panel::SASW,
    "VOLT_UNIT",
    "Unit",
    panel_items::kVoltUnits,
    {.hint = "Unit of voltage displays: V rms, V peak, or their squares."}};
inline constexpr RingControl MARKERS_ONOFF{Panel::SASW,
                                           "MARKERS_ONOFF",
                                           "Markers",
                                           panel_items::kMarkerCounts,
                                           {.hint = "Number of markers on the graph: none, one or two."}};
inline constexpr ToggleControl AUTOSCALE_X{Panel::SASW,
                                           "AUTOSCALE_X",
                                           "Auto scale X",
                                           1,
                                           {.hint = "Takes the limits of the x axis from the curves."}};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::SASW,
                                           "AUTOSCALE_Y",
                                           "Auto scale Y",
                                           1,
                                           {.hint = "Takes the limits of the y axis from the curves."}};
inline constexpr ButtonControl ADJUSTSCALE{
    Panel::SASW, "ADJUSTSCALE", "Axis Attributes", {.hint = "Opens the axis dialog of graphs A and B."}};
inline constexpr ButtonControl REDRAW{
    Panel::SASW, "REDRAW", "Redraw", {.hint = "Redraws both graphs.", .spoken = "Redraw, masking page"}};

inline constexpr ToggleControl PHASE_ORIGINAL{
    Panel::SASW, "PHASE_ORIGINAL", "Original", {.hint = "Draws the phase as it was measured."}};
inline constexpr ToggleControl PHASE_ENHANCED{
    Panel::SASW, "PHASE_ENHANCED", "Enhanced", 1, {.hint = "Draws the phase after the enhanced window."}};
inline constexpr ToggleControl PHASE_BACKBONE{
    Panel::SASW, "PHASE_BACKBONE", "Backbone", {.hint = "Draws the phase after the backbone window."}};
inline constexpr RingControl DISPCURV_OPTION{
    Panel::SASW,
    "DISPCURV_OPTION",
    "Phase for the dispersion",
    panel_items::kPhaseOptions,
    1,
    {.hint = "Phase that the dispersion curve of the pair is calculated from."}};

inline constexpr NumericControl MASKING_FREQINIT{
    Panel::SASW,
    "MASKING_FREQINIT",
    "Mask from, Hz",
    {.hint = "Lower end of the mask, Hz, 0 or more.", .unit = "Hz", .min = 0.0}};
inline constexpr NumericControl MASKING_FREQFINAL{
    Panel::SASW,
    "MASKING_FREQFINAL",
    "Mask to, Hz",
    {.hint = "Upper end of the mask, Hz, above the lower one and up to the end of the axis.",
     .unit = "Hz",
     .min = 0.0}};
inline constexpr IntControl MASKING_JUMPNO{
    Panel::SASW,
    "MASKING_JUMPNO",
    "Number of jumps",
    {.hint = "Number of full cycles that the phase has passed at the mask, 0 or more.",
     .min = 0.0,
     .step = 1.0}};
inline constexpr ButtonControl MASKINGNEW{
    Panel::SASW,
    "MASKINGNEW",
    "New",
    {.hint = "Makes a mask from the two frequencies and the number of jumps.", .spoken = "New, mask"}};
inline constexpr ButtonControl MASKINGUPDATE{
    Panel::SASW,
    "MASKINGUPDATE",
    "Update",
    {.hint = "Gives the picked mask these frequencies and this number of jumps.", .spoken = "Update, mask"}};
inline constexpr ButtonControl MASKINGDEL{
    Panel::SASW, "MASKINGDEL", "Delete", {.hint = "Deletes the picked mask.", .spoken = "Delete, mask"}};
inline constexpr ButtonControl MASKINGRESET{
    Panel::SASW,
    "MASKINGRESET",
    "Reset",
    {.hint = "Removes all masks of the pair.", .spoken = "Reset, masks"}};
inline constexpr ButtonControl MASKINGAUTO{
    Panel::SASW,
    "MASKINGAUTO",
    "Auto",
    {.hint = "Replaces the masks of the pair by automatic ones.", .spoken = "Auto, masks"}};
inline constexpr ButtonControl MASKINGSHOW{
    Panel::SASW, "MASKINGSHOW", "Show masks", {.hint = "Switches the drawing of masks on."}};
inline constexpr ButtonControl MASKINGLIST{
    Panel::SASW,
    "MASKINGLIST",
    "IRF",
    {.hint = "Opens the filter of the impulse response for the pair.", .spoken = "IRF, filter"}};
inline constexpr ButtonControl MASKINGCALCDISP{
    Panel::SASW,
    "MASKINGCALCDISP",
    "Calculate",
    {.hint = "Calculates the dispersion curve of the pair.", .spoken = "Calculate, dispersion curve"}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &DISPLAY_A,         &DISPLAY_B,      &PAIRCURVE,         &DISPAID,           &DISPA_REFCHNL,
    &DISPACHNL,         &DISPATYPE,      &DISPAMARKER1COORD, &DISPAMARKER2COORD, &DISPADELTAX,
    &DISPBID,           &DISPB_REFCHNL,  &DISPBCHNL,         &DISPBTYPE,         &DISPBMARKER1COORD,
    &DISPBMARKER2COORD, &DISPBDELTAX,    &TRACE_ONOFF,       &LOG_LINEAR,        &VOLT_UNIT,
    &MARKERS_ONOFF,     &AUTOSCALE_X,    &AUTOSCALE_Y,       &ADJUSTSCALE,       &REDRAW,
    &PHASE_ORIGINAL,    &PHASE_ENHANCED, &PHASE_BACKBONE,    &DISPCURV_OPTION,   &MASKING_FREQINIT,
    &MASKING_FREQFINAL, &MASKING_JUMPNO, &MASKINGNEW,        &MASKINGUPDATE,     &MASKINGDEL,
    &MASKINGRESET,      &MASKINGAUTO,    &MASKINGSHOW,       &MASKINGLIST,       &MASKINGCALCDISP};

}  // namespace sondera::sasw
