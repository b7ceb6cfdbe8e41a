// dispersion.h - experimental dispersion curves: from the unwrapped phase of a receiver pair to phase
// velocity against frequency and wavelength.
//
// With receivers a distance d apart and an unwrapped phase of p degrees at frequency f, d holds p / 360
// wavelengths: the wavelength is 360 d / p and the phase velocity is wavelength * f. Lines under a mask are
// left out, and so are wavelengths that are too long for the distance from the source to the nearer receiver
// (near field).
//
// The curve is stored in the pair's record and stays until the next calculation for that pair; later changes
// of masks or windows do not change it. panels/sasw_dispersion.h has the button and the menu entry. No state.
#pragma once

#include "records/selection.h"
#include "runtime/refusal.h"

namespace sondera {

/// Input for a curve. Lines count from 0; line i is at firstFreq + i * deltaF.
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

/// Computes the points of a curve, without gaps, in ascending frequency (for deltaF > 0). A negative phase
/// gives a negative wavelength and a phase of 0 an infinite one: both are left out for every alphaWlen.
/// @param[out] vel   length units per second
/// @param[out] freq  Hz
/// @param[out] wlen  length units; each with room for lines - 1 points
/// Returns the number of points.
int CalcDispersionPoints(const CurveLines& in, double* vel, double* freq, double* wlen);

/// Why a measurement has no curve: its sampling or positions break the rules (MeasurementFault).
Refusal CheckMeasurementOfCurve(const MeasRecords& records);

/// Distances of a pair, length units; both 0 when a channel has no location.
struct PairDistances {
  double srcToR1 = 0.0;  ///< of source and reference receiver
  double spacing = 0.0;  ///< of the receivers
};
PairDistances DistancesOf(const CurrentPair& current);

/// Lines of a pair that make its curve. Line i is at firstFreq + i * deltaF.
struct CurveRange {
  double firstFreq = 0.0;  ///< Hz
  int maxLine = 0;         ///< the last one
};

/// Computes the curve of the pair from the phase that its phaseOption selects, with the session's wavelength
/// criterion, and stores it in the record. A curve without points is excluded, any other included. A record
/// that begins above 0 Hz without a mask that gives the cycles below adds a doubt (AddDoubt).
void MakeDispersionCurve(PMeasInfo& pair, const CurrentPair& current, const CurveRange& range);

}  // namespace sondera
