// update_dump.h - the vectors and matrices of an update as plain text, for debugging.
//
// Callers: the update of an inversion with run.switches.iDumpMatrices on, which every update turns off at its start.
// Writes into the current folder. Owned state: none.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"
#include "runtime/listener.h"

namespace sondera {

/// Writes "compvel_obsvel.dat", "Cm", "DeltaVel", "G", "Hessian", "InvH", "Weight", "InvCd", "Gt_Cdi",
/// "InvCm", "DeltaModel" and run.switches.baseName + ".sh" (the Hessian), and prints iteration, model, residuals,
/// diagonals and correction. Hessian and Cm are shown in their state after the update, as LU factors.
/// A file that cannot be written is reported and left out.
/// @param velocity  computed velocity by observation row
void DumpUpdate(const Run& run, const OffsetVector<double>& velocity, Listener& listener);

}  // namespace sondera
