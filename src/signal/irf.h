// irf.h - impulse response filtration: two cosine-tapered time windows on the impulse response of a pair, the
// filtered spectra, and the three unwrapped phases.
//
// The impulse response shows how energy travels from one receiver to the other; energy outside the delays
// that a surface wave can have is noise. The backbone window is wide and safe and gives the number of cycles;
// the enhanced window is narrower and gives the usual curve. CalcIRF is the one routine that updates a pair:
// every change of a mask, a window or a spectrum calls it last. panels/sasw_pair.h has its form for the pair
// that a page shows.
//
// Window times T1 <= T2 <= T3 <= T4 are kept per pair, in seconds, from 1 to 4 of bbT and enT; a fourth time
// of 0 means "not set". Pseudo velocities (spacing / delay) are kept per session in m/s (session.bbV,
// session.smV). Only this file and RefreshIRFwindow divide them by the length unit of the measurement.
#pragma once

#include <array>

#include "records/selection.h"

namespace sondera {

/// irfMode of a pair.
inline constexpr int kBandPass = 0;
inline constexpr int kLowPass = 1;

/// Times or velocities 1 to 4; entry 0 is unused.
using WindowFour = std::array<double, 5>;

/// Lengths that the windows of a pair depend on.
struct IrfGeometry {
  double total = 0.0;  ///< length of the record, (2 nLines - 1) * deltaT, s
  double spacing =
      0.0;  ///< location of the display channel minus that of the reference, length units, signed
  double velScale = 1.0;  ///< metres per unit; 1 where the record holds none above 0
};
/// False when measurement or setup is missing or has no location for one of the channels.
bool GetIrfGeometry(const CurrentPair& current, IrfGeometry& geometry);

/// Times of a window from pseudo velocities: spacing / (velocity / velScale), to four figures.
WindowFour TimesFromVelocities(double spacing, const WindowFour& velocity, double velScale);

/// Cosine-tapered window over count samples of deltaT seconds; a time belongs to sample int(T / deltaT +
/// 0.5). Band-pass: 0 up to T1, rising to 1 at T2, 1 until T3, falling to 0 at T4, 0 after. Low-pass: 1 up to
/// T1, falling to 0 at T2, 0 until T3, rising to 1 at T4, 1 after. A taper from sample i1 to i2 is (1 +
/// cos(pi d / (i2 - i1))) / 2 with both ends included; i1 = i2 gives a step of one sample, which is 1. Where
/// windows overlap the taper T1..T2 is written last. Samples outside the record are left out.
/// @param[out] window  count values
void MakeIrfWindow(int mode, const WindowFour& times, double deltaT, int count, double* window);

/// Applies both windows of a pair, transforms back and unwraps its three curves, with the masks of the pair.
/// @param reset  1 sets all window times from the session's velocities; times that are not set are set in any
///               case
/// At a spacing of 0 both windows become low-pass with T1, T2 = 0.4, 0.45 of the record and T3, T4 at its
/// Only the real part of a windowed response is transformed; bbIrIm and enIrIm are for display. An impulse
/// response that begins with NaN (possible in a project file) is calculated again. Two transforms of 2 nLines
/// points. Returns 0; -1, with nothing done, without such a measurement or pair record.
int CalcIRF(int reset, const CurrentPair& current);

/// Settings of the filtration panel that select a set of default velocities.
struct IrfDefaults {
  int irfMode = kLowPass;  ///< IRFMODE: kBandPass or kLowPass
  int siteCat = 0;         ///< SITECAT: 0 geotechnical, 1 concrete, 2 pavement
};
/// Default pseudo velocity, m/s.
/// @param n    1 to 4
/// @param set  0 enhanced, 1 backbone
/// Any other number, mode or category gives 0.
double DefaultIRFVelocity(int n, int set, const IrfDefaults& settings);

}  // namespace sondera
