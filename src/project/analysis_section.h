// analysis_section.h - third section of a project file: masks, pair records, representative curves. The same
// section alone is the interpretation file, extension ".ia".
//
// Layout (integers 4 bytes, reals 8 bytes, texts 256 bytes, little-endian, no padding), each list behind its
// count:
//   A  masks            key, refChan, dspChan, freqInit, freqFinal, jumpNo, lineInit, lineFinal
//   B  pair records     identity, 21 arrays of 2 * nLines reals, maskFlag[nLines], the curve's three arrays
//   of nLines,
//                       settings, Gabor maps cell by cell, display settings
//   C  global curves    key, nPoints, refChan, dspChan, valid, label, wlenMax, six arrays of nPoints
//   D  array curves     the same
// The size of a pair record hangs on nLines of its measurement, so a pair whose measurement is not there ends
// the reading: its masks, pairs and curves up to that point stay.
//
// Odd on purpose: masks are appended to those that are there; Gabor maps with 1000 or more divisions on a
// side are written but not read from a project file; an ".ia" file addresses the measurement one key lower
// than it says.
#pragma once

#include <string>

#include "project/section_io.h"
#include "runtime/refusal.h"

namespace sondera {

/// Section of a project file. Pair records and curves that were there are gone, masks stay. Returns 0.
int ReadAnalysis(SectionReader& file);
/// Pair records without an existing key above 0, or of a measurement without lines, are left out.
void StoreAnalysis(AtomicWriter& file);

/// Writes the ".ia" file: atomic, no backup copy.
Refusal WriteAnalysis(const std::string& path);
/// Reads an ".ia" file from an open reader. What was wrong: file.Trouble().
void LoadAnalysisFrom(SectionReader& file);

}  // namespace sondera
