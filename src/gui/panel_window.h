// panel_window.h - the panels that are windows of their own: one non-modal dialog each, made when it is first shown.
#pragma once

#include "runtime/control.h"

class QWidget;

namespace sondera {

/// Whether a panel is a window of its own (not a page, not a tab, not the main window) and has a form.
bool IsWindowPanel(Panel panel);

/// Brings the window of a panel up to date with the store: shown and in front, or hidden.
void FollowPanel(Panel panel, QWidget* mainWindow);
void FollowPanelTitle(Panel panel);
/// Brings a window that is there to the front.
void RaisePanel(Panel panel);
/// Deletes all panel windows.
void DropPanelWindows();

}  // namespace sondera
