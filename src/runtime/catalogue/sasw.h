// sasw.h - the masking page: two traces, the three phases of a pair, and the masks on trace A.
//
// The dispersion starts on the enhanced phase, since a run that only sets the enhanced window must act on the
// curve; so the box of that phase is on as well.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::sasw {

inline constexpr GraphControl DISPLAY_A{Panel::SASW, "DISPLAY_A", "Display A"};
inline constexpr GraphControl DISPLAY_B{Panel::SASW, "DISPLAY_B", "Display B"};
inline constexpr RingControl DISPAID{Panel::SASW, "DISPAID", "A: measurement"};
inline constexpr RingControl DISPA_REFCHNL{Panel::SASW, "DISPA_REFCHNL", "A: reference channel"};
inline constexpr RingControl DISPACHNL{Panel::SASW, "DISPACHNL", "A: channel"};
inline constexpr RingControl DISPATYPE{Panel::SASW, "DISPATYPE", "A: display", panel_items::kDisplayTypes, 3};
inline constexpr TextControl DISPAMARKER1COORD{Panel::SASW, "DISPAMARKER1COORD", "A: marker 1"};
inline constexpr TextControl DISPAMARKER2COORD{Panel::SASW, "DISPAMARKER2COORD", "A: marker 2"};
inline constexpr TextControl DISPADELTAX{Panel::SASW, "DISPADELTAX", "A: distance of markers"};
inline constexpr RingControl DISPBID{Panel::SASW, "DISPBID", "B: measurement"};
inline constexpr RingControl DISPB_REFCHNL{Panel::SASW, "DISPB_REFCHNL", "B: reference channel"};
inline constexpr RingControl DISPBCHNL{Panel::SASW, "DISPBCHNL", "B: channel"};
inline constexpr RingControl DISPBTYPE{Panel::SASW, "DISPBTYPE", "B: display", panel_items::kDisplayTypes};
inline constexpr TextControl DISPBMARKER1COORD{Panel::SASW, "DISPBMARKER1COORD", "B: marker 1"};
inline constexpr TextControl DISPBMARKER2COORD{Panel::SASW, "DISPBMARKER2COORD", "B: marker 2"};
inline constexpr TextControl DISPBDELTAX{Panel::SASW, "DISPBDELTAX", "B: distance of markers"};

inline constexpr RingControl TRACE_ONOFF{Panel::SASW, "TRACE_ONOFF", "Settings of", panel_items::kTraces};
inline constexpr RingControl LOG_LINEAR{Panel::SASW, "LOG_LINEAR", "Ordinate", panel_items::kLinearLog};
inline constexpr RingControl VOLT_UNIT{Panel::SASW, "VOLT_UNIT", "Unit", panel_items::kVoltUnits};
inline constexpr RingControl MARKERS_ONOFF{Panel::SASW, "MARKERS_ONOFF", "Markers",
                                           panel_items::kMarkerCounts};
inline constexpr ToggleControl AUTOSCALE_X{Panel::SASW, "AUTOSCALE_X", "Auto scale X", 1};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::SASW, "AUTOSCALE_Y", "Auto scale Y", 1};
inline constexpr ButtonControl ADJUSTSCALE{Panel::SASW, "ADJUSTSCALE", "Axis Attributes"};
inline constexpr ButtonControl REDRAW{Panel::SASW, "REDRAW", "Redraw"};

inline constexpr ToggleControl PHASE_ORIGINAL{Panel::SASW, "PHASE_ORIGINAL", "Original"};
inline constexpr ToggleControl PHASE_ENHANCED{Panel::SASW, "PHASE_ENHANCED", "Enhanced", 1};
inline constexpr ToggleControl PHASE_BACKBONE{Panel::SASW, "PHASE_BACKBONE", "Backbone"};
inline constexpr RingControl DISPCURV_OPTION{Panel::SASW, "DISPCURV_OPTION", "Phase for the dispersion",
                                             panel_items::kPhaseOptions, 1};

inline constexpr NumericControl MASKING_FREQINIT{Panel::SASW, "MASKING_FREQINIT", "Mask from, Hz"};
inline constexpr NumericControl MASKING_FREQFINAL{Panel::SASW, "MASKING_FREQFINAL", "Mask to, Hz"};
inline constexpr IntControl MASKING_JUMPNO{Panel::SASW, "MASKING_JUMPNO", "Number of jumps"};
inline constexpr ButtonControl MASKINGNEW{Panel::SASW, "MASKINGNEW", "New"};
inline constexpr ButtonControl MASKINGUPDATE{Panel::SASW, "MASKINGUPDATE", "Update"};
inline constexpr ButtonControl MASKINGDEL{Panel::SASW, "MASKINGDEL", "Delete"};
inline constexpr ButtonControl MASKINGRESET{Panel::SASW, "MASKINGRESET", "Reset"};
inline constexpr ButtonControl MASKINGAUTO{Panel::SASW, "MASKINGAUTO", "Auto"};
inline constexpr ButtonControl MASKINGSHOW{Panel::SASW, "MASKINGSHOW", "Show masks"};
inline constexpr ButtonControl MASKINGLIST{Panel::SASW, "MASKINGLIST", "IRF"};
inline constexpr ButtonControl MASKINGCALCDISP{Panel::SASW, "MASKINGCALCDISP", "Calculate"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &DISPLAY_A,        &DISPLAY_B,         &DISPAID,           &DISPA_REFCHNL,
    &DISPACHNL,        &DISPATYPE,         &DISPAMARKER1COORD, &DISPAMARKER2COORD,
    &DISPADELTAX,      &DISPBID,           &DISPB_REFCHNL,     &DISPBCHNL,
    &DISPBTYPE,        &DISPBMARKER1COORD, &DISPBMARKER2COORD, &DISPBDELTAX,
    &TRACE_ONOFF,      &LOG_LINEAR,        &VOLT_UNIT,         &MARKERS_ONOFF,
    &AUTOSCALE_X,      &AUTOSCALE_Y,       &ADJUSTSCALE,       &REDRAW,
    &PHASE_ORIGINAL,   &PHASE_ENHANCED,    &PHASE_BACKBONE,    &DISPCURV_OPTION,
    &MASKING_FREQINIT, &MASKING_FREQFINAL, &MASKING_JUMPNO,    &MASKINGNEW,
    &MASKINGUPDATE,    &MASKINGDEL,        &MASKINGRESET,      &MASKINGAUTO,
    &MASKINGSHOW,      &MASKINGLIST,       &MASKINGCALCDISP};

}  // namespace sondera::sasw
