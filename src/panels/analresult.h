// analresult.h - the tables of an entry as text: for the box of the results, and for the file that is saved
// from it.
//
// Callers: callbacks of the results page, drivers of runs. Everything comes from the stored entries, so any
// entry can be shown at any time. Owned state: none.
#pragma once

#include <string>

#include "records/inv_records.h"
#include "runtime/controls.h"

namespace sondera {

/// Tables, by the values of SEL_RESULT.
inline constexpr int kModelTable = 0, kProfileTable = 1, kCurveTable = 2, kResolutionTable = 3;

/// Appends one table of an entry to text.
/// @param type    kModelTable ... kResolutionTable; others append nothing
/// @param index   entry as the lists have it: at or above 0 of InvParam, below 0 of SMPParam
/// @param record  the record of that index; a record without the entry gives the head lines alone
/// The observed columns of curves are the measured velocities of FModelParam for every entry, 0 where the
/// curves there have no point at the frequency (plane waves: wavelength) of the entry's.
void GetResultTextBox(int type, int index, std::string& text, const InvRecord& record);

/// Puts the table chosen by SEL_RESULT, for the entry chosen in ITERNO (0 while that list is hidden), into
/// the box RESULTS; "no iteration" when nothing was computed for it.
void PutTextResultsInBox();

inline constexpr long kUnderProjectName = -1, kNoIteration = -2;  ///< data of SaveInvResultCallback

/// Saves all four tables of that entry. kUnderProjectName: without a dialog, as "<project>_f.results" in the
/// current folder, the project's file name going without its ".da". kNoIteration: "no iteration" under that
/// name, unless a former file has it, which then stays. Otherwise the tables under a name that is asked for.
/// @return 0; -1 after a message, also when nothing was computed
int SaveInvResultCallback(Panel panel, ControlId control, Event event, long data);

/// A span of time, seconds, with the unit that suits it: "%.2lf sec", "%.2lf msec", "%.2lf usec".
void GetNiceTimeStr(double seconds, std::string& text);

}  // namespace sondera
