// trace_plot.h - a trace of the measurement page or the masking page: curves of a measurement and pair over
// time or frequency. panels/trace_display.h selects them. Fills the graph model and changes nothing else.
#pragma once

#include <string>

#include "numeric/analysis.h"
#include "records/kinds.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/graphs.h"

namespace sondera {

/// PHASE_ORIGINAL, PHASE_ENHANCED, PHASE_BACKBONE: the curves of a pair to draw; with none of them, the one
/// in use.
struct TraceBoxes {
  int original = 0, enhanced = 0, backbone = 0;
};

/// Contents of one graph.
struct TraceView {
  const GraphControl& graph;
  DisplayType type = DisplayType::TimeTrace;
  std::string typeLabel = {};    ///< name of the display, for the y axis
  MeasRecords records = {};      ///< with setup and data
  int refChan = 0, dspChan = 0;  ///< from 0
  const PMeasInfo* pair = nullptr;
  TraceBoxes boxes = {};
  bool autoScaleX = true, autoScaleY = true;
  TraceLimits* limits =
      nullptr;  ///< of the display's family: used where an axis is not automatic, and kept current
  VoltUnit unit = VoltUnit::Vrms;  ///< of displays of volts
  bool logarithmic = false;        ///< ordinate, for displays that allow it
};

/// Adds the curves to the graph, by the display's type: arrays of the pair's record, or a quantity of the
/// averages; then scales the axes. A Gabor map is not among them (gabor_plot.h).
void PlotTrace(const TraceView& view);

/// Ranges of both axes: rounded ranges of the graph's contents where an axis is automatic or has equal
/// limits, else the limits of the view. The lowest bins of a spectrum do not count; ordinates that are all
/// the same get 1 on each side; without a finite one the range stays. Names the axes.
void ScaleTraceAxes(const TraceView& view);

}  // namespace sondera
