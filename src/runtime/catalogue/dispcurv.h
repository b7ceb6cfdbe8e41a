// dispcurv.h - the dispersion page: curves of the receiver pairs, lists of included and excluded ones.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::dispcurv {

inline constexpr ListItem kCurveTypes[] = {{"Composite", 0},
                                           {"Global R.", 1},
                                           {"Array R.", 2},
                                           {"Composite+Global R.", 3},
                                           {"Composite+Array R.", 4}};

inline constexpr GraphControl DISPGRAPH{Panel::DISPCURV, "DISPGRAPH", "Dispersion curves"};
inline constexpr TextControl COORD{Panel::DISPCURV, "COORD", "Cursor"};
inline constexpr RingControl DISPCURVTYPE{Panel::DISPCURV, "DISPCURVTYPE", "Curves", kCurveTypes};
inline constexpr ListControl LIST_INCLUDED{Panel::DISPCURV, "LIST_INCLUDED", "Included"};
inline constexpr ListControl LIST_EXCLUDED{Panel::DISPCURV, "LIST_EXCLUDED", "Excluded"};
inline constexpr ButtonControl INCLUDE{Panel::DISPCURV, "INCLUDE", "Include"};
inline constexpr ButtonControl EXCLUDE{Panel::DISPCURV, "EXCLUDE", "Exclude"};
inline constexpr RingControl MARKER{Panel::DISPCURV, "MARKER", "Marker", panel_items::kMarkers};
inline constexpr RingControl COLOR{Panel::DISPCURV, "COLOR", "Colour", panel_items::kColors};
inline constexpr ButtonControl REDRAW{Panel::DISPCURV, "REDRAW", "Redraw"};
inline constexpr ButtonControl COMPDISPCURV{Panel::DISPCURV, "COMPDISPCURV", "Representative Disp. Curve"};
inline constexpr ButtonControl TOMOGRAF{Panel::DISPCURV, "TOMOGRAF", "Tomographic Image"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&DISPGRAPH,     &COORD,   &DISPCURVTYPE, &LIST_INCLUDED,
                                               &LIST_EXCLUDED, &INCLUDE, &EXCLUDE,      &MARKER,
                                               &COLOR,         &REDRAW,  &COMPDISPCURV, &TOMOGRAF};

}  // namespace sondera::dispcurv
