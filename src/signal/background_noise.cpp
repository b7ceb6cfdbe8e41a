// background_noise.cpp - energy that the time window removes, and the peaks that this energy rejects. See
// wave_groups.h. Owns no state.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "numeric/analysis.h"
#include "numeric/pi.h"
#include "numeric/scale_arithmetic.h"
#include "numeric/sort.h"
#include "records/session.h"
#include "signal/irf.h"
#include "signal/wave_groups.h"

namespace sondera {
namespace {

constexpr int kTimeFigures = 4;
constexpr double kShareOfLargest = 0.3;
constexpr int kNoisePeakWidth = 3;
constexpr int kLowLines = 2;  // lines that do not count for the largest amplitude

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

/// Absolute distance of the pair's receivers; 0 when a channel has no location.
double SpacingOf(const MeasSetup& setup, const PMeasInfo& pair) {
  const int known = static_cast<int>(setup.recLoc.size());
  if (std::min(pair.refChan, pair.dspChan) < 0 || std::max(pair.refChan, pair.dspChan) >= known) return 0.0;
  return std::fabs(setup.recLoc[At(pair.dspChan)] - setup.recLoc[At(pair.refChan)]);
}

/// 1 up to t3, half a cosine down to t4, then 0.
std::vector<double> OpenWindow(const WindowFour& times, double deltaT, int count) {
  const auto sample = [&](double time) { return TruncToInt(time / deltaT + 0.5); };
  const int t1 = sample(times[1]), t2 = sample(times[2]), t3 = sample(times[3]), t4 = sample(times[4]);
  const double first = t3, width = t4 == t3 ? 1.0 : static_cast<double>(t4) - t3;
  std::vector<double> window(At(count), 0.0);
  for (int i = 0; i < count; ++i) {
    if (i < t3)
      window[At(i)] = 1.0;
    else if (i <= t4)
      window[At(i)] = 0.5 * (1.0 + std::cos(kPi * (i - first) / width));
  }
  if (count > 0 && t1 == 0 && t2 == 0) window[0] = 1.0;
  return window;
}

/// Amplitude spectrum of the removed part of the impulse response, count / 2 lines.
std::vector<double> RemovedAmplitudes(const PMeasInfo& pair, const WindowFour& times, double deltaT,
                                      int count) {
  std::vector<double> window;
  if (pair.irfMode == kBandPass) {
    window = OpenWindow(times, deltaT, count);
  } else {
    window.resize(At(count));
    MakeIrfWindow(kLowPass, times, deltaT, count, window.data());
  }
  std::vector<double> re(At(count)), im(At(count));
  for (int i = 0; i < count; ++i) re[At(i)] = pair.irRe[At(i)] * (1.0 - window[At(i)]);
  RealFFT(re.data(), re.data(), im.data(), count);
  std::vector<double> amp(At(count / 2));
  for (std::size_t i = 0; i < amp.size(); ++i) amp[i] = std::sqrt(re[i] * re[i] + im[i] * im[i]);
  return amp;
}

/// Largest amplitude, the lowest lines counted as 0.
double LargestAmplitude(std::vector<double> amp) {
  std::fill_n(amp.begin(), std::min(amp.size(), At(kLowLines)), 0.0);
  double max = 0.0, min = 0.0;
  int atMax = 0, atMin = 0;
  MaxMin1D(amp.data(), static_cast<int>(amp.size()), &max, &atMax, &min, &atMin);
  return max;
}

/// Peak or first valley that a noise frequency rejects, searched upward; 0 for none.
int PeakOfBand(const ExtremeTable& extremes, double freq, double rowStep) {
  const bool beginsWithValley = extremes.Amp(1) <= 0.0;
  double lastPeak = beginsWithValley ? 0.0 : -1.0, lastValley = beginsWithValley ? -1.0 : 0.0;
  for (int e = 1; e <= extremes.count; ++e) {
    const double f = rowStep * extremes.Loc(e);
    if (extremes.IsValley(e)) {
      // Kept: without a peak before it the first entry is rejected, which is then a valley.
      if (lastPeak <= freq && freq <= f) return std::max(extremes.PeakAtOrBefore(e - 1), 1);
      lastValley = f;
    } else if (extremes.IsPeak(e)) {
      if (lastValley <= freq && freq <= f) return e;
      lastPeak = f;
    }
  }
  return 0;
}

}  // namespace

void IdentifyBGNoise(const HWSetup& hwSetup, const MeasSetup& measSetup, const PMeasInfo& pair,
                     NoiseTable& found) {
  found = NoiseTable{};
  const int count = 2 * FullTimeLines(hwSetup.nLines);
  if (hwSetup.nLines <= 0 || pair.irRe.size() < At(count)) return;
  const double spacing = SpacingOf(measSetup, pair);
  WindowFour times{};
  for (std::size_t k = 1; k <= 4; ++k) times[k] = NiceNumber(spacing / session.smV[k], kTimeFigures);
  const std::vector<double> amp = RemovedAmplitudes(pair, times, hwSetup.deltaT, count);
  const Peaks peaks = PeakDetector(amp.data(), static_cast<int>(amp.size()),
                                   kShareOfLargest * LargestAmplitude(amp), kNoisePeakWidth);
  found.count = std::min(peaks.count(), kMostNoisePeaks);
  std::size_t entry = 0;
  for (int k = peaks.count() - 1; k >= peaks.count() - found.count; --k) {
    const int line = TruncToInt(peaks.locations[At(k)] + 0.5);
    if (line >= hwSetup.nLines) continue;
    ++entry;
    found.loc[entry] = line;
    found.amp[entry] = peaks.amplitudes[At(k)];
    found.curv[entry] = peaks.secondDerivatives[At(k)];
  }
  sort3(found.count, found.amp.data(), found.loc.data(), found.curv.data(), nullptr, 1);
}

void RejectPeaksInNoise(const NoiseTable& noise, double deltaF, double rowStep, double finalFreq,
                        ExtremeTable& extremes) {
  if (extremes.count == 0) return;
  const int last = extremes.count;
  for (int j = 1; j <= noise.count; ++j) {
    const double freq = deltaF * noise.loc[At(j)];
    if (const int e = PeakOfBand(extremes, freq, rowStep); e != 0) extremes.Reject(e);
    if (extremes.IsPeak(last) && rowStep * extremes.Loc(last) <= freq && freq <= finalFreq) {
      extremes.Reject(last);
      return;
    }
  }
}

}  // namespace sondera
