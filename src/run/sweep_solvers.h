// sweep_solvers.h - both solvers on the layers of a run, with the poll for a halt after each call, and the
// progress line. Callers: the sweeps. Owned state: none; adds doubts to those of the sweep.
#pragma once

#include <string>

#include "forward/point_load.h"
#include "run/sweep.h"

namespace sondera {

/// Starting values of the point-load solver, and the place of a point.
struct PairQuestion {
  int iPoint = 0, iSlot = 0;  ///< point (or frequency) and slot of its tables, from 1
  double freq = 0.0, vel = 0.0, wavelength = 0.0;
  std::string name;  ///< for the list of doubts
};

struct PairAnswer {
  double vel = 0.0;  ///< 0: no result
  double amp = 0.0;  ///< amplitude ratio of farther over nearer receiver
  double recAmp[3] = {0.0, 0.0, 0.0};
  bool halted = false;
};

/// The solvers of one sweep, with their work space.
class SweepSolvers {
 public:
  /// Clears the doubts of the sweep.
  /// @param nPoints  stride of the set-up tables: points of the global curve, frequencies of array curves
  SweepSolvers(const SweepParts& parts, int nPoints, Listener& listener);
  void SetStride(int nPoints) { input_.nPoints = nPoints; }

  /// Plane-wave velocity at a wavelength, 0 without a root; then the poll. @return false when halted
  bool PlaneWave(double wavelength, double& velocity);

  /// Apparent velocity of a receiver pair; then the poll. Adds a doubt.
  PairAnswer PointLoad(const PairQuestion& question);

  const LayeredGround& Ground() const { return ground_; }

 private:
  const LayeredGround& ground_;
  SweepState& doubts_;
  Listener& listener_;
  PointLoadInput input_;
  PointLoadWork work_;
  bool usable_ = true;  ///< the solver accepts settings and layers
};

/// Progress lines.
std::string GlobalProgress(int iPoint, double freq, double wavelength, double vel);
/// Array curves, "(F,D)" in a run without data and "[F,D]" in one with data.
std::string ArrayProgress(bool withData, int iFreq, int iPair, double freq, double wavelength, double vel);
/// Global curve by frequency.
std::string SlotProgress(int iPoint, int iSlot, double freq, double wavelength, double vel);

/// Amplitude factor of stored results.
inline constexpr double kAmplitudeFactor = 1.0;

}  // namespace sondera
