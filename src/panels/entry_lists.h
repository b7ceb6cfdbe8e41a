// entry_lists.h - the three lists that name the stored results: ITERNO of the results page, COPYPRF of the
// forward-model panel, and INV_SMP of the inversion panel. An item is the number of an entry: k of InvParam, -k of
// SMPParam.
//
// Callers: start of a run, the project file, the settings of a forward run. Owns no state.
#pragma once

#include <vector>

#include "records/inv_records.h"

namespace sondera {

/// Empties the lists. INV_SMP keeps its fixed first item "Given Model P." with value 0.
void ClearEntryLists();

/// The numbers in the lists.
EntryNumbers ReadEntryLists();
/// Empties the lists and fills them with the numbers, labelled "INV k" and "SMP k". The fixed item of INV_SMP is not
/// among the numbers.
void ShowEntryLists(const EntryNumbers& numbers);

/// The iterations that the results page offers, ascending.
std::vector<int> StoredEntries();

}  // namespace sondera
