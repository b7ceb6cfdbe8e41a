// mainmenu_windows.h - menu items that need windows: printing of pages and graphs, the manual, the about box.
// The front end does it (FrontEnd::print, showManual). One without printing asks for a name and saves the
// graphs as a picture, .pdf, .svg or .png; one without a manual shows a message. No state.
#pragma once

#include "runtime/controls.h"

namespace sondera {

// File, Print Panel. 0; -1 when nothing was printed or saved.
int PrintMeasDispABCallback(Panel panel, ControlId control, Event event, long data);  ///< graphs A and B
int PrintDCPanelCallback(Panel panel, ControlId control, Event event, long data);     ///< dispersion page
int PrintDCPRFPanelCallback(Panel panel, ControlId control, Event event,
                            long data);  ///< results page, both graphs
int PrintDispCurveCallback(Panel panel, ControlId control, Event event, long data);  ///< dispersion graph
int PrintFmInvCallback(Panel panel, ControlId control, Event event,
                       long data);  ///< curves of the results page
int PrintProfWinCallback(Panel panel, ControlId control, Event event, long data);  ///< graph beside them

/// Help, Contents: the user manual.
int HelpCallback(Panel panel, ControlId control, Event event, long data);
/// Help, About: name, version and licence in ABOUTPNL; its OK hides it.
int AboutBoxCallback(Panel panel, ControlId control, Event event, long data);
int AboutOKCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
