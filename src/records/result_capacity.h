// result_capacity.h - room in the records that results go to: SMPParam, InvParam and TheoDispInfo.
//
// Callers: drivers before a run, and whoever writes a result. Owned state: none. No growth is without bound:
// a damaged file that asks for more than kMaxRunDoubles is refused, and nothing has changed then.
#pragma once

#include "records/inv_records.h"
#include "runtime/refusal.h"

namespace sondera {

/// Makes the tables of SMPParam / InvParam large enough for the record's own counters. When a capacity rises
/// all tables are made anew, zero: the contents are lost. Kept: too many points raise the capacity of layers,
/// not that of points; the tables themselves still get the room.
Refusal UpdateEntryTables(InvRecord& record);
Refusal FS_UpdateSMParray();
Refusal FS_UpdateINVarray();

/// Room for one more entry of such a record, contents kept: for writers whose counts may exceed the counters.
/// Capacities never shrink.
Refusal ReserveEntry(InvRecord& record, int entry, int layers, int points, int curves);

/// Makes TheoDispInfo large enough for its counters (and those of FModelParam that it is going to take over),
/// and zeroes the curves of its dispCurvType. Refuses a counter beyond the limits.
Refusal UpdateTheoDispArray();

/// Copies the measured points (frequencies, velocities and wavelengths of both kinds of curve, as far as the
/// counters of TheoDispInfo go) from FModelParam to TheoDispInfo, where an inversion finds its data. Call it
/// after UpdateTheoDispArray, which zeroes them.
void CopyCurvesToTheoDispInfo();

}  // namespace sondera
