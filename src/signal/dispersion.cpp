// dispersion.cpp - see dispersion.h. Owns no state; curves are in the pair records.
// Odd on purpose: the differences between the button and the menu entry, of which the frequency of a line is
// one.
#include "signal/dispersion.h"

#include <algorithm>
#include <cmath>

#include "numeric/scale_arithmetic.h"
#include "panels/sasw_masking.h"
#include "records/measurement_rules.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/findings.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"
#include "signal/irf.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr double kCycle = 360.0;  // degrees
constexpr int kEvenSpacing = 1;

/// Distances of the pair; both 0 when a channel has no location.
struct PairDistances {
  double srcToR1 = 0.0, spacing = 0.0;
};

PairDistances DistancesOf(const CurrentPair& current) {
  const MeasSetup& setup = *current.records.measSetup;
  const int known = static_cast<int>(setup.recLoc.size());
  if (std::min(current.refChan, current.dspChan) < 0 || std::max(current.refChan, current.dspChan) >= known)
    return {};
  const double ref = setup.recLoc[static_cast<std::size_t>(current.refChan)];
  const double dsp = setup.recLoc[static_cast<std::size_t>(current.dspChan)];
  return {std::fabs(ref - setup.srcLoc), std::fabs(dsp - ref)};
}

/// Says why nothing is made from the measurement; false when there is nothing to say.
bool RefuseMeasurement(const MeasRecords& records) {
  const std::string fault = MeasurementFault(records.hwSetup->key);
  if (fault.empty()) return false;
  MessagePopup(session.appTitle,
               "The measurement " + records.measID + " " + fault + ": no curve is made from it.");
  return true;
}

/// The pair's record with its spectra brought up to date; makes it when there is none. Null when that fails.
PMeasInfo* FreshPair(const CurrentPair& current) {
  const MeasRecords& r = current.records;
  PMeasInfo* pair = current.pair;
  if (pair)
    UpdatePMeasDataNode(r.projID, r.measID, current.refChan, current.dspChan, *r.hwSetup, pair);
  else
    SetupPMeasDataNode(r.projID, r.measID, current.refChan, current.dspChan, *r.hwSetup, pair);
  return pair;
}

const double* PhaseInUse(const PMeasInfo& pair) {
  if (pair.phaseOption == 2) return pair.phaseBB.data();
  return pair.phaseOption == 1 ? pair.phaseEn.data() : pair.phaseOrig.data();
}

/// A record that begins above 0 Hz has lost the cycles below; a mask over its first line can give their
/// number.
void DoubtCyclesBelow(const CurrentPair& current) {
  const HWSetup& hw = *current.records.hwSetup;
  if (!(hw.freqSpan < 0.0 && hw.startFreq > 0.0)) return;
  const double half = 0.5 * hw.deltaF;
  for (const MaskingInfo& m : MeasDB.maskingList)
    if (m.key == current.key && m.refChan == current.refChan && m.dspChan == current.dspChan &&
        m.freqInit <= hw.startFreq + half && m.freqFinal >= hw.startFreq - half)
      return;
  AddDoubt(FormatText(
      "%s begins at %g Hz: cycles below %g Hz cannot be counted, and velocities may be wrong by them; "
      "import it with the lines from 0 Hz on, or mask with the number of cycles",
      current.records.measID.c_str(), hw.startFreq, hw.startFreq));
}

/// Computes and stores the curve, and draws the page.
void StoreCurve(PMeasInfo& pair, const CurrentPair& current, double firstFreq, int maxLine) {
  const PairDistances distances = DistancesOf(current);
  const HWSetup& hw = *current.records.hwSetup;
  CurveLines in;
  in.phase = PhaseInUse(pair);
  in.maskFlag = pair.maskFlag.data();
  in.lines = std::min(hw.nLines, pair.capacity());
  in.maxLine = maxLine;
  in.firstFreq = firstFreq;
  in.deltaF = hw.deltaF;
  in.spacing = distances.spacing;
  in.srcToR1 = distances.srcToR1;
  in.alphaWlen = session.alphaWlen;
  pair.nDispPoints =
      CalcDispersionPoints(in, pair.dispVel.data(), pair.dispFreq.data(), pair.dispWlen.data());
  pair.included = pair.nDispPoints > 0 ? 1 : 0;
  if (pair.included) DoubtCyclesBelow(current);
  DispCurvPlot(1);
}

}  // namespace

int CalcDispersionPoints(const CurveLines& in, double* vel, double* freq, double* wlen) {
  const int last = std::min(in.lines - 1, in.maxLine);
  int k = 0;
  for (int i = 1; i <= last; ++i) {
    const double w = in.spacing * kCycle / in.phase[i];
    if (!(w > 0.0) || std::isinf(w) || !(w * in.alphaWlen <= in.srcToR1) || in.maskFlag[i] != 0) continue;
    wlen[k] = w;
    freq[k] = in.firstFreq + i * in.deltaF;
    vel[k] = w * freq[k];
    ++k;
  }
  return k;
}

int MaskingCalcDispCallback(Panel panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (RefuseWindowB(panel)) return -1;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.complete() || RefuseMeasurement(current.records)) return -1;
  PMeasInfo* pair = FreshPair(current);
  if (!pair) return -1;
  session.lengthUnit = GetCtrlVal(meassetup::LENGTHUNIT);
  const PairDistances distances = DistancesOf(current);
  if (distances.srcToR1 == 0.0 || distances.spacing == 0.0) {
    MessagePopup(session.appTitle, "Source and/or Receiver locations are not specified.");
    return -1;
  }
  CalcIRF(0, Panel::SASW);
  session.alphaWlen = GetCtrlVal(meassetup::HYX_WLENFILTER);
  pair->phaseOption = GetCtrlVal(sasw::DISPCURV_OPTION);
  HWSetup& hw = *current.records.hwSetup;
  BringBandLimitsUpToDate(hw);
  // Kept: the lines count from 0 Hz here, whatever startFreq says.
  StoreCurve(*pair, current, 0.0, TruncToInt(hw.stopFreq / hw.deltaF + 0.5));
  return 0;
}

int MaskingCalcDispMenuCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (!current.complete()) return 0;
  if (RefuseMeasurement(current.records)) return -1;
  PMeasInfo* pair = FreshPair(current);
  if (!pair) return 0;
  session.lengthUnit = GetCtrlVal(meassetup::LENGTHUNIT);
  CalcIRF(0, Panel::SASW);
  HWSetup& hw = *current.records.hwSetup;
  BringBandLimitsUpToDate(hw);
  // Kept: startFreq is added although the lines of imported spectra count from 0 Hz too.
  StoreCurve(*pair, current, hw.startFreq, hw.nLines - 1);
  return 0;
}

int UpdateWLenFilterCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  session.alphaWlen = GetCtrlVal(meassetup::HYX_WLENFILTER);
  SetCtrlVal(loadtxdata::WLENGTHFILTER, session.alphaWlen);
  return 0;
}

int RSpacingOptionCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const bool even = GetCtrlVal(meassetup::RSPACING) == kEvenSpacing;
  SetVisible(meassetup::EVENSPACING, even);
  SetVisible(meassetup::CHNLLOC, !even);
  SetVisible(meassetup::NCHANNELS3, !even);
  SetVisible(meassetup::CHNLLOCLABEL, !even);
  return 0;
}

}  // namespace sondera
