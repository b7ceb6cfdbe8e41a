// callbacks.h - the one table of controls and menu items with their callbacks.
#pragma once

namespace sondera {

/// Puts all callbacks into the settings store, and the drawing functions behind the redraw notices.
void InstallCallbacks();

}  // namespace sondera
