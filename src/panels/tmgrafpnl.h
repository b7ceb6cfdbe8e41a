// tmgrafpnl.h - the panel TMGRAFPNL, the section of phase velocity along a line of stations: its lists, settings and
// buttons. What it draws: tmgrafpnl_draw.h; stations: section_stations.h, tmgrafpnl_stations.h.
//
// A station is a global curve (GDisp) with its location in wlenMax; `valid` 1 stands in the included list. The state is
// panelsState.section.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Fills the lists and takes the ranges of the included curves: distance and velocity anew, the wavelength only wider.
/// 0 intervals become 20 and 10. With KEEPCOLORS the ends of the colour scale stay.
void SetupTomografPanel();
/// Shows the settings and refreshes the colour scale.
void SetupTMGConfig();
/// Takes the settings from the panel. -1 after a message for intervals that no grid has, which get their defaults;
/// and before the panel was ever shown for this project, since there are no ranges then.
int UpdateTMGConfig();
/// The strip, and the two levels between with one decimal.
void RefreshTMGColorScale();

/// Another project: no grid, no ranges, empty lists and graph. Intervals, Fill and colours stay.
void ForgetSection();
/// Fills the panel anew if it is shown, behind a change of the curves.
void RenewSectionPanel();

/// Menu and button of the dispersion page: shows the panel, hides the pages, takes the ranges and draws.
int DrawTomoGrafCallback(Panel panel, ControlId control, Event event, long data);
/// DRAWTOMOGRAF: takes the settings, makes a new grid, draws it, and sets the type to image. -1 where nothing is drawn.
int TMGrafCallback(Panel panel, ControlId control, Event event, long data);
/// TOMOGRAFTYPE: draws; an image of the grid that is there.
int SetTomografTypeCallback(Panel panel, ControlId control, Event event, long data);
/// UPDATE: takes the settings, draws nothing.
int TMGrafSetupUpdateCallback(Panel panel, ControlId control, Event event, long data);
/// Has no effect.
int TMGrafDefaultCallback(Panel panel, ControlId control, Event event, long data);
/// VERTICALAXIS and CONTOURS: draw what is there anew.
int TMGrafLookCallback(Panel panel, ControlId control, Event event, long data);
/// HALT, while a grid is made.
int TMGrafHaltCallback(Panel panel, ControlId control, Event event, long data);
/// CLOSE, or closing the window: hides the panel.
int TMGrafCloseCallback(Panel panel, ControlId control, Event event, long data);

/// Buttons INCLUDE and EXCLUDE: set `valid` of the selected curve and move its label. Without a redraw. -1 with an empty
/// list or a label that stands for no curve.
int IncludeTomoGrafCallback(Panel panel, ControlId control, Event event, long data);
int ExludeTomoGrafCallback(Panel panel, ControlId control, Event event, long data);
/// Lists: a double click does what the button does; choosing an included curve shows its location in SRCPOS.
int ExcludedTomoGrafListCallback(Panel panel, ControlId control, Event event, long data);
int IncludedTomoGrafListCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
