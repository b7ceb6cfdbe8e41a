// mscalepnl.h - "Axis Attributes" of traces A and B: present limits, automatic or entered. The limits are
// stored by graph and by family of displays, over time and over frequency (DisplayRecord::limits).
// panels_state.h has the page and window of the dialog.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Fills the dialog for a window of a page (0 A, 1 B, 2 both: it shows A and sets both) and shows it.
void AdjustScale(Panel panel, int window);

/// Button ADJUSTSCALE of either page and the menu item: for the window in TRACE_ONOFF. The menu item means the masking
/// page.
int AdjustScaleCallback(Panel panel, ControlId control, Event event, long data);

/// AUTOSCALE_X and AUTOSCALE_Y of the dialog: dims the fields of an automatic axis.
int AutoScaleCallback(Panel panel, ControlId control, Event event, long data);
/// OK: stores the limits and the flags, hides the dialog and draws the page. Limits that are equal or not
/// finite make the axis automatic; limits in the wrong order are exchanged.
int ManualScaleCallback(Panel panel, ControlId control, Event event, long data);
/// CANCEL: hides the dialog.
int ManualScaleCancelCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
