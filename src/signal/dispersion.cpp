// dispersion.cpp - see dispersion.h. Owns no state; curves are in the pair records.
#include "signal/dispersion.h"

#include <algorithm>
#include <cmath>

#include "records/kinds.h"
#include "records/measurement_rules.h"
#include "records/session.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kCycle = 360.0;  // degrees

const double* PhaseInUse(const PMeasInfo& pair) {
  if (pair.phaseOption == kBackbonePhase) return pair.phaseBB.data();
  return pair.phaseOption == kEnhancedPhase ? pair.phaseEn.data() : pair.phaseOrig.data();
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

Refusal CheckMeasurementOfCurve(const MeasRecords& records) {
  const std::string fault = MeasurementFault(records.hwSetup->key);
  if (fault.empty()) return {};
  return "The measurement " + records.measID + " " + fault + ": no curve is made from it.";
}

PairDistances DistancesOf(const CurrentPair& current) {
  const MeasSetup& setup = *current.records.measSetup;
  const int known = static_cast<int>(setup.recLoc.size());
  if (std::min(current.refChan, current.dspChan) < 0 || std::max(current.refChan, current.dspChan) >= known)
    return {};
  const double ref = setup.recLoc[static_cast<std::size_t>(current.refChan)];
  const double dsp = setup.recLoc[static_cast<std::size_t>(current.dspChan)];
  return {std::fabs(ref - setup.srcLoc), std::fabs(dsp - ref)};
}

void MakeDispersionCurve(PMeasInfo& pair, const CurrentPair& current, const CurveRange& range) {
  const PairDistances distances = DistancesOf(current);
  const HWSetup& hw = *current.records.hwSetup;
  CurveLines in;
  in.phase = PhaseInUse(pair);
  in.maskFlag = pair.maskFlag.data();
  in.lines = std::min(hw.nLines, pair.capacity());
  in.maxLine = range.maxLine;
  in.firstFreq = range.firstFreq;
  in.deltaF = hw.deltaF;
  in.spacing = distances.spacing;
  in.srcToR1 = distances.srcToR1;
  in.alphaWlen = session.alphaWlen;
  pair.nDispPoints =
      CalcDispersionPoints(in, pair.dispVel.data(), pair.dispFreq.data(), pair.dispWlen.data());
  pair.included = pair.nDispPoints > 0 ? 1 : 0;
  if (pair.included) DoubtCyclesBelow(current);
}

}  // namespace sondera
