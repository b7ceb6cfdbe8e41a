// sasw_masking.cpp - see sasw_masking.h. The switches and marker counts are in the display records of the
// session. Odd on purpose: the two frequency fields find their point on the curve in different ways (see
// there).
#include "panels/sasw_masking.h"

#include <algorithm>
#include <array>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "panels/sasw_mask_list.h"
#include "panels/trace_selection.h"
#include "panels/trace_windows.h"
#include "panels/undo.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kTwoMarkers = 2;
constexpr int kMaskColor = 0xFFFF;
constexpr double kHalfCircle = 180.0;  // degrees

/// Step of a curve's abscissas; 0 for a curve of fewer than two points.
double StepOf(const PlotModel& curve) {
  return curve.x.size() < 2 ? 0.0 : curve.x[1] - curve.x[0];
}

void MoveMarker(const GraphControl& graph, int marker, double freq, const PlotModel& ordinates, int index) {
  if (index < 0 || index >= static_cast<int>(ordinates.y.size())) return;
  SetGraphCursor(graph, marker, freq, ordinates.y[static_cast<std::size_t>(index)]);
}

/// Puts a marker on the point of the curve in use at the line of a frequency.
void PutMarkerOnLine(const GraphControl& graph, int marker, double freq) {
  const PlotModel* curve = CurveInUse(graph);
  if (!curve) {
    SetGraphCursor(graph, marker, freq, 0.0);
    return;
  }
  const double step = StepOf(*curve);
  const int count = static_cast<int>(std::min(curve->x.size(), curve->y.size()));
  if (step == 0.0 || count == 0) return;
  const int index = std::clamp(TruncToInt((freq - curve->x.front()) / step), 0, count - 1);
  PutCursorOnPlot(graph, marker, curve->handle, index);
}

void ClearMaskingFields() {
  SetCtrlVal(sasw::MASKING_FREQINIT, 0.0);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 0.0);
  SetCtrlVal(sasw::MASKING_JUMPNO, 0);
}

bool IsPicked(const MaskingInfo& mask) {
  const PickedMask& picked = session.selMask;
  return mask.key == picked.key && mask.refChan == picked.refChan && mask.dspChan == picked.dspChan &&
         mask.freqInit == picked.freqInit && mask.freqFinal == picked.freqFinal;
}

/// Measurement key and channels of a window; key -1 for none.
CurrentPair ShownPair(const WindowControls& window) {
  CurrentPair shown;
  const int index = GetCtrlIndex(window.measID);
  if (index < 0 || GetCtrlIndex(window.refChannel) < 0 || GetCtrlIndex(window.channel) < 0) return shown;
  shown.key = GetKeyFromID(session.curProjID, GetLabelFromIndex(window.measID, index));
  shown.refChan = GetCtrlVal(window.refChannel);
  shown.dspChan = GetCtrlVal(window.channel);
  return shown;
}

}  // namespace

int SelectedWindow(Panel panel) {
  return GetCtrlVal(panel == Panel::MEASPANEL ? measpanel::TRACE_ONOFF : sasw::TRACE_ONOFF);
}

bool RefuseWindowB(Panel panel) {
  if (SelectedWindow(panel) != kWindowB) return false;
  MessagePopup(session.appTitle, "Masking is enabled only on Window A.");
  return true;
}

// --- buttons ---

int MaskingNewCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const UndoStep step("New mask");
  const int window = SelectedWindow(panel);  // read before the selection is set to one window
  const double freqInit = GetCtrlVal(sasw::MASKING_FREQINIT);
  const double freqFinal = GetCtrlVal(sasw::MASKING_FREQFINAL);
  const int jumpNo = GetCtrlVal(sasw::MASKING_JUMPNO);
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (NewMask(current.refChan, current.dspChan, jumpNo, freqInit, freqFinal) != 0) return -1;
  ClearMaskingFields();
  TurnOffMarkers(panel, window);
  DoPlotting(kMaskingPage);
  return 0;
}

int MaskingUpdateCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const UndoStep step("Update of a mask");
  const int window = SelectedWindow(panel);
  if (CheckCurMaskingState() != 0 || UpdateMask() != 0) return -1;
  TurnOffMarkers(panel, window);
  DoPlotting(kMaskingPage);
  return 0;
}

int MaskingDeleteCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const UndoStep step("Delete of a mask");
  if (DeleteMask() != 0) return -1;
  DoPlotting(kMaskingPage);
  return 0;
}

int MaskingResetCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const UndoStep step("Reset of masks");
  const int window = SelectedWindow(panel);
  DeleteAllMaskInChannelCombination();
  TurnOffMarkers(panel, window);
  DoPlotting(kMaskingPage);
  return 0;
}

int MaskingListCallback(Panel panel, ControlId, Event event, long) {
  return event == Event::Commit && RefuseWindowB(panel) ? -1 : 0;
}

int MaskingOnOffCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int window = SelectedWindow(panel);
  if (!FindCurrentPair(Panel::SASW).pair) return -1;
  for (int w : Windows(window)) DisplayOf(w).maskingOn = 1;
  DoPlotting(panel == Panel::MEASPANEL ? 0 : 1);
  return 0;
}

// --- fields ---

int MaskFreqInitCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int window = SelectedWindow(panel);
  if (window == kWindowB || GetCtrlVal(MarkerCount(panel)) != kTwoMarkers) return 0;
  const double freq = GetCtrlVal(sasw::MASKING_FREQINIT);
  for (int w : Windows(window)) {
    const GraphControl& graph = ControlsOfWindow(panel, w).graph;
    const PlotModel* curve = CurveInUse(graph);
    if (!curve || StepOf(*curve) == 0.0) continue;
    // Kept: whole hertz above the first abscissa, so the ordinate may be that of a slightly lower line.
    MoveMarker(graph, 1, freq, *curve, TruncToInt(TruncToInt(freq - curve->x[0]) / StepOf(*curve)));
  }
  return 0;
}

int MaskFreqFinalCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const int window = SelectedWindow(panel);
  if (window == kWindowB) return 0;
  const double freq = CutFinalFrequency(FindCurrentPair(Panel::SASW), GetCtrlVal(sasw::MASKING_FREQFINAL));
  if (GetCtrlVal(MarkerCount(panel)) != kTwoMarkers) return 0;
  // Kept: no origin here, and with both windows selected the step of A is used with the ordinates of B.
  const PlotModel* curve = CurveInUse(ControlsOfWindow(panel, kWindowA).graph);
  const PlotModel* ordinates =
      window == kBothWindows ? CurveInUse(ControlsOfWindow(panel, kWindowB).graph) : curve;
  if (!curve || !ordinates || StepOf(*curve) == 0.0) return 0;
  const int index = TruncToInt(TruncToInt(freq) / StepOf(*curve));
  for (int w : Windows(window)) MoveMarker(ControlsOfWindow(panel, w).graph, 2, freq, *ordinates, index);
  return 0;
}

int MaskJumpNoCallback(Panel, ControlId, Event, long) {
  return 0;
}

// --- markers and drawing ---

int PickMaskOnGraph(double freq) {
  const int window = SelectedWindow(Panel::SASW);
  const int found = PickUpMasking(freq);
  if (found != 0) return found;
  const PickedMask& picked = session.selMask;
  SetCtrlVal(sasw::MASKING_FREQINIT, picked.freqInit);
  SetCtrlVal(sasw::MASKING_FREQFINAL, picked.freqFinal);
  SetCtrlVal(sasw::MASKING_JUMPNO, picked.jumpNo);
  TurnOnDualMarkers(window);
  for (int w : Windows(window)) {
    const GraphControl& graph = ControlsOfWindow(Panel::SASW, w).graph;
    PutMarkerOnLine(graph, 1, picked.freqInit);
    PutMarkerOnLine(graph, 2, picked.freqFinal);
  }
  return 0;
}

void TurnOnDualMarkers(int window) {
  for (int w : Windows(window)) {
    SetDualMarkers(ControlsOfWindow(Panel::SASW, w).graph);
    DisplayOf(w).markersOnOff = kTwoMarkers;
  }
  SetCtrlVal(sasw::MARKERS_ONOFF, kTwoMarkers);
}

void SetDualMarkers(const GraphControl& graph) {
  SetCursorCount(graph, kTwoMarkers);
  for (const int marker : {1, 2}) SetCursorColor(graph, marker, MarkerColor(marker));
}

void TurnOffMarkers(Panel panel, int window) {
  for (int w : Windows(window)) {
    const WindowControls controls = ControlsOfWindow(panel, w);
    SetCursorCount(controls.graph, 0);
    for (const TextControl* readOut : {&controls.marker1, &controls.marker2, &controls.deltaX})
      SetCtrlVal(*readOut, "");
    DisplayOf(w).markersOnOff = 0;
  }
  SetCtrlVal(MarkerCount(panel), 0);
  ClearMaskingFields();
}

int DoPlotMasking(const GraphControl& graph) {
  for (int w : {kWindowA, kWindowB}) {
    const WindowControls controls = ControlsOfWindow(graph.panel, w);
    if (&controls.graph != &graph) continue;
    if (!DisplayOf(w).maskingOn) return 0;
    const CurrentPair shown = ShownPair(controls);
    int drawn = 0;
    for (const MaskingInfo& mask : MeasDB.maskingList) {
      if (mask.key != shown.key || mask.refChan != shown.refChan || mask.dspChan != shown.dspChan) continue;
      PlotRectangle(graph, mask.freqInit, kHalfCircle, mask.freqFinal, -kHalfCircle, kMaskColor, kMaskColor,
                    std::to_string(mask.jumpNo), IsPicked(mask));
      ++drawn;
    }
    return drawn;
  }
  return 0;
}

}  // namespace sondera
