// analysis.h - general signal and array operations: Fourier transforms, complex products, extremes, peaks,
// variance, dense inverse, unit conversion of spectra.
//
// Callers: signal (spectra, impulse responses, Gabor maps, automatic masks), project (imports), plot.
// Sequences count from 0 here. State: the transform plans and one work vector, kept between calls in one
// process-wide cache (FFTPlanCache in analysis.cpp) until ReleaseFFTPlans(). Not to be called from two
// threads.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "numeric/dcomplex.h"

struct fftw_plan_s;  // FFTW's type, so that its header is not needed here

namespace sondera {

/// In-place forward transform, not normalised: X[k] = sum over i of x[i] exp(-j 2 pi k i / n).
/// @param[in,out] re, im  real and imaginary parts, 0..n-1; separate arrays that do not overlap
/// @param[in]     n       any length, powers of two or not; n <= 0 does nothing
void FFT(double* re, double* im, int n);

/// In-place inverse transform with the factor 1/n, so that InvFFT after FFT restores the sequence.
/// Arguments as for FFT.
void InvFFT(double* re, double* im, int n);

/// Forward transform of a real sequence, not normalised: the result of FFT with a zero imaginary part, except
/// for rounding, in half the time and exactly symmetric: X[n - k] is the conjugate of X[k], X[0] is real.
/// @param[in]  x       0..n-1; may be re itself
/// @param[out] re, im  all n values
void RealFFT(const double* x, double* re, double* im, int n);

/// Releases all kept plans and the work vector; the next transform makes new ones.
void ReleaseFFTPlans();

/// (cr, ci) = (ar, ai) * (br, bi). The results may be stored over the operands' variables.
void CxMul(double ar, double ai, double br, double bi, double* cr, double* ci);

/// (cr, ci) = (ar, ai) / (br, bi), by the plain formula a conj(b) / |b|^2.
/// A zero divisor gives non-finite parts; callers that want a 0 there test for it first.
void CxDiv(double ar, double ai, double br, double bi, double* cr, double* ci);

/// Tables of CxInvFFTEx for one length. Tables of the same length share the kept plan; a table stays valid
/// after ReleaseFFTPlans.
class FFTTable {
 public:
  FFTTable() = default;
  /// Length of the transform; 0 for an empty table.
  int n() const { return n_; }

 private:
  friend FFTTable CreateFFTTable(int n);
  friend void CxInvFFTEx(const dcomplex* x, dcomplex* y, const FFTTable& table);
  int n_ = 0;
  std::shared_ptr<fftw_plan_s> plan_;
};

/// Table for transforms of length n; an empty table for n <= 0.
FFTTable CreateFFTTable(int n);

/// Inverse transform with the factor 1/n, out of place, no shift: the element of frequency 0 comes first.
/// @param[in]  x  0..table.n()-1, not changed
/// @param[out] y  0..table.n()-1, must not overlap x
/// An empty table does nothing.
void CxInvFFTEx(const dcomplex* x, dcomplex* y, const FFTTable& table);

/// Releases the table early and leaves it empty.
void DestroyFFTTable(FFTTable& table);

/// Extremes of array[0..n-1] and their 0-based positions; the first of equal values counts. NaNs are skipped;
/// in a sequence of NaNs only, the first element is reported. n <= 0 leaves the results unchanged.
void MaxMin1D(const double* array, int n, double* max, int* maxIndex, double* min, int* minIndex);

/// Result of PeakDetector, by ascending location; the three vectors have the same length.
struct Peaks {
  std::vector<double> locations;          // fractional 0-based positions
  std::vector<double> amplitudes;         // height of the fitted vertex
  std::vector<double> secondDerivatives;  // of the fitted parabola, per squared sample; negative for a peak
  int count() const { return static_cast<int>(locations.size()); }
};

/// Peaks of array[0..n-1] by sliding parabolas.
///
/// A least-squares parabola is fitted to every run of `width` neighbouring points. A peak lies between two
/// neighbouring runs where the fitted slope at the run's centre changes from above 0 to 0 or below. Of the
/// two parabolas, if both open downward, the one with its vertex nearer to its own centre counts (the earlier
/// one when equally near). Its vertex gives location, height and second derivative.
/// @param[in] threshold  peaks lower than this are dropped (valleys: higher than this)
/// @param[in] width      points per fit, at least 3; a smaller one finds nothing
/// @param[in] polarity   0: peaks, otherwise valleys
/// No peak lies within the first or the last (width-1)/2 points. A sequence without two runs (n <= width) has
/// no peak.
Peaks PeakDetector(const double* array, int n, double threshold, int width, int polarity = 0);

/// Mean and variance of x[0..n-1]; the variance is the mean squared deviation (divisor n), in two passes.
/// n <= 0 gives 0 and 0.
void Variance(const double* x, int n, double* mean, double* variance);

/// Inverse of the dense n by n matrix a, both row after row, by elimination with row pivoting.
/// @param[in]  type     0, a general matrix (the only type in use)
/// @param[out] inverse  n*n values; may be a itself
/// Returns 0. A singular matrix (a pivot of exactly 0, or not finite) returns -1 and fills the inverse with
/// NaNs, so that a caller that does not check gets no plausible value. n <= 0 does nothing.
int GenInvMatrix(const double* a, int n, int type, double* inverse);

/// Effect of a data window on the level of a spectrum.
struct WindowConst {
  double enbw = 1.0;          // equivalent noise bandwidth, in lines
  double coherentGain = 1.0;  // mean of the window
};

/// Applies the data window to x[0..n-1] and returns its constants. Only the rectangular window (type 0)
/// exists: it leaves x unchanged. Returns 0; -1 for another type, without effect.
int ScaledWindow(double* x, int n, int windowType, WindowConst* constants);

/// Units of a volt display. The first two are amplitudes, then powers, then densities per line bandwidth.
enum class VoltUnit { Vrms, Vpk, Vrms2, Vpk2, VrmsPerRootHz, VpkPerRootHz, Vrms2PerHz, Vpk2PerHz };

/// Contents of a spectrum before conversion: rms amplitudes or their squares.
enum class SpectrumKind { PowerVrms2, AmplitudeVrms };

/// Converts spectrum[0..n-1] to the wanted unit on a linear scale.
/// @param[in]  df         line spacing, Hz (used for densities only)
/// @param[in]  window     constants of the window the spectrum was made with
/// @param[out] converted  n values; may be spectrum itself
/// @param[out] unitText   text of the unit ("Vrms", "Vpk^2/Hz", ...); may be null
/// A line of negative power has amplitude 0. A density needs df > 0: otherwise -1 is returned and nothing
/// written.
int SpectrumUnitConversion(const double* spectrum, int n, SpectrumKind kind, VoltUnit unit, double df,
                           const WindowConst& window, double* converted, std::string* unitText);

/// 1 for a NaN, else 0 (also for infinities).
int IsNotANumber(double x);

}  // namespace sondera
