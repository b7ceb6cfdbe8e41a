// import_layout.h - from the sampling of a file to the sampling of a record, for all kinds of import.
//
// Pure arithmetic: no records, no files. Records have a power of two of lines, files need not; lines above
// that are dropped, missing lines are zero.
#pragma once

#include <cstdint>
#include <vector>

namespace sondera {

/// Most numbers in one block of a record (2 * nLines * nChannels): more than an hour of eight channels at 1
/// kHz. The six blocks take 1.6 GB then.
inline constexpr std::int64_t kMostBlockValues = std::int64_t{1} << 25;
/// A band that starts far above zero needs lines that its file does not contain. Every file, however short,
/// may have this many; a file with more lines may have twice its own number.
inline constexpr int kFreeSpectrumLines = 1 << 18;

/// Sampling of imported spectra.
struct SpectrumLayout {
  int nLines = 0;                          ///< P, a power of two
  int firstLine = 0;                       ///< line index of the file's first line
  int spanKind = 0;                        ///< 1 when the file does not start at zero
  double startFreq = 0.0, stopFreq = 0.0;  ///< Hz
  double deltaF = 0.0;                     ///< Hz
  double freqSpan = 0.0;                   ///< Hz, negative: marks imported spectra
  double deltaT = 0.0, timeLength = 0.0;   ///< s
};

/// @param[in] f0, f1   first and last frequency of the file, Hz; a negative f0 counts as 0
/// @param[in] df       spacing, Hz, from the frequencies in the file
/// @param[in] count    lines (points) of the file
/// @param[in] channels  of the new record
/// False, with out unchanged, when no such record is possible: fewer than two lines, a spacing or a last
/// frequency not above 0, a single line left, no line left to store, too large.
bool LayOutSpectrum(double f0, double f1, double df, int count, int channels, SpectrumLayout& out);

/// Sampling of an imported time record.
struct TimeLayout {
  int samples = 0;            ///< P, a power of two; nLines is half of it
  double deltaT = 0.0;        ///< s
  double timeLength = 0.0;    ///< s
  double freqSpan = 0.0;      ///< Hz
  double deltaF = 0.0;        ///< Hz
  double triggerDelay = 0.0;  ///< per cent of the record; negative when the record starts after the trigger
};

/// @param[in] t0, t1   first and last time, s
/// @param[in] count    samples of the file
/// False, with out unchanged, for fewer than two samples, times that do not increase, or too large a record.
bool LayOutTimeRecord(double t0, double t1, int count, int channels, TimeLayout& out);

/// A channel's two-sided spectrum inside a block of 2P numbers per channel: line i at i, its conjugate at 2P
/// - i. Entry P is not the conjugate of a line and is never written.
struct SpectrumRow {
  double* re;
  double* im;
  int nLines;

  /// Lines outside 0..nLines-1 are not stored.
  void Store(int line, double real, double imag) const;
};

/// The row of a channel.
SpectrumRow RowOf(std::vector<double>& re, std::vector<double>& im, int channel, int nLines);
/// 1 + 0i on all lines and their conjugates.
void SetUnity(const SpectrumRow& row);
/// Divides each channel by channel 0, line by line, from the last channel down, so that channel 0 becomes 1.
/// A line where channel 0 is 0, or so small that the quotient overflows, becomes 0.
void DivideByFirstChannel(std::vector<double>& re, std::vector<double>& im, int channels, int nLines);

}  // namespace sondera
