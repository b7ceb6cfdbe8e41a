// meassetup_places.h - the fields of the geometry: positions of source and receivers of the current
// measurement, and the unit of length. After a change the settings count as not checked. Owns no state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// SRCLOC: moves only the source; evenly spaced receivers stay until the spacing is entered again.
int UpdateSrcLocCallback(Panel panel, ControlId control, Event event, long data);
/// CHNLLOC: position of the receiver in NCHANNELS3.
int UpdateChnlLocCallback(Panel panel, ControlId control, Event event, long data);
/// NCHANNELS3: shows the position of that receiver.
int UpdateChnlLocInfoCallback(Panel panel, ControlId control, Event event, long data);
/// RECLOCLIST: selects the receiver of the selected line and shows its position.
int UpdateRecLocListCallback(Panel panel, ControlId control, Event event, long data);
/// EVENSPACING: with even spacing the receivers are one, two, three ... spacings from the source; otherwise
/// shows the position of one receiver.
int UpdateSingleChanelLocCallback(Panel panel, ControlId control, Event event, long data);
/// LENGTHUNIT: of the measurement and of the session.
int UpdateLengthUnitCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
