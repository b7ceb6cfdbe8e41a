// hmsetup.h - "Hardware and Measurement Setup": the project's and the measurement's id, the list of
// measurements, and two tab pages (HWSETUP, MEASSETUP), which the store keeps as the active page of
// Panel::HMSETUP.
//
// The ids start as those of the empty measurement that every session begins with.
#pragma once

#include "runtime/controls.h"

namespace sondera::hmsetup {

inline constexpr TextControl PROJID{
    Panel::HMSETUP,
    "PROJID",
    "Project ID",
    "ProjID",
    {.hint = "Id of the project, up to 247 bytes; result files are named by it.", .max = 247.0}};
inline constexpr TextControl MEASID{
    Panel::HMSETUP,
    "MEASID",
    "Measurement ID",
    "measID",
    {.hint = "Id of the measurement, up to 255 bytes; a commit renames it.", .max = 255.0}};
inline constexpr ListControl MEASIDLISTBOX{
    Panel::HMSETUP,
    "MEASIDLISTBOX",
    "Measurements",
    {.hint = "Measurements of the project; the selected one is set up here."}};
inline constexpr ButtonControl MEASADD{
    Panel::HMSETUP, "MEASADD", "Add", {.hint = "Adds an empty measurement under this id."}};
inline constexpr ButtonControl MEASUPDATE{
    Panel::HMSETUP, "MEASUPDATE", "Rename", {.hint = "Renames the selected measurement to this id."}};
inline constexpr ButtonControl MEASREMOVE_4{
    Panel::HMSETUP, "MEASREMOVE_4", "Remove", {.hint = "Removes the selected measurement with its data."}};
inline constexpr ButtonControl OK{Panel::HMSETUP, "OK", "OK", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&PROJID,       &MEASID, &MEASIDLISTBOX, &MEASADD, &MEASUPDATE,
                                               &MEASREMOVE_4, &OK};

}  // namespace sondera::hmsetup
