// load2chnl.h - "Load Two-Channel Freq. Resp. Data": an earlier import dialog; LOADTXDATA replaces it.
#pragma once

#include "runtime/controls.h"

namespace sondera::load2chnl {

inline constexpr TextControl MEASID{
    Panel::LOAD2CHNL, "MEASID", "Measurement ID", {.hint = "Id of the new measurement, up to 255 bytes."}};
inline constexpr TextControl FILENAME{
    Panel::LOAD2CHNL, "FILENAME", "File", {.hint = "File with the frequency response of the pair."}};
inline constexpr NumericControl LOC_SRC{
    Panel::LOAD2CHNL,
    "LOC_SRC",
    "Location of the source",
    {.hint = "Place of the source on the line, in the unit of length.", .unit = "length"}};
inline constexpr NumericControl LOC_REC1{
    Panel::LOAD2CHNL,
    "LOC_REC1",
    "Location of receiver 1",
    {.hint = "Place of receiver 1 on the line, in the unit of length.", .unit = "length"}};
inline constexpr NumericControl LOC_REC2{
    Panel::LOAD2CHNL,
    "LOC_REC2",
    "Location of receiver 2",
    {.hint = "Place of receiver 2 on the line, in the unit of length.", .unit = "length"}};
inline constexpr ButtonControl LOAD{Panel::LOAD2CHNL, "LOAD", "Load", {.hint = "Reads the file."}};
inline constexpr ButtonControl CANCEL{Panel::LOAD2CHNL, "CANCEL", "Cancel", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&MEASID,   &FILENAME, &LOC_SRC, &LOC_REC1,
                                               &LOC_REC2, &LOAD,     &CANCEL};

}  // namespace sondera::load2chnl
