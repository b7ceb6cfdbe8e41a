// dsp_mscale.h - "Axis Attributes" of the dispersion page: quantity, scale and limits of both axes.
//
// The graph starts as velocity on a linear axis against wavelength on a logarithmic one, both with automatic
// limits.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::dsp_mscale {

inline constexpr RingControl DSP_XTYPE{Panel::DSP_MSCALE, "DSP_XTYPE", "X axis", panel_items::kDispersionAxes,
                                       2};
inline constexpr RingControl DSP_XLINEARLOG{Panel::DSP_MSCALE, "DSP_XLINEARLOG", "X scale",
                                            panel_items::kAxisScales};
inline constexpr ToggleControl DSP_XAUTO{Panel::DSP_MSCALE, "DSP_XAUTO", "Auto scale X", 1};
inline constexpr auto DSP_XMIN = Dimmed(NumericControl{Panel::DSP_MSCALE, "DSP_XMIN", "X from"});
inline constexpr auto DSP_XMAX = Dimmed(NumericControl{Panel::DSP_MSCALE, "DSP_XMAX", "X to"});
inline constexpr RingControl DSP_YTYPE{Panel::DSP_MSCALE, "DSP_YTYPE", "Y axis",
                                       panel_items::kDispersionAxes};
inline constexpr RingControl DSP_YLINEARLOG{Panel::DSP_MSCALE, "DSP_YLINEARLOG", "Y scale",
                                            panel_items::kAxisScales, 1};
inline constexpr ToggleControl DSP_YAUTO{Panel::DSP_MSCALE, "DSP_YAUTO", "Auto scale Y", 1};
inline constexpr auto DSP_YMIN = Dimmed(NumericControl{Panel::DSP_MSCALE, "DSP_YMIN", "Y from"});
inline constexpr auto DSP_YMAX = Dimmed(NumericControl{Panel::DSP_MSCALE, "DSP_YMAX", "Y to"});
inline constexpr ButtonControl OK{Panel::DSP_MSCALE, "OK", "OK"};
inline constexpr ButtonControl CANCEL{Panel::DSP_MSCALE, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DSP_XTYPE, &DSP_XLINEARLOG, &DSP_XAUTO, &DSP_XMIN, &DSP_XMAX,
                                               &DSP_YTYPE, &DSP_YLINEARLOG, &DSP_YAUTO, &DSP_YMIN, &DSP_YMAX,
                                               &OK,        &CANCEL};

}  // namespace sondera::dsp_mscale
