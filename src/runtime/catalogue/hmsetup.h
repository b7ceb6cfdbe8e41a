// hmsetup.h - "Hardware and Measurement Setup": the project's and the measurement's id, the list of
// measurements, and two tab pages (HWSETUP, MEASSETUP), which the store keeps as the active page of
// Panel::HMSETUP.
//
// The ids start as those of the empty measurement that every session begins with.
#pragma once

#include "runtime/controls.h"

namespace sondera::hmsetup {

inline constexpr TextControl PROJID{Panel::HMSETUP, "PROJID", "Project ID", "ProjID"};
inline constexpr TextControl MEASID{Panel::HMSETUP, "MEASID", "Measurement ID", "measID"};
inline constexpr ListControl MEASIDLISTBOX{Panel::HMSETUP, "MEASIDLISTBOX", "Measurements"};
inline constexpr ButtonControl MEASADD{Panel::HMSETUP, "MEASADD", "Add"};
inline constexpr ButtonControl MEASUPDATE{Panel::HMSETUP, "MEASUPDATE", "Rename"};
inline constexpr ButtonControl MEASREMOVE_4{Panel::HMSETUP, "MEASREMOVE_4", "Remove"};
inline constexpr ButtonControl OK{Panel::HMSETUP, "OK", "OK"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&PROJID,       &MEASID, &MEASIDLISTBOX, &MEASADD, &MEASUPDATE,
                                               &MEASREMOVE_4, &OK};

}  // namespace sondera::hmsetup
