// changeid_1.h - "Change ID ...": the second of the two dialogs for a new id.
#pragma once

#include "runtime/controls.h"

namespace sondera::changeid_1 {

inline constexpr TextControl OLDID{Panel::CHANGEID_1,
                                   "OLDID",
                                   "Present ID",
                                   {.hint = "Id that the measurement has now.", .role = Role::ReadOut}};
inline constexpr TextControl NEWID{
    Panel::CHANGEID_1, "NEWID", "New ID", {.hint = "New id of the measurement, up to 255 bytes."}};
inline constexpr ButtonControl OK{
    Panel::CHANGEID_1, "OK", "OK", {.hint = "Gives the measurement the new id."}};
inline constexpr ButtonControl CANCEL{
    Panel::CHANGEID_1, "CANCEL", "Cancel", {.hint = "Hides this panel and keeps the id."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&OLDID, &NEWID, &OK, &CANCEL};

}  // namespace sondera::changeid_1
