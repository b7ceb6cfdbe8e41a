// waveform_plot.h - a computed record on graphs: one channel as the traces of a measurement are shown, and all
// receivers over their distance. Fills the graph models and changes nothing else.
#pragma once

#include <string>

#include "forward/waveform.h"
#include "records/kinds.h"
#include "records/session.h"
#include "runtime/graphs.h"

namespace sondera {

/// Contents of one graph.
struct WaveformView {
  const GraphControl& graph;
  DisplayType type = DisplayType::TimeTrace;
  std::string typeLabel = {};  ///< name of the display, for the y axis
  const WaveformResult& result;
  std::string motionUnit = {};  ///< "m/s"; replaces V in the units
  std::size_t channel = 0;      ///< from 0; displays of a pair are those of channel 0 and this one
  DisplayRecord& settings;      ///< units, ordinate and limits
};

/// Adds the curve and scales the axes. Phases, ratios and coherence have gaps where the record has no line; a
/// time-frequency map exists for measurements only; the graph then stays empty.
void PlotWaveform(const WaveformView& view);

/// All traces over time, each at the distance of its receiver, and scaled to the distance of its nearest
/// neighbour.
void PlotRecordSection(const GraphControl& graph, const WaveformRecord& record,
                       const std::string& lengthUnit);

}  // namespace sondera
