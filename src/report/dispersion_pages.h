// dispersion_pages.h - the dispersion curves of the pairs, and the representative ones.
#pragma once

#include "report/report_input.h"

namespace sondera {

/// 1 if the first pair of a measurement is marked as included, else 0.
int CheckADisp(int key);

/// Whether there is a curve for these pages.
bool HaveDispersionCurves();

/// Draws the pages on the open document: the curves of the pairs over wavelength and over frequency, then, if
/// there are any, the array curves and the global curve over wavelength. Without a curve the page has only
/// its footer.
void PrintPsDispCurv(const ReportInput& input);

}  // namespace sondera
