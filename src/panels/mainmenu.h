// mainmenu.h - the menu items that show a page of the main window or a tab of the setup dialog, and the
// titles. No state.
#pragma once

#include <optional>
#include <string>

#include "runtime/controls.h"

namespace sondera {

int MeasModeCallback(Panel panel, ControlId control, Event event, long data);        ///< masking page
int PerformTestCallback(Panel panel, ControlId control, Event event, long data);     ///< measurement page
int DispersionModeCallback(Panel panel, ControlId control, Event event, long data);  ///< dispersion page
int SetupModeCallback(Panel panel, ControlId control, Event event, long data);
int SetupHDWareCallback(Panel panel, ControlId control, Event event, long data);
int SetupMeasSetupCallback(Panel panel, ControlId control, Event event, long data);

/// Shows one page of the main window instead of the others, under a title.
void ShowPage(Panel page, const std::string& title);
/// Hides the pages of the main window; returns the one that was shown, if any.
std::optional<Panel> HidePages();
/// "app - file [what]", the title of a page.
std::string PageTitle(const char* what);

}  // namespace sondera
