// alsa_driver.h - sound cards as boards: a USB audio interface with two geophones is a cheap instrument.
//
// Devices "Snd0", "Snd1", ... are the cards of the machine that can record; with the option device=hw:...
// that one is "Snd0". The card runs without a break from the first start to the end of the task; this driver
// does trigger and decimation on its samples. Built where ALSA's library is installed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "acquisition/daq_driver.h"

namespace sondera {

extern const DaqDriver daqAlsa;

/// Installs the driver with its options: volts (of full scale), channels, bits (of a sample: 16, 24 or 32),
/// and last device=hw:... Returns "", or one sentence about wrong options or a device that cannot be opened:
/// then nothing is installed.
std::string InstallAlsaBoard(std::string_view options);

/// The cards that can record, as lines for the list of boards.
std::string AlsaBoardText();

/// Rate of the card and integer factor whose quotient is the lowest at or above `rate`; the nearest possible
/// where there is none.
struct CardRate {
  int rate = 0;    ///< Hz, of the card
  int factor = 1;  ///< from the card's rate to the record's
};
CardRate ChooseCardRate(const std::vector<int>& rates, double rate);

}  // namespace sondera
