// exd_scale.h - "Axis Attributes" of the results page: as those of the dispersion page, under the same names.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::exd_scale {

inline constexpr RingControl DSP_XTYPE{
    Panel::EXD_SCALE,
    "DSP_XTYPE",
    "X axis",
    panel_items::kDispersionAxes,
    2,
    {.hint = "Quantity on the x axis of the results page: phase velocity, frequency or wavelength."}};
inline constexpr RingControl DSP_XLINEARLOG{Panel::EXD_SCALE,
                                            "DSP_XLINEARLOG",
                                            "X scale",
                                            panel_items::kAxisScales,
                                            {.hint = "Scale of the x axis, logarithmic or linear."}};
inline constexpr ToggleControl DSP_XAUTO{Panel::EXD_SCALE,
                                         "DSP_XAUTO",
                                         "Auto scale X",
                                         1,
                                         {.hint = "Takes the limits of the x axis from the curves."}};
inline constexpr auto DSP_XMIN = Dimmed(NumericControl{
    Panel::EXD_SCALE,
    "DSP_XMIN",
    "X from",
    {.hint = "Lower limit of the x axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr auto DSP_XMAX = Dimmed(NumericControl{
    Panel::EXD_SCALE,
    "DSP_XMAX",
    "X to",
    {.hint = "Upper limit of the x axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr RingControl DSP_YTYPE{
    Panel::EXD_SCALE,
    "DSP_YTYPE",
    "Y axis",
    panel_items::kDispersionAxes,
    {.hint = "Quantity on the y axis of the results page: phase velocity, frequency or wavelength."}};
inline constexpr RingControl DSP_YLINEARLOG{Panel::EXD_SCALE,
                                            "DSP_YLINEARLOG",
                                            "Y scale",
                                            panel_items::kAxisScales,
                                            1,
                                            {.hint = "Scale of the y axis, logarithmic or linear."}};
inline constexpr ToggleControl DSP_YAUTO{Panel::EXD_SCALE,
                                         "DSP_YAUTO",
                                         "Auto scale Y",
                                         1,
                                         {.hint = "Takes the limits of the y axis from the curves."}};
inline constexpr auto DSP_YMIN = Dimmed(NumericControl{
    Panel::EXD_SCALE,
    "DSP_YMIN",
    "Y from",
    {.hint = "Lower limit of the y axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr auto DSP_YMAX = Dimmed(NumericControl{
    Panel::EXD_SCALE,
    "DSP_YMAX",
    "Y to",
    {.hint = "Upper limit of the y axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr ButtonControl OK{Panel::EXD_SCALE, "OK", "OK", {.hint = "Takes these axes and redraws."}};
inline constexpr ButtonControl CANCEL{
    Panel::EXD_SCALE, "CANCEL", "Cancel", {.hint = "Hides this panel and keeps the axes."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DSP_XTYPE, &DSP_XLINEARLOG, &DSP_XAUTO, &DSP_XMIN, &DSP_XMAX,
                                               &DSP_YTYPE, &DSP_YLINEARLOG, &DSP_YAUTO, &DSP_YMIN, &DSP_YMAX,
                                               &OK,        &CANCEL};

}  // namespace sondera::exd_scale
