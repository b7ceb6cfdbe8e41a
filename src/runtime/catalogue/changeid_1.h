// changeid_1.h - "Change ID ...": the second of the two dialogs for a new id.
#pragma once

#include "runtime/controls.h"

namespace sondera::changeid_1 {

inline constexpr TextControl OLDID{Panel::CHANGEID_1, "OLDID", "Present ID"};
inline constexpr TextControl NEWID{Panel::CHANGEID_1, "NEWID", "New ID"};
inline constexpr ButtonControl OK{Panel::CHANGEID_1, "OK", "OK"};
inline constexpr ButtonControl CANCEL{Panel::CHANGEID_1, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&OLDID, &NEWID, &OK, &CANCEL};

}  // namespace sondera::changeid_1
