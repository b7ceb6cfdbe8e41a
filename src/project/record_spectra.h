// record_spectra.h - from time records to the averaged spectra of an imported measurement, without a window:
// the records have equal weights.
//
// Values are two-sided and scaled to rms: a sine of amplitude A at the frequency of a line has the power A *
// A / 2 there. Blocks hold `length` numbers a channel, one channel after the other. Owned state: none.
#pragma once

#include <vector>

#include "records/measdb.h"

namespace sondera {

/// One channel of one record and its transform, both of the padded length.
struct ChannelSpectrum {
  std::vector<double> time, re, im;
};

/// Pads the samples with their last value and transforms them. samples must not be empty.
ChannelSpectrum SpectrumOf(std::vector<double> samples, int length);

/// Corrects the spectrum of a channel that was sampled `samples` sampling intervals too late: the phase of
/// line k changes by -2 pi k samples / length. The time record does not change.
void DelaySpectrum(ChannelSpectrum& spectrum, double samples);

/// Adds a record to the sums of a measurement: linear X sqrt(2) / N, auto 2 |X|^2 / N^2, cross 2 X conj(X0) /
/// N^2 with channel 0; the time record replaces the former one. The first record makes the blocks. length, N, is
/// a power of two, and all records have it.
void AddRecord(const std::vector<const ChannelSpectrum*>& channels, int length, RawData& sums);

/// Converts sums to means.
void DivideSums(RawData& sums, int records);

}  // namespace sondera
