// windows.h - the windows as front end. The only header of this folder that needs no Qt.
#pragma once

#include <string>

namespace sondera {

/// Whether windows could be shown: a display that responds, or a platform that needs none
/// (QT_QPA_PLATFORM=offscreen). Checks without a message of Qt.
bool DisplayIsThere();

/// Makes the windows the front end, with the present state: boxes at once, the main window when its event
/// loop runs. False, with nothing changed, without a display. Numbers in text stay in the C locale.
bool InstallWindows();

/// The same, under a name for the program that loads this folder as a module (app/windows_module).
extern "C" bool SonderaInstallWindows();

}  // namespace sondera
