// system_model.h - what is done with the state of a run: sizes at its start, derived elastic properties,
// model vector, layer at a depth, and the growth of the result records.
//
// Callers: drivers of forward runs and of inversions, in this order: FS_AllocMemoryBlocks, then the set-up of
// observations, then the solvers. Owned state: `run` of system_state.h. Settings that no ground and no survey
// has (a damaged file) end in one message and the result -1, before anything is allocated.
#pragma once

#include "run/system_state.h"

namespace sondera {

// --- Sizes of a run ---

/// Counts that a run is sized by.
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

/// The counts above from FModelParam and the parameter choice of InvParam. Resets iPriorIter to 0 and
/// ampScale to 1.
RunSizes FS_InitVars();

/// Sizes and zeroes all vectors of the run for FModelParam, and numbers ModelMap for the parameter choice of
/// InvParam: thickness of all layers but the half-space for 2 and 3, Vs of all layers for 1 and 3, H before
/// Vs in each layer. Switches stay.
/// @return 0; -1 after a message when a count or the whole is beyond the limits above: then nothing changed
[[nodiscard]] int FS_AllocMemoryBlocks();

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
/// which 1: n becomes the row stride of ModelMap (at most the layers it was made for); 2: the number of model
/// parameters. Allocates nothing.
void FS_AllocateModelInfo(int which, int n);
/// Set-ups of a run with n explicit pairs: nRecSetups = n + 3.
void FS_AllocateRecSetup(int n);
/// Tables of n strata, zero. Kept: the release leaves the fourth column (Vp) in place; the next allocation
/// takes its place.
void FS_AllocateStrataPropLayer(int n);
void FS_DeAllocateStrataPropLayer();
/// Integer vector 1..4n.
void FS_AllocateStrataModelInfo(int n);
void FS_DeAllocateStrataModelInfo();

}  // namespace sondera
