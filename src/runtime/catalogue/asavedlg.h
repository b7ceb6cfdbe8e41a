// asavedlg.h - "Automated Save": folder and numbered name of the measurements saved in the field.
//
// FILENAME shows the name; AUTOFILE keeps it, as a base and a number, from one save to the next.
#pragma once

#include "runtime/controls.h"

namespace sondera::asavedlg {

inline constexpr TextControl PATHNAME{
    Panel::ASAVEDLG,
    "PATHNAME",
    "Folder",
    {.hint = "Folder that automatic saves write to.", .role = Role::ReadOut}};
inline constexpr TextControl FILENAME{
    Panel::ASAVEDLG,
    "FILENAME",
    "File name",
    {.hint = "Name of the next automatic save, without extension; its number counts up by itself."}};
inline constexpr TextControl AUTOFILE{Panel::ASAVEDLG,
                                      "AUTOFILE",
                                      "Last name",
                                      "Trace_1",
                                      {.hint = "Name of the last automatic save, a base and a number."}};
inline constexpr ButtonControl SAVE{
    Panel::ASAVEDLG, "SAVE", "Save", {.hint = "Saves the measurement in the folder under this name."}};
inline constexpr ButtonControl CHANGEPATH{
    Panel::ASAVEDLG, "CHANGEPATH", "Change ...", {.hint = "Chooses another folder for automatic saves."}};
inline constexpr ButtonControl CLOSE{Panel::ASAVEDLG, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&PATHNAME, &FILENAME, &AUTOFILE, &SAVE, &CHANGEPATH, &CLOSE};

}  // namespace sondera::asavedlg
