// measpanel.h - the measurement page: buttons of the project and of the run, two traces.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::measpanel {

inline constexpr ButtonControl F1{Panel::MEASPANEL, "F1", "New"};
inline constexpr ButtonControl F2{Panel::MEASPANEL, "F2", "Setup"};
inline constexpr ButtonControl F6{Panel::MEASPANEL, "F6", "Save"};
inline constexpr ButtonControl F7{Panel::MEASPANEL, "F7", "Save As"};
inline constexpr ButtonControl F9{Panel::MEASPANEL, "F9", "Recall"};
inline constexpr ButtonControl F10{Panel::MEASPANEL, "F10", "AutoSave"};
inline constexpr ButtonControl SASWSTART{Panel::MEASPANEL, "SASWSTART", "Start"};
inline constexpr ToggleControl SASWPAUSECONT{Panel::MEASPANEL, "SASWPAUSECONT", "Pause"};
inline constexpr ButtonControl STOPMEAS{Panel::MEASPANEL, "STOPMEAS", "Stop"};
inline constexpr ToggleControl MEAS_ARM_LED{Panel::MEASPANEL, "MEAS_ARM_LED", "Armed"};
inline constexpr TextControl DISPA_AVGCOUNT{Panel::MEASPANEL, "DISPA_AVGCOUNT", "Averages"};
inline constexpr TextControl MSGBOX{Panel::MEASPANEL, "MSGBOX", "Messages"};

inline constexpr GraphControl DISPLAY_A{Panel::MEASPANEL, "DISPLAY_A", "Display A"};
inline constexpr GraphControl DISPLAY_B{Panel::MEASPANEL, "DISPLAY_B", "Display B"};
inline constexpr RingControl DISPAID{Panel::MEASPANEL, "DISPAID", "A: measurement"};
inline constexpr RingControl DISPA_REFCHNL{Panel::MEASPANEL, "DISPA_REFCHNL", "A: reference channel"};
inline constexpr RingControl DISPACHNL{Panel::MEASPANEL, "DISPACHNL", "A: channel"};
inline constexpr RingControl DISPATYPE{Panel::MEASPANEL, "DISPATYPE", "A: display",
                                       panel_items::kDisplayTypes, 3};
inline constexpr TextControl DISPAMARKER1COORD{Panel::MEASPANEL, "DISPAMARKER1COORD", "A: marker 1"};
inline constexpr TextControl DISPAMARKER2COORD{Panel::MEASPANEL, "DISPAMARKER2COORD", "A: marker 2"};
inline constexpr TextControl DISPADELTAX{Panel::MEASPANEL, "DISPADELTAX", "A: distance of markers"};
inline constexpr RingControl DISPBID{Panel::MEASPANEL, "DISPBID", "B: measurement"};
inline constexpr RingControl DISPB_REFCHNL{Panel::MEASPANEL, "DISPB_REFCHNL", "B: reference channel"};
inline constexpr RingControl DISPBCHNL{Panel::MEASPANEL, "DISPBCHNL", "B: channel"};
inline constexpr RingControl DISPBTYPE{Panel::MEASPANEL, "DISPBTYPE", "B: display",
                                       panel_items::kDisplayTypes};
inline constexpr TextControl DISPBMARKER1COORD{Panel::MEASPANEL, "DISPBMARKER1COORD", "B: marker 1"};
inline constexpr TextControl DISPBMARKER2COORD{Panel::MEASPANEL, "DISPBMARKER2COORD", "B: marker 2"};
inline constexpr TextControl DISPBDELTAX{Panel::MEASPANEL, "DISPBDELTAX", "B: distance of markers"};

inline constexpr RingControl TRACE_ONOFF{Panel::MEASPANEL, "TRACE_ONOFF", "Settings of",
                                         panel_items::kTraces};
inline constexpr RingControl LOG_LINEAR{Panel::MEASPANEL, "LOG_LINEAR", "Ordinate", panel_items::kLinearLog};
inline constexpr RingControl VOLT_UNIT{Panel::MEASPANEL, "VOLT_UNIT", "Unit", panel_items::kVoltUnits};
inline constexpr RingControl MARKERS_ONOFF{Panel::MEASPANEL, "MARKERS_ONOFF", "Markers",
                                           panel_items::kMarkerCounts};
inline constexpr ToggleControl AUTOSCALE_X{Panel::MEASPANEL, "AUTOSCALE_X", "Auto scale X", 1};
inline constexpr ToggleControl AUTOSCALE_Y{Panel::MEASPANEL, "AUTOSCALE_Y", "Auto scale Y", 1};
inline constexpr ButtonControl ADJUSTSCALE{Panel::MEASPANEL, "ADJUSTSCALE", "Axis Attributes"};
inline constexpr ButtonControl REDRAW{Panel::MEASPANEL, "REDRAW", "Redraw"};

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
