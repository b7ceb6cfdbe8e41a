// loadexd.h - "Load EXD File from Sondera Ver. 1": an earlier import dialog. The menu item asks for the file
// itself.
#pragma once

#include "runtime/controls.h"

namespace sondera::loadexd {

inline constexpr TextControl FILENAME{
    Panel::LOADEXD, "FILENAME", "File", {.hint = "File of dispersion curves, .exd."}};
inline constexpr ButtonControl LOAD{Panel::LOADEXD, "LOAD", "Load", {.hint = "Reads the file."}};
inline constexpr ButtonControl CANCEL{Panel::LOADEXD, "CANCEL", "Cancel", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&FILENAME, &LOAD, &CANCEL};

}  // namespace sondera::loadexd
