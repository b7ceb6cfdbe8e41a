// phase_unwrap.cpp - wrapped spectrum phase to growing phase lag, for one receiver pair. See phase_unwrap.h.
#include "signal/phase_unwrap.h"

#include <algorithm>
#include <cmath>

#include "numeric/phase_angle.h"
#include "numeric/scale_arithmetic.h"
#include "records/measdb.h"

namespace sondera {
namespace {

constexpr double kCycle = 360.0;
constexpr double kJump = 300.0;                    // a larger step between neighbouring lines is a wrap
constexpr double kHalfJump = kJump / 2;            // bound of the first line; jump at the second line
constexpr double kLongStep = 0.8;                  // cycles; a larger step may open a stretch
constexpr double kDeepBefore = -0.4 * kJump;       // wrapped phase before such a stretch: below -120
constexpr double kRiseAcross = kLongStep * kJump;  // rise of the wrapped phase across it: above 240

/// Step of more than 300 degrees between two values, taken back by one cycle.
double RepairedStep(double value, double before) {
  const double d = value - before;
  if (!(std::fabs(d) > kJump)) return value;
  return d >= 0.0 ? value - kCycle : value + kCycle;
}

/// Wrapped phases of n lines; a first line beyond 150 degrees counts as 0.
void WrapPhases(int n, const double* re, const double* im, double* wrapped) {
  PhaseAngles(re, im, n, wrapped);
  if (std::fabs(wrapped[0]) > kHalfJump) wrapped[0] = 0.0;
}

/// Number of the mask on each line, counted from 1; 0 outside. Where masks overlap, the later one counts.
void LayOutMasks(std::span<const CycleMask> masks, int n, int* maskNumber) {
  std::fill_n(maskNumber, n, 0);
  int number = 0;
  for (const CycleMask& mask : masks) {
    ++number;
    for (int i = std::max(mask.lineInit, 0); i <= std::min(mask.lineFinal, n - 1); ++i)
      maskNumber[i] = number;
  }
}

/// Cycles that have passed, line after line.
class CycleCount {
 public:
  void Follow(double step) {
    if (step > kJump) ++cycles_;
    if (step < -kJump) --cycles_;
  }
  /// On a masked line: the number of the masked line before, initially 0.
  void Pin(int cycles) {
    cycles_ = carry_;
    carry_ = cycles;
  }
  double Degrees() const { return static_cast<double>(cycles_) * kCycle; }

 private:
  long long cycles_ = 0;
  int carry_ = 0;
};

/// Lines on which the count of cycles is wrong by `excess`, from `start` on; start 0: there is none.
struct Stretch {
  int start = 0, excess = 0;
};

/// Whether the wrapped phase rose across a stretch that ends before line i as it does across a true wrap.
bool EndsInATrueWrap(const Stretch& stretch, int i, const double* wrapped) {
  const double from = wrapped[stretch.excess > 0 ? stretch.start - 1 : stretch.start];
  return wrapped[i] > 0.0 && from < 0.0 && wrapped[i] - from > kRiseAcross;
}

}  // namespace

std::vector<CycleMask> CycleMasksOf(int key, int refChan, int dspChan, int n, double fStart, double deltaF) {
  std::vector<CycleMask> masks;
  if (!(deltaF > 0.0)) return masks;
  for (const MaskingInfo& m : MeasDB.maskingList) {
    if (m.key != key || m.refChan != refChan || m.dspChan != dspChan) continue;
    const int lo = TruncToInt((m.freqInit - fStart) / deltaF + 0.5);
    const int hi = TruncToInt((m.freqFinal - fStart) / deltaF + 0.5);
    const CycleMask run{std::max(lo, 0), std::min(hi, n - 1), m.jumpNo};
    if (run.lineInit <= run.lineFinal) masks.push_back(run);
  }
  return masks;
}

void UnWrapLines(int n, const double* re, const double* im, std::span<const CycleMask> masks, double* wrapped,
                 double* unwrapped, int* maskFlag) {
  if (n <= 0) return;
  WrapPhases(n, re, im, wrapped);
  LayOutMasks(masks, n, maskFlag);
  CycleCount count;
  unwrapped[0] = -wrapped[0];
  for (int i = 1; i < n; ++i) {
    if (maskFlag[i] != 0)
      count.Pin(masks[static_cast<std::size_t>(maskFlag[i] - 1)].cycles);
    else
      count.Follow(wrapped[i] - wrapped[i - 1]);
    unwrapped[i] = count.Degrees() - wrapped[i];
  }
  for (int i = 0; i < n; ++i) maskFlag[i] = maskFlag[i] != 0 ? 1 : 0;
}

void UnWrap_BackBone(int n, const double* re, const double* im, double* wrapped, double* unwrapped) {
  if (n <= 0) return;
  WrapPhases(n, re, im, wrapped);
  unwrapped[0] = -wrapped[0];
  if (n == 1) return;
  // Kept: never true, since such a first line has just become 0; it documents where the count begins.
  int cycles = wrapped[0] > kHalfJump ? 1 : 0;
  if (wrapped[1] - wrapped[0] > kHalfJump) ++cycles;
  unwrapped[1] = cycles * kCycle - wrapped[1];
  for (int i = 2; i < n; ++i) {
    if (wrapped[i] - wrapped[i - 1] > kJump) ++cycles;
    unwrapped[i] = cycles * kCycle - wrapped[i];
  }
  AdjustCycles(n, unwrapped, wrapped);
  // In place, so that each line is compared with its corrected neighbour.
  for (int i = 3; i < n; ++i) unwrapped[i] = RepairedStep(unwrapped[i], unwrapped[i - 1]);
}

void AdjustCycles(int n, double* unwrapped, const double* wrapped) {
  if (n < 3) return;
  double level = unwrapped[1] / kCycle;  // cycles of the trend; within a stretch the correct number
  Stretch open;
  for (int i = 2; i < n; ++i) {
    const double here = unwrapped[i] / kCycle, step = here - level;
    if (std::fabs(step) > kLongStep) {
      if (open.start > 0 || !(wrapped[i - 1] < kDeepBefore)) continue;
      open = {i, TruncToInt(step / kLongStep)};
      level = here - open.excess;
      continue;
    }
    level = here;
    if (open.start > 0 && EndsInATrueWrap(open, i, wrapped))
      for (int j = open.start; j < i; ++j) unwrapped[j] -= kCycle * open.excess;
    open = {};
  }
}

void UnWrap_Enhanced(int n, double /*argA*/, double /*argB*/, const double* re, const double* im,
                     double* wrapped, double* unwrapped, const double* wrappedB, const double* ref) {
  if (n < 2) return;
  unwrapped[1] = -wrapped[1];
  unwrapped[2] = -wrapped[2];
  for (int i = 3; i <= n; ++i) {
    wrapped[i] = PhaseAngle(re[i], im[i]);
    const double cycles = ref[i] >= 180.0 ? TruncToInt((ref[i] - 180.0) / kCycle) + 1.0 : 0.0;
    unwrapped[i] = cycles * kCycle - wrapped[i];
  }
  for (int i = 3; i <= n; ++i) {
    const double trial = RepairedStep(unwrapped[i], unwrapped[i - 1]);
    if (std::fabs(trial - ref[i]) < kJump) unwrapped[i] = trial;
  }
  AdjustCycles(n, unwrapped, wrappedB);
}

void UnWrap_Enhanced2(int n, const double* wrapped, double* unwrapped, const double* a, const double* b) {
  for (int i = 0; i < n; ++i) unwrapped[i] = TruncToInt((a[i] + b[i]) / kCycle) * kCycle - wrapped[i];
  AdjustCycles(n, unwrapped, wrapped);
  for (int i = 3; i <= n; ++i) {
    unwrapped[i] = RepairedStep(unwrapped[i], unwrapped[i - 1]);
    if (std::fabs(unwrapped[i] - b[i]) > kJump) unwrapped[i] += unwrapped[i] > b[i] ? -kCycle : kCycle;
  }
}

}  // namespace sondera
