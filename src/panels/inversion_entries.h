// inversion_entries.h - the layers of stored profiles as settings of a run, and space for the entries of a
// run.
//
// Callers: the session of the inversion. Owned state: none.
#pragma once

#include "records/inv_records.h"
#include "records/model_records.h"

namespace sondera {

/// Copies the layers of the profile `index` (at or above 0 of InvParam, below 0 of SMPParam) to a settings
/// record, which grows if it is too small.
/// @return 0; -1 after a message when that profile is not stored
[[nodiscard]] int TakeProfile(int index, ModelRecord& to);

/// Allocates entries 0..entries of an existing record, contents kept.
/// @return 0; -1 after a message when the tables would be too large: nothing changed
[[nodiscard]] int ReserveEntries(InvRecord& record, int entries);

/// Settings of an inversion: those of FModelParam with the layers of profile InvParam.iSelected, 0 for its
/// own. FModelParam keeps its layers.
/// @return 0; -1 after a message when that profile is not stored
[[nodiscard]] int TakeStartingModel(ModelRecord& start);

}  // namespace sondera
