// dsp_mscale.h - "Axis Attributes" of the dispersion page: quantity, scale and limits of both axes.
//
// The graph starts as velocity on a linear axis against wavelength on a logarithmic one, both with automatic
// limits.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::dsp_mscale {

inline constexpr RingControl DSP_XTYPE{
    Panel::DSP_MSCALE,
    "DSP_XTYPE",
    "X axis",
    panel_items::kDispersionAxes,
    2,
    {.hint = "Quantity on the x axis of the dispersion page: phase velocity, frequency or wavelength."}};
inline constexpr RingControl DSP_XLINEARLOG{Panel::DSP_MSCALE,
                                            "DSP_XLINEARLOG",
                                            "X scale",
                                            panel_items::kAxisScales,
                                            {.hint = "Scale of the x axis, logarithmic or linear."}};
inline constexpr ToggleControl DSP_XAUTO{Panel::DSP_MSCALE,
                                         "DSP_XAUTO",
                                         "Auto scale X",
                                         1,
                                         {.hint = "Takes the limits of the x axis from the curves."}};
inline constexpr auto DSP_XMIN = Dimmed(NumericControl{
    Panel::DSP_MSCALE,
    "DSP_XMIN",
    "X from",
    {.hint = "Lower limit of the x axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr auto DSP_XMAX = Dimmed(NumericControl{
    Panel::DSP_MSCALE,
    "DSP_XMAX",
    "X to",
    {.hint = "Upper limit of the x axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr RingControl DSP_YTYPE{
    Panel::DSP_MSCALE,
    "DSP_YTYPE",
    "Y axis",
    panel_items::kDispersionAxes,
    {.hint = "Quantity on the y axis of the dispersion page: phase velocity, frequency or wavelength."}};
inline constexpr RingControl DSP_YLINEARLOG{Panel::DSP_MSCALE,
                                            "DSP_YLINEARLOG",
                                            "Y scale",
                                            panel_items::kAxisScales,
                                            1,
                                            {.hint = "Scale of the y axis, logarithmic or linear."}};
inline constexpr ToggleControl DSP_YAUTO{Panel::DSP_MSCALE,
                                         "DSP_YAUTO",
                                         "Auto scale Y",
                                         1,
                                         {.hint = "Takes the limits of the y axis from the curves."}};
inline constexpr auto DSP_YMIN = Dimmed(NumericControl{
    Panel::DSP_MSCALE,
    "DSP_YMIN",
    "Y from",
    {.hint = "Lower limit of the y axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr auto DSP_YMAX = Dimmed(NumericControl{
    Panel::DSP_MSCALE,
    "DSP_YMAX",
    "Y to",
    {.hint = "Upper limit of the y axis in the unit of its quantity; equal limits mean automatic ones."}});
inline constexpr ButtonControl OK{Panel::DSP_MSCALE, "OK", "OK", {.hint = "Takes these axes and redraws."}};
inline constexpr ButtonControl CANCEL{
    Panel::DSP_MSCALE, "CANCEL", "Cancel", {.hint = "Hides this panel and keeps the axes."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DSP_XTYPE, &DSP_XLINEARLOG, &DSP_XAUTO, &DSP_XMIN, &DSP_XMAX,
                                               &DSP_YTYPE, &DSP_YLINEARLOG, &DSP_YAUTO, &DSP_YMIN, &DSP_YMAX,
                                               &OK,        &CANCEL};

}  // namespace sondera::dsp_mscale
