// result_statistics.h - posterior statistics of an inversion in text files.
//
// Callers: the update of an inversion (FS_SaveGaussParam, before the model moves) and its driver
// (FS_SavePostMPar, after it). Files as in result_files.h. Method: linearised Gaussian inversion; data
// resolution N = G W, model resolution R = W G, with the spread functions of Backus and Gilbert and of
// Dirichlet (Menke, 1984). Owned state: none.
#pragma once

#include "numeric/column_matrix.h"
#include "numeric/offset_array.h"
#include "run/system_state.h"
#include "runtime/listener.h"

namespace sondera {

/// ".pcm": variance of every free parameter after the update against the one before, and its 95 % limits,
/// from run.update.InvH and run.parameters.Cm. Kept: the third table is titled Poisson's ratio and shows nu,
/// while its row of the model is that of Vp; and after an update in data space InvH is not computed, so the
/// former values appear.
void FS_SavePostMPar(const Run& run, int iteration, double rmsVel, Listener& listener);

/// ".n" and ".r" in an inversion, ".N", ".R0" and ".R1" under their switches; the resolution of Vs also into
/// the entry run.course.iCurIterNo of InvParam, 1 where Vs is fixed.
/// Nothing while run.switches.withoutResults.
/// @param G         sensitivities of the rows in use, by parameter; goes with run.update.Weight
/// @param velocity  computed velocity by observation row. A row i of G is the i-th row with
///                  iNoVelocity 0 and a deviation above 0
void FS_SaveGaussParam(const Run& run, const ColumnMatrix& G, const OffsetVector<double>& velocity,
                       Listener& listener);

}  // namespace sondera
