// dispersion.h - experimental dispersion curves: from the unwrapped phase of a receiver pair to phase
// velocity against frequency and wavelength.
//
// With receivers a distance d apart and an unwrapped phase of p degrees at frequency f, d holds p / 360
// wavelengths: the wavelength is 360 d / p and the phase velocity is wavelength * f. Lines under a mask are
// left out, and so are wavelengths that are too long for the distance from the source to the nearer receiver
// (near field).
//
// The curve is kept in the pair's record and holds until the next calculation for that pair; it does not
// follow later changes of masks or windows. The DISPCURV page is served by dispersion_panel.h, its drawing by
// plot/.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// What a curve is made of. Lines count from 0; line i is at firstFreq + i * deltaF.
struct CurveLines {
  const double* phase = nullptr;         ///< unwrapped, degrees, lines values
  const int* maskFlag = nullptr;         ///< not 0: the line is left out; lines values
  int lines = 0;                         ///< lines 1 to lines - 1 are used, line 0 never
  int maxLine = 0;                       ///< and none above this one
  double firstFreq = 0.0, deltaF = 0.0;  ///< Hz
  double spacing = 0.0;                  ///< distance of the receivers, length units
  double srcToR1 = 0.0;                  ///< distance of source and reference receiver, length units
  double alphaWlen = 0.25;               ///< a line is taken when wavelength * alphaWlen <= srcToR1
};

/// Computes the points of a curve, packed, frequency ascending (for deltaF > 0). A negative phase gives a
/// negative wavelength and a phase of 0 an infinite one: both are left out, whatever alphaWlen.
/// @param[out] vel   length units per second
/// @param[out] freq  Hz
/// @param[out] wlen  length units; each with room for lines - 1 points
/// Returns the number of points.
int CalcDispersionPoints(const CurveLines& in, double* vel, double* freq, double* wlen);

/// Button MASKINGCALCDISP: computes the curve of the current pair (FindCurrentPair(Panel::SASW)) up to the
/// end of the analysis band, with alphaWlen from HYX_WLENFILTER and the phase of DISPCURV_OPTION, which
/// become those of the session and the pair. The pair's spectra and phases are brought up to date first; a
/// missing record is made. Ends with DispCurvPlot(1). A curve without a point is excluded, any other
/// included. -1 on window B, without a measurement, for one whose sampling or places break the rules
/// (MeasurementFault), or when source or receivers stand at the same place, with a message (none without a
/// measurement).
int MaskingCalcDispCallback(Panel panel, ControlId control, Event event, long data);

/// Menu "Calculate": the same with six differences that callers count on. Without a measurement nothing
/// happens; no test of the window and none of the distances; alphaWlen and phase are those last used; all
/// lines take part, and line i is at startFreq + i * deltaF.
int MaskingCalcDispMenuCallback(Panel panel, ControlId control, Event event, long data);

/// HYX_WLENFILTER on commit: the criterion of the session and of the text import.
int UpdateWLenFilterCallback(Panel panel, ControlId control, Event event, long data);

/// RSPACING: shows the field of the spacing (1) or the controls of single locations.
int RSpacingOptionCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
