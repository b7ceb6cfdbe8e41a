// main_window.h - the main window: menus of the catalogue, tool bar, the four pages, the status line.
#pragma once

#include <vector>

#include "runtime/changes.h"

class QWidget;

namespace sondera {

/// Creates and shows the main window and those panels that are shown in the store.
void OpenMainWindow();
/// Closes all windows; stores their places.
void CloseMainWindow();
/// The main window; null while there is none.
QWidget* MainWindowWidget();

/// Updates the windows from the store: titles, panels shown and hidden, tab pages; all of them for
/// `everything`. answers: other controls react than before.
void ShowWindowChanges(const std::vector<Change>& changes, bool everything, bool answers);

}  // namespace sondera
