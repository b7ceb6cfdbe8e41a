// import_time.h - import of time histories, one ".tim" file per receiver: a line per sample, time (s) and
// value.
#pragma once

#include "project/import_record.h"

namespace sondera {

/// Reads nChannels files from the first row on into a new or an overwritten measurement and computes its
/// spectra, without a window, as for one accepted record: timeHist, linSpec, powerSpec, crossSpec.
///
/// The first file determines the number of samples, the interval and the trigger delay (from its first time).
/// The record is padded to a power of two with each channel's last value. A later file that is shorter is
/// continued with its last value; a line of it without a value gives 0. The refusal names file, line and
/// cause. Refused is a file that cannot be opened or read, is damaged (import_text.h), has fewer than two
/// samples or times that are not even, holds something that is not a finite number, or has other times than
/// the first; also when the question about overwriting was answered no. Remarks on a file that is imported go
/// to the findings (import_findings.h).
ImportResult ImportTimeHistories(const ImportRequest& request);

}  // namespace sondera
