// nrerror.h - the one way in which a numerical routine reports trouble: tell the person, and go on.
// Callers of the kernels have to expect infinities and NaNs in results; no numerical error ends a
// run.
#pragma once

namespace sondera {

/// Title of the pop-ups of the kernels. Kept: a fixed text that does not follow the title of the application.
inline constexpr const char* kKernelPopupTitle = "Sondera 2.0";

/// What shows a pop-up of the kernels: the boxes of runtime/dialogs.h install themselves here. Null: nobody is told.
using KernelPopup = void (*)(const char* title, const char* text);
/// @return the one that stood before
KernelPopup InstallKernelPopup(KernelPopup popup);
/// Shows a text under kKernelPopupTitle.
void ShowKernelPopup(const char* text);

/// Shows the pop-up with the fixed text "Numerical run-time error...\n" and returns.
/// @param text  what went wrong, for the reader of the calling code. Kept: not shown.
void nrerror(const char* text);

}  // namespace sondera
