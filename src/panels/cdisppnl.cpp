// cdisppnl.cpp - callbacks of CDISPPNL. Owns no state.
#include "panels/cdisppnl.h"

#include <string>

#include "panels/event_listener.h"
#include "panels/tmgrafpnl.h"
#include "records/curve_labels.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "signal/rep_curve_fit.h"
#include "signal/rep_curves.h"

namespace sondera {
namespace {

std::string LabelOf(const PMeasInfo& pair, int base) {
  return RepCurveLabel(pair.key, pair.refChan, pair.dspChan, base);
}

/// The pair that is selected in the list, null when there is none. An item's value is the pair's position;
/// its label must match too, since the list of pairs may have changed while the panel was open.
PMeasInfo* SelectedPair() {
  using cdisppnl::ARRAY_DISPCURVELIST;
  const int index = GetCtrlIndex(ARRAY_DISPCURVELIST);
  if (index < 0) return nullptr;
  PMeasInfo* pair = MeasDB.pMeasList.at(GetCtrlVal(ARRAY_DISPCURVELIST));
  const std::string label = GetLabelFromIndex(ARRAY_DISPCURVELIST, index);
  return pair && (label == LabelOf(*pair, 1) || label == LabelOf(*pair, 0)) ? pair : nullptr;
}

void ShowOrderOfSelected() {
  if (const PMeasInfo* pair = SelectedPair()) SetCtrlVal(cdisppnl::ARRAY_POLYORDER, pair->polyOrderA);
}

void OpenPanel(int channelBase) {
  using cdisppnl::ARRAY_DISPCURVELIST;
  DisplayPanel(Panel::CDISPPNL);
  ClearListCtrl(ARRAY_DISPCURVELIST);
  for (int i = 1; i <= MeasDB.pMeasList.count(); ++i) {
    PMeasInfo& pair = *MeasDB.pMeasList.at(i);
    if (pair.included != 1) continue;
    InsertListItem(ARRAY_DISPCURVELIST, -1, LabelOf(pair, channelBase), i);
    if (pair.polyOrderA == 0) pair.polyOrderA = pair.polyOrderB = CDispParam.arrayPolyOrder;
  }
  SetCtrlIndex(ARRAY_DISPCURVELIST, 0);
  ShowOrderOfSelected();
}

/// The stations of a line are global curves too, and averaging leaves one.
bool MayReplaceLine() {
  bool any = false;
  for (const PMeasInfo& pair : MeasDB.pMeasList) any = any || IncludedPoints(pair) > 0;
  const int curves = MeasDB.gDispList.count();
  if (!any || curves <= 1) return true;
  return ConfirmPopup(session.appTitle,
                      FormatText("Averaging replaces the %d curves of the line by one. Go on ?", curves));
}

int Calculate() {
  UpdateDispDlgPanel();
  if (PerformAveraging(GetCtrlVal(cdisppnl::GDISP_TAKEALL), GetCtrlVal(cdisppnl::ADISP_TAKEALL)) < 0)
    return -1;
  DispCurvPlot(1);
  return 0;
}

}  // namespace

void UpdateDispDlgPanel() {
  using namespace cdisppnl;
  CDispSettings& p = CDispParam;
  p.avgDomain = GetCtrlVal(AVGDOMAIN);
  p.nSpanG = GetCtrlVal(GLOBAL_NSPAN);
  p.nPointsG = GetCtrlVal(GLOBAL_NPOINTS);
  p.globalPolyOrder = GetCtrlVal(GLOBAL_POLYORDER);
  p.arrayPolyOrder = GetCtrlVal(ARRAY_POLYORDER);
  p.incRatioG = GetCtrlVal(AVG_LINLOG) == 1 ? GetCtrlVal(GLOBAL_INCRATIO) : kLogSpacing;
  p.nSpanA = p.nSpanG;
  p.nPointsA = p.nPointsG;
  p.incRatioA = p.incRatioG;
}

int PerformAveraging(int takeAllG, int takeAllA) {
  if (!MayReplaceLine()) return -1;
  EventListener listener;
  const int result = ShowRefusal(AverageCurves(takeAllG, takeAllA, listener));
  if (result == 0) RenewSectionPanel();
  return result;
}

int SetupCompDispCurveCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  OpenPanel(1);
  return 0;
}

int CalcRepDispMenuCallback(Panel, ControlId, Event, long) {
  OpenPanel(0);
  return 0;
}

int CDispCalcCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? Calculate() : 0;
}

int CDispCalcUpdateCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (Calculate() < 0) return -1;
  Commit(inversion::AUTOSETUPSMP);
  return 0;
}

int CDispCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::CDISPPNL);
  return 0;
}

int IndDispCurvListCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::ValChanged) ShowOrderOfSelected();
  return 0;
}

int IndPolyOrderCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  PMeasInfo* pair = SelectedPair();
  if (!pair) return 0;
  const int order = GetCtrlVal(cdisppnl::ARRAY_POLYORDER);
  if (order < 1 || order > kMaxPolyTerms) {
    SetCtrlVal(cdisppnl::ARRAY_POLYORDER, pair->polyOrderA);
    MessagePopup(session.appTitle,
                 FormatText("The number of polynomial terms must be from 1 to %d.", kMaxPolyTerms));
    return -1;
  }
  pair->polyOrderA = order;
  return 0;
}

int SwitchAvgLinLogCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) SetDimmed(cdisppnl::GLOBAL_INCRATIO, GetCtrlVal(cdisppnl::AVG_LINLOG) != 1);
  return 0;
}

}  // namespace sondera
