// spectra.h - from time records to averaged spectra, and from those to the quantities of a receiver pair.
//
// Channel 0 of a measurement is the common reference: only cross spectra against it are averaged. A pair is
// never measured directly; its transfer function is the ratio of two such cross spectra, and its cross power
// and coherence also use channel 0. No data window is applied: the spectra are those of the rectangular
// frame.
//
// CalcSpectralFns runs once per record of the measurement loop; panels/measpanel_preview.h has its form for the
// measurement of the setup dialog. Work vectors are those of signal_state.h.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "numeric/analysis.h"
#include "records/kinds.h"
#include "records/measdb.h"

namespace sondera {

/// Quantities of CalcSpectralData, with the numbers that the displays use.
namespace spectral {
inline constexpr int kTimeTrace = static_cast<int>(DisplayType::TimeTrace);
inline constexpr int kLinearPhase = static_cast<int>(DisplayType::LinearPhase);
inline constexpr int kLinearAmplitude = static_cast<int>(DisplayType::LinearAmplitude);
inline constexpr int kTransferPhase = static_cast<int>(DisplayType::TransferPhase);
inline constexpr int kTransferAmplitude = static_cast<int>(DisplayType::TransferAmplitude);
inline constexpr int kPowerSpectrum = static_cast<int>(DisplayType::PowerSpectrum);
inline constexpr int kCrossPhase = static_cast<int>(DisplayType::CrossPhase);
inline constexpr int kCrossAmplitude = static_cast<int>(DisplayType::CrossAmplitude);
inline constexpr int kCoherence = static_cast<int>(DisplayType::Coherence);
inline constexpr int kImpulseResponse = static_cast<int>(DisplayType::ImpulseResponse);
inline constexpr int kTransferFunction = 24;  ///< no display shows it
}  // namespace spectral

/// Adds the record in session.measBuffer to the averages of a measurement. measBuffer holds nChannels blocks
/// of N * decimation samples in volts, N = 2 * FullTimeLines(nLines); every decimation-th sample is used,
/// without a filter. Each stored value becomes (new + stored * k) / (k + 1) with k = session.avgCount, so the
/// averages are plain means over the accepted records, and k = 0 replaces all earlier contents. Spectra are
/// two-sided, channel c from c * N on, V
/// rms and V^2 rms:
///   linear X sqrt(2) / N, auto 2 |X|^2 / N^2, cross 2 X conj(X0) / N^2.
/// Sets session.samplesPerChan to N * decimation.
/// @param key      of the measurement
/// @param accepts  called before the record is added, when timeHist holds it; empty: every record is accepted
/// Returns 0; -1 for a record that is not accepted (timeHist keeps it, the averages stay); -2, with nothing
/// changed, when there is no such measurement or when buffer or arrays are too short for such a record, so
/// that every later record would fail too.
int CalcSpectralFns(int key, const std::function<bool()>& accepts);

/// Writes one quantity of a pair, computed from the averages. n = nLines; channel rows start at 2 n c. Lines
/// where the divisor is exactly 0 are 0.
/// @param[in]  type    a number of namespace spectral; any other writes nothing
/// @param[in]  chanA   reference channel, from 0
/// @param[in]  chanB   display channel, from 0
/// @param[out] outRe   n values; 2 n for types 0 and 9. Phases in degrees, wrapped
/// @param[out] outIm   same size, for types 0 (zeros), 9 and 24; else unused and may be null
/// Kept: type 5 reads row c at n c, unlike all others, so it is right for channel 0 only.
/// Returns 0; -1 without such a measurement, a channel outside it or data too short, with nothing written.
int CalcSpectralData(int type, const std::string& projID, const std::string& measID, int chanA, int chanB,
                     double* outRe, double* outIm);

/// Converts the ordinates of a display of volts from the stored V rms or V rms^2 to a unit. A time trace is
/// treated as an amplitude; a cross power has no amplitude and uses the square of the unit.
/// @return text of the unit, "Vrms"; empty, with nothing changed, for a display without volts
std::string ConvertVolts(DisplayType type, VoltUnit unit, double deltaF, std::vector<double>& y);

}  // namespace sondera
