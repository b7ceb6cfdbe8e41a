// trace_windows.h - the controls of windows A and B on the two pages of traces, and the curve that the
// markers follow.
#pragma once

#include <vector>

#include "records/session.h"
#include "runtime/controls.h"
#include "runtime/graphs.h"

namespace sondera {

inline constexpr int kWindowA = 0, kWindowB = 1, kBothWindows = 2;

/// Controls of one window on one page.
struct WindowControls {
  const GraphControl& graph;
  const TextControl& marker1;
  const TextControl& marker2;
  const TextControl& deltaX;
  const RingControl& measID;
  const RingControl& refChannel;
  const RingControl& channel;
};

/// Window 0 or 1 of MEASPANEL; of any other panel that of SASW.
WindowControls ControlsOfWindow(Panel panel, int window);
/// Window numbers for 0, 1 or 2 (both).
std::vector<int> Windows(int window);
DisplayRecord& DisplayOf(int window);
const RingControl& MarkerCount(Panel panel);
/// 0xFF00FF for marker 1, 0xFF0000 for marker 2.
int MarkerColor(int marker);

/// Of the curves on a graph the one of the phase in DISPCURV_OPTION, found by its legend; else the first.
/// Null without a curve; valid until the graph changes.
const PlotModel* CurveInUse(const GraphControl& graph);

}  // namespace sondera
