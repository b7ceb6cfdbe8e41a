// exdthd_graphs.h - fills the two graphs of the results page. The redraw notices ExdThdCurvPlot, DrawProfile,
// DrawResolution and DrawRMSerror call it. Markers and colours of the theoretical curves are in
// panels_state.h.
#pragma once

namespace sondera {

/// Curves by EXDTYPE, THDTYPE and ARRAYDISPID; axes by the axis record of the page. Theoretical curves
/// without marker and colour get them.
void DrawResultCurves();
/// The graph beside the curves, for one entry of the lists of results.
void DrawProfileGraph(int index);
void DrawResolutionGraph(int index);
/// Entries 0 to NITER, or 1 to ALPHA_POINT for a starting profile.
void DrawRMSErrorGraph(int index);

/// Gives every theoretical curve of the last run its first colour and marker.
void SetEXDTHDmarkercolor();

}  // namespace sondera
