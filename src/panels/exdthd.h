// exdthd.h - the page EXDTHD as a whole: forward modelling or inversion. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// FMDORINV on commit: UpdateWindowFace by its value.
int ChooseAnalysisCallback(Panel panel, ControlId control, Event event, long data);
/// Results page for forward modelling (1) or inversion (any other value): shows it with the buttons that belong to
/// it, blanks the two status boxes and draws the curves.
void UpdateWindowFace(int mode);

/// Draws the side graph that PLOT_INV chooses: profile, resolution or RMS error of an entry.
void DrawSideGraph(int entry);

/// Menu item of forward modelling: FMDORINV and the page take its face.
int OpenFModelingWinCallback(Panel panel, ControlId control, Event event, long data);
/// Brings the page to the front and draws its curves.
int OpenEXDTHDcallback(Panel panel, ControlId control, Event event, long data);
/// CLOSE: goes back to the dispersion page.
int EXDTHDCloseCallback(Panel panel, ControlId control, Event event, long data);

/// EXDTYPE and ARRAYDISPID: draw the curves anew. THDTYPE does too, and shows colour and marker of the curve chosen, of
/// the first one for all.
int SetEXDCurveTypeCallback(Panel panel, ControlId control, Event event, long data);
int SetTHDCurveTypeCallback(Panel panel, ControlId control, Event event, long data);
/// COLOR and MARKER: the position of the ring becomes that of the theoretical curve in THDTYPE, or of all. Redraw shows
/// it. -1 when no theoretical curve is displayed.
int EXDTHDColorCallback(Panel panel, ControlId control, Event event, long data);
int EXDTHDMarkerCallback(Panel panel, ControlId control, Event event, long data);
/// Theoretical curves get their first colours and markers again; redraws.
int SetEXDTHDmarkercolorCallback(Panel panel, ControlId control, Event event, long data);
/// REDRAW: both graphs.
int RedrawEXDTHDCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
