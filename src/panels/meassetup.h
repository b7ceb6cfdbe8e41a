// meassetup.h - the page MEASSETUP: the wavelength criterion and the spacing of the receivers. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// HYX_WLENFILTER on commit: the criterion of the session and of the text import.
int UpdateWLenFilterCallback(Panel panel, ControlId control, Event event, long data);

/// RSPACING: shows the field of the spacing (1) or the controls of single locations.
int RSpacingOptionCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
