// trace_display.cpp - see trace_display.h. Owns no state.
#include "panels/trace_display.h"

#include <algorithm>

#include "panels/sasw_masking.h"
#include "panels/sasw_pair.h"
#include "plot/disp_curv_plot.h"
#include "plot/gabor_plot.h"
#include "plot/trace_plot.h"
#include "records/curve_labels.h"
#include "records/kinds.h"
#include "records/measdb.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

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

/// Contents of one graph: measurement, pair, records.
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

/// The record of the pair, created when missing, else updated from the averages.
void BringPairUpToDate(Shown& shown) {
  const MeasRecords& r = shown.records;
  if (!shown.pair)
    SetupPMeasDataNode(r.projID, r.measID, shown.refChan, shown.dspChan, *r.hwSetup, shown.pair);
  else
    UpdatePMeasDataNode(r.projID, r.measID, shown.refChan, shown.dspChan, *r.hwSetup, shown.pair);
}

TraceView ViewOf(const GraphOfTrace& g, const Shown& shown, DisplayType type) {
  TraceView view{g.graph, type, GetLabelFromIndex(g.type, static_cast<int>(type)), shown.records};
  view.refChan = shown.refChan;
  view.dspChan = shown.dspChan;
  view.pair = shown.pair;
  view.boxes = {GetCtrlVal(sasw::PHASE_ORIGINAL), GetCtrlVal(sasw::PHASE_ENHANCED),
                GetCtrlVal(sasw::PHASE_BACKBONE)};
  DisplayRecord& record = session.display[static_cast<std::size_t>(g.trace)];
  view.autoScaleX = record.autoScaleX != 0;
  view.autoScaleY = record.autoScaleY != 0;
  view.limits = &record.limits[static_cast<std::size_t>(FamilyOf(type))];
  view.unit = static_cast<VoltUnit>(std::clamp(record.voltUnit, 0, static_cast<int>(VoltUnit::Vpk2)));
  view.logarithmic = record.logLinear != 0;
  return view;
}

/// The display "Gabor Spectrum": the map of the pair on the masking page, else zeros. -2 without a pair with
/// a map.
int DrawGaborMap(int page, const GraphOfTrace& g, const Shown& shown) {
  if (page == kMaskingPage && shown.pair) {
    PlotGaborMap(g.graph, *shown.pair);
    return 0;
  }
  PlotNoGaborMap(g.graph, *shown.records.hwSetup);
  ScaleTraceAxes(ViewOf(g, shown, DisplayType::GaborSpectrum));
  return page == kMaskingPage ? -2 : 0;
}

/// "site[1:2] Freq Resp (Phase)" for a pair, "site[2] Time Trace" for a channel; channels from 1.
std::string TitleOf(const GraphOfTrace& g, const Shown& shown, DisplayType type) {
  const std::string what = GetLabelFromIndex(g.type, GetCtrlIndex(g.type));
  const bool ofChannel = type == DisplayType::TimeTrace || type == DisplayType::LinearPhase ||
                         type == DisplayType::LinearAmplitude || type == DisplayType::PowerSpectrum;
  const char* measID = shown.records.measID.c_str();
  return ofChannel ? FormatText("%s[%d] %s", measID, shown.dspChan + 1, what.c_str())
                   : FormatText("%s[%d:%d] %s", measID, shown.refChan + 1, shown.dspChan + 1, what.c_str());
}

void RecordDisplay(const Shown& shown, Trace trace, DisplayType type) {
  DisplayRecord& record = session.display[static_cast<std::size_t>(trace)];
  record.key = shown.key;
  record.refChan = shown.refChan;
  record.dspChan = shown.dspChan;
  record.type = static_cast<int>(type);
  record.measID = shown.records.measID;
}

int DrawTrace(int page, Trace trace) {
  const GraphOfTrace g = GraphFor(page, trace);
  DeleteGraphPlot(g.graph);
  SetGraphTitle(g.graph, "");
  Shown shown;
  if (!FindShown(g, shown)) return -1;
  const auto type = static_cast<DisplayType>(GetCtrlVal(g.type));
  RecordDisplay(shown, trace, type);
  SetGraphTitle(g.graph, TitleOf(g, shown, type));

  if (IsOfPhase(type)) BringBandLimitsUpToDate(*shown.records.hwSetup);
  if (IsOfPair(type)) {
    BringPairUpToDate(shown);
    if (!shown.pair) return -1;
  }
  if (type == DisplayType::GaborSpectrum) return DrawGaborMap(page, g, shown);
  PlotTrace(ViewOf(g, shown, type));
  if (!IsOverTime(type)) DoPlotMasking(g.graph);
  return 0;
}

}  // namespace

int DrawTraces(int page) {
  const int a = DrawTrace(page, Trace::A);
  const int b = DrawTrace(page, Trace::B);
  if (page == kMaskingPage) DrawPairCurve();
  return a < 0 ? a : b;
}

std::string WhyNoMap(Panel panel, Trace trace) {
  const GraphOfTrace g = GraphFor(panel == Panel::SASW ? kMaskingPage : 0, trace);
  Shown shown;
  if (static_cast<DisplayType>(GetCtrlVal(g.type)) != DisplayType::GaborSpectrum || !FindShown(g, shown))
    return {};
  if (panel != Panel::SASW) return "Turn on the masking mode, first.";
  return shown.pair ? std::string() : "Calcualte Gabor spectrum, first.";
}

void DrawPairCurve() {
  Shown shown;
  const bool found = FindShown(GraphFor(kMaskingPage, Trace::A), shown);
  const std::string label = found ? DispCurveLabel(shown.records.measID, shown.refChan, shown.dspChan) : "";
  SetVisible(sasw::PAIRCURVE,
             PlotPairCurve(sasw::PAIRCURVE, found ? shown.pair : nullptr, label, session.dispAxis));
}

int PairCurveCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Commit(mainmenu::DISPERSION_MODE) : 0;
}

void DrawPreview() {
  for (Trace trace : {Trace::A, Trace::B}) {
    const GraphOfTrace g = GraphFor(0, trace);
    DeleteGraphPlot(g.graph);
    Shown shown;
    if (!FindShown(g, shown)) continue;
    shown.dspChan = std::min(static_cast<int>(trace), shown.records.hwSetup->nChannels - 1);
    SetGraphTitle(g.graph, TitleOf(g, shown, DisplayType::TimeTrace));
    PlotTrace(ViewOf(g, shown, DisplayType::TimeTrace));
  }
}

}  // namespace sondera
