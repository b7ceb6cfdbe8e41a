// inversion_state.h - the state that inversion/ keeps between two runs.
#pragma once

#include <vector>

namespace sondera {

/// An inversion from one start.
struct StartResult {
  double start = 0.0;      ///< Vs of the uniform ground; 0: the given model
  double chi = 0.0;        ///< at its end
  std::vector<double> Vs;  ///< profile at its end, surface layer first
};

/// Spread of the profiles for each layer, the given model's included.
struct StartSpread {
  int iteration = 0;  ///< entry of InvParam that it belongs to
  std::vector<StartResult> results;
  std::vector<double> lowest, highest;
};

struct InversionState {
  StartSpread spread;  ///< of the last run, until the next one; see several_starts.h
};
extern InversionState inversionState;

/// State of a fresh start.
void ResetInversionState();

}  // namespace sondera
