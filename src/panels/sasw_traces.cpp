// sasw_traces.cpp - see sasw_traces.h. The selection at focus in is in panels_state.h.
#include "panels/sasw_traces.h"

#include <string>

#include "acquisition/acquisition_state.h"
#include "panels/irfsetpnl.h"
#include "panels/panels_state.h"
#include "panels/trace_display.h"
#include "panels/trace_selection.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

int PageOf(Panel panel) {
  return panel == Panel::SASW ? 1 : 0;
}

/// Common steps of all selection callbacks.
int SelectOnTrace(Panel panel, ControlId control, Event event) {
  std::map<ControlId, int>& indexAtFocus = panelsState.indexAtFocus;
  if (event == Event::GotFocus) indexAtFocus[control] = items::Index(*control);
  if (event != Event::Commit) return 0;
  TraceIDSetup(panel);
  int result = DoPlotting(PageOf(panel));
  if (result == -1) {
    const auto former = indexAtFocus.find(control);
    if (former != indexAtFocus.end()) items::SetIndex(*control, former->second);
  }
  indexAtFocus[control] = items::Index(*control);
  if (!measRun.measRunning) CalcIRFCallback(panel, control, Event::Commit, kKeepIRFPanelHidden);
  return result;
}

/// The same for the type of the display, which may need a map that does not exist.
int SelectType(Panel panel, ControlId control, Event event, Trace trace) {
  // Checked first: the next steps may create the record of the pair.
  const std::string why = event == Event::Commit ? WhyNoMap(panel, trace) : std::string();
  const int result = SelectOnTrace(panel, control, event);
  if (!why.empty() && !measRun.measRunning) Refuse(why);  // a box would delay the next record
  return result;
}

void StoreSettings(Panel panel) {
  const bool masking = panel == Panel::SASW;
  const int which = masking ? GetCtrlVal(sasw::TRACE_ONOFF) : GetCtrlVal(measpanel::TRACE_ONOFF);
  for (int trace = 0; trace < 2; ++trace) {
    if (which != 2 && which != trace) continue;
    DisplayRecord& r = session.display[static_cast<std::size_t>(trace)];
    r.voltUnit = masking ? GetCtrlVal(sasw::VOLT_UNIT) : GetCtrlVal(measpanel::VOLT_UNIT);
    r.logLinear = masking ? GetCtrlVal(sasw::LOG_LINEAR) : GetCtrlVal(measpanel::LOG_LINEAR);
    r.markersOnOff = masking ? GetCtrlVal(sasw::MARKERS_ONOFF) : GetCtrlVal(measpanel::MARKERS_ONOFF);
    r.autoScaleX = masking ? GetCtrlVal(sasw::AUTOSCALE_X) : GetCtrlVal(measpanel::AUTOSCALE_X);
    r.autoScaleY = masking ? GetCtrlVal(sasw::AUTOSCALE_Y) : GetCtrlVal(measpanel::AUTOSCALE_Y);
  }
}

}  // namespace

int DisplayAChanlCallback(Panel p, ControlId c, Event e, long) {
  return SelectOnTrace(p, c, e);
}
int DisplayBChanlCallback(Panel p, ControlId c, Event e, long) {
  return SelectOnTrace(p, c, e);
}
int UpdateARefChannelCallback(Panel p, ControlId c, Event e, long) {
  return SelectOnTrace(p, c, e);
}
int UpdateBRefChannelCallback(Panel p, ControlId c, Event e, long) {
  return SelectOnTrace(p, c, e);
}
int DisplayATypeCallback(Panel p, ControlId c, Event e, long) {
  return SelectType(p, c, e, Trace::A);
}
int DisplayBTypeCallback(Panel p, ControlId c, Event e, long) {
  return SelectType(p, c, e, Trace::B);
}
int DisplayAMeasIDCallback(Panel p, ControlId c, Event e, long) {
  return SelectOnTrace(p, c, e);
}
int DisplayBMeasIDCallback(Panel p, ControlId c, Event e, long) {
  return SelectOnTrace(p, c, e);
}

int TraceOnOffCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  TraceIDSetup(panel);
  return DoPlotting(PageOf(panel));
}

int TraceSettingCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  StoreSettings(panel);
  return DoPlotting(PageOf(panel));
}

int RedrawGraphCallback(Panel panel, ControlId, Event event, long) {
  return event == Event::Commit ? DoPlotting(PageOf(panel)) : 0;
}

}  // namespace sondera
