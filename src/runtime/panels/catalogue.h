// catalogue.h - the whole catalogue: every panel with its name, its first title, and how it starts.
//
// ControlsOf and PanelName, which the store declares for everyone (runtime/controls.h), are answered from the
// same table. The headers of the panels beside this one hold the controls.
#pragma once

#include <string_view>

#include "runtime/controls.h"

namespace sondera {

/// Title of a panel before any logic writes one.
std::string_view DefaultPanelTitle(Panel p);

/// Whether a panel starts shown: the main window with its menu, and the tab pages, of which the active one is
/// in front. All dialogs start hidden.
bool PanelStartsShown(Panel p);

}  // namespace sondera
