// doubt_limits.h - the one table of limits for doubts and notes about a result.
//
// docs/inversion.md ("What to check before you believe it") has the same table with the reasons; a test
// compares the two.
#pragma once

namespace sondera {

struct DoubtLimits {
  // --- curves of receiver pairs ---
  double windowShare = 0.20;    ///< least share of the response's energy that the filter window keeps
  double coherence = 0.80;      ///< least coherence of a line
  double lowLines = 1.0 / 3.0;  ///< largest share of the lines used that may have less
  double noteSpacings = 2.0;    ///< a note from this wavelength on, in receiver spacings
  double farSpacings = 3.0;     ///< wavelengths beyond this many spacings are far ...
  double farSourceDistances =
      3.0;                     ///< ... and those beyond this many distances from source to first receiver
  double farPoints = 0.20;     ///< largest share of a curve's points with far wavelengths
  double disagreement = 0.15;  ///< largest difference of two pairs at one wavelength, of their mean velocity

  // --- inversion ---
  double misfit = 4.0;       ///< largest weighted misfit (mean squared residual in deviations) at the end
  double misfitRise = 1e-3;  ///< a misfit larger than the one before by this fraction has risen
  double resolution = 0.30;  ///< least resolution of a layer
  double factorOfVs = 0.02;  ///< a factor of Vs below it makes every resolution low
  double depthShare = 0.50;  ///< deepest top of the half-space, as a fraction of the longest wavelength
};
inline constexpr DoubtLimits kDoubtLimits{};

}  // namespace sondera
