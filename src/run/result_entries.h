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

/// Whether the rows of the run are points of the global curve: it is on that curve, or it is a
/// plane-wave run with data, which works on the global points in any case.
bool RowsAreGlobal(const Run& run);
/// The same of what TheoDispInfo and the entries hold.
bool StoredIsGlobal();

/// Computed curve by row into TheoDispInfo and into the entry, with its misfit; array curves go to their
/// places by the map of points, 0 where there is none. A velocity of 0 has wavelength 0.
/// @return refused when there is no room for the entry
Refusal FS_RefreshDspCurve(const Run& run, int index, const OffsetVector<double>& velocity, double rms);

/// Layers of the run into the entry, with running depth: top of the layer, and at nLayers the end for plots,
/// which takes half the thickness of the layer above where the half-space is more than twice as thick as
/// that. @return as above; without a reason where there is no layer
Refusal FS_RefreshModelPar(const LayeredGround& ground, int index);

/// Curves of an entry into TheoDispInfo. Nothing happens for an entry that was never stored.
void FS_RecallDspCurve(int index);
/// Layers of an entry into TheoDispInfo. Kept: elements 1 to nLayers are moved, so the surface layer
/// (element 0) stays as whoever calls has set it.
void FS_RecallModelPar(int index);

/// Posterior standard deviation of the Vs of layer i (from 0) of an entry: the prior one, from the entry
/// before, reduced by the resolution; 0 for entry 0 and for starting profiles. Kept: a factor of exactly 1 is
/// relative here.
double PosteriorDeviation(int index, int i);

}  // namespace sondera
