// analresult.h - the tables of an entry as text: for the result box, and for the file that is saved from it.
//
// Callers: callbacks of the results page, drivers of runs. All data come from the stored entries, so any
// entry can be shown at any time. Owned state: none.
#pragma once

#include <string>

#include "records/inv_records.h"
#include "runtime/controls.h"

namespace sondera {

/// Tables, by the values of SEL_RESULT.
inline constexpr int kModelTable = 0, kProfileTable = 1, kCurveTable = 2, kResolutionTable = 3;
/// Vs30 and the site classes of an inverted entry. In the box only; the saved file has the four tables above.
inline constexpr int kFigureTable = 4;

/// Appends one table of an entry to text.
/// @param type    kModelTable ... kResolutionTable; others append nothing
/// @param index   number of the entry in the lists: at or above 0 of InvParam, below 0 of SMPParam
/// @param record  the record of that index; a record without the entry gives only the head lines
/// The observed columns of curves are the measured velocities of FModelParam for every entry, 0 where these
/// curves have no point at the frequency (plane waves: wavelength) of the entry.
void GetResultTextBox(int type, int index, std::string& text, const InvRecord& record);

/// Writes the table chosen by SEL_RESULT, for the entry chosen in ITERNO (0 while that list is hidden), to
/// the box RESULTS; "no iteration" when nothing was computed for it.
void PutTextResultsInBox();

inline constexpr long kUnderProjectName = -1, kNoIteration = -2;  ///< data of SaveInvResultCallback

/// Saves all four tables of that entry. kUnderProjectName: without a dialog, as "<project>_f.results" in the
/// current folder, where <project> is the file name without ".da". kNoIteration: "no iteration" under that
/// name, unless there is an older file, which then stays. Otherwise it asks for a name.
/// @return 0; -1 after a message, also when nothing was computed
int SaveInvResultCallback(Panel panel, ControlId control, Event event, long data);

/// A time in seconds, with a suitable unit: "%.2lf sec", "%.2lf msec", "%.2lf usec".
void GetNiceTimeStr(double seconds, std::string& text);

}  // namespace sondera
