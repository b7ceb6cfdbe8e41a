// asavedlg.h - "Automated Save": folder and running name of the measurements saved in the field.
//
// FILENAME shows the name; AUTOFILE keeps it, as a base and a number, from one save to the next.
#pragma once

#include "runtime/controls.h"

namespace sondera::asavedlg {

inline constexpr TextControl PATHNAME{Panel::ASAVEDLG, "PATHNAME", "Folder"};
inline constexpr TextControl FILENAME{Panel::ASAVEDLG, "FILENAME", "File name"};
inline constexpr TextControl AUTOFILE{Panel::ASAVEDLG, "AUTOFILE", "Last name", "Trace_1"};
inline constexpr ButtonControl SAVE{Panel::ASAVEDLG, "SAVE", "Save"};
inline constexpr ButtonControl CHANGEPATH{Panel::ASAVEDLG, "CHANGEPATH", "Change ..."};
inline constexpr ButtonControl CLOSE{Panel::ASAVEDLG, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&PATHNAME, &FILENAME, &AUTOFILE, &SAVE, &CHANGEPATH, &CLOSE};

}  // namespace sondera::asavedlg
