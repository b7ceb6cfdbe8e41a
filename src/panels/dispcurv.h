// dispcurv.h - the DISPCURV page: the lists of included and excluded curves, colours and markers, and the events
// of its graph.
//
// A curve takes part in the averages when its pair's `included` is 1. Buttons and lists change that flag and
// move the label from list to list; the graph follows at the next redraw.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Buttons INCLUDE and EXCLUDE: set `included` of the selected curve to 1 or 0 and move its label to the
/// other list. Without a redraw. -1 with an empty list or a label of no known pair.
int IncludeDispCurveCallback(Panel panel, ControlId control, Event event, long data);
int ExludeDispCurveCallback(Panel panel, ControlId control, Event event, long data);
/// Lists: a double click has the effect of the button; choosing an included curve (value change or click)
/// shows its colour and marker in the rings.
int ExcludedDispCurveListCallback(Panel panel, ControlId control, Event event, long data);
int IncludedDispCurveListCallback(Panel panel, ControlId control, Event event, long data);

/// Rings COLOR and MARKER on commit: the ring's position becomes that of the selected included curve. -1
/// without one.
int DispCurveColorCallback(Panel panel, ControlId control, Event event, long data);
int DispCurveMarkerCallback(Panel panel, ControlId control, Event event, long data);

/// DISPCURVTYPE and the redraw button or menu entry, on commit: return the result of DispCurvPlot(1).
int SetDispCurveTypeCallback(Panel panel, ControlId control, Event event, long data);
int RedrawDispCurvCallback(Panel panel, ControlId control, Event event, long data);

/// Graph: a double click opens the axis attributes, a commit shows the cursor's coordinates in COORD; a left
/// click does nothing.
int SetupDispCurveCallback(Panel panel, ControlId control, Event event, long data);

/// The order of the curves is that of the pairs; these functions do nothing.
int DispCurveMoveUpCallback(Panel panel, ControlId control, Event event, long data);
int DispCurveMoveDownCallback(Panel panel, ControlId control, Event event, long data);
int DispCurveMoveTopCallback(Panel panel, ControlId control, Event event, long data);
int DispCurveMoveBottomCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
