// windows_module.h - the windows as a file of their own, loaded only where they are shown. Their libraries are half of
// what the system would have to load for each start, and a script needs none of them.
#pragma once

#include <string>

namespace sondera {

/// Loads the windows and makes them the front end. Searches beside the program (a build folder) and in the
/// folder libexec of the installation. Returns "", or without a display or that file the reason, as part of a
/// sentence; then nothing has changed.
std::string OpenWindows();

}  // namespace sondera
