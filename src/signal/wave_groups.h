// wave_groups.h - frequency bands of a coherent wave group, from an enhanced Gabor map, and the energy
// outside the time window that speaks against them. First half of the automatic masks.
//
// The ridge of the map, its largest value at each frequency, is searched for peaks (bands with energy) and
// valleys (gaps between them). A peak is rejected when its group arrives faster or slower than the site
// allows, or when noise outside the window is strongest in its band.
#pragma once

#include <array>
#include <vector>

#include "records/measdb.h"

namespace sondera {

inline constexpr int kMostExtremes = 20;  ///< ten peaks and ten valleys
inline constexpr int kMostNoisePeaks = 10;

/// Peaks and valleys of the ridge by ascending row. Entries 1..count; entry 0 is unused.
struct ExtremeTable {
  int count = 0;
  std::array<double, kMostExtremes + 1> loc{};  ///< row of the map, whole
  /// Height of the ridge: positive for a peak, negative for a valley.
  std::array<double, kMostExtremes + 1> amp{};
  std::array<double, kMostExtremes + 1> curv{};  ///< second derivative of the fitted parabola
  /// Group velocity of a peak, negative once it is rejected; 1e-5 for a valley.
  std::array<double, kMostExtremes + 1> vel{};

  bool IsPeak(int e) const { return amp[static_cast<std::size_t>(e)] > 0.0; }
  bool IsValley(int e) const { return amp[static_cast<std::size_t>(e)] < 0.0; }
  double Loc(int e) const { return loc[static_cast<std::size_t>(e)]; }
  double Amp(int e) const { return amp[static_cast<std::size_t>(e)]; }
  double Vel(int e) const { return vel[static_cast<std::size_t>(e)]; }
  void Reject(int e);
  /// Nearest peak or valley at `from` or below, or at `from` up to `to`; 0 when there is none.
  int PeakAtOrBefore(int from) const;
  int ValleyAtOrBefore(int from) const;
  int PeakFrom(int from, int to) const;
  int ValleyFrom(int from, int to) const;
};

/// Result of IdentifyWaveGroup. Rows f = 0..nF-1, columns t = 0..nT-1.
struct WaveGroups {
  std::vector<double> Z;      ///< scaled map, Z[t * nF + f], between the threshold and 100
  std::vector<double> peakV;  ///< [nF] ridge: the largest value at each frequency
  std::vector<double> peakT;  ///< [nF] its column, the first one; nT for a flat row
  ExtremeTable extremes;
  int nPeaks = 0, nValleys = 0;
};

/// Scales a map and finds the extremes of its ridge: the ten highest peaks at or above the threshold (five
/// points wide) and the ten deepest valleys, at least 5 below 100 (three points wide).
/// The velocity of a peak is spacing / (column * time step), with the step from tInit to tFinal; at or above
/// smV[1] or below smV[4] of the session, and at column 0, the peak is rejected.
/// @param nF, nT     rows and columns, 1 to 50; others find nothing
/// @param grid       the map, rows of nT values; null finds nothing. panels/sasw_pair.h has the form that makes one
/// @param threshold  floor of the scaled map
/// @param spacing    distance of the receivers, length units
/// Kept: the code assumes rows of nT values, while maps are stored in rows of 50; the two agree for 50 time
/// divisions only, and with fewer the map is read with wrong rows.
void IdentifyWaveGroup(int nF, int nT, double tInit, double tFinal, const double* grid, double threshold,
                       double spacing, WaveGroups& found);

/// Peaks of the energy that the time window removes, by ascending amplitude. Entries 1..count.
struct NoiseTable {
  int count = 0;
  std::array<double, kMostNoisePeaks + 1> loc{};  ///< frequency line, whole
  std::array<double, kMostNoisePeaks + 1> amp{}, curv{};
};

/// Transforms the part of the impulse response that the widest window of the session's smV removes, and finds
/// the peaks of its amplitude of at least 0.3 of the largest (lines 0 and 1 do not count for that): of all
/// peaks the ten at the highest frequencies.
/// Kept: the band-pass window has no lower taper here; and a peak beyond the last line keeps its place in the
/// count, so the table may begin with entries of zero.
void IdentifyBGNoise(const HWSetup& hwSetup, const MeasSetup& measSetup, const PMeasInfo& pair,
                     NoiseTable& found);

/// Rejects the peaks whose band, from valley to valley, holds a peak of the noise.
/// @param deltaF     line spacing, Hz
/// @param rowStep    step of the map's rows, Hz
/// @param finalFreq  end of the map, Hz
/// Kept: rows count from 0 Hz for every first frequency of the map; noise below a first valley rejects that
/// valley; and noise above a last peak ends the search for the others.
void RejectPeaksInNoise(const NoiseTable& noise, double deltaF, double rowStep, double finalFreq,
                        ExtremeTable& extremes);

/// 1 to 50 rows and columns.
bool IsMapSize(int nF, int nT);

/// Step between the points of an axis of a map; 0 for a single point.
double MapStep(double first, double last, int points);

}  // namespace sondera
