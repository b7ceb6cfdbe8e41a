// redraw.h - notices that something shown has changed. Panels send them, and long runs where the
// order of what is seen demands it; app/ registers the functions of panels/ that answer. No result depends on a
// notice, with one exception that is on purpose: a phase display brings the band limits of a measured record up to
// date (see records/measdb.h, BringBandLimitsUpToDate).
#pragma once

#include <functional>

#include "runtime/controls.h"

namespace sondera {

struct RedrawHandlers {
  std::function<int(int page)> doPlotting;
  std::function<void()> doPreviewPlotting;
  std::function<int(int flag)> dispCurvPlot;
  std::function<void()> exdThdCurvPlot;
  std::function<void(int entry)> drawProfile;
  std::function<void(int entry)> drawResolution;
  std::function<void(int entry)> drawRMSerror;
};

/// Registers the handlers and returns the former ones. Empty slots do nothing.
RedrawHandlers InstallRedrawHandlers(RedrawHandlers next);

/// Draws graph A and graph B of a page: 1 the masking page, any other the measurement page. -1 when there is
/// nothing to draw, -2 when what is asked for has not been calculated.
int DoPlotting(int page);
/// First two channels of the record under preview.
void DoPreviewPlotting();
/// Dispersion page. flag 1: plain list labels, other values the "CSW-" labels. -1 when no curve has a point.
int DispCurvPlot(int flag);
/// Results page: experimental and theoretical curves, then its side graph for one entry.
void ExdThdCurvPlot();
void DrawProfile(int entry);
void DrawResolution(int entry);
void DrawRMSerror(int entry);

}  // namespace sondera
