// measpanel_run.h - the buttons Start, Pause and Stop of the measurement page. State: acquisition/acquisition_state.h.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// SASWSTART: the whole measuring run on the current measurement, until this returns. Meanwhile only Stop,
/// Pause and the display controls of the page work; all others show "Measurement is running...". It asks
/// before it removes imported data. -1 when it did not start or ended by an error.
int SASWStartCallback(Panel panel, ControlId control, Event event, long data);

/// SASWPAUSECONT: an armed record is completed, then none follows until the toggle is off.
int SASWPauseContCallback(Panel panel, ControlId control, Event event, long data);

/// STOPMEAS: ends the run; the averages of the accepted records stay.
int SASWstopCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
