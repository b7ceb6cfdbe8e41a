// plane_wave_table.h - phase velocity of the fundamental plane Rayleigh wave at any frequency.
//
// The solver needs wavelengths; a table of velocities over the relevant range gives them for frequencies.
// Used where lines of a spectrum need their wavelength. Units are those of the layers.
#pragma once

#include <vector>

namespace sondera {

/// A layer as the plane-wave solver needs it; the last one of a list is the half-space, without a thickness.
struct PlaneWaveLayer {
  double thickness = 0.0, Vs = 0.0, density = 0.0, nu = 0.0;
};

class PlaneWaveTable {
 public:
  PlaneWaveTable() = default;  ///< no curve: velocity 0 everywhere
  /// Solves at 600 wavelengths, evenly in the logarithm, from 100 times the depth of the half-space to a
  /// tenth of the first layer. Wavelengths before the first root and after the last one have no entry: the
  /// solver's range ends too early where the fastest layer has a higher Poisson's ratio than the first one, or
  /// the wave leaks. The layers must be valid.
  explicit PlaneWaveTable(const std::vector<PlaneWaveLayer>& layers);

  /// Every wavelength has a root, and frequency grows with each of them: a single curve.
  bool Whole() const { return whole_; }

  /// Linear between the entries, constant beyond both ends. Where a frequency has several wavelengths, the
  /// longest counts. 0 when no wavelength had a root.
  double Velocity(double frequency) const;
  /// The same for a wavelength.
  double VelocityAtWavelength(double wavelength) const;
  /// Lowest velocity of the table; 0 without a curve.
  double Slowest() const;

 private:
  bool whole_ = true;
  // ascending frequencies and their values; negative wavelengths, so that they ascend too
  std::vector<double> freq_, vel_, minusWlen_;

  double Interpolate(const std::vector<double>& x, double at) const;
};

}  // namespace sondera
