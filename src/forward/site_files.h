// site_files.h - writes records of a synthetic site as import files.
//
// Text in the C locale, nine digits, one line per sample or spectral line. Callers: the examples and tests.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "forward/synthetic_site.h"

namespace sondera {

/// The survey of the examples: the standard ground, a single hammer blow at 0 m, receivers at 10, 14, 22, 30,
/// 42 and 54 m, 2048 samples of 1 ms, a tenth of a second of them before the blow. Wind noise dominates below
/// 7 Hz: there the phase is noise, and without masks most pairs count a wrong number of cycles.
SyntheticSite ExampleSite();
SiteRecording ExampleRecording();

/// Mean spectra of some blows, against the first receiver. Lines 0..nSamples/2, one more than a power of two.
struct SiteSpectra {
  double deltaF = 0.0;
  std::vector<std::vector<double>> power;                ///< [receiver][line], 2 |X|^2 / n^2
  std::vector<std::vector<std::complex<double>>> cross;  ///< [receiver][line], 2 X conj(X of the first) / n^2

  /// Transfer function of a receiver: mean cross spectrum over mean power of the first.
  std::vector<std::complex<double>> Transfer(std::size_t receiver) const;
  /// Coherence of a receiver with the first, 0 to 1; 1 everywhere for a single blow.
  std::vector<double> Coherence(std::size_t receiver) const;
};

/// Blows 1..nBlows at the site. Empty where the simulator has a fault or nBlows is below 1.
SiteSpectra MeanSpectra(const SiteSimulator& site, const SiteRecording& recording, int nBlows);

/// The pair of the examples: the receivers at 14 and 30 m, five blows; its transfer function is cut to the
/// band of the wave, 0 to 62 Hz.
SiteSpectra ExamplePair(const SiteSimulator& site);
inline constexpr std::size_t kExamplePairLines = 128;

/// Time record (.tim): time and value.
std::string TimFileText(const SiteRecording& recording, const std::vector<double>& samples);

/// Transfer function or cross spectrum (.hyx, .gyx): frequency, real and imaginary part.
/// @param lines  how many of the first lines; 0: all
std::string SpectrumFileText(double deltaF, const std::vector<std::complex<double>>& values,
                             std::size_t lines = 0);

/// Dispersion curve of the ground, for each point: frequency, velocity, half width (0), wavelength; evenly
/// spaced in the logarithm from `from` to `to`. Lines that begin with # describe it.
std::string TrueCurveText(const SiteSimulator& site, double from, double to, int points);

/// Layers of the ground: depth of the top, thickness (0 for the half-space), shear-wave velocity.
std::string TrueLayersText(const SyntheticSite& site);

}  // namespace sondera
