// meassetup.h - geometry of a measurement: source, receivers, unit of length, wavelength criterion.
//
// Even spacing (RSPACING 1) shows one field for the spacing; otherwise each receiver has its own location.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::meassetup {

inline constexpr ListItem kSpacings[] = {{"Location of each receiver", 0}, {"Even spacing", 1}};

inline constexpr RealRingControl LENGTHUNIT{
    Panel::MEASSETUP,
    "LENGTHUNIT",
    "Unit of length",
    panel_items::kLengthUnits,
    {.hint = "Unit of the places and of all results of this measurement."}};
inline constexpr NumericControl SRCLOC{
    Panel::MEASSETUP,
    "SRCLOC",
    "Source location",
    {.hint = "Place of the source on the line, in the unit of length.", .unit = "length"}};
inline constexpr RingControl RSPACING{
    Panel::MEASSETUP, "RSPACING", "Receivers",
    kSpacings,        1,          {.hint = "How receivers are placed: each by itself, or at even spacing."}};
inline constexpr NumericControl EVENSPACING{
    Panel::MEASSETUP,
    "EVENSPACING",
    "Receiver spacing",
    {.hint = "Distance between neighbouring receivers, in the unit of length, above 0.",
     .unit = "length",
     .min = 0.0}};
inline constexpr auto CHNLLOCLABEL = Hidden(LabelControl{Panel::MEASSETUP,
                                                         "CHNLLOCLABEL",
                                                         "Location of one receiver",
                                                         {.hint = "Heading of the place of one receiver."}});
inline constexpr auto NCHANNELS3 = Hidden(
    RingControl{Panel::MEASSETUP, "NCHANNELS3", "Receiver", {.hint = "Receiver that the place is for."}});
inline constexpr auto CHNLLOC = Hidden(
    NumericControl{Panel::MEASSETUP,
                   "CHNLLOC",
                   "Location",
                   {.hint = "Place of this receiver on the line, in the unit of length.", .unit = "length"}});
inline constexpr ListControl RECLOCLIST{
    Panel::MEASSETUP, "RECLOCLIST", "Receiver locations", {.hint = "Places of all receivers."}};
inline constexpr NumericControl HYX_WLENFILTER{
    Panel::MEASSETUP,
    "HYX_WLENFILTER",
    "Src to Rec1 / Wavelength  >  ",
    0.25,
    {.hint = "Wavelengths above the distance from the source to the first receiver divided by this number "
             "are dropped, above 0.",
     .spoken = "Wavelength criterion alpha",
     .min = 0.0,
     .step = 0.05}};
inline constexpr LabelControl WLENFILTERALPHA{
    Panel::MEASSETUP, "WLENFILTERALPHA", "( = alpha)", {.hint = "Name of the number beside it."}};
inline constexpr LabelControl WLENFILTERTEXT{Panel::MEASSETUP,
                                             "WLENFILTERTEXT",
                                             "Or, wavelength < (src to R1) / alpha",
                                             {.hint = "The same rule in another form."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &LENGTHUNIT, &SRCLOC,     &RSPACING,       &EVENSPACING,     &CHNLLOCLABEL,  &NCHANNELS3,
    &CHNLLOC,    &RECLOCLIST, &HYX_WLENFILTER, &WLENFILTERALPHA, &WLENFILTERTEXT};

}  // namespace sondera::meassetup
