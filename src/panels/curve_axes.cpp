// curve_axes.cpp - see curve_axes.h. Owns no state.
#include "panels/curve_axes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/dsp_mscale.h"
#include "runtime/catalogue/exd_scale.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

struct AxisControls {
  const RingControl& type;
  const RingControl& linear;
  const ToggleControl& automatic;
  const NumericControl& min;
  const NumericControl& max;
};

/// One of the two dialogs: its controls, its record and its graph.
struct AxisDialog {
  Panel panel;
  AxisControls x, y;
  AxisRecord& record;
  const GraphControl& graph;
};

AxisDialog DialogOf(Panel panel) {
  if (panel == Panel::EXD_SCALE) {
    using namespace exd_scale;
    return {panel,
            {DSP_XTYPE, DSP_XLINEARLOG, DSP_XAUTO, DSP_XMIN, DSP_XMAX},
            {DSP_YTYPE, DSP_YLINEARLOG, DSP_YAUTO, DSP_YMIN, DSP_YMAX},
            session.exdAxis,
            exdthd::CURVES};
  }
  using namespace dsp_mscale;
  return {Panel::DSP_MSCALE,
          {DSP_XTYPE, DSP_XLINEARLOG, DSP_XAUTO, DSP_XMIN, DSP_XMAX},
          {DSP_YTYPE, DSP_YLINEARLOG, DSP_YAUTO, DSP_YMIN, DSP_YMAX},
          session.dispAxis,
          dispcurv::DISPGRAPH};
}

AxisRange& RangeOfQuantity(AxisRecord& record, int quantity) {
  return record.range[static_cast<std::size_t>(std::clamp(quantity, 0, 2))];
}

/// Fields of one axis for the quantity in its ring: the limits of the record; those of the graph if they
/// belong to this quantity and the record has none yet.
void ShowLimits(const AxisDialog& dialog, bool xAxis) {
  const AxisControls& axis = xAxis ? dialog.x : dialog.y;
  const int quantity = GetCtrlVal(axis.type);
  AxisRange range = RangeOfQuantity(dialog.record, quantity);
  const bool shown = quantity == (xAxis ? dialog.record.xType : dialog.record.yType);
  if (range.min == range.max && shown) {
    const GraphLimits limits = LimitsInForce(GraphOf(dialog.graph));
    range = xAxis ? AxisRange{limits.x.min, limits.x.max} : AxisRange{limits.y.min, limits.y.max};
  }
  SetCtrlVal(axis.min, range.min);
  SetCtrlVal(axis.max, range.max);
  const bool automatic = GetCtrlVal(axis.automatic) != 0;
  SetDimmed(axis.min, automatic);
  SetDimmed(axis.max, automatic);
}

void Open(Panel panel) {
  const AxisDialog dialog = DialogOf(panel);
  const AxisRecord& r = dialog.record;
  SetCtrlVal(dialog.x.type, r.xType);
  SetCtrlVal(dialog.x.linear, r.xLinear);
  SetCtrlVal(dialog.x.automatic, r.xAutoScale);
  SetCtrlVal(dialog.y.type, r.yType);
  SetCtrlVal(dialog.y.linear, r.yLinear);
  SetCtrlVal(dialog.y.automatic, r.yAutoScale);
  for (const bool xAxis : {true, false}) ShowLimits(dialog, xAxis);
  DisplayPanel(panel);
}

void TakeAxis(const AxisControls& axis, AxisRecord& record, int& type, int& linear, int& automatic) {
  type = GetCtrlVal(axis.type);
  linear = GetCtrlVal(axis.linear);
  const EnteredLimits limits = InOrder(GetCtrlVal(axis.min), GetCtrlVal(axis.max));
  automatic = GetCtrlVal(axis.automatic) != 0 || limits.automatic() ? 1 : 0;
  if (!automatic) RangeOfQuantity(record, type) = {limits.min, limits.max};
}

void Take(Panel panel) {
  const AxisDialog dialog = DialogOf(panel);
  AxisRecord& r = dialog.record;
  TakeAxis(dialog.x, r, r.xType, r.xLinear, r.xAutoScale);
  TakeAxis(dialog.y, r, r.yType, r.yLinear, r.yAutoScale);
  HidePanel(panel);
}

}  // namespace

EnteredLimits InOrder(double min, double max) {
  if (!std::isfinite(min) || !std::isfinite(max) || min == max) return {};
  return {std::min(min, max), std::max(min, max)};
}

void OpenDispersionAxes() {
  Open(Panel::DSP_MSCALE);
}
void OpenResultAxes() {
  Open(Panel::EXD_SCALE);
}

int DispCVAxisAttrMenuCallback(Panel, ControlId, Event, long) {
  OpenDispersionAxes();
  return 0;
}

int CurveAxisChoiceCallback(Panel panel, ControlId control, Event event, long) {
  if (event != Event::Commit) return 0;
  const AxisDialog dialog = DialogOf(panel);
  ShowLimits(dialog, control == &dialog.x.type || control == &dialog.x.automatic);
  return 0;
}

int DispCVManualScaleCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  Take(Panel::DSP_MSCALE);
  DispCurvPlot(1);
  return 0;
}

int EXDTHDManualScaleCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  Take(Panel::EXD_SCALE);
  ExdThdCurvPlot();
  return 0;
}

int DispCVManualScaleCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::DSP_MSCALE);
  return 0;
}

int EXDTHDManualScaleCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::EXD_SCALE);
  return 0;
}

}  // namespace sondera
