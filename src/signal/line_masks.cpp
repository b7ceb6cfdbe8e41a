// line_masks.cpp - rows, lines and masks of the automatic masking. See line_masks.h. Owns no state.
#include "signal/line_masks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "numeric/analysis.h"
#include "numeric/scale_arithmetic.h"

namespace sondera {
namespace {

constexpr double kLowRidge = 90.0;    // around a valley, a ridge up to this is masked throughout
constexpr double kFlankShare = 3.0;   // of a flank the lower third is masked
constexpr double kTopShare = 0.8;     // rows of the rest of the map above this share are masked
constexpr double kLeastShare = 0.25;  // of the largest backbone amplitude

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

/// Bands of the rejected peaks.
void MaskRejectedBands(const WaveGroups& groups, int nF, double threshold, std::vector<int>& mask) {
  const ExtremeTable& extremes = groups.extremes;
  for (int e = 1; e <= extremes.count; ++e) {
    if (!extremes.IsPeak(e) || !(extremes.Vel(e) <= 0.0)) continue;
    const int before = extremes.ValleyAtOrBefore(e - 1),
              behind = extremes.ValleyFrom(e + 1, extremes.count - 1);
    const int lo = std::max(before ? TruncToInt(extremes.Loc(before)) : 1, 1);
    const int hi = std::min(behind ? TruncToInt(extremes.Loc(behind)) : nF - 1, nF);
    for (int m = lo; m <= hi; ++m)
      if (groups.peakV[At(m - 1)] >= threshold) mask[At(m)] = 1;
  }
}

/// A valley of the ridge between two peaks: rows, and heights of the ridge.
struct Valley {
  int lo, centre, hi;          // rows of the peak below, the valley, the peak above
  double left, bottom, right;  // heights there
};

/// Masks the ridge up to kLowRidge and the lower third of both flanks.
void MaskValley(const Valley& valley, const std::vector<double>& ridge, std::vector<int>& mask) {
  const double leftLimit = valley.bottom + (valley.left - valley.bottom) / kFlankShare;
  const double rightLimit = valley.bottom + (valley.right - valley.bottom) / kFlankShare;
  for (int m = valley.lo; m <= valley.hi; ++m) {
    const double height = ridge[At(m - 1)];
    const double limit = m <= valley.centre ? leftLimit : rightLimit;
    if (height <= kLowRidge || (valley.bottom <= height && height <= limit)) mask[At(m)] = 1;
  }
}

/// Surroundings of the valleys.
void MaskValleys(const WaveGroups& groups, int nF, std::vector<int>& mask) {
  const ExtremeTable& extremes = groups.extremes;
  Valley valley{};  // Kept: without a peak above, upper end and right height are those of the valley before
  for (int e = 1; e <= extremes.count; ++e) {
    if (!extremes.IsValley(e) || !(extremes.Vel(e) > 0.0)) continue;
    const int below = extremes.PeakAtOrBefore(e - 1), above = extremes.PeakFrom(e + 1, extremes.count - 1);
    valley.centre = TruncToInt(extremes.Loc(e));
    valley.bottom = std::fabs(extremes.Amp(e));
    valley.lo = std::max(below ? TruncToInt(extremes.Loc(below)) : 1, 1);
    valley.left = below ? std::fabs(extremes.Amp(below)) : valley.bottom;
    if (above) {
      valley.hi = std::min(TruncToInt(extremes.Loc(above)), nF);
      valley.right = std::fabs(extremes.Amp(above));
    }
    MaskValley(valley, groups.peakV, mask);
  }
}

/// Sets lines first to last as far as they exist.
void SetLines(int first, int last, std::vector<int>& lineMask) {
  const int from = std::max(first, 0), to = std::min(last, static_cast<int>(lineMask.size()) - 1);
  for (int i = from; i <= to; ++i) lineMask[At(i)] = 1;
}

/// Passes each run of ones in mask[0..n-1] to `take(first, last, ended)`: first is the entry before the run
/// (0 for a run from the start), last its last entry, or n - 1 for a run up to the end. A run that consists
/// of the last entry only is left out.
template <class Take>
void ForEachRun(const std::vector<int>& mask, int n, Take take) {
  int first = 0;
  for (int m = 0; m <= n - 2; ++m) {
    const bool here = mask[At(m)] == 1, next = mask[At(m + 1)] == 1;
    if (!here && next) first = m;
    if (here && !next) take(first, m);
    if (here && next && m == n - 2) take(first, n - 1);
  }
}

}  // namespace

std::vector<int> MakeGridMask(const WaveGroups& groups, int nF, double threshold) {
  std::vector<int> mask(At(std::max(nF, 0) + 1), 0);
  if (groups.peakV.size() < At(std::max(nF, 0))) return mask;
  MaskRejectedBands(groups, nF, threshold, mask);
  MaskValleys(groups, nF, mask);
  for (int m = 0; m < nF; ++m)
    if (groups.peakV[At(m)] <= threshold) mask[At(m)] = 1;
  return mask;
}

std::vector<int> MakeLineMask(const std::vector<int>& gridMask, int nF, double rowStep, const PMeasInfo& pair,
                              const HWSetup& hw) {
  const int lines = std::clamp(hw.nLines, 0, pair.capacity());
  std::vector<int> lineMask(At(lines), 0);
  if (lines == 0) return lineMask;
  const auto lineOfRow = [&](double row) { return TruncToInt(row * rowStep / hw.deltaF); };
  for (int i = 0; i < lines; ++i)
    if (pair.hAmp[At(i)] <= 0.0) lineMask[At(i)] = 1;
  ForEachRun(gridMask, nF,
             [&](int first, int last) { SetLines(lineOfRow(first), lineOfRow(last), lineMask); });
  lineMask.back() = 1;
  SetLines(lineOfRow(kTopShare * (nF - 1)), lineOfRow(nF - 1), lineMask);
  double largest = 0.0, smallest = 0.0;
  int atLargest = 0, atSmallest = 0;
  MaxMin1D(pair.bbAmp.data(), lines, &largest, &atLargest, &smallest, &atSmallest);
  for (int i = 1; i < lines; ++i)
    if (pair.bbAmp[At(i)] < kLeastShare * largest) lineMask[At(i)] = 1;
  return lineMask;
}

int AppendMasks(const std::vector<int>& lineMask, const PMeasInfo& pair, const HWSetup& hw) {
  int made = 0;
  const double bandEnd = BandEnd(hw);
  ForEachRun(lineMask, static_cast<int>(lineMask.size()), [&](int first, int last) {
    const double from = first * hw.deltaF, to = last * hw.deltaF;
    if (from > bandEnd) return;  // nothing of it lies within the band
    MaskingInfo& mask = *MeasDB.maskingList.append();
    mask.key = pair.key;
    mask.refChan = pair.refChan;
    mask.dspChan = pair.dspChan;
    mask.freqInit = from;
    mask.freqFinal = std::min(to, bandEnd);
    mask.lineInit = TruncToInt(from / hw.deltaF);
    mask.lineFinal = TruncToInt(to / hw.deltaF);
    ++made;
  });
  return made;
}

}  // namespace sondera
