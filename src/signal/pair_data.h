// pair_data.h - makes and refreshes the record of a receiver pair out of the averages of its measurement.
//
// This and a project load are the only ways in which a pair comes to exist. The record holds transfer function
// and impulse response then; CalcIRF (irf.h) makes the rest of it, so whoever calls these calls that next.
// SetupPMeasDataNode and UpdatePMeasDataNode of panels/sasw_pair.h do both. No state.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// Makes the record of a pair (channels from 0) at the end of the pair list and fills transfer function,
/// amplitude, phase and impulse response from the averages.
/// @param phaseOption  curve that feeds the dispersion: 0 original, 1 enhanced, 2 backbone
/// Returns the borrowed record; null, and nothing is made, for an unknown measurement, one without data or
/// lines, or a channel outside it.
PMeasInfo* MakePairRecord(const std::string& projID, const std::string& measID, int chanA, int chanB,
                          const HWSetup& hwSetup, int phaseOption);

/// Computes the same arrays of an existing record anew. Masks, window times and the dispersion curve stay.
/// False, and nothing is done, for a null pair, another pair than named, or one made for fewer lines.
bool RefreshPairRecord(const std::string& projID, const std::string& measID, int chanA, int chanB,
                       const HWSetup& hwSetup, PMeasInfo* pair);

}  // namespace sondera
