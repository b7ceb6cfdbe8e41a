// windows.h - the windows as front end. The only header of this folder that others see; it needs no Qt.
#pragma once

#include <string>

namespace sondera {

/// Whether windows could be shown: a display that answers, or a platform that needs none (QT_QPA_PLATFORM=offscreen).
/// Asks without a message of Qt.
bool DisplayIsThere();

/// Makes the windows the front end, on the state as it stands: boxes at once, the main window when its event loop
/// runs. Without a display false, and nothing is changed. Numbers in text stay in the C locale.
bool InstallWindows();

}  // namespace sondera
