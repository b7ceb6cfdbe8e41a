// receiver_setups.h - the receiver set-ups of each point of a run.
//
// Callers: the sweeps, writers of results, the sensitivity matrix. Owns no state. Set-ups 1
// to 3 are built in (pairs at L/2 and L, L and 2L, 2L and 4L), explicit pairs start at 4. Points, slots, rows
// and set-ups count from 1.
#pragma once

#include "numeric/offset_array.h"
#include "run/system_state.h"

namespace sondera {

/// Fills nRecCfgPerPoint and recCfgOfPoint.
/// @param curveId  0: one set-up for each point of the global curve, table stride nDispPoints; otherwise the
///                 number of an item of obsCurves: all pairs of the item at each of its frequencies, slot k
///                 for pair k, table stride the item's nFreq. For an item that does not exist nothing
///                 changes.
void FS_SetupReceivers(int curveId, const Observations& observations, Receivers& receivers);

/// Collects the set-ups used by any point of the global curve into recSetupList (ascending, from 1; it keeps its
/// size) and counts them in nRecSetupsUsed.
void FS_SearchReceivers(const Observations& observations, Receivers& receivers);

/// Value of a table by slot and point, (k - 1) * nPoints + iPoint, at the slot in which the point has set-up
/// iRec; 0.0 when the point does not use it.
double FS_CheckRecNo(const Receivers& receivers, int nPoints, int iPoint, int iRec,
                     const OffsetVector<double>& table);

/// Frequency and pair of observation row iRow of an item of array curves; rows count the non-zero velocities
/// point by point, pair by pair within a point. Both 0 when there is no such row.
void FS_GetFreqIDAndRecPairID(const ObsCurve& curve, int iRow, int* iFreq, int* iPair);

}  // namespace sondera
