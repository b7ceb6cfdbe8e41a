// trace_display.h - graphs A and B of the measurement page and the masking page: selects the data of the
// measurement and pair. The redraw notices DoPlotting and DoPreviewPlotting call it; plot/trace_plot.h and
// plot/gabor_plot.h make the curves. No state besides the display records of the session.
//
// A display of transfer function or impulse response creates the pair record when there is none and updates
// it from the averages; a phase display also updates the band limits of a measured record. Nothing else is
// changed.
#pragma once

#include <string>

#include "records/selection.h"
#include "runtime/controls.h"

namespace sondera {

/// Draws both graphs of a page: 1 the masking page, any other the measurement page. 0; -1 when one of them
/// has no measurement to show; -2 when a Gabor map cannot be shown: zeros are drawn instead.
int DrawTraces(int page);

/// Why the trace of a page shows zeros instead of the Gabor map of its type; empty when it does not. For code
/// that sets the type: redraws give no message.
std::string WhyNoMap(Panel panel, Trace trace);

/// The curve of the pair that trace A of the masking page shows, in the inset of that page, which is hidden without one.
void DrawPairCurve();
/// On commit: a click on the inset shows the dispersion page.
int PairCurveCallback(Panel panel, ControlId control, Event event, long data);

/// First two channels of the record under preview, on the measurement page.
void DrawPreview();

}  // namespace sondera
