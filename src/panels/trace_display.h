// trace_display.h - graphs A and B of the measurement page and the masking page: which data of the selected
// measurement and pair go on them. Stands behind the redraw notices DoPlotting and DoPreviewPlotting; the curves
// themselves are made in plot/trace_plot.h and plot/gabor_plot.h. No state besides the display records of the session.
//
// A display of transfer function or impulse response makes the pair record when there is none and refreshes it
// from the averages; a phase display also brings the band limits of a measured record up to date. Nothing else
// leaves a mark.
#pragma once

#include <string>

#include "records/selection.h"
#include "runtime/controls.h"

namespace sondera {

/// Draws both graphs of a page: 1 the masking page, any other the measurement page. 0; -1 when one of them
/// has no measurement to show; -2 when a Gabor map is asked for that cannot be shown: zeros stand for it.
int DrawTraces(int page);

/// Why the trace of a page shows zeros in place of the Gabor map that its type asks for; empty when it does not. For
/// whoever chooses the type: redraws say nothing.
std::string WhyNoMap(Panel panel, Trace trace);

/// First two channels of the record under preview, on the measurement page.
void DrawPreview();

}  // namespace sondera
