// sim_driver.h - a board with a simulated site, for teaching, tests and trying the program.
//
// One device, "Sim1": the standard ground of simulated_blows.h, with receivers and source at the places of
// the current measurement. It grants any rate from its lowest to 102400 Hz and filters by itself.
#pragma once

#include <string>
#include <string_view>

#include "acquisition/daq_driver.h"

namespace sondera {

extern const DaqDriver daqSimulated;

/// Installs the driver with its options: seed, channels, noise, hum, hum_hz, blow, miss, overload, fail,
/// minrate, pace. Returns "", or one sentence about the options: then nothing is installed.
std::string InstallSimulatedBoard(std::string_view options);

/// The devices of the driver, as lines for the list of boards.
std::string SimulatedBoardText();

}  // namespace sondera
