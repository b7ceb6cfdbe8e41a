// irfsetpnl.cpp - shows and reads the windows of the impulse response filtration. See irfsetpnl.h.
#include "panels/irfsetpnl.h"

#include <cmath>
#include <string>

#include "panels/sasw_pair.h"
#include "panels/trace_selection.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/irfsetpnl2.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "signal/irf.h"

namespace sondera {
namespace {

constexpr double kShownForNoDelay = 50000.0;  // m/s; a window that begins at once
constexpr double kRounding = 1e-12;         // a time converted to a velocity and back is equal up to rounding
constexpr double kShownByApply = 250000.0;  // the same where Apply shows the velocities of entered times

using Fields = const NumericControl* [5];  // 1 to 4
const Fields kSmT = {nullptr, &irfsetpnl::SMIRF_T1, &irfsetpnl::SMIRF_T2, &irfsetpnl::SMIRF_T3,
                     &irfsetpnl::SMIRF_T4};
const Fields kSmV = {nullptr, &irfsetpnl::SMIRF_V1, &irfsetpnl::SMIRF_V2, &irfsetpnl::SMIRF_V3,
                     &irfsetpnl::SMIRF_V4};
const Fields kBbV = {nullptr, &irfsetpnl::BBIRF_V1, &irfsetpnl::BBIRF_V2, &irfsetpnl::BBIRF_V3,
                     &irfsetpnl::BBIRF_V4};
const Fields kSmT2 = {nullptr, &irfsetpnl2::SMIRF_T1, &irfsetpnl2::SMIRF_T2, &irfsetpnl2::SMIRF_T3,
                      &irfsetpnl2::SMIRF_T4};
const Fields kBbT2 = {nullptr, &irfsetpnl2::BBIRF_T1, &irfsetpnl2::BBIRF_T2, &irfsetpnl2::BBIRF_T3,
                      &irfsetpnl2::BBIRF_T4};

WindowFour Read(const Fields& fields) {
  WindowFour values{};
  for (std::size_t k = 1; k <= 4; ++k) values[k] = GetCtrlVal(*fields[k]);
  return values;
}

void Show(const Fields& fields, const WindowFour& values) {
  for (std::size_t k = 1; k <= 4; ++k) SetCtrlVal(*fields[k], values[k]);
}

// --- which pair ---

/// While this object lives, measurement and channels of IRFSETPNL are the session's selection, so that
/// routines called for Panel::IRFSETPNL work on them. The current measurement is restored; the channels stay
/// selected.
class PanelPairScope {
 public:
  PanelPairScope()
      : measIDBefore_(session.curMeasID), refChanBefore_(session.refChan), dspChanBefore_(session.dspChan) {
    const std::string shown = GetCtrlVal(irfsetpnl::MEASID);
    session.curMeasID = shown.empty() ? GetCtrlVal(hmsetup::MEASID) : shown;
    session.refChan = GetCtrlVal(irfsetpnl::REFCHNL) - 1;
    session.dspChan = GetCtrlVal(irfsetpnl::DSPCHNL) - 1;
    current_ = FindCurrentPair(Panel::IRFSETPNL);
    if (current_.pair) return;
    session.refChan = refChanBefore_;
    session.dspChan = dspChanBefore_;
  }
  ~PanelPairScope() { session.curMeasID = measIDBefore_; }
  PanelPairScope(const PanelPairScope&) = delete;
  PanelPairScope& operator=(const PanelPairScope&) = delete;

  const CurrentPair& current() const { return current_; }

 private:
  std::string measIDBefore_;
  int refChanBefore_, dspChanBefore_;
  CurrentPair current_;
};

/// The pair that a page shows, for RefreshIRFwindow.
CurrentPair PairShownOn(Panel panel) {
  if (panel != Panel::MEASPANEL) return FindCurrentPair(panel);
  const std::string measIDBefore = session.curMeasID;
  const int index = GetCtrlIndex(measpanel::DISPAID);
  if (index >= 0) session.curMeasID = GetLabelFromIndex(measpanel::DISPAID, index);
  session.refChan = GetCtrlVal(measpanel::DISPA_REFCHNL);
  session.dspChan = GetCtrlVal(measpanel::DISPACHNL);
  CurrentPair current = FindCurrentPair(panel);
  session.curMeasID = measIDBefore;
  return current;
}

// --- showing ---

WindowFour VelocitiesOf(double spacing, const WindowFour& times, double velScale) {
  WindowFour velocities{};
  for (std::size_t k = 1; k <= 4; ++k)
    velocities[k] = times[k] != 0.0 ? spacing / times[k] : kShownForNoDelay / velScale;
  return velocities;
}

/// Shows the windows of a pair, which is created when missing. False if the measurement allows no pair.
bool ShowWindows(CurrentPair current, bool signedSpacing, const char* lengthFormat) {
  IrfGeometry g;
  if (!GetIrfGeometry(current, g)) return false;
  SetCtrlVal(irfsetpnl::MEASID, current.records.measID);
  SetCtrlVal(irfsetpnl::REFCHNL, current.refChan + 1);
  SetCtrlVal(irfsetpnl::DSPCHNL, current.dspChan + 1);
  if (!current.pair)
    SetupPMeasDataNode(current.records.projID, current.records.measID, current.refChan, current.dspChan,
                       *current.records.hwSetup, current.pair);
  if (!current.pair) return false;
  PMeasInfo& pair = *current.pair;
  const double spacing = signedSpacing ? g.spacing : std::fabs(g.spacing);
  if (pair.bbT[4] <= 0.0) {
    pair.irfMode = kBandPass;
    pair.bbT = TimesFromVelocities(spacing, session.bbV, g.velScale);
    pair.enT = TimesFromVelocities(spacing, session.smV, g.velScale);
  }
  Show(kBbV, VelocitiesOf(spacing, pair.bbT, g.velScale));
  Show(kSmV, VelocitiesOf(spacing, pair.enT, g.velScale));
  Show(kSmT, pair.enT);
  Show(kSmT2, pair.enT);
  Show(kBbT2, pair.bbT);
  SetCtrlVal(irfsetpnl::IRFMODE, pair.irfMode);
  SetCtrlVal(irfsetpnl::RECORDLENGTH, FormatText(lengthFormat, g.total));
  return true;
}

// --- taking ---

bool Ascending(const WindowFour& t) {
  return t[1] <= t[2] && t[2] <= t[3] && t[3] <= t[4];
}
bool Descending(const WindowFour& v) {
  return v[1] >= v[2] && v[2] >= v[3] && v[3] >= v[4];
}

/// Delays of a set of velocities; a velocity of 0 or less means no delay.
WindowFour DelaysOf(double spacing, const WindowFour& velocities) {
  WindowFour times{};
  for (std::size_t k = 1; k <= 4; ++k)
    if (velocities[k] > 0.0) times[k] = spacing / velocities[k];
  return times;
}

/// True for valid times of a window; otherwise a message.
bool WithinRecord(const WindowFour& bb, const WindowFour& en, double total) {
  const double longest = total * (1.0 + kRounding);
  for (const WindowFour* times : {&bb, &en})
    for (std::size_t k = 1; k <= 4; ++k)
      if ((*times)[k] < 0.0) return Refuse("T1, T2, T3, or T4 can not be negative."), false;
  for (const WindowFour* times : {&bb, &en})
    for (std::size_t k = 1; k <= 4; ++k)
      if ((*times)[k] > longest)
        return Refuse("T1, T2, T3, or T4 can not be greater than the record length."), false;
  return true;
}

/// A low-pass window is symmetric on the circular record, so its second half follows from the first.
void MirrorLowPass(WindowFour& times, double total) {
  times[3] = total - times[2];
  times[4] = total - times[1];
}

/// Stores both windows in the pair on display and updates all data that depend on them.
int StoreWindows(PMeasInfo& pair, WindowFour bb, WindowFour en, double total, const Fields& shownTimes) {
  if (!WithinRecord(bb, en, total)) return -1;
  pair.irfMode = GetCtrlVal(irfsetpnl::IRFMODE);
  if (pair.irfMode == kLowPass) {
    MirrorLowPass(bb, total);
    MirrorLowPass(en, total);
    SetCtrlVal(*shownTimes[3], en[3]);
    SetCtrlVal(*shownTimes[4], en[4]);
  }
  pair.bbT = bb;
  pair.enT = en;
  CalcIRF(0, Panel::SASW);
  CalcGaborMaps(Panel::SASW);
  DoPlotting(kMaskingPage);
  return 0;
}

void DimLastVelocities(bool dimmed) {
  for (const NumericControl* field : {kSmV[3], kSmV[4], kBbV[3], kBbV[4]}) SetDimmed(*field, dimmed);
}

}  // namespace

void RefreshIRFwindow(Panel panel) {
  ShowWindows(PairShownOn(panel), false, "* Total record length = %lg");
}

bool ShowsStoredVelocities(std::size_t window) {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  IrfGeometry g;
  if (!current.pair || !GetIrfGeometry(current, g)) return false;
  const bool enhanced = window == kEnhancedWindow;
  const WindowFour& times = enhanced ? current.pair->enT : current.pair->bbT;
  return Read(enhanced ? kSmV : kBbV) == VelocitiesOf(std::fabs(g.spacing), times, g.velScale);
}

int CalcIRFCallback(Panel panel, ControlId, Event event, long data) {
  if (event != Event::Commit) return 0;
  if (data != kKeepIRFPanelHidden) DisplayPanel(Panel::IRFSETPNL);
  RefreshIRFwindow(panel);
  return 0;
}

int IRFSetupCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::IRFSETPNL);
  ShowWindows(FindCurrentPair(Panel::SASW), true, "%lg");
  return 0;
}

int IRFsetupOkCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const WindowFour bbV = Read(kBbV), smV = Read(kSmV);
  if (!Descending(bbV)) return Refuse("Need to be BBV4 < BBV3 < BBV2 < BBT1 !!!");
  if (!Descending(smV)) return Refuse("Need to be SmV4 < SmV3 < SmV2 < SmV1 !!!");
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  IrfGeometry g;
  if (!current.pair || !GetIrfGeometry(current, g)) return 0;
  const double spacing = std::fabs(g.spacing);
  const int stored =
      StoreWindows(*current.pair, DelaysOf(spacing, bbV), DelaysOf(spacing, smV), g.total, kSmT);
  if (stored == 0) HidePanel(Panel::IRFSETPNL);
  return stored;
}

int IRFApplyCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  IrfGeometry g;
  if (!current.pair || !GetIrfGeometry(current, g)) return 0;
  const WindowFour bb = DelaysOf(std::fabs(g.spacing), Read(kBbV)), en = Read(kSmT2);
  if (!Ascending(bb) || !Ascending(en)) return Refuse("Need to be T1 < T2 < T3 < T4 !!!");
  return StoreWindows(*current.pair, bb, en, g.total, kSmT2);
}

int UpdateIrfParamCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const PanelPairScope selected;
  IrfGeometry g;
  if (!selected.current().pair || !GetIrfGeometry(selected.current(), g)) return 0;
  PMeasInfo& pair = *selected.current().pair;
  pair.irfMode = GetCtrlVal(irfsetpnl::IRFMODE);
  pair.enT = Read(kSmT);
  for (std::size_t k = 1; k <= 4; ++k) {
    const double guard = pair.enT[k == 4 ? 3 : k];  // Kept: so a T4 of 0 after a positive T3 shows infinity
    SetCtrlVal(*kSmV[k], guard > 0.0 ? std::fabs(g.spacing) / pair.enT[k] : kShownByApply);
  }
  CalcIRF(0, Panel::IRFSETPNL);
  CalcGaborMaps(Panel::IRFSETPNL);
  DoPlotting(kMaskingPage);
  return 0;
}

int DefaultIRFparmCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const PanelPairScope selected;
  IrfGeometry g;
  if (!selected.current().pair || !GetIrfGeometry(selected.current(), g)) return 0;
  WindowFour smV{}, bbV{};
  for (int k = 1; k <= 4; ++k) {
    smV[static_cast<std::size_t>(k)] = GetIRFVEL(k, 0);
    bbV[static_cast<std::size_t>(k)] = GetIRFVEL(k, 1);
  }
  SetCtrlVal(irfsetpnl::SITECAT, 0);
  SetCtrlVal(irfsetpnl::IRFMODE, kLowPass);
  DimLastVelocities(true);
  Show(kSmV, smV);
  Show(kBbV, bbV);
  const double spacing = std::fabs(g.spacing);
  if (spacing > 0.0) Show(kSmT, DelaysOf(spacing, smV));
  return 0;
}

int IRFmodeCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const PanelPairScope selected;
  if (selected.current().pair) selected.current().pair->irfMode = GetCtrlVal(irfsetpnl::IRFMODE);
  return 0;
}

int SetIRFModeCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::ValChanged)
    DimLastVelocities(GetCtrlVal(irfsetpnl::IRFMODE) == kLowPass);
  return 0;
}

int IRFsetupCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit || event == Event::Close) HidePanel(Panel::IRFSETPNL);
  return 0;
}

int CloseIRFCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit && event != Event::Close) return 0;
  HidePanel(panel == Panel::IRFSETPNL ? Panel::IRFSETPNL : Panel::IRFSETPNL2);
  return 0;
}

double GetIRFVEL(int n, int set) {
  return DefaultIRFVelocity(n, set, {GetCtrlVal(irfsetpnl::IRFMODE), GetCtrlVal(irfsetpnl::SITECAT)});
}

void SetupSiteCategory() {
  SetSiteVelocities(GetCtrlVal(irfsetpnl::SITECAT));
  CalcIRF(1, Panel::SASW);
  RefreshIRFwindow(Panel::SASW);
}

int SetupSiteCatCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) SetupSiteCategory();
  return 0;
}

}  // namespace sondera
