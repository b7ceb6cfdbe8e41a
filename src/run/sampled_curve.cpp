// sampled_curve.cpp - see sampled_curve.h.
#include "run/sampled_curve.h"

#include <algorithm>
#include <cmath>

#include "numeric/fit.h"

namespace sondera {
namespace {

constexpr int kMaxSteps = 200;  // at each end
constexpr int kWindow = 10;     // samples of an interpolation
constexpr int kBefore = 5;      // of these before the bracket
constexpr int kLastWindow = kSampledPoints - kWindow + 1;
constexpr double kStart = 1.1, kShorter = 0.7, kLonger = 1.3;

/// Shortest wavelength: a point without a root has not reached fMax yet.
bool FindShortEnd(SweepSolvers& solvers, double fMax, double& L) {
  L = SmallestVs(solvers.Ground()) * kStart / fMax;
  for (int step = 0; step < kMaxSteps; ++step) {
    L *= kShorter;
    double c = 0.0;
    if (!solvers.PlaneWave(L, c)) return false;
    if (c > 0.0 && c / L >= fMax) break;
  }
  return true;
}

/// Longest wavelength: a point without a root is the end.
bool FindLongEnd(SweepSolvers& solvers, double fMin, double fMax, double& L) {
  L = LargestVs(solvers.Ground()) * kStart / fMax;
  for (int step = 0; step < kMaxSteps; ++step) {
    L *= kLonger;
    double c = 0.0;
    if (!solvers.PlaneWave(L, c)) return false;
    if (!(c > 0.0) || c / L < fMin) break;
  }
  return true;
}

/// First of the ten samples for a frequency.
int WindowStart(const SampledCurve& curve, double freq) {
  for (int i = 1; i < kSampledPoints; ++i) {
    if ((freq - curve.freq[i]) * (freq - curve.freq[i + 1]) <= 0.0)
      return std::clamp(i - kBefore, 1, kLastWindow);
  }
  return kLastWindow;
}

/// Whether ten samples allow a polynomial: all with a root, at different frequencies.
bool WindowIsUsable(const SampledCurve& curve, int start) {
  for (int i = start; i < start + kWindow; ++i) {
    if (!(curve.vel[i] > 0.0)) return false;
    for (int j = start; j < i; ++j)
      if (curve.freq[j] == curve.freq[i]) return false;
  }
  return true;
}

}  // namespace

bool SampleCurve(SweepSolvers& solvers, double fMin, double fMax, SampledCurve& curve) {
  double shortEnd = 0.0, longEnd = 0.0;
  if (!FindShortEnd(solvers, fMax, shortEnd) || !FindLongEnd(solvers, fMin, fMax, longEnd)) return false;
  const double first = std::log10(shortEnd);
  const double step = (std::log10(longEnd) - first) / (kSampledPoints - 1);
  for (int i = 1; i <= kSampledPoints; ++i) {
    const int at = kSampledPoints + 1 - i;
    const double L = std::pow(10.0, first + (i - 1) * step);
    if (!solvers.PlaneWave(L, curve.vel[at])) return false;
    curve.freq[at] = curve.vel[at] > 0.0 ? curve.vel[at] / L : 0.0;
  }
  return true;
}

double VelocityAt(const SampledCurve& curve, double freq) {
  const int start = WindowStart(curve, freq);
  if (!WindowIsUsable(curve, start)) return 0.0;
  double velocity = 0.0, error = 0.0;
  FS_polint(curve.freq.shifted() + start - 1, curve.vel.shifted() + start - 1, kWindow, freq, &velocity,
            &error);
  return std::isfinite(velocity) && velocity > 0.0 ? velocity : 0.0;
}

}  // namespace sondera
