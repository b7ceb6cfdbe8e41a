// nrerror.cpp - the pop-up of the numerical kernels.
#include "numeric/nrerror.h"

#include "runtime/dialogs.h"

namespace sondera {

void nrerror([[maybe_unused]] const char* text) {
  MessagePopup(kKernelPopupTitle, "Numerical run-time error...\n");
}

}  // namespace sondera
