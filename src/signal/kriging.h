// kriging.h - ordinary kriging: estimates the value at a place from scattered values around it.
//
// Numbers only; the section image calls it. The textbook form inverts the matrix of the variogram between all
// samples, makes weights for a place from it, and sums. Here one factorisation serves all places that have
// the same samples around them: with the correlations E between the samples and e of each sample with the
// place,
//   value = level + e' E^-1 (z - level),   level = (1' E^-1 z) / (1' E^-1 1),
// which is the same number. Nugget and sill cancel in it. Places and lags are in one unit of length, values
// in any unit. Owns no state. Source: Matheron's ordinary kriging in its dual form (Journel and Huijbregts,
// Mining Geostatistics, 1978).
#pragma once

#include <cstddef>
#include <vector>

#include "runtime/listener.h"

namespace sondera {

enum KrigingModel : int { kSpherical = 1, kExponential = 2, kGaussian = 3 };

/// Variogram at lag h >= 0: nugget c0, partial sill c, range a > 0. Another model than the three above gives
/// NaN.
///   spherical    c0 + c (1.5 h/a - 0.5 (h/a)^3) below a, c0 + c from there on
///   exponential  c0 + c (1 - exp(-3 h/a))
///   Gaussian     c0 + c (1 - exp(-3 h^2/a^2))
double Variogram(int model, double h, double c0, double c, double a);

/// Result of a neighbourhood.
enum class KrigingResult {
  kDone,
  kSamePlace,  ///< two samples at one place: the system is singular
  kSingular,   ///< a pivot that is not above 0: samples too close for the model, or bad numbers
  kHalted,
};

/// Solves neighbourhoods. Keeps its work space: from the second neighbourhood of a size on, nothing is
/// allocated.
class KrigingSolver {
 public:
  /// Factorises and solves the system of n >= 1 samples at (x, y) with values z, indices from 0.
  /// @param[in]  model, a   variogram and its range
  /// @param[in]  samePlace  samples nearer than this count as one place
  /// @param[out] dual       n values, for DualValue; untouched unless the result is kDone
  /// @param[out] level      the mean that kriging estimates
  /// With kSamePlace, first() and second() are the indices of the first such pair.
  KrigingResult Solve(int model, int n, const double* x, const double* y, const double* z, double a,
                      double samePlace, Listener& listener, double* dual, double* level);

  int first() const { return first_; }
  int second() const { return second_; }

 private:
  std::size_t ld_ = 0;  // row length of matrix_
  std::vector<double> matrix_, ones_;
  int first_ = 0, second_ = 0;

  KrigingResult Fill(int model, int n, const double* x, const double* y, double a, double samePlace);
  KrigingResult Factorise(int n, Listener& listener);
  void SolveFor(int n, double* b) const;
};

/// Value at (x0, y0) from a solved neighbourhood. The range may differ from that of the solution. Not below 0
/// (a velocity); NaN where it is not finite.
double DualValue(int model, int n, const double* x, const double* y, const double* dual, double level,
                 double a, double x0, double y0);

/// Most samples of one neighbourhood: the matrix grows with their square.
inline constexpr int kMostKrigingSamples = 2500;

/// The range for the correlations with the place: the range of the matrix without its fraction, or the range
/// itself below 1. Kept: the two differ, so the image does not pass exactly through the data (0.4 % of the
/// spread of the values for a = 2.5, 0.06 % at most from 24 on).
double RangeOfPlace(double a);

/// Samples within this distance count as one place: 1e-9 of the diagonal of limits xMin, xMax, yMin, yMax.
double SamePlaceDistance(const double* limits);

/// Value at (x0, y0) of ns samples, 0..ns-1. One place, solved from the start.
/// @param[in]  limits  xMin, xMax, yMin, yMax, for SamePlaceDistance
/// @param[in]  c0, c   nugget and sill: they cancel, and only c = 0 (equal values) matters
/// @param[out] value   not below 0; untouched unless the result is 0
/// Equal values give that value. Returns -1 for a singular system, no samples or more than
/// kMostKrigingSamples.
int kriging(int model, int ns, const double* zs, const double* limits, const double* xs, const double* ys,
            double c0, double c, double a, double x0, double y0, double* value);

}  // namespace sondera
