// trace_windows.cpp - see trace_windows.h. Owns no state.
#include "panels/trace_windows.h"

#include <algorithm>

#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"

namespace sondera {

WindowControls ControlsOfWindow(Panel panel, int window) {
  const bool a = window == kWindowA;
  if (panel == Panel::MEASPANEL) {
    using namespace measpanel;
    return a ? WindowControls{DISPLAY_A, DISPAMARKER1COORD, DISPAMARKER2COORD, DISPADELTAX,
                              DISPAID,   DISPA_REFCHNL,     DISPACHNL}
             : WindowControls{DISPLAY_B, DISPBMARKER1COORD, DISPBMARKER2COORD, DISPBDELTAX,
                              DISPBID,   DISPB_REFCHNL,     DISPBCHNL};
  }
  using namespace sasw;
  return a ? WindowControls{DISPLAY_A, DISPAMARKER1COORD, DISPAMARKER2COORD, DISPADELTAX,
                            DISPAID,   DISPA_REFCHNL,     DISPACHNL}
           : WindowControls{DISPLAY_B, DISPBMARKER1COORD, DISPBMARKER2COORD, DISPBDELTAX,
                            DISPBID,   DISPB_REFCHNL,     DISPBCHNL};
}

std::vector<int> Windows(int window) {
  if (window == kBothWindows) return {kWindowA, kWindowB};
  return {window == kWindowB ? kWindowB : kWindowA};
}

DisplayRecord& DisplayOf(int window) {
  return session.display[static_cast<std::size_t>(window)];
}

const RingControl& MarkerCount(Panel panel) {
  return panel == Panel::MEASPANEL ? measpanel::MARKERS_ONOFF : sasw::MARKERS_ONOFF;
}

int MarkerColor(int marker) {
  return marker == 1 ? 0xFF00FF : 0xFF0000;
}

const PlotModel* CurveInUse(const GraphControl& graph) {
  const auto& plots = GraphOf(graph).plots;
  if (plots.empty()) return nullptr;
  const std::string wanted = GetLabelFromIndex(sasw::DISPCURV_OPTION, GetCtrlIndex(sasw::DISPCURV_OPTION));
  const auto found =
      std::find_if(plots.begin(), plots.end(), [&](const PlotModel& p) { return p.legend == wanted; });
  return found == plots.end() ? &plots.front() : &*found;
}

}  // namespace sondera
