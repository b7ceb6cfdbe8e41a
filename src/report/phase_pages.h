// phase_pages.h - the phase spectra with their masks, four a page.
#pragma once

#include "report/report_input.h"

namespace sondera {

/// Draws the pages on the open document, for each pair of a measurement of the project: the phase of the
/// average and, thinner, the one in use, wrapped to -180..180 degrees. Without a pair the page has only its
/// footer.
void PrintPsPhase(const ReportInput& input);

}  // namespace sondera
