// result_entries.h - the result of a run in the records: the curves in TheoDispInfo, curves and model in an
// entry of InvParam (index 0 and above) or SMPParam (below 0: entry -index), and back.
//
// Callers: drivers of forward runs and inversions, the viewing of a stored entry, the writers of results.
// Owned state: none.
#pragma once

#include "numeric/offset_array.h"
#include "records/inv_records.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

/// Record and entry of an index of the lists of results.
InvRecord& RecordOfIndex(int index);
int EntryOfIndex(int index);

/// Whether the rows of the run are points of the global curve: the run uses that curve, or it is a plane-wave
/// run with data, which always uses the global points.
bool RowsAreGlobal(const Run& run);
/// The same for the contents of TheoDispInfo and the entries.
bool StoredIsGlobal();

/// Writes a computed curve by row to TheoDispInfo and to the entry, with its misfit; array curves go to their
/// places by the map of points, 0 where there is none. A velocity of 0 has wavelength 0.
/// @return refused when there is no space for the entry
Refusal FS_RefreshDspCurve(const Run& run, int index, const OffsetVector<double>& velocity, double rms);

/// Writes the layers of the run to the entry, with running depth: top of the layer, and at nLayers the end
/// for plots. That end uses half the thickness of the layer above where the half-space is more than twice as
/// thick as it. @return as above; without a reason where there is no layer
Refusal FS_RefreshModelPar(const LayeredGround& ground, int index);

/// Copies the curves of an entry to TheoDispInfo. Nothing happens for an entry that was never stored.
void FS_RecallDspCurve(int index);
/// Copies the layers of an entry to TheoDispInfo. Kept: elements 1 to nLayers are copied; the surface layer
/// (element 0) keeps the value that the caller set.
void FS_RecallModelPar(int index);

/// Posterior standard deviation of the Vs of layer i (from 0) of an entry: the prior one, from the entry
/// before, reduced by the resolution; 0 for entry 0 and for starting profiles. Kept: a factor of exactly 1 is
/// relative here.
double PosteriorDeviation(int index, int i);

}  // namespace sondera
