// window_tuning.h - windows of the filtration around the strongest wave group, and a check whether the time
// range of the Gabor map suits it. Part of the automatic masking.
#pragma once

#include <vector>

#include "records/measdb.h"
#include "signal/wave_groups.h"

namespace sondera {

/// The map over time at the frequency of the strongest extreme that was not rejected, or at row 0 if all
/// were.
struct StrongestGroup {
  std::vector<double> overTime;  ///< [nT]
  int column = 0;                ///< of the largest value, the first one
  double height = 0.0;           ///< that value
};

/// Makes the amplitudes of rejected peaks negative and uses the strongest extreme.
/// nF, nT as they were given to IdentifyWaveGroup.
StrongestGroup TakeStrongestGroup(WaveGroups& groups, int nF, int nT);

/// Sets the eight window times of the pair: from the session's velocities in plain length units, to seven
/// figures. Then, where a group rises above 92: the backbone window extends to where the map falls to 92
/// before and after the group, with its tapers at 93; the enhanced window begins at once, passes the backbone
/// window, and ends at twice its end at the latest. A time that is not found keeps its value from the
/// velocities.
/// @param spacing   absolute distance of the receivers, length units
/// @param timeStep  of the map's columns, s
/// @param found     false: no extremes, so only the velocities count
void TuneWindows(const StrongestGroup& group, double spacing, double timeStep, bool found, PMeasInfo& pair);

/// A better final time for the map, s; 0 when the present one suits the group or when none can be determined:
/// three times the decay of the group if it ends in the first quarter, twice the decay if it fills more than
/// half; in both cases only if the map covers less than half of the record (timeLength, s) and the new range
/// fits in the record.
double BetterFinalTime(const StrongestGroup& group, double threshold, double timeStep, double finalTime,
                       double timeLength);

}  // namespace sondera
