// redraw.h - notices that displayed data have changed. Panels send them, and long runs where the order of the
// display requires it; app/ registers the functions of panels/ that handle them. No result depends on a
// notice, with one exception on purpose: a phase display updates the band limits of a measured record (see
// records/measdb.h, BringBandLimitsUpToDate).
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

/// Registers the handlers and returns the former ones. Empty entries do nothing.
RedrawHandlers InstallRedrawHandlers(RedrawHandlers next);

/// Pages of DoPlotting.
inline constexpr int kMeasurementPage = 0, kMaskingPage = 1;

/// Draws graph A and graph B of a page: 1 the masking page, any other the measurement page. -1 when there is
/// nothing to draw, -2 when the requested data have not been calculated.
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
