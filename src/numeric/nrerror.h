// nrerror.h - how a numerical routine reports a problem: it tells the person and continues. Callers of the
// kernels must expect infinities and NaNs in results; no numerical error ends a run.
#pragma once

namespace sondera {

/// Title of the pop-ups of the kernels. Kept: a fixed text that does not follow the title of the application.
inline constexpr const char* kKernelPopupTitle = "Sondera 2.0";

/// Function that shows a pop-up of the kernels: runtime/dialogs.h installs one. Null: no pop-up is shown.
using KernelPopup = void (*)(const char* title, const char* text);
/// @return the function installed before
KernelPopup InstallKernelPopup(KernelPopup popup);
/// Shows a text under kKernelPopupTitle.
void ShowKernelPopup(const char* text);

/// Shows the pop-up with the fixed text "Numerical run-time error...\n" and returns.
/// @param text  what went wrong, for the reader of the calling code. Kept: not shown.
void nrerror(const char* text);

}  // namespace sondera
