// import_uff58.h - import of transfer functions and of cross power spectra from universal files, data set 58,
// one file per channel. Rows, lines of the record and the treatment of channel 0 are as for the text files
// (import_spectra.h), with two differences: cross spectra always end with channel 0 at 1; and of a file with
// a set of the right type after others, that set is read, except in the first file, whose first set 58 must
// be of the right type.
//
// Refused: a file that is not a universal file, or without a set 58, or with a binary one; no set of the
// right function type with even spacing; a file that cannot be opened, whose data end early or are no
// numbers, or with other frequencies than the first; also when the question about overwriting was answered
// no.
#pragma once

#include "project/import_record.h"
#include "project/uff58.h"

namespace sondera {

/// Accepts sets of the given function type (a frequency response), and also cross spectra (type 3), a label
/// that some programs give to transfer functions.
ImportResult ImportTransferFunctions58(const ImportRequest& request,
                                       int functionType = uff58_function::kFrequencyResponse);

/// Accepts sets of the given function type only.
ImportResult ImportCrossSpectra58(const ImportRequest& request,
                                  int functionType = uff58_function::kCrossSpectrum);

}  // namespace sondera
