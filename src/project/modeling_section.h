// modeling_section.h - fourth section of a project file: the model records, the inversion records, and the
// lists of what they hold.
//
// Layout (integers 4 bytes, reals 8 bytes, little-endian, no padding): FModelParam, TheoDispInfo, SMPParam,
// InvParam, then the three lists of EntryNumbers behind their counts; the last one begins with a 0, the given model.
// The fields of a record stand in the order of ModelRecord and InvRecord; but nDispPoints and nDispCurves
// precede the arrays that they size, which hold exactly that many entries, whatever the capacities are.
//
// A first capacity of 0 marks a record that is not there and ends the section. Odd on purpose: TheoDispInfo
// is read up to nLayers before that is looked at, and leaves its point arrays out where its product of points
// and curves is 0.
#pragma once

#include "project/section_io.h"
#include "records/inv_records.h"

namespace sondera {

/// Reads the section; records not reached are left as they were, or half read, which is for the caller to
/// mend. The lists never name what is not there. Returns 0 when it is complete, otherwise where it ended:
///   -1  no FModelParam: all records have to be made afresh
///   -2  no TheoDispInfo: it and both inversion records
///   -3  no SMPParam or InvParam: both inversion records
///   -5  no lists: nothing
int ReadModeling(SectionReader& file, EntryNumbers& entries);
void StoreModeling(AtomicWriter& file, const EntryNumbers& entries);

}  // namespace sondera
