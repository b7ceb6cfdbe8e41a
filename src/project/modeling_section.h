// modeling_section.h - fourth section of a project file: the model records, the inversion records, and the
// lists of their entries.
//
// Layout (integers 4 bytes, reals 8 bytes, little-endian, no padding): FModelParam, TheoDispInfo, SMPParam,
// InvParam, then the three lists of EntryNumbers after their counts; the last one begins with a 0, the given
// model. The fields of a record have the order of ModelRecord and InvRecord; but nDispPoints and nDispCurves
// precede their arrays, which have exactly that many entries for every capacity.
//
// A first capacity of 0 marks a missing record and ends the section. Odd on purpose: TheoDispInfo is read up
// to nLayers before its capacity is checked, and its point arrays are missing if its product of points and
// curves is 0.
#pragma once

#include "project/section_io.h"
#include "records/inv_records.h"

namespace sondera {

/// Reads the section. Records that are not reached do not change, or are half read; the caller repairs them.
/// The lists never name missing entries. Returns 0 when it is complete, otherwise where it ended:
///   -1  no FModelParam: all records must be initialised
///   -2  no TheoDispInfo: it and both inversion records
///   -3  no SMPParam or InvParam: both inversion records
///   -5  no lists: nothing
int ReadModeling(SectionReader& file, EntryNumbers& entries);
void StoreModeling(AtomicWriter& file, const EntryNumbers& entries);

}  // namespace sondera
