// cdisppnl.h - the panel "Representative Disp. Curve": opens it, reads its settings, starts the averaging,
// and edits the number of polynomial terms of each pair. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Copies the settings from the panel to CDispParam. While AVG_LINLOG is not 1 the ratio is -1. Kept: the
/// settings of the array curves become the global ones.
void UpdateDispDlgPanel();

/// AverageCurves of signal/rep_curves.h: makes the global curve and then the array curves, by CDispParam. -1
/// with one message, and unchanged curves, when a setting is outside its limits.
int PerformAveraging(int takeAllG, int takeAllA);

/// Button of the dispersion page, and menu item: shows the panel and lists the pairs with included = 1. A
/// pair without a number of polynomial terms (0) gets that of CDispParam. The first pair is selected. Kept:
/// the labels count channels from 1 after the button and from 0 after the menu item.
int SetupCompDispCurveCallback(Panel panel, ControlId control, Event event, long data);
int CalcRepDispMenuCallback(Panel panel, ControlId control, Event event, long data);

/// Button CALC: settings from the panel, averaging, redraw of the dispersion page. -1 when a setting was
/// refused.
int CDispCalcCallback(Panel panel, ControlId control, Event event, long data);
/// Button UPDATE: the same; then the layers of the starting model are made from the new curves (by pressing
/// AUTOSETUPSMP of the inversion panel).
int CDispCalcUpdateCallback(Panel panel, ControlId control, Event event, long data);
/// Button CANCEL: hides the panel.
int CDispCancelCallback(Panel panel, ControlId control, Event event, long data);

/// List of pairs: shows the polynomial terms of the selected one.
int IndDispCurvListCallback(Panel panel, ControlId control, Event event, long data);
/// ARRAY_POLYORDER: stores the number in the selected pair. -1 with a message outside 1..64; the panel then
/// shows the pair's number again.
int IndPolyOrderCallback(Panel panel, ControlId control, Event event, long data);
/// AVG_LINLOG: the ratio is dimmed while it has no effect.
int SwitchAvgLinLogCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
