// mscalepnl.cpp - see mscalepnl.h.
#include "panels/mscalepnl.h"

#include <cstddef>

#include "panels/curve_axes.h"
#include "panels/panels_state.h"
#include "panels/sasw_masking.h"
#include "panels/trace_windows.h"
#include "records/kinds.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/mscalepnl.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

DisplayType TypeOf(Panel panel, int window) {
  const bool a = window == kWindowA;
  if (panel == Panel::MEASPANEL)
    return static_cast<DisplayType>(GetCtrlVal(a ? measpanel::DISPATYPE : measpanel::DISPBTYPE));
  return static_cast<DisplayType>(GetCtrlVal(a ? sasw::DISPATYPE : sasw::DISPBTYPE));
}

/// The window whose axes the dialog shows.
int ShownWindow(int window) {
  return window == kWindowB ? kWindowB : kWindowA;
}

void DimFields() {
  using namespace mscalepnl;
  const bool x = GetCtrlVal(AUTOSCALE_X) != 0, y = GetCtrlVal(AUTOSCALE_Y) != 0;
  for (const NumericControl* field : {&XMIN, &XMAX}) SetDimmed(*field, x);
  for (const NumericControl* field : {&YMIN, &YMAX}) SetDimmed(*field, y);
}

/// One axis of one window: the entered limits, or automatic ones.
void TakeAxis(const ToggleControl& automatic, const NumericControl& min, const NumericControl& max, int& flag,
              AxisRange& range) {
  const EnteredLimits limits = InOrder(GetCtrlVal(min), GetCtrlVal(max));
  flag = GetCtrlVal(automatic) != 0 || limits.automatic() ? 1 : 0;
  range = flag ? AxisRange{} : AxisRange{limits.min, limits.max};
}

}  // namespace

void AdjustScale(Panel panel, int window) {
  using namespace mscalepnl;
  panelsState.axisDialog = {panel, window};
  const int shown = ShownWindow(window);
  const GraphLimits limits = LimitsInForce(GraphOf(ControlsOfWindow(panel, shown).graph));
  const auto show = [](const TextControl& now, const NumericControl& field, double value) {
    SetCtrlVal(now, FormatText("%lg", value));
    SetCtrlVal(field, value);
  };
  show(CURXMIN, XMIN, limits.x.min);
  show(CURXMAX, XMAX, limits.x.max);
  show(CURYMIN, YMIN, limits.y.min);
  show(CURYMAX, YMAX, limits.y.max);
  SetCtrlVal(AUTOSCALE_X, DisplayOf(shown).autoScaleX);
  SetCtrlVal(AUTOSCALE_Y, DisplayOf(shown).autoScaleY);
  DimFields();
  DisplayPanel(Panel::MSCALEPNL);
}

int AdjustScaleCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const Panel page = panel == Panel::MEASPANEL ? panel : Panel::SASW;
  AdjustScale(page, SelectedWindow(page));
  return 0;
}

int AutoScaleCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) DimFields();
  return 0;
}

int ManualScaleCallback(Panel, ControlId, Event event, long) {
  using namespace mscalepnl;
  if (event != Event::Commit) return 0;
  const auto [panel, window] = panelsState.axisDialog;
  for (const int w : Windows(window)) {
    DisplayRecord& record = DisplayOf(w);
    TraceLimits& limits = record.limits[static_cast<std::size_t>(FamilyOf(TypeOf(panel, w)))];
    TakeAxis(AUTOSCALE_X, XMIN, XMAX, record.autoScaleX, limits.x);
    TakeAxis(AUTOSCALE_Y, YMIN, YMAX, record.autoScaleY, limits.y);
  }
  const int selected = SelectedWindow(panel);
  if (selected == window || ShownWindow(selected) == ShownWindow(window)) {
    const DisplayRecord& record = DisplayOf(ShownWindow(window));
    const bool masking = panel == Panel::SASW;
    SetCtrlVal(masking ? sasw::AUTOSCALE_X : measpanel::AUTOSCALE_X, record.autoScaleX);
    SetCtrlVal(masking ? sasw::AUTOSCALE_Y : measpanel::AUTOSCALE_Y, record.autoScaleY);
  }
  HidePanel(Panel::MSCALEPNL);
  DoPlotting(panel == Panel::SASW ? 1 : 0);
  return 0;
}

int ManualScaleCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::MSCALEPNL);
  return 0;
}

}  // namespace sondera
