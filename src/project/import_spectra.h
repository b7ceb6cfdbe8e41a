// import_spectra.h - import of transfer functions (".Hyx") and of cross power spectra (".Gyx"), one text file
// per channel: a line per frequency (Hz) with real and imaginary part.
//
// Both fill crossSpecRe and crossSpecIm, two-sided, and no other block. The first file determines the lines
// of the record (see LayOutSpectrum); a later file that is shorter leaves zeros, as a missing token does. A
// refusal names file, line and cause. Refused is a file that cannot be opened or read, is damaged
// (import_text.h), has fewer than two lines or no even axis, has two columns where a complex spectrum is
// needed, holds something that is not a finite number in a value that is used, or has its lines at other
// frequencies than the first; also when the question about overwriting was answered no. Remarks on a file
// that is imported go to the findings (import_findings.h).
#pragma once

#include "project/import_record.h"

namespace sondera {

/// Rows: H21, H31, ... without an instrumented source, H10, H20, ... with one. Channel 0 becomes 1: without a
/// source it is set to 1, with one every channel is divided by it. The id "measID", that of the empty
/// measurement at the start of every session, is overwritten without a question.
ImportResult ImportTransferFunctions(const ImportRequest& request);

/// Rows without an instrumented source: G11, G21, ...; an empty first row means a G11 of 1. With one: G00,
/// G11, G10, G20, ...; the first two may be empty, they only determine the lines when they are there; channel
/// c becomes G(c+1)0 / G10, so that channel 0 is 1. The imaginary part at 0 Hz is not read.
ImportResult ImportCrossSpectra(const ImportRequest& request);

/// Row of the first file of cross spectra: the first row that is not empty, the first row when all are.
int FirstRowOfCrossSpectra(const ImportRequest& request);
/// Rows before G10 when the source is instrumented (G00 and G11).
inline constexpr int kSourceRows = 2;

}  // namespace sondera
