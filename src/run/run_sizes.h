// run_sizes.h - the sizes of a run, and the named points in its life.
//
// Callers: drivers of forward runs and of inversions, in this order: SizeRun, then the set-up of
// observations, then the solvers. Owned state: none. Impossible settings
// (from a damaged file) are refused before anything is allocated.
#pragma once

#include "records/model_records.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

// --- Sizes of a run ---

/// Counts that determine the sizes of a run.
struct RunSizes {
  int nLayersCur = 0;
  int recMax1 = 0;  ///< set-ups of the global curve: 3 or 4 as GlobalRecType, otherwise 0
  int recMax2 = 0;  ///< set-ups of the array curves: curves plus 3
  int nDispG = 0;   ///< points of the global curve
  int nObs = 0;     ///< array rows: points of a curve, plus one for each non-zero entry of the velocity table
  int nPoints = 0;  ///< points of an array curve
  int nFiles = 0;   ///< curve files: 1
  int nModel = 0;   ///< free parameters before the lists of constrained layers
  int nRecLoc = 0;  ///< receivers
};

/// The counts above. iPriorIter becomes 0, ampScale 1.
/// @param modelParm  parameters that an inversion varies, see ModelParameters of kinds.h
RunSizes FS_InitVars(const ModelRecord& settings, int modelParm, Course& course);

/// Sizes and zeroes all vectors of the run, and numbers ModelMap: thickness of all layers but the half-space
/// if it is varied, Vs of all layers, H before Vs in each layer. Calls FS_InitVars; switches stay. Refuses a
/// count, or a total, beyond the limits of run_limits.h: then the vectors do not change.
Refusal SizeRun(Run& run, const ModelRecord& settings, int modelParm);

// Named points in the life of a run. The vectors own their storage, so most of them do nothing.
void FS_AllocateObsData(int n);
void FS_AllocatePropLayer(int n);
void FS_DeAllocatePropLayer();
void FS_DeAllocateObsData();
void FS_DeAllocateRecSetup();
void FS_DeAllocateModelInfo();
void DeAllocatePropLayer();
void DeAllocateModelInfo();
void DeAllocateObsData();
void DeAllocateRecSetup();
/// which 1: n becomes the row stride of ModelMap (at most the layers of its size); 2: the number of model
/// parameters. Allocates nothing.
void FS_AllocateModelInfo(Parameters& parameters, int which, int n);
/// Set-ups of a run with n explicit pairs: nRecSetups = n + 3.
void FS_AllocateRecSetup(Receivers& receivers, int n);
/// Tables of n strata, zero. Kept: the release does not release the fourth column (Vp); the next allocation
/// replaces it.
void FS_AllocateStrataPropLayer(StrataTables& strata, int n);
void FS_DeAllocateStrataPropLayer(StrataTables& strata);
/// Integer vector 1..4n.
void FS_AllocateStrataModelInfo(StrataTables& strata, int n);
void FS_DeAllocateStrataModelInfo(StrataTables& strata);

}  // namespace sondera
