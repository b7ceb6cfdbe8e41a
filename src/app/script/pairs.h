// pairs.h - receiver pairs in the words of a script: measurement id, reference channel, channel, from 1.
#pragma once

#include <optional>
#include <string>

#include "app/script/words.h"
#include "records/measdb.h"

namespace sondera::script {

/// ID, REF and CHANNEL of a line.
struct NamedPair {
  std::string id;
  int ref = 0, channel = 0;  ///< from 0
  int key = -1;
};

/// Throws Fault for channels below 1. For the check of a form.
void CheckChannels(const Arguments& a);

/// The measurement of an id in the present project, with the channels. Throws Fault for an unknown id, with
/// the nearest one, and for channels that the measurement does not have.
NamedPair NamedPairOf(const Arguments& a);

/// The pair that a line names. Throws Fault when nothing has been computed of it yet.
PMeasInfo& PairOfArguments(const Arguments& a);

/// Velocity of a pair's dispersion curve at a frequency, Hz, linear between its points; no value outside
/// them.
std::optional<double> VelocityOfPair(const PMeasInfo& pair, double frequency);

}  // namespace sondera::script
