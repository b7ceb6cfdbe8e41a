// sasw_masking.h - the buttons and fields of masking on the masking page, their two markers, picking by a
// click, and the drawing of masks.
//
// Masking works on window A only: with TRACE_ONOFF of the page that raised the event on 1 (window B) each
// button shows a message and does nothing. All callbacks act on the commit event and return 0, or -1 when
// they refused.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// The check: true when the page's TRACE_ONOFF is on window B, after a message that masking is for window A.
bool RefuseWindowB(Panel panel);
/// Windows that TRACE_ONOFF of a page names: 0 A, 1 B, 2 both. Pages other than MEASPANEL count as SASW.
int SelectedWindow(Panel panel);

int MaskingNewCallback(Panel panel, ControlId control, Event event, long data);
int MaskingUpdateCallback(Panel panel, ControlId control, Event event, long data);
int MaskingDeleteCallback(Panel panel, ControlId control, Event event, long data);
int MaskingResetCallback(Panel panel, ControlId control, Event event, long data);
/// Only the check.
int MaskingListCallback(Panel panel, ControlId control, Event event, long data);
/// Switches the drawing of masks on for the selected windows and redraws; -1 without a pair record.
int MaskingOnOffCallback(Panel panel, ControlId control, Event event, long data);

/// A frequency typed into MASKING_FREQINIT or MASKING_FREQFINAL moves marker 1 or 2 of graph A, and of graph
/// B too when both windows are selected, provided that two markers are on. The final frequency is cut to the
/// upper limit of the display first, in the field as well.
int MaskFreqInitCallback(Panel panel, ControlId control, Event event, long data);
int MaskFreqFinalCallback(Panel panel, ControlId control, Event event, long data);
/// Does nothing: the number is read when a button is pressed.
int MaskJumpNoCallback(Panel panel, ControlId control, Event event, long data);

/// A right click on a graph of the masking page at a frequency (Hz): picks the mask of the current pair
/// there, shows it in the three fields and puts two markers on its ends. Returns as PickUpMasking; without a
/// mask there nothing changes.
int PickMaskOnGraph(double freq);

/// Two markers on the graphs of a window (0 A, 1 B, 2 both) of the masking page, in their colours.
void TurnOnDualMarkers(int window);
/// Colours of the two markers: 0xFF00FF and 0xFF0000.
void SetDualMarkers(const GraphControl& graph);
/// Removes the markers from the windows of a page: marker count 0, read-outs empty, MARKERS_ONOFF 0; and the
/// three masking fields at 0.
void TurnOffMarkers(Panel panel, int window);

/// Draws the masks of the pair that a graph of SASW or MEASPANEL shows, as rectangles from 180 to -180
/// degrees, when that window's switch is on. For displays over frequency. Returns the number of masks drawn.
int DoPlotMasking(const GraphControl& graph);

}  // namespace sondera
