// graph_events.h - effects of the mouse on the graphs: markers and their read-outs, masks drawn and picked on
// trace A, cursors of the curve pages. The events are those of runtime/graphs.h (SendGraphEvent).
//
// A marker is on the curve of the phase in DISPCURV_OPTION, else on the first one: its abscissa is that of
// the nearest point, its ordinate the curve's. Without a curve it stays where it was put.
#pragma once

#include <string>

#include "runtime/controls.h"

namespace sondera {

/// Graphs A and B of the measurement and the masking page. A marker that is moved (ValChanged) or released
/// (Commit) jumps to its curve, and the three read-outs of the graph are updated. On graph A of the masking
/// page, over frequency and unless the settings are those of B: with two markers, moving one writes the lower
/// and the upper frequency to MASKING_FREQINIT and MASKING_FREQFINAL; a drag puts both markers on its ends
/// and writes them too; a right click picks the mask under it. A double click on any of the graphs opens its
/// axis dialog. All other events do nothing. Returns 0.
int DisplayCallback(Panel panel, ControlId control, Event event, long data);

/// Uses MARKERS_ONOFF of a page as the number of markers of the selected windows: new ones are at one and two
/// thirds of the axis, in their colours. Stores the setting and redraws.
int MarkersOnOffCallback(Panel panel, ControlId control, Event event, long data);

/// After a redraw of a page (1 masking, else measurement): markers keep their abscissa; ordinates and
/// read-outs follow the curves.
void RenewMarkers(int page);

/// Graphs of the results page: a double click on the curves opens their axis dialog, a click shows its place in COORD.
int SetupEXDTHDCallback(Panel panel, ControlId control, Event event, long data);

/// Position of a click, or of the first cursor if none is given: "(x, y)". The first cursor moves there.
std::string ClickText(const GraphControl& graph);

/// A number of a read-out: two decimals from 1 on, four below, and four with a power of ten below 0.0001.
std::string CoordinateText(double value);

}  // namespace sondera
