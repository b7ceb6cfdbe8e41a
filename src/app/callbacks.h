// callbacks.h - the one table of controls and menu items with their callbacks.
#pragma once

namespace sondera {

/// Installs all callbacks in the settings store, and the drawing functions of the redraw notices.
void InstallCallbacks();

}  // namespace sondera
