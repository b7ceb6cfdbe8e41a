// meassetup.h - geometry of a measurement: source, receivers, unit of length, wavelength criterion.
//
// Even spacing (RSPACING 1) shows one field for the spacing; otherwise each receiver has its own location.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::meassetup {

inline constexpr ListItem kSpacings[] = {{"Location of each receiver", 0}, {"Even spacing", 1}};

inline constexpr RealRingControl LENGTHUNIT{Panel::MEASSETUP, "LENGTHUNIT", "Unit of length",
                                            panel_items::kLengthUnits};
inline constexpr NumericControl SRCLOC{Panel::MEASSETUP, "SRCLOC", "Source location"};
inline constexpr RingControl RSPACING{Panel::MEASSETUP, "RSPACING", "Receivers", kSpacings, 1};
inline constexpr NumericControl EVENSPACING{Panel::MEASSETUP, "EVENSPACING", "Receiver spacing"};
inline constexpr auto CHNLLOCLABEL =
    Hidden(LabelControl{Panel::MEASSETUP, "CHNLLOCLABEL", "Location of one receiver"});
inline constexpr auto NCHANNELS3 = Hidden(RingControl{Panel::MEASSETUP, "NCHANNELS3", "Receiver"});
inline constexpr auto CHNLLOC = Hidden(NumericControl{Panel::MEASSETUP, "CHNLLOC", "Location"});
inline constexpr ListControl RECLOCLIST{Panel::MEASSETUP, "RECLOCLIST", "Receiver locations"};
inline constexpr NumericControl HYX_WLENFILTER{Panel::MEASSETUP, "HYX_WLENFILTER",
                                               "Src to Rec1 / Wavelength  >  ", 0.25};
inline constexpr LabelControl WLENFILTERALPHA{Panel::MEASSETUP, "WLENFILTERALPHA", "( = alpha)"};
inline constexpr LabelControl WLENFILTERTEXT{Panel::MEASSETUP, "WLENFILTERTEXT",
                                             "Or, wavelength < (src to R1) / alpha"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &LENGTHUNIT, &SRCLOC,     &RSPACING,       &EVENSPACING,     &CHNLLOCLABEL,  &NCHANNELS3,
    &CHNLLOC,    &RECLOCLIST, &HYX_WLENFILTER, &WLENFILTERALPHA, &WLENFILTERTEXT};

}  // namespace sondera::meassetup
