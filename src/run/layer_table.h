// layer_table.h - the layers of a run as its model vector, and the stratum at a depth.
//
// Callers: the set-up of a run and of starting profiles, the inversion. Properties that follow from the
// layers only are in forward/layered_ground.h. Owned state: none.
#pragma once

#include "run/system_state.h"

namespace sondera {

/// Copies the layer values of all free parameters (positive entries of ModelMap) to rModel and rModelPrior,
/// and their uncertainty factors to UFModel. Other elements stay as they are.
void FS_SystemSetup(const LayeredGround& ground, Parameters& parameters);

/// Number of the stratum that contains a depth, by the tops of the strata; the last one for every depth below
/// its top or above the first.
int FS_GetStrataID(const StrataTables& strata, double depth);

}  // namespace sondera
