// redraw.cpp - passes redraw notices to the registered handlers. Owns that registration.
#include "runtime/redraw.h"

#include <utility>

namespace sondera {
namespace {

RedrawHandlers handlers;

}  // namespace

RedrawHandlers InstallRedrawHandlers(RedrawHandlers next) {
  return std::exchange(handlers, std::move(next));
}

int DoPlotting(int page) {
  return handlers.doPlotting ? handlers.doPlotting(page) : 0;
}
void DoPreviewPlotting() {
  if (handlers.doPreviewPlotting) handlers.doPreviewPlotting();
}
int DispCurvPlot(int flag) {
  return handlers.dispCurvPlot ? handlers.dispCurvPlot(flag) : 0;
}
void ExdThdCurvPlot() {
  if (handlers.exdThdCurvPlot) handlers.exdThdCurvPlot();
}
void DrawProfile(int entry) {
  if (handlers.drawProfile) handlers.drawProfile(entry);
}
void DrawResolution(int entry) {
  if (handlers.drawResolution) handlers.drawResolution(entry);
}
void DrawRMSerror(int entry) {
  if (handlers.drawRMSerror) handlers.drawRMSerror(entry);
}

}  // namespace sondera
