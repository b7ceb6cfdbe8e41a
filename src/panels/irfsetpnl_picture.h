// irfsetpnl_picture.h - the windows of the filter panel over the impulse response, where their corners can be dragged.
// No state: everything is drawn from the fields of the panel.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Draws the pair that the panel names with the windows in its fields: the enhanced one by its times, the backbone one by
/// its velocities. Where OK would take another enhanced window by its velocities, that one is drawn as well.
void DrawFilterWindows();

/// A corner is moved: the fields of its window follow, time and velocity of the enhanced one, velocity of the backbone
/// one. A corner stays between its neighbours and within the record.
int FilterWindowsCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
