// tmgrafpnl.cpp - see tmgrafpnl.h.
#include "panels/tmgrafpnl.h"

#include <string>
#include <vector>

#include "panels/mainmenu.h"
#include "panels/panels_state.h"
#include "panels/section_stations.h"
#include "panels/tmgrafpnl_draw.h"
#include "plot/color_strip.h"
#include "plot/section_plot.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"
#include "signal/section.h"

namespace sondera {
namespace {

using namespace tmgrafpnl;

constexpr int kImage = 1;

void FillSectionLists() {
  ClearListCtrl(LIST_INCLUDED);
  ClearListCtrl(LIST_EXCLUDED);
  for (int i = 1; i <= MeasDB.gDispList.count(); ++i) {
    const DispInfo& curve = *MeasDB.gDispList.at(i);
    if (curve.nPoints > 0)
      InsertListItem(curve.valid == 1 ? LIST_INCLUDED : LIST_EXCLUDED, -1, curve.label, i);
  }
}

/// Sets `valid` of the curve selected in one list and moves its label to the other.
int MoveSelected(const ListControl& from, const ListControl& to, int valid) {
  const int index = GetCtrlIndex(from);
  DispInfo* curve = SelectedStation(from);
  if (!curve) return -1;
  curve->valid = valid;
  const std::string label = GetLabelFromIndex(from, index);
  const double value = GetValueFromIndex(from, index);
  DeleteListItem(from, index);
  InsertListItem(to, -1, label, value);
  return 0;
}

}  // namespace

void SetupTomografPanel() {
  FillSectionLists();
  SectionState& s = panelsState.section;
  SectionRanges former;
  former.wlMin = s.limits.tmgWlMin;
  former.wlMax = s.limits.tmgWlMax;
  const SectionRanges r = FindSectionRanges(SectionStations(), former);
  s.limits = {r.dMin, r.dMax, r.wlMin, r.wlMax};
  if (GetCtrlVal(KEEPCOLORS) == 0) {
    s.colorLow = r.vMin;
    s.colorHigh = r.vMax;
  }
  static_cast<void>(SettleGridSize(s.tmgNx, s.tmgNy));
  s.setUp = true;
  SetupTMGConfig();
}

void SetupTMGConfig() {
  const SectionState& s = panelsState.section;
  SetCtrlVal(DMIN, s.limits.tmgDMin);
  SetCtrlVal(DMAX, s.limits.tmgDMax);
  SetCtrlVal(WLMIN, s.limits.tmgWlMin);
  SetCtrlVal(WLMAX, s.limits.tmgWlMax);
  SetCtrlVal(NX, s.tmgNx);
  SetCtrlVal(NY, s.tmgNy);
  SetCtrlVal(FILL, s.fill ? 1 : 0);
  SetCtrlVal(LOCOLOR, session.tomoColor.lo);
  SetCtrlVal(INT1COLOR, session.tomoColor.int1);
  SetCtrlVal(INT2COLOR, session.tomoColor.int2);
  SetCtrlVal(HICOLOR, session.tomoColor.hi);
  SetCtrlVal(LOCOLORVAL, s.colorLow);
  SetCtrlVal(HICOLORVAL, s.colorHigh);
  RefreshTMGColorScale();
}

int UpdateTMGConfig() {
  SectionState& s = panelsState.section;
  if (!s.setUp)
    return Refuse("The section has no ranges yet: open it by the menu Dispersion, Tomographic Image.");
  s.limits = {GetCtrlVal(DMIN), GetCtrlVal(DMAX), GetCtrlVal(WLMIN), GetCtrlVal(WLMAX)};
  s.tmgNx = GetCtrlVal(NX);
  s.tmgNy = GetCtrlVal(NY);
  const std::string fault = SettleGridSize(s.tmgNx, s.tmgNy);
  s.fill = GetCtrlVal(FILL) != 0;
  session.tomoColor = {GetCtrlVal(LOCOLOR), GetCtrlVal(INT1COLOR), GetCtrlVal(INT2COLOR),
                       GetCtrlVal(HICOLOR)};
  s.colorLow = GetCtrlVal(LOCOLORVAL);
  s.colorHigh = GetCtrlVal(HICOLORVAL);
  SetCtrlVal(NX, s.tmgNx);
  SetCtrlVal(NY, s.tmgNy);
  RefreshTMGColorScale();
  return fault.empty() ? 0 : Refuse(fault);
}

void RefreshTMGColorScale() {
  const SectionState& s = panelsState.section;
  const std::vector<ColorLevel> levels = SectionColorLevels(s.colorLow, s.colorHigh, session.tomoColor);
  SetCtrlVal(INT1COLORVAL, ColorLevelText(levels[1].level));
  SetCtrlVal(INT2COLORVAL, ColorLevelText(levels[2].level));
  PlotColorStrip(COLORSCALE, levels);
}

void ForgetSection() {
  SectionState& s = panelsState.section;
  SectionState fresh;
  fresh.tmgNx = s.tmgNx;
  fresh.tmgNy = s.tmgNy;
  fresh.fill = s.fill;
  fresh.gridsMade = s.gridsMade;
  if (GetCtrlVal(KEEPCOLORS) != 0) {
    fresh.colorLow = s.colorLow;
    fresh.colorHigh = s.colorHigh;
  }
  s = fresh;
  ClearListCtrl(LIST_INCLUDED);
  ClearListCtrl(LIST_EXCLUDED);
  DeleteGraphPlot(TOMOGRAF);
  SetCtrlVal(MESSAGE, "");
  SetCtrlVal(COORD, "");
}

void RenewSectionPanel() {
  if (IsPanelShown(Panel::TMGRAFPNL)) SetupTomografPanel();
}

// ---- buttons --------------------------------------------------------------------------------------------

int DrawTomoGrafCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ShowPage(Panel::TMGRAFPNL, std::string(DefaultPanelTitle(Panel::TMGRAFPNL)));
  SetupTomografPanel();
  DrawTomoGraf();
  return 0;
}

int TMGrafCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (UpdateTMGConfig() < 0 || GenerateGridAndPlot(1) < 0) return -1;
  SetCtrlVal(TOMOGRAFTYPE, kImage);
  return 0;
}

int SetTomografTypeCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit && panelsState.section.setUp) DrawTomoGraf();
  return 0;
}

int TMGrafSetupUpdateCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? UpdateTMGConfig() : 0;
}

int TMGrafDefaultCallback(Panel, ControlId, Event, long) {
  return 0;
}

int TMGrafLookCallback(Panel, ControlId, Event event, long) {
  const SectionState& s = panelsState.section;
  if (event == Event::Commit && s.setUp && (GetCtrlVal(TOMOGRAFTYPE) != kImage || !s.grid.Empty()))
    DrawTomoGraf();
  return 0;
}

int TMGrafHaltCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) panelsState.section.haltRequested = true;
  return 0;
}

int TMGrafCloseCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::Close) HidePanel(Panel::TMGRAFPNL);
  return 0;
}

// ---- lists ----------------------------------------------------------------------------------------------

int IncludeTomoGrafCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? MoveSelected(LIST_EXCLUDED, LIST_INCLUDED, 1) : 0;
}

int ExludeTomoGrafCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? MoveSelected(LIST_INCLUDED, LIST_EXCLUDED, 0) : 0;
}

int ExcludedTomoGrafListCallback(Panel, ControlId, Event event, long) {
  return event == Event::LeftDoubleClick ? MoveSelected(LIST_EXCLUDED, LIST_INCLUDED, 1) : 0;
}

int IncludedTomoGrafListCallback(Panel, ControlId, Event event, long) {
  if (event == Event::LeftDoubleClick) return MoveSelected(LIST_INCLUDED, LIST_EXCLUDED, 0);
  if (event != Event::ValChanged && event != Event::LeftClick) return 0;
  const DispInfo* curve = SelectedStation(LIST_INCLUDED);
  if (!curve) return -1;
  SetCtrlVal(SRCPOS, curve->wlenMax);
  return 0;
}

}  // namespace sondera
