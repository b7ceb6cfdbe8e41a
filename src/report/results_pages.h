// results_pages.h - the entries of an inversion: the ground in strips over depth, and measured against computed curves.
#pragma once

#include "report/report_input.h"

namespace sondera {

/// Whether there is an entry for these pages.
bool HaveResults(const ReportInput& input);

/// Draws two pages for each entry on the open document: five strips (Vs and Vp with their bands of two
/// deviations, resolution, density, Poisson's ratio), then the curves over wavelength and frequency. The
/// measured ones are those of FModelParam. Without an entry the page has only its footer.
void PrintPsSwavePrf(const ReportInput& input);

}  // namespace sondera
