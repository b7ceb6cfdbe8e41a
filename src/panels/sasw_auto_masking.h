// sasw_auto_masking.h - the button of the automatic masking on the masking page. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Masks the pair on display (signal/auto_masking.h) and redraws the page. Asks "Need to recalculate Gabor
/// spectrum. Allow to do it ?" before the maps are calculated over another time range. 0; -1 when it was
/// refused, with a message where the pair's map has no range or no divisions. When a later range is refused
/// the masks of the range before stay, with their numbers.
int AutoMasking();

/// MASKINGAUTO on commit: AutoMasking, then the windows are shown in the panel of the filtration. Masking
/// works on window A only, see sasw_masking.h.
int MaskingAutoCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
