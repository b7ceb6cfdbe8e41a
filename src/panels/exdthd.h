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

}  // namespace sondera
