// meassetup_places.h - the fields of the geometry: where source and receivers of the current measurement stand, and the
// unit of length. A change marks the settings as not checked. Owns no state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// SRCLOC: moves the source only; receivers at even spacing stay until the spacing is entered again.
int UpdateSrcLocCallback(Panel panel, ControlId control, Event event, long data);
/// CHNLLOC: place of the receiver in NCHANNELS3.
int UpdateChnlLocCallback(Panel panel, ControlId control, Event event, long data);
/// NCHANNELS3: shows the place of that receiver.
int UpdateChnlLocInfoCallback(Panel panel, ControlId control, Event event, long data);
/// RECLOCLIST: chooses the receiver of the selected line and shows its place.
int UpdateRecLocListCallback(Panel panel, ControlId control, Event event, long data);
/// EVENSPACING: with even spacing the receivers stand one, two, three ... spacings from the source; otherwise shows the
/// place of one receiver.
int UpdateSingleChanelLocCallback(Panel panel, ControlId control, Event event, long data);
/// LENGTHUNIT: of the measurement and of the session.
int UpdateLengthUnitCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
