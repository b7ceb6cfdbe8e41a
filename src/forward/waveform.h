// waveform.h - records of a vertical blow on a layered ground, computed with all wave types.
//
// Closes the loop of a survey: a known ground, its records, and the result of the analysis. The response of
// waveform_lines.h times the spectrum of the force, transformed to time. It contains no noise, except in
// blows with noise. The panel of the waveforms and scripts call it with plain values. Units as in
// waveform_lines.h; times in s. Owns no state.
#pragma once

#include <complex>
#include <cstdint>
#include <string>
#include <vector>

#include "forward/pulse.h"
#include "forward/waveform_lines.h"

namespace sondera {

/// Quantity that a receiver measures.
enum class WaveformMotion : int { kVelocity = 0, kDisplacement = 1, kAcceleration = 2 };

struct WaveformSetup {
  PulseRecord pulse;     ///< deltaT and timeLength are derived again
  SourceSamples source;  ///< of shape kPulseFile
  WaveformSite site;
  WaveformMotion motion = WaveformMotion::kVelocity;
};

inline constexpr int kLeastWaveformPoints = 16, kMostWaveformPoints = 32768;

/// Samples at 0, deltaT, ...; the force begins at 0.
struct WaveformRecord {
  double deltaT = 0.0;
  std::vector<double> receivers;
  std::vector<std::vector<double>> trace;  ///< [receiver][sample], positive downward
};

struct WaveformResult {
  WaveformLines lines;
  std::vector<std::complex<double>> force;  ///< spectrum of the force at the lines
  WaveformRecord record;
  std::vector<std::string> notes;  ///< messages about the record
};

/// Shortest length of a record: the force, and the travel time of the slowest wave to the last receiver.
/// FitToSite doubles it, so that late waves do not wrap around to the beginning.
double TimeNeeded(const WaveformSetup& setup);

/// Whether a record is possible. The message for a record that is too short names the length that it needs.
Refusal CheckWaveform(const WaveformSetup& setup);

/// Centre frequency, span and points for the layers and receivers: the wavelength of the centre frequency lies
/// between the first receiver and the last, in the geometric mean; the span is 8 times it; points are a power
/// of two. The record is long enough for the unwrapping of phases: between neighbours they change by less than
/// 60 degrees from line to line. Refuses a site that CheckWaveformSite refuses, and one that would need too many points.
Refusal FitToSite(const WaveformSetup& setup, PulseRecord& pulse);

/// Computes a record. Lines whose force is below 1e-7 of its largest line are 0, as are line 0 and the highest.
/// `result` changes only when all is done; a halt refuses without a reason.
Refusal GenerateWaveform(const WaveformSetup& setup, Listener& listener, WaveformResult& result);

/// The record of given lines. Its line 0 is 0; a displacement whose force has a mean is shifted so that it is
/// at rest before the first wave can arrive.
WaveformRecord RecordOfLines(const WaveformSetup& setup, const WaveformLines& lines,
                             const std::vector<std::complex<double>>& force);

// --- Several blows ---

struct BlowSettings {
  int blows = 1;
  double spread = 0.2;  ///< deviation of the strengths of several blows, as a share
  double noise = 0.0;   ///< rms of even noise, as a share of the peak of the middle receiver
  double hum = 0.0;     ///< amplitude at humFrequency, as such a share; a third of it at three times that
  double humFrequency = 50.0;  ///< Hz
  std::uint64_t seed = 1;
};

/// Records of several blows on one ground. The noise is equally strong at all receivers and independent
/// between receivers and between blows; strength and phase of the hum belong to the blow. Equal settings give
/// equal numbers. Refuses numbers out of range.
Refusal MakeBlows(const WaveformRecord& record, const BlowSettings& settings,
                  std::vector<WaveformRecord>& blows);

}  // namespace sondera
