// waveform_files.h - computed records and files: the force that is read, the records and tables that are
// written, and the record as a measurement of the project.
//
// Callers: the panel of the waveforms. Owned state: none.
#pragma once

#include <string>
#include <vector>

#include "forward/waveform.h"
#include "project/import_record.h"
#include "project/shot_import.h"

namespace sondera {

/// Force over time from a file: a line a sample, time (s) and value, as in .tim; the times ascend and need not
/// be even. The refusal names the file and its fault.
Refusal ReadSourceFile(const std::string& path, SourceSamples& source);

/// SAVEOPTION: the files to save.
enum WaveformSave : int {
  kSaveTraces = 0,   ///< BASE_r1.tim, BASE_r2.tim ...: one for each receiver
  kSaveSpectra = 1,  ///< BASE.spc
  kSaveAll = 2,      ///< both, and all traces in one table, BASE.pls
};

/// Name without .tim, .pls or .spc at its end.
std::string WaveformBase(const std::string& path);
/// Files that SaveWaveform writes.
std::vector<std::string> WaveformFiles(const std::string& base, int option, std::size_t receivers);
/// Writes all of them or, when one can't be written, none.
/// @param lengthUnit  "m" or "ft", for the heads of the tables
Refusal SaveWaveform(const std::string& base, int option, const WaveformSetup& setup,
                     const WaveformResult& result, const std::string& lengthUnit);

/// Number of receivers of a measurement made from a record.
inline constexpr std::size_t kLeastMeasured = 1, kMostMeasured = 8;

/// The import of one record: its .tim texts in memory, source at 0.
/// @param lengthUnit  metres per unit of length
ImportRequest ImportOfRecord(const WaveformRecord& record, const std::string& measID, double lengthUnit);
/// The import of several blows as the averages of one measurement of all receivers. `blows` must outlive it.
ShotRequest ImportOfBlows(const std::vector<WaveformRecord>& blows, const std::string& measID,
                          double lengthUnit, double alpha);

}  // namespace sondera
