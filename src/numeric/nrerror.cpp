// nrerror.cpp - the pop-up of the numerical kernels. Owns the function that shows it; the program sets it
// once.
#include "numeric/nrerror.h"

#include <utility>

namespace sondera {
namespace {

KernelPopup kernelPopup = nullptr;

}  // namespace

KernelPopup InstallKernelPopup(KernelPopup popup) {
  return std::exchange(kernelPopup, popup);
}

void ShowKernelPopup(const char* text) {
  if (kernelPopup != nullptr) kernelPopup(kKernelPopupTitle, text);
}

void nrerror([[maybe_unused]] const char* text) {
  ShowKernelPopup("Numerical run-time error...\n");
}

}  // namespace sondera
