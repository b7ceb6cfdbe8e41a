// posterior_covariance.h - the covariance of the layers' shear-wave velocities after the last update.
//
// Only a run in memory has it: the project file keeps the resolution alone, and the result files keep the
// variances. Owned state: none.
#pragma once

#include <vector>

#include "run/system_state.h"

namespace sondera {

/// Covariance of Vs, (length/s)^2, row by row, layers x layers; rows and columns of fixed layers are 0.
/// Empty unless the last update of the run gave the entry of InvParam: the variances have to be those that its
/// resolution gives. So an update in data space, which has no covariance of the model, and an entry of another
/// run have none.
/// @param[in] entry  iteration, from 1
std::vector<double> VelocityCovariance(const Run& run, int entry);

}  // namespace sondera
