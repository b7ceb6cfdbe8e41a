// changeid.h - "Change ID ...": a new id for a measurement.
#pragma once

#include "runtime/controls.h"

namespace sondera::changeid {

inline constexpr TextControl OLDID{Panel::CHANGEID,
                                   "OLDID",
                                   "Present ID",
                                   {.hint = "Id that the measurement has now.", .role = Role::ReadOut}};
inline constexpr TextControl NEWID{
    Panel::CHANGEID, "NEWID", "New ID", {.hint = "New id of the measurement, up to 255 bytes."}};
inline constexpr ButtonControl OK{Panel::CHANGEID, "OK", "OK", {.hint = "Gives the measurement the new id."}};
inline constexpr ButtonControl CANCEL{
    Panel::CHANGEID, "CANCEL", "Cancel", {.hint = "Hides this panel and keeps the id."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&OLDID, &NEWID, &OK, &CANCEL};

}  // namespace sondera::changeid
