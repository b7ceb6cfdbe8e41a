// pair_data.h - creates and updates the record of a receiver pair from the averages of its measurement.
//
// Only this and a project load create pairs. The record then holds transfer function and impulse response;
// CalcIRF (irf.h) computes the rest, so every caller of these functions calls it next. SetupPMeasDataNode and
// UpdatePMeasDataNode of panels/sasw_pair.h do both. No state.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// Appends the record of a pair (channels from 0) to the pair list and fills transfer function, amplitude,
/// phase and impulse response from the averages.
/// @param phaseOption  curve that feeds the dispersion: 0 original, 1 enhanced, 2 backbone
/// Returns the borrowed record; null, with nothing created, for an unknown measurement, one without data or
/// lines, or a channel outside it.
PMeasInfo* MakePairRecord(const std::string& projID, const std::string& measID, int chanA, int chanB,
                          const HWSetup& hwSetup, int phaseOption);

/// Computes the same arrays of an existing record again. Masks, window times and the dispersion curve stay.
/// False, with nothing done, for a null pair, another pair than named, or one with fewer lines.
bool RefreshPairRecord(const std::string& projID, const std::string& measID, int chanA, int chanB,
                       const HWSetup& hwSetup, PMeasInfo* pair);

}  // namespace sondera
