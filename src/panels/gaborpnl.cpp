// gaborpnl.cpp - shows and reads the settings of the Gabor maps. See gaborpnl.h.
#include "panels/gaborpnl.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "panels/sasw_pair.h"
#include "panels/trace_selection.h"
#include "plot/color_strip.h"
#include "plot/gabor_plot.h"
#include "records/kinds.h"
#include "records/session.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "signal/irf.h"

namespace sondera {
namespace {

using namespace gaborpnl;

constexpr int kGaborSpectrum = static_cast<int>(DisplayType::GaborSpectrum);
constexpr double kDelayOfSlowest = 3.0, kLongestShare = 0.2;  // see CalcGabor

constexpr const TextControl* kLevels[] = {&LOCOLORVAL, &INTCOLORVAL1, &INTCOLORVAL2, &HICOLORVAL};
constexpr const IntControl* kColors[] = {&LOCOLOR, &INTCOLOR1, &INTCOLOR2, &HICOLOR};

/// Divisions in a field, limited to the size of a map, in the field too.
int TakeDivisions(const IntControl& field) {
  const int typed = GetCtrlVal(field), taken = std::clamp(typed, 0, kGaborDivisions);
  if (taken != typed) SetCtrlVal(field, taken);
  return taken;
}

/// Colours and thresholds of a fresh session.
void ResetColors() {
  const Session fresh;
  session.gaborColor = fresh.gaborColor;
  session.gaborThreshold = fresh.gaborThreshold;
  session.gaborTop = fresh.gaborTop;
}

/// Puts the current pair on trace B of the masking page as a Gabor map.
void ShowOnTraceB(const CurrentPair& current) {
  UpdateSASWwinBSetup(current.records.projID, current.records.measID);
  SetCtrlIndex(sasw::DISPBID, FindListItem(sasw::DISPBID, current.records.measID));
  SetCtrlVal(sasw::DISPB_REFCHNL, current.refChan);
  SetCtrlVal(sasw::DISPBCHNL, current.dspChan);
  SetCtrlVal(sasw::DISPBTYPE, kGaborSpectrum);
}

}  // namespace

void RefreshGaborSetup() {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  IrfGeometry g;
  if (!current.pair || !GetIrfGeometry(current, g)) return;
  PMeasInfo& pair = *current.pair;
  const double bandEnd = BandEnd(*current.records.hwSetup);
  pair.initTime = 0.0;
  if (pair.finalTime <= 0.0) {
    pair.finalTime =
        std::min(std::fabs(g.spacing) * kDelayOfSlowest / session.smV[4], g.total * kLongestShare);
    pair.finalFreq = bandEnd;
  }
  pair.initFreq = 0.0;
  if (pair.finalFreq <= 0.0) pair.finalFreq = bandEnd;
  SetCtrlVal(PROJID, current.records.projID);
  SetCtrlVal(MEASID, current.records.measID);
  SetCtrlVal(INITTIME, pair.initTime);
  SetCtrlVal(FINALTIME, pair.finalTime);
  SetCtrlVal(TIMEDIV, pair.timeDiv);
  SetCtrlVal(INITFREQ, pair.initFreq);
  SetCtrlVal(FINALFREQ, pair.finalFreq);
  SetCtrlVal(FREQDIV, pair.freqDiv);
  SetCtrlVal(BETA, pair.beta);
  SetCtrlVal(BAND, pair.band);
  SetCtrlVal(NCONTLEVEL, pair.nContLevel);
  SetCtrlVal(CNTTHRESHOLD, pair.cntThreshold);
  RefreshGaborColorScale();
}

int UpdateGaborConfig() {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.pair) {
    session.gaborThreshold = GetCtrlVal(CNTTHRESHOLD);
    return -1;
  }
  PMeasInfo& pair = *current.pair;
  pair.initTime = GetCtrlVal(INITTIME);
  pair.finalTime = GetCtrlVal(FINALTIME);
  pair.timeDiv = TakeDivisions(TIMEDIV);
  pair.initFreq = GetCtrlVal(INITFREQ);
  pair.finalFreq = GetCtrlVal(FINALFREQ);
  pair.freqDiv = TakeDivisions(FREQDIV);
  pair.beta = GetCtrlVal(BETA);
  pair.band = GetCtrlVal(BAND);
  pair.nContLevel = GetCtrlVal(NCONTLEVEL);
  pair.cntThreshold = GetCtrlVal(CNTTHRESHOLD);
  RefreshGaborColorScale();
  return 0;
}

std::vector<ColorLevel> MakeGaborColorMap() {
  const PMeasInfo* pair = FindCurrentPair(Panel::SASW).pair;
  return MakeGaborColorMap(pair ? pair->cntThreshold : session.gaborThreshold);
}

void RefreshGaborColorScale() {
  const std::vector<ColorLevel> map = MakeGaborColorMap();
  for (std::size_t k = 0; k < map.size(); ++k) {
    SetCtrlVal(*kLevels[k], FormatText("%.1f", map[k].level));
    SetCtrlVal(*kColors[k], map[k].color);
  }
  PlotColorStrip(COLORSCALE, map);
}

int GaborSetupCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::GABORPNL);
  RefreshGaborColorScale();
  RefreshGaborSetup();
  return 0;
}

int GaborCalcCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (UpdateGaborConfig() < 0) return -1;
  CalcGaborMaps(Panel::SASW);
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.pair) return -1;
  current.pair->phaseOption = kBackbonePhase;
  if (GetCtrlVal(sasw::DISPATYPE) != kGaborSpectrum && GetCtrlVal(sasw::DISPBTYPE) != kGaborSpectrum)
    ShowOnTraceB(current);
  DoPlotting(kMaskingPage);
  return 0;
}

int GaborSetupUpdateCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (UpdateGaborConfig() < 0) return -1;
  DoPlotting(kMaskingPage);
  return 0;
}

int GaborDefaultCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ResetColors();
  SetCtrlVal(CNTTHRESHOLD, session.gaborThreshold);
  if (PMeasInfo* pair = FindCurrentPair(Panel::SASW).pair) {
    pair->initTime = pair->finalTime = 0.0;
    pair->initFreq = pair->finalFreq = 0.0;
    pair->timeDiv = pair->freqDiv = kGaborDivisions;
    // Kept: exchanged compared with a new pair, which begins with a width of 0.5 and an exponent of 3.
    pair->band = 3.0;
    pair->beta = 0.5;
    pair->nContLevel = 10;
    pair->cntThreshold = session.gaborThreshold;
  }
  RefreshGaborColorScale();
  RefreshGaborSetup();
  return 0;
}

int GaborSetupCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::Close) HidePanel(Panel::GABORPNL);
  return 0;
}

int AdjustIntenseColor(Panel, ControlId, Event event, long) {
  if (event != Event::ValChanged && event != Event::Commit) return 0;
  session.gaborColor = {GetCtrlVal(LOCOLOR), GetCtrlVal(INTCOLOR1), GetCtrlVal(INTCOLOR2),
                        GetCtrlVal(HICOLOR)};
  RefreshGaborColorScale();
  return 0;
}

}  // namespace sondera
