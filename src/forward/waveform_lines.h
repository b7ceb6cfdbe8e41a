// waveform_lines.h - frequency response of a layered ground under a vertical point load, line by line.
//
// Each line is one evaluation of the point-load solver: a graded mesh for the plane wave's wavelength at that
// frequency, four wavelengths deep at least, and all receivers as nodes of the same evaluation.
// The response includes body waves, higher modes and near field. Damping is the same at all frequencies.
// Called by waveform.h. Units are those of the layers: lengths, velocities in that length per second, and
// density; forces in density times velocity squared times length squared. Time factor exp(+i omega t), load
// and motion positive downward. Owns no state.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "forward/point_load.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

struct WaveformLayer {
  double thickness = 0.0;  ///< the last layer is the half-space: its thickness is not used
  double Vs = 0.0, density = 1.8, nu = 0.25;
  double damping = 0.02;  ///< damping ratio
};

/// Settings for the computation of a line.
struct WaveformSite {
  std::vector<WaveformLayer> layers;
  std::vector<double> receivers;       ///< distances from the source, above 0, ascending
  int nSubLayers = 16;                 ///< sublayers per zone of the mesh
  double fDispBulb = kFirstMeshDepth;  ///< depth of the mesh over the wavelength; at least 4 is taken
};

inline constexpr double kLeastWaveformDamping = 0.005;  ///< below it the solver loses modes
inline constexpr double kLeastMeshDepth = 4.0;          ///< wavelengths; a shallower mesh is 5 % off and more
inline constexpr double kSafeWaveformNu = 0.45;         ///< above it a record is off by 3 % and more
inline constexpr int kMostWaveformReceivers = 1000;

/// Displacements of one frequency. Keeps its work space.
class LineSolver {
 public:
  /// Layers are used as given, without the least damping. They and the receivers must be valid.
  explicit LineSolver(const WaveformSite& site);
  LineSolver(const LineSolver&) = delete;
  LineSolver& operator=(const LineSolver&) = delete;

  /// Load radius for a mesh wavelength: small compared with it and with the nearest receiver.
  double LoadRadius(double wavelength) const;

  /// Vertical displacement of each receiver for a force of 1. False, with 0 everywhere, when the solver does
  /// not find all modes.
  bool Displacement(double frequency, double wavelength, std::vector<std::complex<double>>& u);

  const PointLoadInput& Input() const { return in_; }

 private:
  std::vector<double> h_, Vs_, G_, rho_, nu_, damp_;  // 1..layers
  double nearest_ = 0.0;
  int nReceivers_ = 0;
  PointLoadInput in_;
  PointLoadWork work_;
};

/// The lines of a run.
struct WaveformLines {
  double deltaF = 0.0;                               ///< distance between lines, Hz
  std::vector<std::vector<std::complex<double>>> u;  ///< [receiver][line], line 0 and lines left out are 0
  std::vector<int> withoutModes;                     ///< lines that were wanted and could not be computed
};

/// Whether a site can be computed.
Refusal CheckWaveformSite(const WaveformSite& site);

/// Sentences about a site that is computed with other values than given, or with less accuracy: one for each
/// kind, which names the layers.
std::vector<std::string> WaveformSiteNotes(const WaveformSite& site);

/// Computes the lines k with wanted[k], k from 1, at k * deltaF. Damping below the least is raised to it.
/// Refuses a site that CheckWaveformSite refuses; refuses without a reason after a halt, which it checks at
/// every line. `lines` changes only when all is done.
Refusal ComputeWaveformLines(const WaveformSite& site, double deltaF, const std::vector<bool>& wanted,
                             Listener& listener, WaveformLines& lines);

/// Full cycles between two receivers (from 0) at a line: the difference of the far one's phase lag and its wrapped
/// phase, which is within half a turn of 0. Counted along the lines that have a result.
int CyclesPassed(const WaveformLines& lines, std::size_t near, std::size_t far, std::size_t line);

}  // namespace sondera
