// panel_window.h - the panels with a window of their own: one non-modal dialog each, created when it is first
// shown.
#pragma once

#include "runtime/control.h"

class QWidget;

namespace sondera {

/// Whether a panel is a window of its own (not a page, not a tab, not the main window) and has a form.
bool IsWindowPanel(Panel panel);

/// Updates the window of a panel from the store: shown and in front, or hidden.
void FollowPanel(Panel panel, QWidget* mainWindow);
void FollowPanelTitle(Panel panel);
/// Brings an existing window to the front.
void RaisePanel(Panel panel);
/// Deletes all panel windows.
void DropPanelWindows();

}  // namespace sondera
