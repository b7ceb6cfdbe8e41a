// sasw_dispersion.cpp - see sasw_dispersion.h. Owns no state; curves are in the pair records.
// Odd on purpose: the differences between the button and the menu entry; the frequency of a line is one of
// them.
#include "panels/sasw_dispersion.h"

#include "numeric/scale_arithmetic.h"
#include "panels/sasw_masking.h"
#include "panels/sasw_pair.h"
#include "panels/trace_display.h"
#include "panels/trace_selection.h"
#include "records/session.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/redraw.h"
#include "signal/dispersion.h"

namespace sondera {
namespace {

/// The pair's record with updated spectra, created when there is none. Null when that fails.
PMeasInfo* FreshPair(const CurrentPair& current) {
  const MeasRecords& r = current.records;
  PMeasInfo* pair = current.pair;
  if (pair)
    UpdatePMeasDataNode(r.projID, r.measID, current.refChan, current.dspChan, *r.hwSetup, pair);
  else
    SetupPMeasDataNode(r.projID, r.measID, current.refChan, current.dspChan, *r.hwSetup, pair);
  return pair;
}

}  // namespace

int MaskingCalcDispCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.complete() || ShowRefusal(CheckMeasurementOfCurve(current.records)) < 0) return -1;
  PMeasInfo* pair = FreshPair(current);
  if (!pair) return -1;
  session.lengthUnit = GetCtrlVal(meassetup::LENGTHUNIT);
  const PairDistances distances = DistancesOf(current);
  if (distances.srcToR1 == 0.0 || distances.spacing == 0.0)
    return Refuse("Source and/or Receiver locations are not specified.");
  CalcIRF(0, Panel::SASW);
  session.alphaWlen = GetCtrlVal(meassetup::HYX_WLENFILTER);
  pair->phaseOption = GetCtrlVal(sasw::DISPCURV_OPTION);
  HWSetup& hw = *current.records.hwSetup;
  BringBandLimitsUpToDate(hw);
  // Kept: the lines count from 0 Hz here, for every startFreq.
  MakeDispersionCurve(*pair, current, {0.0, TruncToInt(hw.stopFreq / hw.deltaF + 0.5)});
  DispCurvPlot(1);
  DrawPairCurve();
  return 0;
}

int MaskingCalcDispMenuCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.complete()) return 0;
  if (ShowRefusal(CheckMeasurementOfCurve(current.records)) < 0) return -1;
  PMeasInfo* pair = FreshPair(current);
  if (!pair) return 0;
  session.lengthUnit = GetCtrlVal(meassetup::LENGTHUNIT);
  CalcIRF(0, Panel::SASW);
  HWSetup& hw = *current.records.hwSetup;
  BringBandLimitsUpToDate(hw);
  // Kept: startFreq is added although the lines of imported spectra count from 0 Hz too.
  MakeDispersionCurve(*pair, current, {hw.startFreq, hw.nLines - 1});
  DispCurvPlot(1);
  DrawPairCurve();
  return 0;
}

}  // namespace sondera
