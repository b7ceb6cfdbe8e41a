// import_uff58.h - import of transfer functions and of cross power spectra from universal files, data set 58,
// one file per channel. Rows, lines of the record and what becomes of channel 0 are as for the text files
// (import_spectra.h), with two differences: cross spectra always end with channel 0 at 1, and a file that has
// a set of the right type behind others gives that set, unless it is the first file, whose first set 58 must
// be of the right type.
//
// Refused: no universal file, no set 58 or a binary one; no set of the right
// function type with even spacing; a file that cannot be opened, whose data end early or are no numbers, or
// with other frequencies than the first; or the question about overwriting was answered no.
#pragma once

#include "project/import_record.h"
#include "project/uff58.h"

namespace sondera {

/// Takes sets of the function type given (a frequency response), and also cross spectra (type 3), as which
/// transfer functions are labelled at times.
ImportResult ImportTransferFunctions58(const ImportRequest& request,
                                       int functionType = uff58_function::kFrequencyResponse);

/// Takes sets of the function type given only.
ImportResult ImportCrossSpectra58(const ImportRequest& request,
                                  int functionType = uff58_function::kCrossSpectrum);

}  // namespace sondera
