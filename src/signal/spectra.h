// spectra.h - from time records to averaged spectra, and from those to the quantities of a receiver pair.
//
// Channel 0 of a measurement is the common reference: only cross spectra against it are averaged. A pair is
// never measured directly; its transfer function is the ratio of two such cross spectra, and its cross power
// and coherence pass through channel 0 as well. No data window is applied: the spectra are those of the
// rectangular frame.
//
// CalcSpectralFns runs once per accepted record of the measurement loop. SetupPMeasDataNode and
// UpdatePMeasDataNode (in pair_data.cpp, since they end in the impulse response filtration) are the only way
// a pair comes to exist, besides a project load. Work vectors are those of signal_state.h.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// What CalcSpectralData can give, by the number that the displays use for it.
namespace spectral {
inline constexpr int kTimeTrace = 0;
inline constexpr int kLinearPhase = 1;
inline constexpr int kLinearAmplitude = 2;
inline constexpr int kTransferPhase = 3;
inline constexpr int kTransferAmplitude = 4;
inline constexpr int kPowerSpectrum = 5;
inline constexpr int kCrossPhase = 6;
inline constexpr int kCrossAmplitude = 7;
inline constexpr int kCoherence = 8;
inline constexpr int kImpulseResponse = 9;
inline constexpr int kTransferFunction = 24;
}  // namespace spectral

/// Folds the record in session.measBuffer into the averages of the measurement that PROJID and MEASID of
/// HMSETUP name. measBuffer holds nChannels blocks of N * decimation samples in volts, N = 2 *
/// FullTimeLines(nLines); every decimation-th sample is picked, without a filter. Each stored value becomes
/// (new + stored * k) / (k + 1) with k = session.avgCount, so the averages are plain means over the accepted
/// records, and k = 0 replaces whatever stood there. Spectra are kept two-sided, channel c from c * N on, V
/// rms and V^2 rms:
///   linear X sqrt(2) / N, auto 2 |X|^2 / N^2, cross 2 X conj(X0) / N^2.
/// Sets session.samplesPerChan to N * decimation. With session.measOptions.previewOn the record is shown
/// first and the user asked. Returns 0; -1 when the user rejects the record (timeHist keeps it, the averages
/// stay); -2, with nothing changed, when there is no such measurement or when buffer or arrays are shorter
/// than such a record, so that another record would fare no better.
int CalcSpectralFns();

/// Writes one quantity of a pair, made from the averages. n = nLines; channel rows start at 2 n c. Lines
/// where the divisor is exactly 0 are 0.
/// @param[in]  type    a number of namespace spectral; another writes nothing
/// @param[in]  chanA   reference channel, from 0
/// @param[in]  chanB   display channel, from 0
/// @param[out] outRe   n values; 2 n for types 0 and 9. Phases in degrees, wrapped
/// @param[out] outIm   as many, for types 0 (zeros), 9 and 24; else unused and may be null
/// Kept: type 5 takes row c at n c, unlike all others, so it is right for channel 0 only.
/// Returns 0; -1 without such a measurement, a channel outside it or data too short, with nothing written.
int CalcSpectralData(int type, const std::string& projID, const std::string& measID, int chanA, int chanB,
                     double* outRe, double* outIm);

/// Makes the record of a pair (channels from 0) at the end of the pair list, fills transfer function,
/// amplitude, phase and impulse response from the averages, then runs CalcIRF(0, Panel::SASW), which brings
/// the pair on display up to date: normally this one. pair gets the record. An unknown measurement, a channel
/// outside it or no lines: nothing is made and pair is left alone.
void SetupPMeasDataNode(const std::string& projID, const std::string& measID, int chanA, int chanB,
                        const HWSetup& hwSetup, PMeasInfo*& pair);

/// Recomputes the same arrays of an existing record and runs CalcIRF(0, Panel::SASW). Masks, window times and
/// the dispersion curve stay. Nothing is done to a null pair, another pair than named, or one made for fewer
/// lines.
void UpdatePMeasDataNode(const std::string& projID, const std::string& measID, int chanA, int chanB,
                         const HWSetup& hwSetup, PMeasInfo* pair);

}  // namespace sondera
