// pulse.h - the force of a computed record: its shape over time and its spectrum.
//
// The spectra of the two shapes have closed forms; a force from a file is resampled and transformed. Largest
// force 1, positive downward, spectra with exp(-i omega t) under the integral, so a record is the sum of
// lines times exp(+i omega t). Owns no state.
#pragma once

#include <complex>
#include <vector>

#include "records/pulse_record.h"
#include "runtime/refusal.h"

namespace sondera {

/// A force over time, as a file gives it: two vectors of one length.
struct SourceSamples {
  std::vector<double> time, value;
};

/// Force at time t.
///   hammer  (1 - cos(pi fc t)) / 2 for 0 <= t <= 2 / fc
///   Ricker  (1 - 2a) exp(-a), a = (pi fc (t - 1.5 / fc))^2
/// Any other shape has no closed form: 0.
double PulseForce(int shape, double fc, double t);

/// Its Fourier transform at frequency f, force times s.
std::complex<double> PulseSpectrum(int shape, double fc, double f);

/// Whether a source is valid: at least two samples, finite, times ascending.
Refusal CheckSource(const SourceSamples& source);

/// n samples of a source at 0, deltaT, ..., linear between its samples and 0 outside. A source that begins
/// before 0 is shifted to begin at 0.
std::vector<double> ResampleSource(const SourceSamples& source, double deltaT, int n);

/// Time from the beginning to the end of the force.
double PulseLength(const PulseRecord& pulse, const SourceSamples& source);

/// Force spectrum at the lines 0..nPoints / 2 - 1 of the record.
std::vector<std::complex<double>> ForceSpectrum(const PulseRecord& pulse, const SourceSamples& source);

}  // namespace sondera
