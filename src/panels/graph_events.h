// graph_events.h - what the mouse does on the graphs: markers and their read-outs, masks drawn and picked on trace A,
// cursors of the curve pages. The events are those of runtime/graphs.h (SendGraphEvent).
//
// A marker sits on the curve of the phase in DISPCURV_OPTION, else on the first: its abscissa is that of the nearest
// point, its ordinate the curve's. Without a curve it stays where it is put.
#pragma once

#include <string>

#include "runtime/controls.h"

namespace sondera {

/// Graphs A and B of the measurement and the masking page. A marker that is moved (ValChanged) or let go (Commit)
/// goes to its curve, and the three read-outs of the graph are renewed. On graph A of the masking page, over
/// frequency and unless the settings are those of B: two markers, one of which is moved, write the lower and the
/// upper frequency into MASKING_FREQINIT and MASKING_FREQFINAL; a drag puts both markers on its ends and writes them
/// too; a right click picks the mask under it. A double click on any of the graphs opens its axis dialog. Everything else
/// does nothing. Returns 0.
int DisplayCallback(Panel panel, ControlId control, Event event, long data);

/// Takes MARKERS_ONOFF of a page as the number of markers of the selected windows: new ones stand at one and two
/// thirds of the axis, in their colours. Stores the setting and redraws.
int MarkersOnOffCallback(Panel panel, ControlId control, Event event, long data);

/// After a redraw of a page (1 masking, else measurement): markers keep their abscissa, ordinates and read-outs
/// follow the curves.
void RenewMarkers(int page);

/// Graphs of the results page: a double click on the curves opens their axis dialog, a click shows its place in COORD.
int SetupEXDTHDCallback(Panel panel, ControlId control, Event event, long data);
/// Image of the section: a click puts the cursor there.
int TomoGrafGraphCallback(Panel panel, ControlId control, Event event, long data);

/// Place of a click, or of the first cursor where none was told: "(x, y)". The first cursor is there afterwards.
std::string ClickText(const GraphControl& graph);

/// A number of a read-out: two decimals from 1 on, four below, and four with a power of ten below 0.0001.
std::string CoordinateText(double value);

}  // namespace sondera
