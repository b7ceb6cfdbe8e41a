// gabor.h - maps of the energy of a transfer function over frequency and group delay.
//
// A Gauss band-pass about the row's frequency and the envelope of the filtered signal, in dB, make each row
// of a map. The map shows which part of a record belongs to the surface wave group: the automatic masks use
// it, and the display "Gabor Spectrum" shows it.
//
// A pair has three maps, one per phase option: 0 of the original spectrum, 1 of the enhanced, 2 of the
// backbone one. Rows are frequencies, columns times, 50 by 50 at most. When a window, a mask or the averages
// change, a map is out of date until it is calculated again.
// Source: Gabor, Theory of communication, 1946; the filter of multiple filter analysis, Dziewonski, Bloch
// and Landisman, 1969.
#pragma once

#include <functional>
#include <vector>

#include "numeric/analysis.h"
#include "numeric/dcomplex.h"
#include "records/selection.h"
#include "runtime/listener.h"

namespace sondera {

/// Value of a cell without energy, dB. Scaling replaces it by the smallest value of the map.
inline constexpr double kNoEnergy = -100000.0;

/// Finds the pair of a computation. It is called again after each poll, since the events of a poll may remove
/// the pair.
using PairFinder = std::function<CurrentPair()>;

/// Fills the map that phaseOption of the pair selects (0 original, 1 enhanced, 2 backbone).
/// @param find      the pair; panels/sasw_pair.h has the form for the pair that a page shows
/// @param listener  polled once, before the rows; told about the time without response
/// Rows from initFreq to finalFreq (Hz), columns from initTime to finalTime (s), freqDiv and timeDiv of them;
/// divisions above 50 become 50. A finalTime of exactly 0 means "not set": then all four ends follow from the
/// absolute spacing, the session's smV[4] in plain length units, and the analysis band. A column within the
/// record without energy, or directly after its last sample, is kNoEnergy; columns outside the record stay 0.
/// Without a pair record, or with 0 divisions, nothing happens. One transform per row, of twice the number of
/// lines up to a power of two; no allocation per row.
/// Kept: when the number of lines is not a power of two, the filter of a row uses the frequencies of the
/// longer record.
void CalcGabor(const PairFinder& find, Listener& listener);

/// The three maps of the same pair, one after the other; phaseOption is left as it was.
void CalcGaborMaps(const PairFinder& find, Listener& listener);

/// Gauss band-pass about f over the lines of a transform of N points.
/// @param[in]  f       centre, Hz
/// @param[in]  band    width parameter; @param[in] beta exponent: the filter is exp(-beta) at its edges
/// @param[in]  f1, f2  ends of the map, Hz; f1 of 0 counts as 0.01
/// @param[in]  deltaT  s
/// @param[out] out     0..N-1; 0 outside f +- half-width
/// @param[in]  mode    0: the half-width is (f2 - f1) / 2 * log10((1 + band) / (1 - band)) / log10(f2 / f1),
///                     the same for all rows; otherwise f * band
/// A band of 1 passes everything; above 1, and for NaN, the logarithm is undefined and the filter
/// is 0 throughout, as it is for a band below 0.
void GaussFilter(double f, double band, double beta, double f1, double f2, double deltaT, int N, double* out,
                 int mode);

/// Table and work arrays of CalcEnvelope for one length, made once per map.
struct EnvelopeWork {
  explicit EnvelopeWork(int N);
  FFTTable table;
  std::vector<dcomplex> spectrum;  ///< upper half written by each call, lower half 0 throughout
  std::vector<dcomplex> signal;    ///< the analytic pair, before its factor N / 2
};

/// Envelope of a filtered spectrum: magnitude of the band's signal and of its quadrature.
/// With A the filtered spectrum continued to a real signal, and B = jA likewise, the two inverse transforms
/// are real; so one transform of A + jB gives both, as real and imaginary part.
/// @param[in]  filter, re, im  0..N/2-1; line 0 plays no part
/// @param[in]  N       even; that of work
/// @param[out] cxEnv   signal and quadrature, 0..N-1; may be null
/// @param[out] env     0..N-1; 0 where either is NaN
void CalcEnvelope(const double* filter, const double* re, const double* im, int N, EnvelopeWork& work,
                  dcomplex* cxEnv, double* env);

/// Scales a map to 0..100 and raises what is below the threshold to it. The range is that of the finite
/// values above -100000; everything else counts as its minimum. A flat map, or one without values, becomes
/// threshold everywhere.
/// @param[in,out] z  width * height values in any order
void ScalezArray(double* z, int width, int height, double threshold);

}  // namespace sondera
