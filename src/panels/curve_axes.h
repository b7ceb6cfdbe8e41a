// curve_axes.h - "Axis Attributes" of the dispersion page (DSP_MSCALE) and of the results page (EXD_SCALE): quantity,
// scale and limits of both axes. Each works on the axis record of its page (records/session.h). No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Fills a dialog from its record and shows it.
void OpenDispersionAxes();
void OpenResultAxes();
/// Menu item of the dispersion page.
int DispCVAxisAttrMenuCallback(Panel panel, ControlId control, Event event, long data);

/// Quantity and automatic limits in both dialogs: the two fields of the axis show the present limits of that
/// quantity, and are dimmed while they are automatic.
int CurveAxisChoiceCallback(Panel panel, ControlId control, Event event, long data);

/// OK: stores both axes in the record, hides the dialog and draws. Limits that are equal or not finite become
/// automatic; limits in the wrong order are exchanged.
int DispCVManualScaleCallback(Panel panel, ControlId control, Event event, long data);
int EXDTHDManualScaleCallback(Panel panel, ControlId control, Event event, long data);
/// CANCEL: hides the dialog; the record stays.
int DispCVManualScaleCancelCallback(Panel panel, ControlId control, Event event, long data);
int EXDTHDManualScaleCancelCallback(Panel panel, ControlId control, Event event, long data);

/// Entered limits, put in order. Equal or not finite: equal limits, which mean automatic.
struct EnteredLimits {
  double min = 0.0, max = 0.0;
  bool automatic() const { return min == max; }
};
EnteredLimits InOrder(double min, double max);

}  // namespace sondera
