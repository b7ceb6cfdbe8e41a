// import_time.h - import of time histories, one ".tim" file per receiver: a line per sample, time (s) and
// value.
#pragma once

#include "project/import_record.h"

namespace sondera {

/// Reads nChannels files from the first row on into a new or an overwritten measurement and computes its
/// spectra, without a window, as one accepted record would have given them: timeHist, linSpec, powerSpec,
/// crossSpec.
///
/// The first file fixes the number of samples, the interval and the trigger delay (from its first time). The
/// record is padded to a power of two with each channel's last value. A later file that is shorter goes on
/// with its last value; a line of it without a value gives 0. The refusal names file, line and cause: a file that cannot be opened or read, is damaged (import_text.h), has fewer than two
/// samples or times that are not even, holds something that is not a finite number or is sampled at other
/// times than the first; or the question about overwriting was answered no. What looks wrong in a file that
/// is taken goes to the findings (import_findings.h).
ImportResult ImportTimeHistories(const ImportRequest& request);

}  // namespace sondera
