// pulse_display.cpp - see pulse_display.h. Owns no state.
#include "panels/pulse_display.h"

#include <algorithm>
#include <cstddef>

#include "forward/waveform_text.h"
#include "panels/panels_state.h"
#include "panels/trace_windows.h"
#include "plot/waveform_plot.h"
#include "records/kinds.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/graphs.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using namespace pulse;

struct Window {
  const GraphControl& graph;
  const RingControl& channel;
  const RingControl& type;
};

Window WindowOf(int window) {
  return window == kWindowA ? Window{DISPLAY_A, DISPACHNL, DISPATYPE}
                            : Window{DISPLAY_B, DISPBCHNL, DISPBTYPE};
}

DisplayRecord& SettingsOf(int window) {
  return panelsState.waveform.display[static_cast<std::size_t>(window)];
}

/// Markers on the first curve, where they were; new ones at equal parts of it.
void PutMarkers(const GraphControl& graph, int count) {
  const int before = static_cast<int>(GraphOf(graph).cursors.size());
  SetCursorCount(graph, count);
  if (count == 0 || GraphOf(graph).plots.empty()) return;
  const PlotModel& plot = GraphOf(graph).plots.front();
  const int handle = plot.handle, points = static_cast<int>(plot.x.size());
  for (int c = before + 1; c <= count; ++c) PutCursorOnPlot(graph, c, handle, points * c / (count + 1));
  for (int c = 1; c <= count; ++c) SetCursorColor(graph, c, MarkerColor(c));
  RenewCursors(graph, handle);
}

void DrawWindow(int window) {
  const WaveformState& w = panelsState.waveform;
  const Window shown = WindowOf(window);
  DeleteGraphPlot(shown.graph);
  SetGraphTitle(shown.graph, "");
  const int channel = GetCtrlIndex(shown.channel);
  if (!w.made || channel < 0 || static_cast<std::size_t>(channel) >= w.result.record.trace.size()) {
    SetCursorCount(shown.graph, 0);
    return;
  }
  const auto type = static_cast<DisplayType>(GetCtrlVal(shown.type));
  const std::string label = GetLabelFromIndex(shown.type, GetCtrlIndex(shown.type));
  const std::string length = LengthUnitText(session.lengthUnit);
  PlotWaveform({shown.graph, type, label, w.result, MotionUnitText(w.setup.motion, length),
                static_cast<std::size_t>(channel), SettingsOf(window)});
  const double at = w.result.record.receivers[static_cast<std::size_t>(channel)];
  SetGraphTitle(shown.graph,
                type == DisplayType::GaborSpectrum
                    ? label + ": of measurements only"
                    : FormatText("Receiver %d, %g %s: ", channel + 1, at, length.c_str()) + label);
  PutMarkers(shown.graph, SettingsOf(window).markersOnOff);
}

}  // namespace

void DrawWaveform() {
  for (const int window : {kWindowA, kWindowB}) DrawWindow(window);
  DeleteGraphPlot(SECTION);
  SetGraphTitle(SECTION, "");
  if (panelsState.waveform.made)
    PlotRecordSection(SECTION, panelsState.waveform.result.record, LengthUnitText(session.lengthUnit));
}

void ShowNewWaveform() {
  const std::size_t receivers =
      panelsState.waveform.made ? panelsState.waveform.result.record.trace.size() : 0;
  for (const int window : {kWindowA, kWindowB}) {
    const RingControl& ring = WindowOf(window).channel;
    const int before = std::max(GetCtrlIndex(ring), window);
    ClearListCtrl(ring);
    for (std::size_t r = 0; r < receivers; ++r)
      InsertListItem(ring, -1, FormatText("%3zu", r + 1), static_cast<double>(r));
    if (receivers > 0) SetCtrlIndex(ring, std::min(before, static_cast<int>(receivers) - 1));
  }
  DrawWaveform();
}

int Pulse_DisplayCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) DrawWaveform();
  return 0;
}

int Pulse_TraceSettingCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  for (const int window : Windows(GetCtrlVal(TRACE_ONOFF))) {
    DisplayRecord& r = SettingsOf(window);
    r.voltUnit = GetCtrlVal(VOLT_UNIT);
    r.logLinear = GetCtrlVal(LOG_LINEAR);
    r.markersOnOff = GetCtrlVal(MARKERS_ONOFF);
    r.autoScaleX = GetCtrlVal(AUTOSCALE_X);
    r.autoScaleY = GetCtrlVal(AUTOSCALE_Y);
  }
  DrawWaveform();
  return 0;
}

int Pulse_TraceOnOffCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const DisplayRecord& r = SettingsOf(Windows(GetCtrlVal(TRACE_ONOFF)).front());
  SetCtrlVal(VOLT_UNIT, r.voltUnit);
  SetCtrlVal(LOG_LINEAR, r.logLinear);
  SetCtrlVal(MARKERS_ONOFF, r.markersOnOff);
  SetCtrlVal(AUTOSCALE_X, r.autoScaleX);
  SetCtrlVal(AUTOSCALE_Y, r.autoScaleY);
  return 0;
}

}  // namespace sondera
