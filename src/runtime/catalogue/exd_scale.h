// exd_scale.h - "Axis Attributes" of the results page: as those of the dispersion page, under the same names.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::exd_scale {

inline constexpr RingControl DSP_XTYPE{Panel::EXD_SCALE, "DSP_XTYPE", "X axis", panel_items::kDispersionAxes,
                                       2};
inline constexpr RingControl DSP_XLINEARLOG{Panel::EXD_SCALE, "DSP_XLINEARLOG", "X scale",
                                            panel_items::kAxisScales};
inline constexpr ToggleControl DSP_XAUTO{Panel::EXD_SCALE, "DSP_XAUTO", "Auto scale X", 1};
inline constexpr auto DSP_XMIN = Dimmed(NumericControl{Panel::EXD_SCALE, "DSP_XMIN", "X from"});
inline constexpr auto DSP_XMAX = Dimmed(NumericControl{Panel::EXD_SCALE, "DSP_XMAX", "X to"});
inline constexpr RingControl DSP_YTYPE{Panel::EXD_SCALE, "DSP_YTYPE", "Y axis", panel_items::kDispersionAxes};
inline constexpr RingControl DSP_YLINEARLOG{Panel::EXD_SCALE, "DSP_YLINEARLOG", "Y scale",
                                            panel_items::kAxisScales, 1};
inline constexpr ToggleControl DSP_YAUTO{Panel::EXD_SCALE, "DSP_YAUTO", "Auto scale Y", 1};
inline constexpr auto DSP_YMIN = Dimmed(NumericControl{Panel::EXD_SCALE, "DSP_YMIN", "Y from"});
inline constexpr auto DSP_YMAX = Dimmed(NumericControl{Panel::EXD_SCALE, "DSP_YMAX", "Y to"});
inline constexpr ButtonControl OK{Panel::EXD_SCALE, "OK", "OK"};
inline constexpr ButtonControl CANCEL{Panel::EXD_SCALE, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DSP_XTYPE, &DSP_XLINEARLOG, &DSP_XAUTO, &DSP_XMIN, &DSP_XMAX,
                                               &DSP_YTYPE, &DSP_YLINEARLOG, &DSP_YAUTO, &DSP_YMIN, &DSP_YMAX,
                                               &OK,        &CANCEL};

}  // namespace sondera::exd_scale
