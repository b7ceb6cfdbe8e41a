// result_capacity.h - capacities of the result records: SMPParam, InvParam and TheoDispInfo.
//
// Callers: drivers before a run, and writers of results. Owned state: none. Growth is limited: a damaged file
// that requires more than kMaxRunDoubles is refused, and then nothing has changed.
#pragma once

#include "records/inv_records.h"
#include "runtime/refusal.h"

namespace sondera {

/// Makes the tables of SMPParam / InvParam large enough for the record's own counters. When a capacity
/// increases, all tables are allocated anew, zero: the contents are lost. Tables that were read smaller than
/// their capacities grow with their contents. Kept: too many points increase the capacity of layers, not that
/// of points; the tables themselves still get the required size.
Refusal UpdateEntryTables(InvRecord& record);
Refusal FS_UpdateSMParray();
Refusal FS_UpdateINVarray();

/// Reserves one more entry of such a record, contents kept: for writers whose counts may exceed the counters.
/// Capacities never shrink.
Refusal ReserveEntry(InvRecord& record, int entry, int layers, int points, int curves);

/// Makes TheoDispInfo large enough for its counters (and those of FModelParam that it is going to copy), and
/// zeroes the curves of its dispCurvType. Refuses a counter beyond the limits.
Refusal UpdateTheoDispArray();

/// Copies the measured points (frequencies, velocities and wavelengths of both kinds of curve, up to the
/// counters of TheoDispInfo) from FModelParam to TheoDispInfo, where an inversion reads its data. Call it
/// after UpdateTheoDispArray, which zeroes them.
void CopyCurvesToTheoDispInfo();

}  // namespace sondera
