// changeid.h - "Change ID ...": a new id for a measurement.
#pragma once

#include "runtime/controls.h"

namespace sondera::changeid {

inline constexpr TextControl OLDID{Panel::CHANGEID, "OLDID", "Present ID"};
inline constexpr TextControl NEWID{Panel::CHANGEID, "NEWID", "New ID"};
inline constexpr ButtonControl OK{Panel::CHANGEID, "OK", "OK"};
inline constexpr ButtonControl CANCEL{Panel::CHANGEID, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&OLDID, &NEWID, &OK, &CANCEL};

}  // namespace sondera::changeid
