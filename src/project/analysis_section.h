// analysis_section.h - third section of a project file: masks, pair records, representative curves. This
// section alone is the interpretation file, extension ".ia".
//
// Layout (integers 4 bytes, reals 8 bytes, texts 256 bytes, little-endian, no padding), each list after its
// count:
//   A  masks            key, refChan, dspChan, freqInit, freqFinal, jumpNo, lineInit, lineFinal
//   B  pair records     identity, 21 arrays of 2 * nLines reals, maskFlag[nLines], the three arrays of
//                       the curve, of nLines, settings, Gabor maps cell by cell, display settings
//   C  global curves    key, nPoints, refChan, dspChan, valid, label, wlenMax, six arrays of nPoints
//   D  array curves     the same
// The size of a pair record depends on nLines of its measurement, so a pair without a measurement ends the
// reading: the masks, pairs and curves before it stay.
//
// Odd on purpose: masks are appended to the masks already there; Gabor maps with 1000 or more divisions on a
// side are written but not read from a project file; an ".ia" file uses the measurement's key minus 1.
#pragma once

#include <functional>
#include <string>

#include "project/section_io.h"
#include "runtime/refusal.h"

namespace sondera {

/// Section of a project file. Earlier pair records and curves are removed, masks stay. Returns 0.
/// @param poll  called before each pair; may be empty
int ReadAnalysis(SectionReader& file, const std::function<void()>& poll = {});
/// Pair records without an existing key above 0, or of a measurement without lines, are left out.
void StoreAnalysis(AtomicWriter& file, const std::function<void()>& poll = {});

/// Writes the ".ia" file: atomic, no backup copy.
Refusal WriteAnalysis(const std::string& path);
/// Reads an ".ia" file from an open reader. file.Trouble() describes problems.
void LoadAnalysisFrom(SectionReader& file);

}  // namespace sondera
