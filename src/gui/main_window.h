// main_window.h - the main window: menus of the catalogue, tool bar, the four pages, the status line.
#pragma once

#include <vector>

#include "runtime/changes.h"

class QWidget;

namespace sondera {

/// Makes and shows the main window and the panels that the store has shown.
void OpenMainWindow();
/// Takes all windows away; notes where they stood.
void CloseMainWindow();
/// The main window; null while there is none.
QWidget* MainWindowWidget();

/// Windows follow the store: titles, panels shown and hidden, tab pages; all of them for `everything`. answers: other
/// controls answer than before.
void ShowWindowChanges(const std::vector<Change>& changes, bool everything, bool answers);

}  // namespace sondera
