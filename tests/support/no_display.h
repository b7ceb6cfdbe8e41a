// no_display.h - programs that a test starts find no display, on any desktop.
#pragma once

#include <cstdlib>

namespace sondera::test {

inline void TakeDisplayAway() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(name);
}

}  // namespace sondera::test
