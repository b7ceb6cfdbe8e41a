// trace_plot.cpp - fills the graph models of the two traces. Owns no state.
#include "plot/trace_plot.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "numeric/scale_arithmetic.h"
#include "panels/sasw_masking.h"
#include "panels/sasw_pair.h"
#include "plot/gabor_plot.h"
#include "records/measdb.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr int kColorOriginal = 0x0000FF, kColorEnhanced = 0xFF0000, kColorBackbone = 0x00A000;
constexpr int kMaskingPage = 1;
constexpr std::size_t kLowBins = 9;  // of a trace of more than ten points: they do not set the scale

struct GraphOfTrace {
  Panel panel;
  Trace trace;
  const GraphControl& graph;
  const RingControl& id;
  const RingControl& refChannel;
  const RingControl& channel;
  const RingControl& type;
};

GraphOfTrace GraphFor(int page, Trace trace) {
  const bool a = trace == Trace::A;
  if (page == kMaskingPage) {
    using namespace sasw;
    return a ? GraphOfTrace{Panel::SASW, trace, DISPLAY_A, DISPAID, DISPA_REFCHNL, DISPACHNL, DISPATYPE}
             : GraphOfTrace{Panel::SASW, trace, DISPLAY_B, DISPBID, DISPB_REFCHNL, DISPBCHNL, DISPBTYPE};
  }
  using namespace measpanel;
  return a ? GraphOfTrace{Panel::MEASPANEL, trace, DISPLAY_A, DISPAID, DISPA_REFCHNL, DISPACHNL, DISPATYPE}
           : GraphOfTrace{Panel::MEASPANEL, trace, DISPLAY_B, DISPBID, DISPB_REFCHNL, DISPBCHNL, DISPBTYPE};
}

bool IsPairType(DisplayType type) {
  return type == DisplayType::TransferPhase || type == DisplayType::TransferAmplitude ||
         type == DisplayType::ImpulseResponse;
}
bool IsPhaseType(DisplayType type) {
  return type == DisplayType::LinearPhase || type == DisplayType::TransferPhase ||
         type == DisplayType::CrossPhase;
}
bool IsTimeType(DisplayType type) {
  return type == DisplayType::TimeTrace || type == DisplayType::ImpulseResponse;
}

/// What one graph shows: measurement, pair, records.
struct Shown {
  int key = -1, refChan = 0, dspChan = 0;
  MeasRecords records;
  PMeasInfo* pair = nullptr;
};

bool FindShown(const GraphOfTrace& g, Shown& shown) {
  const std::string measID = GetLabelFromIndex(g.id, GetCtrlIndex(g.id));
  if (measID.empty() || GetCtrlIndex(g.refChannel) < 0 || GetCtrlIndex(g.channel) < 0) return false;
  shown.key = GetKeyFromID(session.curProjID, measID);
  shown.refChan = GetCtrlVal(g.refChannel);
  shown.dspChan = GetCtrlVal(g.channel);
  if (GetInfoFromKey(shown.key, shown.records) == -1) return false;
  const MeasRecords& r = shown.records;
  if (r.hwPos < 0 || r.rawPos < 0 || r.measPos < 0) return false;
  const int channels = r.hwSetup->nChannels;
  if (shown.refChan >= channels || shown.dspChan >= channels) return false;
  shown.pair = FindPair(shown.key, shown.refChan, shown.dspChan);
  return true;
}

/// The record of the pair, made when missing, else refreshed from the averages.
void BringPairUpToDate(Shown& shown) {
  const MeasRecords& r = shown.records;
  if (!shown.pair)
    SetupPMeasDataNode(r.projID, r.measID, shown.refChan, shown.dspChan, *r.hwSetup, shown.pair);
  else
    UpdatePMeasDataNode(r.projID, r.measID, shown.refChan, shown.dspChan, *r.hwSetup, shown.pair);
}

/// n abscissas; times count from the trigger, whose sample is a share of the whole record.
std::vector<double> Abscissas(const HWSetup& hw, bool time, int n) {
  const double step = time ? hw.deltaT : hw.deltaF;
  const double origin =
      time ? std::trunc(2.0 * FullTimeLines(hw.nLines) * hw.triggerDelay / 100.0 + 0.5) : 0.0;
  std::vector<double> x(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) x[static_cast<std::size_t>(i)] = (i - origin) * step;
  return x;
}

void AddTrace(const GraphOfTrace& g, const std::vector<double>& x, const std::vector<double>& y, int color,
              const char* legend) {
  const auto n = static_cast<std::ptrdiff_t>(std::min(x.size(), y.size()));
  PlotXY(g.graph, {x.begin(), x.begin() + n}, {y.begin(), y.begin() + n}, PlotStyle::Line, 0, color, legend);
}

/// Displays of a pair: the curves whose box is on; with none on, the one in use.
void PlotPairTraces(const GraphOfTrace& g, const Shown& shown, DisplayType type) {
  const PMeasInfo& p = *shown.pair;
  const HWSetup& hw = *shown.records.hwSetup;
  struct Choice {
    int box;
    const std::vector<double>*phase, *amplitude, *impulse;
    int color;
    const char* legend;
  };
  const Choice choices[] = {
      {GetCtrlVal(sasw::PHASE_ORIGINAL), &p.hPhase, &p.hAmp, &p.irRe, kColorOriginal, "Original"},
      {GetCtrlVal(sasw::PHASE_ENHANCED), &p.enPhase, &p.enAmp, &p.enIrRe, kColorEnhanced, "Enhanced"},
      {GetCtrlVal(sasw::PHASE_BACKBONE), &p.bbPhase, &p.bbAmp, &p.bbIrRe, kColorBackbone, "Backbone"},
  };
  const bool none = !choices[0].box && !choices[1].box && !choices[2].box;
  const bool time = type == DisplayType::ImpulseResponse;
  const std::vector<double> x = Abscissas(hw, time, time ? 2 * hw.nLines : hw.nLines);
  for (int k = 0; k < 3; ++k) {
    const Choice& choice = choices[k];
    if (!choice.box && !(none && k == std::clamp(p.phaseOption, 0, 2))) continue;
    const std::vector<double>* y = type == DisplayType::TransferPhase       ? choice.phase
                                   : type == DisplayType::TransferAmplitude ? choice.amplitude
                                                                            : choice.impulse;
    AddTrace(g, x, *y, choice.color, choice.legend);
  }
}

void PlotChannelTrace(const GraphOfTrace& g, const Shown& shown, DisplayType type) {
  const HWSetup& hw = *shown.records.hwSetup;
  const int n = IsTimeType(type) ? 2 * hw.nLines : hw.nLines;
  std::vector<double> y(2 * static_cast<std::size_t>(hw.nLines)), unused(y.size());
  if (CalcSpectralData(static_cast<int>(type), shown.records.projID, shown.records.measID, shown.refChan,
                       shown.dspChan, y.data(), unused.data()) < 0)
    return;
  AddTrace(g, Abscissas(hw, IsTimeType(type), n), y, kColorOriginal, "");
}

/// Range of the curves on a graph, rounded for its axes.
void ScaleAxes(const GraphOfTrace& g, DisplayType type) {
  GraphModel& model = GraphOf(g.graph);
  const DisplayRecord& record = session.display[static_cast<std::size_t>(g.trace)];
  double lo = INFINITY, hi = -INFINITY;
  for (const PlotModel& plot : model.plots) {
    for (std::size_t i = plot.y.size() > 10 ? kLowBins : 0; i < plot.y.size(); ++i) {
      if (!std::isfinite(plot.y[i])) continue;
      lo = std::min(lo, plot.y[i]);
      hi = std::max(hi, plot.y[i]);
    }
  }
  if (!model.plots.empty() && !model.plots.front().x.empty() && record.autoScaleX) {
    const std::vector<double>& x = model.plots.front().x;
    SetAxisRange(g.graph, true, NiceNumber(x.front(), 3), NiceNumber(x.back(), 3));
  }
  if (lo <= hi && record.autoScaleY) {
    double niceLo = lo, niceHi = hi;
    if (hi > lo) CalcNiceMinMax(lo, hi, 0, &niceLo, &niceHi);
    SetAxisRange(g.graph, false, niceLo, niceHi);
  }
  model.xAxis.label = IsTimeType(type) ? "Time, sec" : "Frequency, Hz";
  model.yAxis.label =
      IsPhaseType(type) ? "Phase, degrees" : GetLabelFromIndex(g.type, static_cast<int>(type));
}

int DrawTrace(int page, Trace trace) {
  const GraphOfTrace g = GraphFor(page, trace);
  DeleteGraphPlot(g.graph);
  Shown shown;
  if (!FindShown(g, shown)) return -1;
  const auto type = static_cast<DisplayType>(GetCtrlVal(g.type));

  DisplayRecord& record = session.display[static_cast<std::size_t>(trace)];
  record.key = shown.key;
  record.refChan = shown.refChan;
  record.dspChan = shown.dspChan;
  record.type = static_cast<int>(type);
  record.measID = shown.records.measID;

  if (IsPhaseType(type)) BringBandLimitsUpToDate(*shown.records.hwSetup);
  if (IsPairType(type)) {
    BringPairUpToDate(shown);
    if (!shown.pair) return -1;
    PlotPairTraces(g, shown, type);
  } else if (type == DisplayType::Gabor) {
    if (page == kMaskingPage) return PlotGaborMap(g.graph, shown.pair);
    PlotNoGaborMap(g.graph, *shown.records.hwSetup);
  } else {
    PlotChannelTrace(g, shown, type);
  }
  ScaleAxes(g, type);
  if (!IsTimeType(type)) DoPlotMasking(g.graph);
  return 0;
}

}  // namespace

int DrawTraces(int page) {
  const int a = DrawTrace(page, Trace::A);
  const int b = DrawTrace(page, Trace::B);
  return a < 0 ? a : b;
}

void DrawPreview() {
  for (Trace trace : {Trace::A, Trace::B}) {
    const GraphOfTrace g = GraphFor(0, trace);
    DeleteGraphPlot(g.graph);
    Shown shown;
    if (!FindShown(g, shown)) continue;
    shown.dspChan = std::min(static_cast<int>(trace), shown.records.hwSetup->nChannels - 1);
    PlotChannelTrace(g, shown, DisplayType::TimeTrace);
    ScaleAxes(g, DisplayType::TimeTrace);
  }
}

}  // namespace sondera
