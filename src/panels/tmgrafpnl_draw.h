// tmgrafpnl_draw.h - draws the section on its panel, reads places on it, and writes its tables. The grid is kept between
// draws (panelsState.section).
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// What TOMOGRAFTYPE says: image of the grid that is there, or stack of curves. Returns as those.
int DrawTomoGraf();

/// The image. A grid is made where none is there, or with force 1; HALT ends that, and the former grid and image stay.
/// An older grid than the settings is told in MESSAGE. 0; -1 without an included curve, after a message, or when halted.
int GenerateGridAndPlot(int force);

/// The stack of the included curves. Kept: the range of their locations goes into the settings. -1 without a curve.
int PlotStackedGD();

/// Graph: a click, or a cursor that moves, shows distance, wavelength and velocity in COORD.
int TomoGrafGraphCallback(Panel panel, ControlId control, Event event, long data);

/// SAVEGRID and SAVEPOINTS: ask for the file. -1 when nothing was written.
int SaveSectionGridCallback(Panel panel, ControlId control, Event event, long data);
int SaveSectionPointsCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
