// exdthd.h - the page EXDTHD: forward modelling or inversion. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// FMDORINV on commit: UpdateWindowFace by its value.
int ChooseAnalysisCallback(Panel panel, ControlId control, Event event, long data);
/// Results page for forward modelling (1) or inversion (any other value): shows it with the right buttons,
/// clears the two status boxes and draws the curves.
void UpdateWindowFace(int mode);

/// Draws the side graph that PLOT_INV selects: profile, resolution or RMS error of an entry.
void DrawSideGraph(int entry);

/// Menu item of forward modelling: sets FMDORINV and shows the page with its buttons.
int OpenFModelingWinCallback(Panel panel, ControlId control, Event event, long data);
/// Brings the page to the front and draws its curves.
int OpenEXDTHDcallback(Panel panel, ControlId control, Event event, long data);
/// CLOSE: returns to the dispersion page.
int EXDTHDCloseCallback(Panel panel, ControlId control, Event event, long data);

/// EXDTYPE and ARRAYDISPID: draw the curves again. THDTYPE too, and it shows colour and marker of the chosen
/// curve, or of the first one for all.
int SetEXDCurveTypeCallback(Panel panel, ControlId control, Event event, long data);
int SetTHDCurveTypeCallback(Panel panel, ControlId control, Event event, long data);
/// COLOR and MARKER: the theoretical curve in THDTYPE, or all of them, get the position of the ring. Redraw
/// shows it. -1 when no theoretical curve is displayed.
int EXDTHDColorCallback(Panel panel, ControlId control, Event event, long data);
int EXDTHDMarkerCallback(Panel panel, ControlId control, Event event, long data);
/// Theoretical curves get their first colours and markers again; redraws.
int SetEXDTHDmarkercolorCallback(Panel panel, ControlId control, Event event, long data);
/// REDRAW: both graphs.
int RedrawEXDTHDCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
