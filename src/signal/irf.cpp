// irf.cpp - impulse response filtration of a receiver pair. See irf.h.
#include "signal/irf.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "numeric/analysis.h"
#include "numeric/pi.h"
#include "numeric/scale_arithmetic.h"
#include "records/session.h"
#include "signal/phase_unwrap.h"
#include "signal/signal_state.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr int kTimeFigures = 4;

/// Sample nearest to a time, halves upward.
int SampleAt(double time, double deltaT) {
  return TruncToInt(time / deltaT + 0.5);
}

/// Sets samples first to last to one level, as far as they lie within the record.
void FillLevel(int first, int last, double level, int count, double* window) {
  first = std::max(first, 0);
  last = std::min(last, count - 1);
  if (first <= last) std::fill(window + first, window + last + 1, level);
}

/// Half a cosine from sample i1 to i2, both included: 0 to 1 when rising, else 1 to 0.
void FillTaper(int i1, int i2, bool rising, int count, double* window) {
  const double first = i1, last = i2;
  const double width = last == first ? 1.0 : last - first;
  for (int i = std::max(i1, 0); i <= std::min(i2, count - 1); ++i) {
    const double d = rising ? last - i : i - first;  // from the end that has the level 1
    window[i] = 0.5 * (1.0 + std::cos(kPi * d / width));
  }
}

/// The arrays that one window gives.
struct FilteredArrays {
  double *irRe, *irIm, *re, *im, *amp;
};

/// Windows the impulse response, transforms its real part, takes the magnitudes.
void FilterResponse(const PMeasInfo& pair, const double* window, int count, const FilteredArrays& out) {
  const double *irRe = pair.irRe.data(), *irIm = pair.irIm.data();
  for (int i = 0; i < count; ++i) {
    out.irRe[i] = irRe[i] * window[i];
    out.irIm[i] = irIm[i] * window[i];
  }
  RealFFT(out.irRe, out.re, out.im, count);
  const int half = count / 2;  // the upper half mirrors the lower one
  for (int i = 0; i <= half; ++i) out.amp[i] = std::sqrt(out.re[i] * out.re[i] + out.im[i] * out.im[i]);
  for (int i = half + 1; i < count; ++i) out.amp[i] = out.amp[count - i];
}

/// Updates the window times of a pair from the geometry and, on request, from the velocities.
void SettleTimes(PMeasInfo& pair, const IrfGeometry& g, bool reset) {
  const double spacing = std::fabs(g.spacing);
  if (spacing == 0.0) {
    pair.irfMode = kLowPass;
    pair.bbT = pair.enT = {0.0, 0.4 * g.total, 0.45 * g.total, g.total, g.total};
    return;
  }
  if (pair.bbT[4] <= 0.0 || reset) {
    pair.irfMode = kBandPass;
    pair.bbT = TimesFromVelocities(spacing, session.bbV, g.velScale);
  }
  if (pair.enT[4] <= 0.0 || reset) pair.enT = TimesFromVelocities(spacing, session.smV, g.velScale);
}

}  // namespace

bool GetIrfGeometry(const CurrentPair& current, IrfGeometry& geometry) {
  if (current.key == -1 || current.records.hwPos < 0 || current.records.measPos < 0) return false;
  const HWSetup& hw = *current.records.hwSetup;
  const MeasSetup& setup = *current.records.measSetup;
  const int a = current.refChan, b = current.dspChan, known = static_cast<int>(setup.recLoc.size());
  if (a < 0 || b < 0 || a >= known || b >= known || hw.nLines <= 0) return false;
  geometry.total = (2.0 * hw.nLines - 1.0) * hw.deltaT;
  geometry.spacing = setup.recLoc[static_cast<std::size_t>(b)] - setup.recLoc[static_cast<std::size_t>(a)];
  geometry.velScale = setup.lengthUnit > 0.0 ? setup.lengthUnit : 1.0;
  return true;
}

WindowFour TimesFromVelocities(double spacing, const WindowFour& velocity, double velScale) {
  WindowFour times{};
  for (std::size_t k = 1; k <= 4; ++k)
    times[k] = NiceNumber(spacing / (velocity[k] / velScale), kTimeFigures);
  return times;
}

void MakeIrfWindow(int mode, const WindowFour& times, double deltaT, int count, double* window) {
  const int t1 = SampleAt(times[1], deltaT), t2 = SampleAt(times[2], deltaT);
  const int t3 = SampleAt(times[3], deltaT), t4 = SampleAt(times[4], deltaT);
  const bool bandPass = mode != kLowPass;
  const double inside = bandPass ? 1.0 : 0.0;
  FillLevel(0, count - 1, 1.0 - inside, count, window);
  FillLevel(t2, t3, inside, count, window);
  FillTaper(t3, t4, !bandPass, count, window);
  FillTaper(t1, t2, bandPass, count, window);
}

int CalcIRF(int reset, const CurrentPair& current) {
  IrfGeometry geometry;
  if (!current.pair || !GetIrfGeometry(current, geometry)) return -1;
  PMeasInfo& pair = *current.pair;
  const HWSetup& hw = *current.records.hwSetup;
  if (pair.capacity() < hw.nLines) return -1;
  const int n = hw.nLines, count = 2 * n;
  SettleTimes(pair, geometry, reset == 1);
  if (IsNotANumber(pair.irRe[0]))
    CalcSpectralData(spectral::kImpulseResponse, current.records.projID, current.records.measID, pair.refChan,
                     pair.dspChan, pair.irRe.data(), pair.irIm.data());
  if (signalState.window.size() < static_cast<std::size_t>(count))
    signalState.window.resize(static_cast<std::size_t>(count));
  double* window = signalState.window.data();
  MakeIrfWindow(pair.irfMode, pair.bbT, hw.deltaT, count, window);
  FilterResponse(
      pair, window, count,
      {pair.bbIrRe.data(), pair.bbIrIm.data(), pair.bbRe.data(), pair.bbIm.data(), pair.bbAmp.data()});
  MakeIrfWindow(pair.irfMode, pair.enT, hw.deltaT, count, window);
  FilterResponse(
      pair, window, count,
      {pair.enIrRe.data(), pair.enIrIm.data(), pair.enRe.data(), pair.enIm.data(), pair.enAmp.data()});
  const std::vector<CycleMask> masks =
      CycleMasksOf(current.key, current.refChan, current.dspChan, n, 0.0, hw.deltaF);
  UnWrapLines(n, pair.hRe.data(), pair.hIm.data(), masks, pair.hPhase.data(), pair.phaseOrig.data(),
              pair.maskFlag.data());
  UnWrap_BackBone(n, pair.bbRe.data(), pair.bbIm.data(), pair.bbPhase.data(), pair.phaseBB.data());
  UnWrapLines(n, pair.enRe.data(), pair.enIm.data(), masks, pair.enPhase.data(), pair.phaseEn.data(),
              pair.maskFlag.data());
  return 0;
}

double DefaultIRFVelocity(int n, int set, const IrfDefaults& settings) {
  struct Row {
    double enhanced[4], backbone[4];
  };
  static constexpr Row kTable[2][3] = {
      {{{1250, 1200, 15, 7.5}, {1000, 950, 110, 100}},       // band-pass: geotechnical,
       {{4000, 3950, 550, 500}, {3000, 2950, 1550, 1500}},   // concrete,
       {{3000, 2950, 550, 500}, {2000, 1950, 1050, 1000}}},  // pavement
      {{{15, 7.5, 5, 2.5}, {350, 250, 10, 5}},               // low-pass
       {{500, 250, 10, 5}, {1000, 500, 20, 10}},
       {{500, 250, 100, 5}, {1000, 500, 20, 10}}}};
  const int mode = settings.irfMode, site = settings.siteCat;
  if (n < 1 || n > 4 || mode < 0 || mode > 1 || site < 0 || site > 2) return 0.0;
  const Row& row = kTable[mode][site];
  if (set == 0) return row.enhanced[n - 1];
  if (set == 1) return row.backbone[n - 1];
  return 0.0;
}

}  // namespace sondera
